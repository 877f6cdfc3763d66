#include <glyphwright/platform/raster/stroke_outline.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace glyphwright::raster {
namespace {

// Beyond this many pixels only the direction counts.
constexpr float kFarthest = 1e9F;

}  // namespace

const StrokeSegments& SegmentMemory::roomFor(std::size_t count) {
  const std::size_t wanted = count + 16;
  if (cubics_.size() >= wanted) return lists_;
  // All or nothing: what is known of segments is not needed any more, and what throws has changed
  // nothing.
  const std::size_t room = 2 * wanted;
  std::vector<StrokeCubic> cubics(room);
  std::vector<float> values(9 * room);
  std::vector<std::int32_t> chords(room);
  std::vector<StrokeNode> nodes(room);
  cubics_ = std::move(cubics);
  values_ = std::move(values);
  chords_ = std::move(chords);
  nodes_ = std::move(nodes);
  float* v = values_.data();
  lists_ = {.cubics = cubics_.data(),
            .startX = v,
            .startY = v + room,
            .startAlongX = v + 2 * room,
            .startAlongY = v + 3 * room,
            .endAlongX = v + 4 * room,
            .endAlongY = v + 5 * room,
            .startReach = v + 6 * room,
            .endReach = v + 7 * room,
            .sector = v + 8 * room,
            .chords = chords_.data()};
  return lists_;
}

std::size_t SegmentMemory::keptBytes() const {
  return cubics_.capacity() * sizeof(StrokeCubic) + values_.capacity() * sizeof(float) +
         chords_.capacity() * sizeof(std::int32_t) + nodes_.capacity() * sizeof(StrokeNode);
}

void OutlineSide::grow(std::size_t corners) {
  const std::size_t wanted = 2 * (count + corners);
  x.resize(wanted + kMargin);
  y.resize(wanted + kMargin);
  room = wanted;  // when both have it
}

void setOrigin(StrokeOutline& outline, const DeviceBox& box, const PixelRect& bitmap) {
  const auto origin = [](double low, double high, double from, double to) {
    const double seen = std::clamp((low + high) * 0.5, from, to);
    return std::floor(std::clamp(seen, low, std::max(low, high)));
  };
  outline.originX = origin(box.minX, box.maxX, bitmap.x0, bitmap.x1);
  outline.originY = origin(box.minY, box.maxY, bitmap.y0, bitmap.y1);
}

void mapCorners(StrokeOutline& outline, const CGAffineTransform& map) {
  for (OutlineSide* side : {&outline.left, &outline.right}) {
    for (std::size_t i = OutlineSide::kMargin; i < side->count; ++i) {
      const CGPoint p = CGPointApplyAffineTransform({side->x[i], side->y[i]}, map);
      side->x[i] = static_cast<float>(p.x);
      side->y[i] = static_cast<float>(p.y);
    }
  }
}

DeviceBox boxOf(StrokeOutline& outline, const Kernels& kernels) {
  constexpr float infinity = std::numeric_limits<float>::infinity();
  CornerBox box{infinity, infinity, -infinity, -infinity, false};
  const auto add = [&](const OutlineSide& side) {
    constexpr std::size_t from = OutlineSide::kMargin;
    if (side.count <= from) return;  // may not even have memory
    const CornerBox part =
        kernels.boxCorners(side.x.data() + from, side.y.data() + from, side.count - from);
    box = {std::min(box.minX, part.minX), std::min(box.minY, part.minY),
           std::max(box.maxX, part.maxX), std::max(box.maxY, part.maxY), box.hasNaN || part.hasNaN};
  };
  // Corners that belong to no contour lie on the area of one.
  add(outline.left);
  add(outline.right);
  if (box.hasNaN) return {NAN, NAN, NAN, NAN};
  if (std::max(std::max(-box.minX, -box.minY), std::max(box.maxX, box.maxY)) > kFarthest) {
    for (OutlineSide* side : {&outline.left, &outline.right}) {
      for (float& v : side->x) v = std::clamp(v, -kFarthest, kFarthest);
      for (float& v : side->y) v = std::clamp(v, -kFarthest, kFarthest);
    }
    for (float* v : {&box.minX, &box.minY, &box.maxX, &box.maxY}) {
      *v = std::clamp(*v, -kFarthest, kFarthest);
    }
  }
  return {box.minX + outline.originX, box.minY + outline.originY, box.maxX + outline.originX,
          box.maxY + outline.originY};
}

void PiecesBox::take(StrokeOutline& piece) {
  const DeviceBox box = boxOf(piece, kernels_);
  // One that is NaN stays so.
  const auto least = [](double a, double b) { return b < a || std::isnan(b) ? b : a; };
  box_ = isFirst_ ? box
                  : DeviceBox{least(box_.minX, box.minX), least(box_.minY, box.minY),
                              -least(-box_.maxX, -box.maxX), -least(-box_.maxY, -box.maxY)};
  isFirst_ = false;
}

}  // namespace glyphwright::raster
