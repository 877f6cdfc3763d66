#include <glyphwright/platform/layers/transform_parts.h>

#include <algorithm>
#include <cmath>

#include <glyphwright/platform/math.h>

namespace glyphwright {
namespace {

CGFloat between(CGFloat a, CGFloat b, double progress) {
  return a == b ? a : a * (1 - progress) + b * progress;
}

bool sameLinearPart(const CGAffineTransform& s, const CGAffineTransform& t) {
  return s.a == t.a && s.b == t.b && s.c == t.c && s.d == t.d;
}

}  // namespace

TransformParts takeApart(const CGAffineTransform& t) {
  TransformParts parts;
  parts.translation = {t.tx, t.ty};
  const CGFloat length = math::hypot(t.a, t.b);
  if (!(length > 0)) {
    // Nothing along x to read a rotation from.
    parts.scaleX = length;
    parts.shear = t.c;
    parts.scaleY = t.d;
    return parts;
  }
  const CGFloat determinant = t.a * t.d - t.b * t.c;
  // Of a mirroring, the axis that points backwards carries the sign: flipping x is not a half turn
  // with y upside down.
  const CGFloat sign = determinant < 0 && t.a < t.d ? -1 : 1;
  parts.rotation = math::atan2(sign * t.b, sign * t.a);
  parts.scaleX = sign * length;
  parts.shear = (t.a * t.c + t.b * t.d) / parts.scaleX;
  parts.scaleY = determinant / parts.scaleX;
  return parts;
}

CGAffineTransform putTogether(const TransformParts& parts) {
  const CGFloat cosine = parts.rotation == 0 ? 1 : math::cos(parts.rotation);
  const CGFloat sine = parts.rotation == 0 ? 0 : math::sin(parts.rotation);
  return {parts.scaleX * cosine,
          parts.scaleX * sine,
          cosine * parts.shear - sine * parts.scaleY,
          sine * parts.shear + cosine * parts.scaleY,
          parts.translation.width,
          parts.translation.height};
}

CGAffineTransform interpolatedTransform(const CGAffineTransform& from, const CGAffineTransform& to,
                                        double progress) {
  const CGSize translation{between(from.tx, to.tx, progress), between(from.ty, to.ty, progress)};
  // A plain movement keeps the rest to the bit.
  if (sameLinearPart(from, to)) {
    return {from.a, from.b, from.c, from.d, translation.width, translation.height};
  }
  TransformParts a = takeApart(from);
  const TransformParts b = takeApart(to);
  if (b.rotation - a.rotation > math::kPi) a.rotation += 2 * math::kPi;
  if (a.rotation - b.rotation > math::kPi) a.rotation -= 2 * math::kPi;
  return putTogether({between(a.rotation, b.rotation, progress),
                      between(a.scaleX, b.scaleX, progress), between(a.scaleY, b.scaleY, progress),
                      between(a.shear, b.shear, progress), translation});
}

CGAffineTransform repeatedTransform(const CGAffineTransform& transform, double times) {
  if (std::isnan(times)) return CGAffineTransformIdentity;
  constexpr double most = 1e6;
  auto count = static_cast<long>(std::floor(std::clamp(std::fabs(times), 0.0, most) + 0.5));
  CGAffineTransform power = times < 0 ? CGAffineTransformInvert(transform) : transform;
  if (count == 1) return power;
  CGAffineTransform result;
  for (; count > 0; count /= 2) {
    if (count % 2 != 0) result = CGAffineTransformConcat(result, power);
    power = CGAffineTransformConcat(power, power);
  }
  return result;
}

}  // namespace glyphwright
