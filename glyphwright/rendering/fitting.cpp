#include <glyphwright/rendering/fitting.h>

#include <algorithm>
#include <cmath>

#include <glyphwright/bezier_path.h>
#include <glyphwright/catalogue/icon_type.h>

namespace glyphwright {
namespace rendering {

CGFloat fittingScale(CGSize from, CGSize box) {
  const CGFloat sx = from.width == 0 ? 1.0 : box.width / from.width;
  const CGFloat sy = from.height == 0 ? 1.0 : box.height / from.height;
  return std::min(sx, sy);
}

CGAffineTransform fittingTransform(const CGRect& bounds, CGSize inner, CGSize outer) {
  const CGFloat scale = fittingScale(bounds.size, inner);
  // A negative factor turns the path over; its width and height stay positive.
  const CGFloat extent = std::fabs(scale);
  return {scale,
          0,
          0,
          scale,
          (outer.width - bounds.size.width * extent) * 0.5,
          (outer.height - bounds.size.height * extent) * 0.5};
}

CGAffineTransform originFittingTransform(const CGRect& bounds, CGSize inner, CGSize outer) {
  CGAffineTransform transform = fittingTransform(bounds, inner, outer);
  transform.tx -= transform.a * bounds.origin.x;
  transform.ty -= transform.d * bounds.origin.y;
  return transform;
}

}  // namespace rendering

void UIBezierPath::translateToZeroPoint() {
  const CGRect box = bounds();
  applyTransform(CGAffineTransformMakeTranslation(-CGRectGetMinX(box), -CGRectGetMinY(box)));
}

void UIBezierPath::scaleToFitSize(CGSize size) {
  const CGFloat scale = rendering::fittingScale(bounds().size, size);
  applyTransform(CGAffineTransformMakeScale(scale, scale));
}

void UIBezierPath::centerAlignWithinSize(CGSize size) {
  const CGSize own = bounds().size;
  applyTransform(CGAffineTransformMakeTranslation((size.width - own.width) * 0.5,
                                                  (size.height - own.height) * 0.5));
}

UIBezierPath& UIBezierPath::size(CGSize size) {
  scaleToFitSize(size);
  return *this;
}

std::optional<UIBezierPath> UIBezierPath::bezierPathWithIcon(IconNumber icon, CGSize size,
                                                             bool translatesToZero) {
  std::optional<UIBezierPath> path = pathForIcon(icon);
  if (!path) return path;
  if (translatesToZero) path->translateToZeroPoint();
  path->scaleToFitSize(size);
  return path;
}

}  // namespace glyphwright
