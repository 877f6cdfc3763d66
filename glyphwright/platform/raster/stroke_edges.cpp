#include <cmath>
#include <limits>

#include <glyphwright/platform/raster/edge_writer.h>
#include <glyphwright/platform/raster/stroke.h>

namespace glyphwright::raster {
namespace {

// Runs round the rings of an outline. `Cuts` where the region cuts it.
template <bool Cuts>
class RingWriter : public CuttingWriter {
 public:
  RingWriter(EdgeList& out, const PixelRect& region, const StrokeOutline& outline)
      : CuttingWriter(out, region),
        shiftX_(static_cast<float>(outline.originX - region.x0)),
        shiftY_(static_cast<float>(outline.originY - region.y0)),
        right_(static_cast<float>(region.width())),
        bottom_(static_cast<float>(region.height())) {}

  void contour(const StrokeOutline& outline, const StrokeOutline::Contour& c) {
    makeRoom(3 * (c.leftEnd - c.leftBegin + c.rightEnd - c.rightBegin));
    if (c.leftBegin < c.leftEnd) {
      begin(outline.left, c.leftBegin);
      for (std::size_t i = c.leftBegin + 1; i < c.leftEnd; ++i) add(outline.left, i);
      if (c.isClosed) end();
    }
    if (c.rightBegin < c.rightEnd) {
      if (c.isClosed) {
        begin(outline.right, c.rightEnd - 1);
      } else {
        add(outline.right, c.rightEnd - 1);
      }
      for (std::size_t i = c.rightEnd - 1; i-- > c.rightBegin;) add(outline.right, i);
      end();
    }
  }

 private:
  struct Corner {
    float x;
    float y;
    std::int32_t units;
    bool isInside;
  };

  Corner cornerAt(const OutlineSide& side, std::size_t i) const {
    const float x = side.x[i] + shiftX_;
    const float y = side.y[i] + shiftY_;
    if constexpr (Cuts) {
      const bool isInside = x >= 0 && x <= right_ && y >= 0 && y <= bottom_;
      return {x, y, isInside ? unitsOf(y) : 0, isInside};
    }
    return {x, y, unitsOf(y), true};
  }
  static std::int32_t unitsOf(float y) {
    return static_cast<std::int32_t>(y * kUnitsPerPixel + 0.5F);
  }

  void begin(const OutlineSide& side, std::size_t i) {
    startRuns();
    first_ = last_ = cornerAt(side, i);
  }
  void add(const OutlineSide& side, std::size_t i) { lineTo(cornerAt(side, i)); }
  void end() { lineTo(first_); }

  void lineTo(const Corner& to) {
    if (!Cuts || (last_.isInside && to.isInside)) {
      push(last_.x, last_.units, to.x, to.units);
    } else {
      segment({last_.x, last_.y}, {to.x, to.y});
    }
    last_ = to;
  }

  float shiftX_;
  float shiftY_;
  float right_;
  float bottom_;
  Corner first_{};
  Corner last_{};
};

template <bool Cuts>
void writeRings(const StrokeOutline& outline, const PixelRect& region, EdgeList& out) {
  RingWriter<Cuts> writer(out, region, outline);
  for (const StrokeOutline::Contour& c : outline.contours) writer.contour(outline, c);
}

// Grows a box by the corners of one side, eight at a time.
class CornerBox {
 public:
  void add(const OutlineSide& side, std::size_t begin, std::size_t end) {
    std::size_t i = begin;
    for (; i + kLanes <= end; i += kLanes) {
      for (std::size_t k = 0; k < kLanes; ++k) addTo(k, side.x[i + k], side.y[i + k]);
    }
    for (; i < end; ++i) addTo(0, side.x[i], side.y[i]);
  }

  DeviceBox box(double originX, double originY) const {
    float x0 = kInfinity, y0 = kInfinity, x1 = -kInfinity, y1 = -kInfinity;
    float poison = 0;
    for (std::size_t k = 0; k < kLanes; ++k) {
      x0 = std::min(x0, minX_[k]);
      y0 = std::min(y0, minY_[k]);
      x1 = std::max(x1, maxX_[k]);
      y1 = std::max(y1, maxY_[k]);
      poison += poison_[k];
    }
    if (poison != 0) return {NAN, NAN, NAN, NAN};
    return {x0 + originX, y0 + originY, x1 + originX, y1 + originY};
  }

 private:
  static constexpr std::size_t kLanes = 8;
  static constexpr float kInfinity = std::numeric_limits<float>::infinity();

  void addTo(std::size_t k, float x, float y) {
    minX_[k] = x < minX_[k] ? x : minX_[k];
    minY_[k] = y < minY_[k] ? y : minY_[k];
    maxX_[k] = x > maxX_[k] ? x : maxX_[k];
    maxY_[k] = y > maxY_[k] ? y : maxY_[k];
    poison_[k] += x * 0 + y * 0;  // stays 0 unless a coordinate is NaN or infinite
  }

  using Lanes = float[kLanes];
  Lanes minX_ = {kInfinity, kInfinity, kInfinity, kInfinity,
                 kInfinity, kInfinity, kInfinity, kInfinity};
  Lanes minY_ = {kInfinity, kInfinity, kInfinity, kInfinity,
                 kInfinity, kInfinity, kInfinity, kInfinity};
  Lanes maxX_ = {-kInfinity, -kInfinity, -kInfinity, -kInfinity,
                 -kInfinity, -kInfinity, -kInfinity, -kInfinity};
  Lanes maxY_ = {-kInfinity, -kInfinity, -kInfinity, -kInfinity,
                 -kInfinity, -kInfinity, -kInfinity, -kInfinity};
  Lanes poison_ = {};
};

}  // namespace

DeviceBox boxOf(const StrokeOutline& outline) {
  CornerBox box;
  for (const StrokeOutline::Contour& c : outline.contours) {
    box.add(outline.left, c.leftBegin, c.leftEnd);
    box.add(outline.right, c.rightBegin, c.rightEnd);
  }
  return box.box(outline.originX, outline.originY);
}

void edgesOfOutline(const StrokeOutline& outline, const DeviceBox& box, const PixelRect& region,
                    EdgeList& out) {
  if (contains(region, box)) {
    writeRings<false>(outline, region, out);
  } else {
    writeRings<true>(outline, region, out);
  }
}

}  // namespace glyphwright::raster
