#include <glyphwright/bezier_path.h>

#include <utility>

namespace glyphwright {

UIBezierPath UIBezierPath::bezierPathWithCGPath(CGPath cgPath) {
  UIBezierPath path;
  path.path_ = std::move(cgPath);
  return path;
}

UIBezierPath UIBezierPath::bezierPathWithRect(const CGRect& rect) {
  UIBezierPath path;
  path.path_.addRect(rect);
  return path;
}

UIBezierPath UIBezierPath::bezierPathWithOvalInRect(const CGRect& rect) {
  UIBezierPath path;
  path.path_.addEllipseInRect(rect);
  return path;
}

UIBezierPath UIBezierPath::bezierPathWithRoundedRect(const CGRect& rect, CGFloat cornerRadius) {
  return bezierPathWithRoundedRect(rect, UIRectCorner::allCorners, {cornerRadius, cornerRadius});
}

UIBezierPath UIBezierPath::bezierPathWithRoundedRect(const CGRect& rect,
                                                     UIRectCorner byRoundingCorners,
                                                     CGSize cornerRadii) {
  UIBezierPath path;
  path.path_.addRoundedRect(rect, byRoundingCorners, cornerRadii);
  return path;
}

UIBezierPath UIBezierPath::bezierPathByReversingPath() const {
  UIBezierPath path = *this;
  path.path_ = path_.reversed();
  return path;
}

CGRect UIBezierPath::bounds() const {
  const CGRect box = path_.boundingBox();
  // The null rectangle's infinite origin must not reach later arithmetic.
  return CGRectIsNull(box) ? CGRectZero : box;
}

}  // namespace glyphwright
