#include <glyphwright/platform/raster/gradient_source.h>

#include <algorithm>
#include <cmath>
#include <cstring>

#include <glyphwright/platform/math.h>

namespace glyphwright::raster {
namespace {

std::uint32_t packed(const CGColor& color) {
  const SolidColor solid = solidColor(color.red(), color.green(), color.blue(), color.alpha());
  std::uint8_t bytes[4];
  for (int c = 0; c < 4; ++c) bytes[c] = toByte(solid.channels[c]);
  std::uint32_t word = 0;
  std::memcpy(&word, bytes, sizeof(word));
  return word;
}

CGColor mixed(const CGColor& a, const CGColor& b, double t) {
  const auto mix = [t](double from, double to) { return from + (to - from) * t; };
  return {mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue()),
          mix(a.alpha(), b.alpha())};
}

bool isInvertible(const CGAffineTransform& t) {
  const double determinant = t.a * t.d - t.b * t.c;
  return determinant != 0 && std::isfinite(determinant);
}

// The longest that a unit length becomes under the transform, within a factor of √2.
double stretch(const CGAffineTransform& t) {
  return std::sqrt(std::max(t.a * t.a + t.b * t.b, t.c * t.c + t.d * t.d));
}

}  // namespace

GradientRamp::GradientRamp(const CGGradient& gradient, double devicePixels)
    : stops_(gradient.stops()),
      first_(packed(stops_.front().color)),
      last_(packed(stops_.back().color)) {
  const double wanted = devicePixels * 2;
  size_ = wanted > 32 ? static_cast<std::uint32_t>(std::min(wanted, 4096.0)) : 32;
}

// The first stop that lies beyond the entry, looked for from `from` on.
std::size_t GradientRamp::stopBeyond(std::size_t index, std::size_t from) const {
  while (from < stops_.size() && stops_[from].location <= place(index)) ++from;
  return from;
}

std::uint32_t GradientRamp::entry(std::size_t index, std::size_t next) const {
  if (next == 0) return first_;
  if (next == stops_.size()) return last_;
  const CGGradient::Stop& a = stops_[next - 1];
  const CGGradient::Stop& b = stops_[next];
  const double part = (place(index) - a.location) / (b.location - a.location);
  return packed(mixed(a.color, b.color, part));
}

void GradientRamp::fill() {
  entries_.resize(size_);
  std::size_t next = 0;
  for (std::size_t i = 0; i < size_; ++i) {
    next = stopBeyond(i, next);
    entries_[i] = entry(i, next);
  }
}

std::uint32_t GradientRamp::entryAt(double location) const {
  if (!(location >= 0)) return first_;
  if (location >= static_cast<double>(size_)) return last_;
  const auto index = static_cast<std::size_t>(location);
  return entry(index, stopBeyond(index, 0));
}

LinearGradientSource::LinearGradientSource(const CGGradient& gradient, CGPoint start, CGPoint end,
                                           CGGradientDrawingOptions options,
                                           const CGAffineTransform& toDevice)
    : ramp_(gradient, stretch(toDevice) * math::hypot(end.x - start.x, end.y - start.y)),
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
  if (perColumn_ != 0) ramp_.fill();
}

std::optional<SolidColor> LinearGradientSource::rowColor(int y) const {
  if (perColumn_ != 0) return std::nullopt;
  const double entry = base_ + perRow_ * y;
  return isOutside(entry) ? SolidColor{} : solidColor(ramp_.entryAt(entry));
}

void LinearGradientSource::pixels(int x, int y, std::size_t count, std::uint8_t* rgba) const {
  const double first = base_ + perColumn_ * x + perRow_ * y;
  for (std::size_t i = 0; i < count; ++i) {
    const double entry = first + perColumn_ * static_cast<double>(i);
    std::uint32_t word = perColumn_ == 0 ? ramp_.entryAt(entry) : ramp_.at(entry);
    if (isOutside(entry)) word = 0;
    std::memcpy(rgba + i * 4, &word, sizeof(word));
  }
}

RadialGradientSource::RadialGradientSource(const CGGradient& gradient, CGPoint center,
                                           CGFloat radius, const CGAffineTransform& toDevice)
    : ramp_(gradient, stretch(toDevice) * radius) {
  if (!(radius > 0) || !std::isfinite(radius) || !isInvertible(toDevice)) return;
  const double scale = ramp_.size() / radius;
  toUnit_ = CGAffineTransformConcat(
      CGAffineTransformConcat(CGAffineTransformInvert(toDevice),
                              CGAffineTransformMakeTranslation(-center.x, -center.y)),
      CGAffineTransformMakeScale(scale, scale));
  drawable_ = std::isfinite(toUnit_.tx) && std::isfinite(toUnit_.ty);
  ramp_.fill();
}

void RadialGradientSource::pixels(int x, int y, std::size_t count, std::uint8_t* rgba) const {
  for (std::size_t i = 0; i < count; ++i) {
    const CGPoint p =
        CGPointApplyAffineTransform({x + static_cast<double>(i) + 0.5, y + 0.5}, toUnit_);
    const std::uint32_t word = ramp_.at(std::sqrt(p.x * p.x + p.y * p.y));
    std::memcpy(rgba + i * 4, &word, sizeof(word));
  }
}

ConicGradientSource::ConicGradientSource(const CGGradient& gradient, CGPoint center, CGFloat angle,
                                         const CGAffineTransform& toDevice)
    : ramp_(gradient, 2048), angle_(angle) {
  if (!std::isfinite(angle) || !isInvertible(toDevice)) return;
  toCentered_ = CGAffineTransformConcat(CGAffineTransformInvert(toDevice),
                                        CGAffineTransformMakeTranslation(-center.x, -center.y));
  drawable_ = std::isfinite(toCentered_.tx) && std::isfinite(toCentered_.ty);
  ramp_.fill();
}

void ConicGradientSource::pixels(int x, int y, std::size_t count, std::uint8_t* rgba) const {
  constexpr double turn = 2 * math::kPi;
  for (std::size_t i = 0; i < count; ++i) {
    const CGPoint p =
        CGPointApplyAffineTransform({x + static_cast<double>(i) + 0.5, y + 0.5}, toCentered_);
    double part = (math::atan2(p.y, p.x) - angle_) / turn;
    part -= std::floor(part);
    const std::uint32_t word = ramp_.at(part * ramp_.size());
    std::memcpy(rgba + i * 4, &word, sizeof(word));
  }
}

}  // namespace glyphwright::raster
