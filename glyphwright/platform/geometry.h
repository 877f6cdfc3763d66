#pragma once

#include <limits>

namespace glyphwright {

/// A coordinate or length in points unless a name says otherwise.
using CGFloat = double;

/// A position in a y-down plane, in points.
struct CGPoint {
  CGFloat x = 0;  ///< To the right.
  CGFloat y = 0;  ///< Down.

  friend constexpr bool operator==(const CGPoint&, const CGPoint&) = default;
};

/// A width and a height in points; either may be negative, zero or not finite.
struct CGSize {
  CGFloat width = 0;   ///< Across.
  CGFloat height = 0;  ///< Down.

  friend constexpr bool operator==(const CGSize&, const CGSize&) = default;
};

/// A rectangle in points. Negative sizes are kept as given; the CGRectGet… accessors read the
/// rectangle as if it had been standardised.
struct CGRect {
  CGPoint origin;  ///< Upper left where the size is not negative.
  CGSize size;     ///< Kept as given.

  constexpr CGRect() = default;
  /// Any numbers, kept as given.
  constexpr CGRect(CGPoint o, CGSize s) : origin(o), size(s) {}
  constexpr CGRect(CGFloat x, CGFloat y, CGFloat width, CGFloat height)
      : origin{x, y}, size{width, height} {}

  friend constexpr bool operator==(const CGRect&, const CGRect&) = default;
};

/// The rectangle of nothing: origin at infinity, no size. Not equal to the zero rectangle.
inline constexpr CGRect CGRectNull{std::numeric_limits<CGFloat>::infinity(),
                                   std::numeric_limits<CGFloat>::infinity(), 0, 0};
/// Origin (0, 0), no size.
inline constexpr CGRect CGRectZero{};

/// Sides of the area that the rectangle covers, also where its width or height is negative.
constexpr CGFloat CGRectGetMinX(const CGRect& r) {
  return r.size.width < 0 ? r.origin.x + r.size.width : r.origin.x;
}
constexpr CGFloat CGRectGetMinY(const CGRect& r) {
  return r.size.height < 0 ? r.origin.y + r.size.height : r.origin.y;
}
constexpr CGFloat CGRectGetMaxX(const CGRect& r) {
  return r.size.width < 0 ? r.origin.x : r.origin.x + r.size.width;
}
constexpr CGFloat CGRectGetMaxY(const CGRect& r) {
  return r.size.height < 0 ? r.origin.y : r.origin.y + r.size.height;
}
/// The centre.
constexpr CGFloat CGRectGetMidX(const CGRect& r) {
  return r.origin.x + r.size.width * 0.5;
}
constexpr CGFloat CGRectGetMidY(const CGRect& r) {
  return r.origin.y + r.size.height * 0.5;
}
/// Never negative.
constexpr CGFloat CGRectGetWidth(const CGRect& r) {
  return r.size.width < 0 ? -r.size.width : r.size.width;
}
constexpr CGFloat CGRectGetHeight(const CGRect& r) {
  return r.size.height < 0 ? -r.size.height : r.size.height;
}

/// Whether the origin lies at infinity.
constexpr bool CGRectIsNull(const CGRect& r) {
  constexpr CGFloat infinity = std::numeric_limits<CGFloat>::infinity();
  return r.origin.x == infinity || r.origin.y == infinity;
}

/// True for the null rectangle and for one without area.
constexpr bool CGRectIsEmpty(const CGRect& r) {
  return CGRectIsNull(r) || r.size.width == 0 || r.size.height == 0;
}

/// The same area with a non-negative size.
constexpr CGRect CGRectStandardize(const CGRect& r) {
  return {CGRectGetMinX(r), CGRectGetMinY(r), CGRectGetWidth(r), CGRectGetHeight(r)};
}

/// Moves each side inwards by `dx`, `dy` (negative values grow). A side that would become negative
/// gives the null rectangle; a side of exactly zero stays.
CGRect CGRectInset(const CGRect& rect, CGFloat dx, CGFloat dy);
/// The rectangle moved by (dx, dy); null stays null.
CGRect CGRectOffset(const CGRect& rect, CGFloat dx, CGFloat dy);
/// The smallest rectangle around both; a null rectangle does not count, a zero-sized one does.
CGRect CGRectUnion(const CGRect& a, const CGRect& b);
/// The common area; null when the rectangles do not meet.
CGRect CGRectIntersection(const CGRect& a, const CGRect& b);
/// Includes the minimum edges, excludes the maximum ones.
bool CGRectContainsPoint(const CGRect& rect, CGPoint point);

/// x' = a·x + c·y + tx, y' = b·x + d·y + ty.
struct CGAffineTransform {
  CGFloat a = 1;   ///< x by x.
  CGFloat b = 0;   ///< y by x.
  CGFloat c = 0;   ///< x by y.
  CGFloat d = 1;   ///< y by y.
  CGFloat tx = 0;  ///< The move to the right.
  CGFloat ty = 0;  ///< The move down.

  friend constexpr bool operator==(const CGAffineTransform&, const CGAffineTransform&) = default;
};

inline constexpr CGAffineTransform CGAffineTransformIdentity{};  ///< Moves nothing.

/// A move by (tx, ty).
constexpr CGAffineTransform CGAffineTransformMakeTranslation(CGFloat tx, CGFloat ty) {
  return {1, 0, 0, 1, tx, ty};
}
/// A scale about the origin.
constexpr CGAffineTransform CGAffineTransformMakeScale(CGFloat sx, CGFloat sy) {
  return {sx, 0, 0, sy, 0, 0};
}
/// A turn by `angle` radians about the origin; positive turns +x towards +y, clockwise on screen.
CGAffineTransform CGAffineTransformMakeRotation(CGFloat angle);

/// The transform that applies `first`, then `second`.
constexpr CGAffineTransform CGAffineTransformConcat(const CGAffineTransform& first,
                                                    const CGAffineTransform& second) {
  return {first.a * second.a + first.b * second.c,
          first.a * second.b + first.b * second.d,
          first.c * second.a + first.d * second.c,
          first.c * second.b + first.d * second.d,
          first.tx * second.a + first.ty * second.c + second.tx,
          first.tx * second.b + first.ty * second.d + second.ty};
}
/// The inverse, or `transform` itself when it has none (a determinant of zero or not finite).
CGAffineTransform CGAffineTransformInvert(const CGAffineTransform& transform);

/// The point mapped.
constexpr CGPoint CGPointApplyAffineTransform(CGPoint p, const CGAffineTransform& t) {
  return {t.a * p.x + t.c * p.y + t.tx, t.b * p.x + t.d * p.y + t.ty};
}
/// The bounding box of the transformed corners; null stays null.
CGRect CGRectApplyAffineTransform(const CGRect& rect, const CGAffineTransform& transform);

}  // namespace glyphwright
