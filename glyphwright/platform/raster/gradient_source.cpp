#include <glyphwright/platform/raster/gradient_source.h>

#include <algorithm>
#include <cmath>
#include <cstring>

#include <glyphwright/platform/math.h>

namespace glyphwright::raster {
namespace {

bool isInvertible(const CGAffineTransform& t) {
  const double determinant = t.a * t.d - t.b * t.c;
  return determinant != 0 && std::isfinite(determinant);
}

// The longest that a unit length becomes under the transform, within a factor of √2.
double stretch(const CGAffineTransform& t) {
  return std::sqrt(std::max(t.a * t.a + t.b * t.b, t.c * t.c + t.d * t.d));
}

// A table's entry for a place counted from its first one, which stands for all before.
std::uint32_t entryOf(const Ramp& table, double place) {
  const double atLeast = place > 0 ? place : 0;
  return table.entries[static_cast<std::size_t>(atLeast < table.last ? atLeast : table.last)];
}

}  // namespace

LinearGradientSource::LinearGradientSource(const CGGradient& gradient, CGPoint start, CGPoint end,
                                           CGGradientDrawingOptions options,
                                           const CGAffineTransform& toDevice, Scratch& scratch)
    : ramp_(gradient, stretch(toDevice) * math::hypot(end.x - start.x, end.y - start.y),
            *scratch.kernels),
      kernels_(*scratch.kernels),
      before_(contains(options, CGGradientDrawingOptions::drawsBeforeStartLocation)),
      after_(contains(options, CGGradientDrawingOptions::drawsAfterEndLocation)) {
  const double dx = end.x - start.x;
  const double dy = end.y - start.y;
  const double square = dx * dx + dy * dy;
  if (!(square > 0) || !std::isfinite(square) || !std::isfinite(start.x) ||
      !std::isfinite(start.y) || !isInvertible(toDevice)) {
    return;
  }
  const CGAffineTransform inverse = CGAffineTransformInvert(toDevice);
  const double perUnit = ramp_.size() / square;
  perColumn_ = (inverse.a * dx + inverse.b * dy) * perUnit;
  perRow_ = (inverse.c * dx + inverse.d * dy) * perUnit;
  const CGPoint corner = CGPointApplyAffineTransform({0.5, 0.5}, inverse);
  base_ = ((corner.x - start.x) * dx + (corner.y - start.y) * dy) * perUnit;
  drawable_ = std::isfinite(base_) && std::isfinite(perColumn_) && std::isfinite(perRow_);
  if (perColumn_ != 0) table_ = ramp_.table(scratch.ramp);
}

PixelSource::Rows LinearGradientSource::rows() const {
  if (perColumn_ == 0) return Rows::even;
  return perRow_ == 0 ? Rows::same : Rows::vary;
}

void LinearGradientSource::rowColors(int y, std::span<std::uint32_t> pixels) const {
  ramp_.read(base_, perRow_, y, pixels);
  if (before_ && after_) return;
  for (std::size_t i = 0; i < pixels.size(); ++i) {
    if (isOutside(base_ + perRow_ * (y + static_cast<double>(i)))) pixels[i] = 0;
  }
}

void LinearGradientSource::pixels(int x, int y, std::size_t count, std::uint8_t* rgba) const {
  if (perColumn_ == 0) {
    std::uint32_t pixel = 0;
    rowColors(y, {&pixel, 1});
    return fillPixels(rgba, count, solidColor(pixel));
  }
  const double first = base_ + perColumn_ * x + perRow_ * y;
  // The table's second entry is the first one within the gradient.
  kernels_.rampPixels(rgba, table_, first + 1, perColumn_, count);
  if (!before_ || !after_) clearOutside(first, count, rgba);
}

// Entries rise or fall along the row: what lies outside begins at its ends.
void LinearGradientSource::clearOutside(double first, std::size_t count, std::uint8_t* rgba) const {
  const auto isClear = [&](std::size_t i) {
    return isOutside(first + perColumn_ * static_cast<double>(i));
  };
  std::size_t from = 0;
  while (from < count && isClear(from)) ++from;
  std::size_t until = count;
  while (until > from && isClear(until - 1)) --until;
  std::memset(rgba, 0, from * 4);
  std::memset(rgba + until * 4, 0, (count - until) * 4);
}

RadialGradientSource::RadialGradientSource(const CGGradient& gradient, CGPoint center,
                                           CGFloat radius, const CGAffineTransform& toDevice,
                                           Scratch& scratch) {
  if (!(radius > 0) || !std::isfinite(radius) || !isInvertible(toDevice)) return;
  GradientRamp ramp(gradient, stretch(toDevice) * radius, *scratch.kernels);
  const double scale = ramp.size() / radius;
  toUnit_ = CGAffineTransformConcat(
      CGAffineTransformConcat(CGAffineTransformInvert(toDevice),
                              CGAffineTransformMakeTranslation(-center.x, -center.y)),
      CGAffineTransformMakeScale(scale, scale));
  drawable_ = std::isfinite(toUnit_.tx) && std::isfinite(toUnit_.ty);
  table_ = ramp.table(scratch.ramp);
}

void RadialGradientSource::pixels(int x, int y, std::size_t count, std::uint8_t* rgba) const {
  for (std::size_t i = 0; i < count; ++i) {
    const CGPoint p =
        CGPointApplyAffineTransform({x + static_cast<double>(i) + 0.5, y + 0.5}, toUnit_);
    const std::uint32_t word = entryOf(table_, std::sqrt(p.x * p.x + p.y * p.y) + 1);
    std::memcpy(rgba + i * 4, &word, sizeof(word));
  }
}

ConicGradientSource::ConicGradientSource(const CGGradient& gradient, CGPoint center, CGFloat angle,
                                         const CGAffineTransform& toDevice, Scratch& scratch)
    : angle_(angle) {
  if (!std::isfinite(angle) || !isInvertible(toDevice)) return;
  toCentered_ = CGAffineTransformConcat(CGAffineTransformInvert(toDevice),
                                        CGAffineTransformMakeTranslation(-center.x, -center.y));
  drawable_ = std::isfinite(toCentered_.tx) && std::isfinite(toCentered_.ty);
  table_ = GradientRamp(gradient, 2048, *scratch.kernels).table(scratch.ramp);
}

void ConicGradientSource::pixels(int x, int y, std::size_t count, std::uint8_t* rgba) const {
  constexpr double turn = 2 * math::kPi;
  const double size = table_.last - 1;
  for (std::size_t i = 0; i < count; ++i) {
    const CGPoint p =
        CGPointApplyAffineTransform({x + static_cast<double>(i) + 0.5, y + 0.5}, toCentered_);
    double part = (math::atan2(p.y, p.x) - angle_) / turn;
    part -= std::floor(part);
    const std::uint32_t word = entryOf(table_, part * size + 1);
    std::memcpy(rgba + i * 4, &word, sizeof(word));
  }
}

}  // namespace glyphwright::raster
