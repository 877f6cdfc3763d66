#include <glyphwright/platform/raster/gradient_source.h>

#include <algorithm>
#include <cmath>

#include <glyphwright/platform/math.h>

namespace glyphwright::raster {
namespace {

bool isInvertible(const CGAffineTransform& t) {
  const double determinant = t.a * t.d - t.b * t.c;
  return determinant != 0 && std::isfinite(determinant);
}

PixelPlaces placesOf(const CGAffineTransform& t, int x, int y) {
  return {x + 0.5, t.a, t.b, t.c * (y + 0.5) + t.tx, t.d * (y + 0.5) + t.ty};
}

// The colours at places that are worked out from points one by one.
template <typename Place>
void putEach(GradientRamp& ramp, const PixelPlaces& at, std::size_t count, std::uint8_t* rgba,
             const Place& place) {
  for (std::size_t from = 0; from < count; from += GradientRamp::kAtOnce) {
    double places[GradientRamp::kAtOnce];
    const std::size_t some = std::min(count - from, GradientRamp::kAtOnce);
    for (std::size_t i = 0; i < some; ++i) {
      const double column = at.column + static_cast<double>(from + i);
      places[i] = place(at.perColumnX * column + at.x, at.perColumnY * column + at.y);
    }
    ramp.readEach(places, some, rgba + from * 4);
  }
}

}  // namespace

LinearGradientSource::LinearGradientSource(const CGGradient& gradient, CGPoint start, CGPoint end,
                                           CGGradientDrawingOptions options,
                                           const CGAffineTransform& toDevice,
                                           const Kernels& kernels)
    : ramp_(gradient, options, kernels) {
  const double dx = end.x - start.x;
  const double dy = end.y - start.y;
  const double square = dx * dx + dy * dy;
  if (!(square > 0) || !std::isfinite(square) || !std::isfinite(start.x) ||
      !std::isfinite(start.y) || !isInvertible(toDevice)) {
    return;
  }
  const CGAffineTransform inverse = CGAffineTransformInvert(toDevice);
  perColumn_ = (inverse.a * dx + inverse.b * dy) / square;
  perRow_ = (inverse.c * dx + inverse.d * dy) / square;
  const CGPoint corner = CGPointApplyAffineTransform({0.5, 0.5}, inverse);
  base_ = ((corner.x - start.x) * dx + (corner.y - start.y) * dy) / square;
  drawable_ = std::isfinite(base_) && std::isfinite(perColumn_) && std::isfinite(perRow_);
  if (drawable_) ramp_.setStep(perColumn_ == 0 ? perRow_ : perColumn_);
}

PixelSource::Rows LinearGradientSource::rows() const {
  if (perColumn_ == 0) return Rows::even;
  return perRow_ == 0 ? Rows::same : Rows::vary;
}

void LinearGradientSource::rowColors(int y, std::span<std::uint32_t> pixels) const {
  ramp_.read(base_, y, pixels.size(), reinterpret_cast<std::uint8_t*>(pixels.data()));
}

void LinearGradientSource::pixels(int x, int y, std::size_t count, std::uint8_t* rgba) const {
  if (perColumn_ == 0) {
    std::uint32_t pixel = 0;
    rowColors(y, {&pixel, 1});
    return fillPixels(rgba, count, solidColor(pixel));
  }
  ramp_.read(base_ + perRow_ * y, x, count, rgba);
}

RadialGradientSource::RadialGradientSource(const CGGradient& gradient, CGPoint center,
                                           CGFloat radius, const CGAffineTransform& toDevice,
                                           const Kernels& kernels)
    : ramp_(gradient, CGGradientDrawingOptions::drawsBeforeAndAfter, kernels),
      runs_(ramp_.runs()),
      kernels_(kernels) {
  if (!(radius > 0) || !std::isfinite(radius) || !isInvertible(toDevice)) return;
  toUnit_ = CGAffineTransformConcat(
      CGAffineTransformConcat(CGAffineTransformInvert(toDevice),
                              CGAffineTransformMakeTranslation(-center.x, -center.y)),
      CGAffineTransformMakeScale(1 / radius, 1 / radius));
  drawable_ = std::isfinite(toUnit_.tx) && std::isfinite(toUnit_.ty);
}

void RadialGradientSource::pixels(int x, int y, std::size_t count, std::uint8_t* rgba) const {
  const PixelPlaces places = placesOf(toUnit_, x, y);
  if (!runs_.empty()) return kernels_.mixRings(runs_, places, count, rgba);
  putEach(ramp_, places, count, rgba,
          [](double px, double py) { return std::sqrt(px * px + py * py); });
}

ConicGradientSource::ConicGradientSource(const CGGradient& gradient, CGPoint center, CGFloat angle,
                                         const CGAffineTransform& toDevice, const Kernels& kernels)
    : ramp_(gradient, CGGradientDrawingOptions::drawsBeforeAndAfter, kernels),
      runs_(ramp_.runs()),
      kernels_(kernels) {
  if (!std::isfinite(angle) || !isInvertible(toDevice)) return;
  const double turns = angle / (2 * math::kPi);
  origin_ = turns - std::floor(turns);
  const CGAffineTransform centered = CGAffineTransformConcat(
      CGAffineTransformInvert(toDevice), CGAffineTransformMakeTranslation(-center.x, -center.y));
  // Pixels are about one apart then, whatever the scale, and no float is too small for them.
  const double scale = 1 / std::max({std::fabs(centered.a), std::fabs(centered.b),
                                     std::fabs(centered.c), std::fabs(centered.d)});
  toCentered_ = CGAffineTransformConcat(centered, CGAffineTransformMakeScale(scale, scale));
  drawable_ = std::isfinite(toCentered_.tx) && std::isfinite(toCentered_.ty);
}

void ConicGradientSource::pixels(int x, int y, std::size_t count, std::uint8_t* rgba) const {
  const PixelPlaces places = placesOf(toCentered_, x, y);
  if (!runs_.empty()) return kernels_.mixRays(runs_, places, origin_, count, rgba);
  putEach(ramp_, places, count, rgba, [&](double px, double py) {
    const double past = math::atan2(py, px) / (2 * math::kPi) - origin_;
    return past - std::floor(past);
  });
}

}  // namespace glyphwright::raster
