#include <glyphwright/platform/geometry.h>
#include <glyphwright/platform/math.h>

#include <algorithm>
#include <cmath>

namespace glyphwright {

CGRect CGRectInset(const CGRect& rect, CGFloat dx, CGFloat dy) {
  if (CGRectIsNull(rect)) return rect;
  const CGRect r = CGRectStandardize(rect);
  const CGFloat width = r.size.width - dx * 2;
  const CGFloat height = r.size.height - dy * 2;
  if (width < 0 || height < 0) return CGRectNull;
  return {r.origin.x + dx, r.origin.y + dy, width, height};
}

CGRect CGRectOffset(const CGRect& rect, CGFloat dx, CGFloat dy) {
  if (CGRectIsNull(rect)) return rect;
  return {rect.origin.x + dx, rect.origin.y + dy, rect.size.width, rect.size.height};
}

CGRect CGRectUnion(const CGRect& a, const CGRect& b) {
  if (CGRectIsNull(a)) return b;
  if (CGRectIsNull(b)) return a;
  const CGFloat minX = std::min(CGRectGetMinX(a), CGRectGetMinX(b));
  const CGFloat minY = std::min(CGRectGetMinY(a), CGRectGetMinY(b));
  const CGFloat maxX = std::max(CGRectGetMaxX(a), CGRectGetMaxX(b));
  const CGFloat maxY = std::max(CGRectGetMaxY(a), CGRectGetMaxY(b));
  return {minX, minY, maxX - minX, maxY - minY};
}

CGRect CGRectIntersection(const CGRect& a, const CGRect& b) {
  if (CGRectIsNull(a) || CGRectIsNull(b)) return CGRectNull;
  const CGFloat minX = std::max(CGRectGetMinX(a), CGRectGetMinX(b));
  const CGFloat minY = std::max(CGRectGetMinY(a), CGRectGetMinY(b));
  const CGFloat maxX = std::min(CGRectGetMaxX(a), CGRectGetMaxX(b));
  const CGFloat maxY = std::min(CGRectGetMaxY(a), CGRectGetMaxY(b));
  // Written so that a NaN side also counts as not meeting.
  if (!(maxX >= minX) || !(maxY >= minY)) return CGRectNull;
  return {minX, minY, maxX - minX, maxY - minY};
}

bool CGRectContainsPoint(const CGRect& rect, CGPoint point) {
  return point.x >= CGRectGetMinX(rect) && point.x < CGRectGetMaxX(rect) &&
         point.y >= CGRectGetMinY(rect) && point.y < CGRectGetMaxY(rect);
}

CGAffineTransform CGAffineTransformMakeRotation(CGFloat angle) {
  const CGFloat s = math::sin(angle);
  const CGFloat c = math::cos(angle);
  return {c, s, -s, c, 0, 0};
}

CGAffineTransform CGAffineTransformInvert(const CGAffineTransform& t) {
  const CGFloat determinant = t.a * t.d - t.b * t.c;
  if (determinant == 0 || !std::isfinite(determinant)) return t;
  return {t.d / determinant,
          -t.b / determinant,
          -t.c / determinant,
          t.a / determinant,
          (t.c * t.ty - t.d * t.tx) / determinant,
          (t.b * t.tx - t.a * t.ty) / determinant};
}

CGRect CGRectApplyAffineTransform(const CGRect& rect, const CGAffineTransform& transform) {
  if (CGRectIsNull(rect)) return rect;
  const CGFloat x0 = CGRectGetMinX(rect);
  const CGFloat y0 = CGRectGetMinY(rect);
  const CGFloat x1 = CGRectGetMaxX(rect);
  const CGFloat y1 = CGRectGetMaxY(rect);
  CGRect box = CGRectNull;
  for (const CGPoint corner :
       {CGPoint{x0, y0}, CGPoint{x1, y0}, CGPoint{x1, y1}, CGPoint{x0, y1}}) {
    box = CGRectUnion(box, {CGPointApplyAffineTransform(corner, transform), CGSize{}});
  }
  return box;
}

}  // namespace glyphwright
