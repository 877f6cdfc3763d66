#include <span>
#include <utility>

#include <glyphwright/bezier_path.h>

namespace glyphwright {
namespace {

// The angles as callers write them, a quarter turn apart.
constexpr CGFloat kRight = 0;
constexpr CGFloat kDown = 1.5707963267948966;
constexpr CGFloat kLeft = 3.141592653589793;
constexpr CGFloat kUp = 4.71238898038469;

UIBezierPath polygon(std::span<const CGPoint> corners) {
  CGMutablePath path;
  path.addLines(corners);
  path.closeSubpath();
  return UIBezierPath::bezierPathWithCGPath(std::move(path));
}

// A box with round top corners, without the part that `cut` covers: wound against the box, the cut
// takes its area away under the non-zero rule.
UIBezierPath boxWithCut(const CGRect& rect, CGFloat radius, const UIBezierPath& cut) {
  UIBezierPath path = UIBezierPath::bezierPathWithRoundedRect(
      rect, UIRectCorner::topLeft | UIRectCorner::topRight, {radius, radius});
  path.appendPath(cut.bezierPathByReversingPath());
  return path;
}

}  // namespace

UIBezierPath UIBezierPath::curataInfoViewPath(const CGRect& with) {
  const CGPoint corners[] = {
      {CGRectGetMinX(with), CGRectGetMinY(with) + 8},
      {CGRectGetMinX(with), CGRectGetMaxY(with)},
      {CGRectGetMaxX(with), CGRectGetMaxY(with)},
      {CGRectGetMaxX(with), CGRectGetMidY(with)},
  };
  return polygon(corners);
}

UIBezierPath UIBezierPath::curataTagBorder(const CGRect& with, CGFloat cornerRadius) {
  constexpr CGFloat width = 3;  // of the frame
  const CGFloat minX = CGRectGetMinX(with);
  const CGFloat maxX = CGRectGetMaxX(with);
  const CGFloat maxY = CGRectGetMaxY(with);
  // The band's upper edge at the left and at the right. Inside the frame it lies higher, and more
  // so at the left: the two slants are not parallel by design.
  const CGFloat left = maxY - 60 + 8 + 1;
  const CGFloat right = maxY - 30;

  const CGPoint outerBand[] = {{minX, left}, {maxX, right}, {maxX, maxY}, {minX, maxY}};
  const CGPoint innerBand[] = {{minX + width, left - 15},
                               {maxX - width, right - 4},
                               {maxX - width, maxY - width},
                               {minX + width, maxY - width}};
  UIBezierPath path = boxWithCut(with, cornerRadius, polygon(outerBand));
  const UIBezierPath inner =
      boxWithCut(CGRectInset(with, width, width), cornerRadius - width, polygon(innerBand));
  path.appendPath(inner.bezierPathByReversingPath());
  return path;
}

UIBezierPath UIBezierPath::rectWithRoundedCorners(const CGRect& rect, CGFloat topLeftRadius,
                                                  CGFloat topRightRadius, CGFloat bottomLeftRadius,
                                                  CGFloat bottomRightRadius) {
  return rectWithRoundedCorners(CGRectGetWidth(rect), CGRectGetHeight(rect), topLeftRadius,
                                topRightRadius, bottomLeftRadius, bottomRightRadius);
}

UIBezierPath UIBezierPath::rectWithRoundedCorners(CGSize size, CGFloat topLeftRadius,
                                                  CGFloat topRightRadius, CGFloat bottomLeftRadius,
                                                  CGFloat bottomRightRadius) {
  return rectWithRoundedCorners(size.width, size.height, topLeftRadius, topRightRadius,
                                bottomLeftRadius, bottomRightRadius);
}

UIBezierPath UIBezierPath::rectWithRoundedCorners(CGFloat width, CGFloat height,
                                                  CGFloat topLeftRadius, CGFloat topRightRadius,
                                                  CGFloat bottomLeftRadius,
                                                  CGFloat bottomRightRadius) {
  UIBezierPath path;
  path.moveToPoint({topLeftRadius, 0});
  path.addLineToPoint({width - topRightRadius, 0});
  path.addArcWithCenter({width - topRightRadius, topRightRadius}, topRightRadius, kUp, kRight,
                        true);
  path.addLineToPoint({width, height - bottomRightRadius});
  path.addArcWithCenter({width - bottomRightRadius, height - bottomRightRadius}, bottomRightRadius,
                        kRight, kDown, true);
  path.addLineToPoint({bottomLeftRadius, height});
  path.addArcWithCenter({bottomLeftRadius, height - bottomLeftRadius}, bottomLeftRadius, kDown,
                        kLeft, true);
  path.addLineToPoint({0, topLeftRadius});
  path.addArcWithCenter({topLeftRadius, topLeftRadius}, topLeftRadius, kLeft, kUp, true);
  path.closePath();
  return path;
}

}  // namespace glyphwright
