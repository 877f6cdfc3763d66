#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include <glyphwright/platform/raster/edges.h>
#include <glyphwright/platform/raster/stroke_geometry.h>

namespace glyphwright::raster {

/// The corners along one side of a stroke, in device pixels from the outline's origin.
struct OutlineSide {
  /// Loops read whole eights, so there are eight unused corners at either end.
  static constexpr std::size_t kMargin = 8;

  std::vector<float> x;  // grow only; the first `count` are in use
  std::vector<float> y;
  std::size_t count = kMargin;
  std::size_t room = 0;  // for corners in all

  void clear() { count = kMargin; }
  /// Where the next corner goes, and how far corners have been written there.
  float* endX() { return x.data() + count; }
  float* endY() { return y.data() + count; }
  void endAt(const float* end) { count = static_cast<std::size_t>(end - x.data()); }
  void makeRoom(std::size_t corners) {
    if (room < count + corners) grow(corners);
  }
  void put(float px, float py) {
    makeRoom(1);
    x[count] = px;
    y[count] = py;
    ++count;
  }
  void put(const float* px, const float* py, std::size_t corners) {
    makeRoom(corners);
    std::copy_n(px, corners, x.data() + count);
    std::copy_n(py, corners, y.data() + count);
    count += corners;
  }

 private:
  void grow(std::size_t corners);
};

/// The end of a piece of a curve, and the area between the piece and its chord.
struct PieceEnd {
  pen::PenPlace place;
  double hollow;
  double chord;
};

/// Working memory for the segments of strokes; lists grow only.
class SegmentMemory {
 public:
  /// Room for `count` segments and the eights that loops read and write beyond them.
  const StrokeSegments& roomFor(std::size_t count);
  const StrokeSegments& lists() const { return lists_; }
  const std::vector<StrokeNode>& nodes() const { return nodes_; }
  StrokeNode* nodeData() { return nodes_.data(); }
  std::size_t keptBytes() const;

 private:
  std::vector<StrokeCubic> cubics_;
  std::vector<float> values_;
  std::vector<std::int32_t> chords_;
  std::vector<StrokeNode> nodes_;
  StrokeSegments lists_{};
};

/// The outline of a stroke, or a piece of it. Where a contour is closed, its left side is one ring
/// of corners and its right side, run backwards, another. Where it is open, the left side, the
/// right side run backwards and the two straight ends between them are one ring. All rings wind the
/// stroke's area the same way, so that the non-zero rule gives their union.
struct StrokeOutline {
  /// Corners `begin` to `end` of both sides, each of them a line from the first to the last one;
  /// those of a ring of its own end where they begin. Discs and caps have nothing on the right.
  struct Contour {
    std::size_t leftBegin;
    std::size_t leftEnd;
    std::size_t rightBegin;
    std::size_t rightEnd;
    /// Whether straight ends lead from side to side.
    bool hasStart;
    bool hasEnd;
  };

  /// A contour of the path: where it starts, and its segments that lead anywhere. After those of a
  /// closed one its first segment stands once more. One without segments is a dot when it has more
  /// than a move.
  struct Listed {
    CGPoint start;
    std::size_t segment;
    std::size_t segmentCount;
    bool isClosed;
    bool isDot;
  };

  /// Whole device pixels, near what is seen of the stroke, so that floats are fine enough from here
  /// on.
  double originX = 0;
  double originY = 0;
  OutlineSide left;
  OutlineSide right;
  std::vector<Contour> contours;
  /// Working memory: the path's contours, each segment's four points as x and y, those of lines and
  /// quadratics raised to cubics, and what is known of segments.
  std::vector<Listed> listed;
  std::vector<const double*> curves;
  std::vector<CGPoint> raised;
  SegmentMemory segments;
  /// For curves that take more than even steps.
  std::vector<PieceEnd> pieceEnds;
  /// And for telling the corners outside a region.
  std::vector<std::uint8_t> outside;
  /// And for what runs through each row of one.
  std::vector<int> rowRuns;

  void clear() {
    left.clear();
    right.clear();
    contours.clear();
  }
  /// How many segments are prepared at once (four at least), and how many corners of a side are
  /// kept before they are handed on; pictures do not depend on these.
  std::size_t mostSegments = 256;
  std::size_t mostCorners = std::size_t{1} << 16;
  bool isFull() const {
    return std::max(left.count, right.count) > mostCorners || contours.size() > mostCorners / 8;
  }
};

/// Takes outlines that are too long to be kept, piece by piece.
class OutlineSink {
 public:
  virtual void take(StrokeOutline& piece) = 0;

 protected:
  ~OutlineSink() = default;
};

/// Sets the origin for a stroke whose points have `box` around them, in device pixels: its middle,
/// or, where it reaches far beyond the bitmap, what of it lies nearest to that; floats are finest
/// where the stroke is seen.
void setOrigin(StrokeOutline& outline, const DeviceBox& box, const PixelRect& bitmap);

/// Maps all corners.
void mapCorners(StrokeOutline& outline, const CGAffineTransform& map);

/// The box around all corners, in device pixels; one that touches no pixel when there are none or
/// one is NaN. Corners far beyond all pictures, where only the direction counts, are pulled nearer.
DeviceBox boxOf(StrokeOutline& outline, const Kernels& kernels);

/// The box around the pieces of an outline.
class PiecesBox final : public OutlineSink {
 public:
  explicit PiecesBox(const Kernels& kernels) : kernels_(kernels) {}
  void take(StrokeOutline& piece) override;
  const DeviceBox& box() const { return box_; }

 private:
  const Kernels& kernels_;
  DeviceBox box_;
  bool isFirst_ = true;
};

}  // namespace glyphwright::raster
