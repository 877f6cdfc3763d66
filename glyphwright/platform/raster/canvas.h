#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include <glyphwright/platform/raster/coverage.h>
#include <glyphwright/platform/raster/pixel_rect.h>
#include <glyphwright/platform/raster/pixel_source.h>

namespace glyphwright::raster {

/// Coverage of an area, as 15-bit fractions, row by row. Moves only; the values of a new one are
/// undefined.
struct Mask {
  PixelRect bounds;
  /// From row to row: whole blocks, with room beyond the row's end that holds nothing of use.
  std::size_t stride;
  std::unique_ptr<std::uint16_t[]> owned;
  std::uint16_t* values;

  explicit Mask(const PixelRect& area)
      : bounds(area),
        stride(strideOf(area)),
        owned(std::make_unique_for_overwrite<std::uint16_t[]>(sizeOf(area))),
        values(owned.get()) {}
  /// In memory that somebody keeps for it, with a block to spare on either side.
  Mask(const PixelRect& area, MaskMemory& memory) : bounds(area), stride(strideOf(area)) {
    const std::size_t size = sizeOf(area) + 2 * kBlock;
    if (memory.values.size() < size) memory.values.resize(size);
    values = memory.values.data() + kBlock;
  }
  std::size_t bytes() const { return sizeOf(bounds) * sizeof(std::uint16_t); }
  std::uint16_t* row(int y) { return values + static_cast<std::size_t>(y - bounds.y0) * stride; }
  const std::uint16_t* row(int y) const {
    return values + static_cast<std::size_t>(y - bounds.y0) * stride;
  }

 private:
  static std::size_t strideOf(const PixelRect& area) {
    return area.isEmpty() ? 0 : cellStride(area.width());
  }
  static std::size_t sizeOf(const PixelRect& area) {
    return area.isEmpty() ? 0 : strideOf(area) * static_cast<std::size_t>(area.height());
  }
};

/// What a shape is painted with: one colour, or pixels of a source times an alpha.
struct Paint {
  SolidColor color;
  const PixelSource* source = nullptr;
  std::int16_t sourceAlpha = kOne;  // a fraction

  bool isClear() const { return source == nullptr ? color.isClear() : sourceAlpha == 0; }
};

/// Where a canvas keeps its pixels; as it is, in memory of its own.
struct PixelMemory {
  /// What an image left, at least as large as the canvas.
  std::shared_ptr<std::uint8_t[]> left;
  /// Somebody else's, with these bytes from row to row.
  std::uint8_t* callers = nullptr;
  std::size_t rowBytes = 0;
};

/// A bitmap that is written late: while nothing has been painted it is a ground of one colour, and
/// the first painting lays the ground and itself in one pass over memory.
class Canvas {
 public:
  /// `bounds` are device pixels; they need not start at the origin. Throws std::bad_alloc.
  Canvas(const PixelRect& bounds, const SolidColor& ground, const PixelMemory& memory = {});

  const PixelRect& bounds() const { return bounds_; }
  /// Lays the whole canvas in one colour; nothing is written yet.
  void setGround(const SolidColor& ground);
  /// Nothing has been painted, over nothing.
  bool isUntouched() const { return pristine_ && ground_.isClear(); }
  /// Makes a canvas larger: what is new is clear.
  void growTo(const PixelRect& bounds);
  /// Multiplies the pixels by the alpha of another canvas, which is clear beyond its bounds. Both
  /// are real.
  void multiplyByAlpha(const Canvas& mask);

  /// Paints rows of coverage. `clip` may be null; it must cover the region's rows and columns.
  /// Rows come top to bottom; every row of `region`, which lies inside the bounds, is given once.
  class Painter final : public RowSink {
   public:
    Painter(Canvas& canvas, const PixelRect& region, const Paint& paint, const Mask* clip,
            Scratch& scratch, For what = For::shape);
    Painter(const Painter&) = delete;
    Painter& operator=(const Painter&) = delete;
    /// What an exception cut short on a pristine canvas is not seen: it is pristine again.
    ~Painter() { canvas_.pristine_ |= laysGround_ && !finished_; }
    void row(const CoverageRow& row) override;
    bool cells(int y, const CellRows& rows) override;
    /// Lays the ground in the rows below the region.
    void finish();

   private:
    void layGround(int y, int rows) const;
    void span(std::uint8_t* rgba, const CoverageSpan& span, const std::uint16_t* coverage, int y);
    void paintCells(std::uint8_t* rgba, int y, const CellRows& rows,
                    const std::uint32_t* rowColors);
    void solid(std::uint8_t* rgba, const std::uint16_t* coverage, std::size_t count);

    Canvas& canvas_;
    PixelRect region_;
    const Paint& paint_;
    const Mask* clip_;
    Lease<PainterMemory> memory_;
    const Kernels& kernels_;
    PixelSource::Rows rows_;
    bool laysGround_;
    bool finished_ = false;
    bool writes_;  // over a clear ground nothing needs blending
  };

  /// Rows of a region of a canvas that is pristine, for somebody who writes all their pixels; the
  /// ground is laid around them. Rows are asked for from top to bottom, each of `region`, which
  /// lies inside the bounds, once.
  class FreshRows {
   public:
    FreshRows(Canvas& canvas, const PixelRect& region);
    FreshRows(const FreshRows&) = delete;
    FreshRows& operator=(const FreshRows&) = delete;
    ~FreshRows() { canvas_.pristine_ |= !finished_; }
    /// The pixel at (region.x0, y), after which `rows` rows may be written.
    std::uint8_t* at(int y, int rows = 1);
    std::size_t rowBytes() const { return canvas_.rowBytes_; }
    /// How many rows a loop that writes cells may be given at once.
    int rowsAtOnce(int rows) const { return canvas_.isTight() ? rows : 1; }
    /// Lays the ground in the rows below the region.
    void finish();

   private:
    Canvas& canvas_;
    PixelRect region_;
    bool finished_ = false;
  };

  /// Writes the ground where nothing else did; after this, pixels are real.
  void materialize();
  /// The pixel at (bounds().x0, y).
  std::uint8_t* rowAt(int y) {
    return pixels_.get() + static_cast<std::size_t>(y - bounds_.y0) * rowBytes_;
  }
  const std::uint8_t* rowAt(int y) const {
    return pixels_.get() + static_cast<std::size_t>(y - bounds_.y0) * rowBytes_;
  }
  /// The finished pixels without padding, shared: drawing on afterwards copies them first. Of
  /// somebody else's memory, a copy.
  std::shared_ptr<const std::uint8_t[]> share();

 private:
  void detach();
  void layGround(std::uint8_t* rgba, std::size_t count) const;
  // What follows a row is the next one. Elsewhere it is somebody else's, and a loop that is given
  // several rows would take pixels there along and write them back: it is given one at a time.
  bool isTight() const { return rowBytes_ == static_cast<std::size_t>(bounds_.width()) * 4; }
  void layRows(int from, int to);
  // Left and right of a region, in rows from `y` on.
  void layBeside(int y, int rows, const PixelRect& region);

  PixelRect bounds_;
  std::size_t rowBytes_;
  std::shared_ptr<std::uint8_t[]> pixels_;
  SolidColor ground_;
  bool pristine_ = true;
  bool shared_ = false;
};

/// Sets `count` pixels to one premultiplied colour.
void fillPixels(std::uint8_t* rgba, std::size_t count, const SolidColor& color);

/// A premultiplied colour from components (clamped to 0…1) times an alpha.
SolidColor solidColor(double red, double green, double blue, double alpha);

}  // namespace glyphwright::raster
