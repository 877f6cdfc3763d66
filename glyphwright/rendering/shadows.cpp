#include <glyphwright/rendering/shadows.h>

#include <cmath>

#include <glyphwright/platform/context_stack.h>
#include <glyphwright/platform/contexts/graphics_context.h>
#include <glyphwright/platform/screen.h>

namespace glyphwright {
namespace rendering {
namespace {

// The platform truncates shadow offsets to whole pixels; a little more than the wanted length, away
// from zero, keeps rounding noise from costing a pixel.
CGFloat nudged(CGFloat offset) {
  return offset + std::copysign(0.1, offset);
}

// What casts an inset shadow is the area around the path. It stands wholly to the left of the path,
// outside the clip, and its shadow is sent back by the same distance: only the shadow shows. The
// platform cuts the whole offset to pixels, so the distance is the width in whole points. That
// alone could leave half a point between the two, and a pixel that they share; four points more are
// whole pixels at every scale in quarters, and cut nothing else off.
contexts::InsetShadow insetShadow(const CGRect& bounds, const NSShadow& shadow) {
  const CGSize wanted = shadow.shadowOffset();
  const CGFloat blur = shadow.shadowBlurRadius();
  CGRect around = CGRectInset(bounds, -blur, -blur);
  around = CGRectOffset(around, -wanted.width, -wanted.height);
  around = CGRectInset(CGRectUnion(around, bounds), -1, -1);
  const CGFloat aside = std::round(around.size.width) + 4;
  return {around,
          aside,
          {nudged(wanted.width + aside), nudged(wanted.height)},
          blur,
          *shadow.shadowColor()};
}

bool showsInset(CGContextRef context, const UIBezierPath& path, const NSShadow& shadow) {
  return context && !path.isEmpty() && shadow.shadowColor() && shadow.shadowColor()->alpha() != 0;
}

}  // namespace

bool castsShadow(CGSize offset, CGFloat blur, const std::optional<UIColor>& color) {
  return color && color->alpha() > 0 && std::isfinite(offset.width) &&
         std::isfinite(offset.height) && (offset.width != 0 || offset.height != 0 || blur > 0);
}

void drawInsetShadow(CGContextRef context, const UIBezierPath& path, const NSShadow& shadow) {
  if (!showsInset(context, path, shadow)) return;
  context->castInset(path.cgPath(), path.fillRule(), insetShadow(path.bounds(), shadow));
}

void fillWithInsetShadow(CGContextRef context, const UIBezierPath& path, const NSShadow& shadow) {
  if (!showsInset(context, path, shadow)) {
    CGContextFillPath(context, path.cgPath(), FillRule::evenOdd);
    return;
  }
  context->fillWithInset(path.cgPath(), path.fillRule(), insetShadow(path.bounds(), shadow));
}

UIImage redrawWithShadow(const UIImage& image, CGSize offset, CGFloat blur,
                         const std::optional<UIColor>& color, CGFloat scale) {
  // Without a shadow the redrawn image would be the same; pixels are shared and never change.
  if (!castsShadow(offset, blur, color) && image.scale() == scale && image.hasPixels()) {
    return image;
  }
  contexts::Scope scope(image.size(), false, scale, true);
  CGContextSetShadowWithColor(scope.context(), offset, blur, color);
  CGContextDrawImage(scope.context(), {CGPoint{}, image.size()}, image);
  return scope.image();
}

}  // namespace rendering

UIImage UIBezierPath::imageWithDropShadow(Borrowed<const NSShadow> shadow,
                                          const UIImage& image) const {
  if (!shadow) return rendering::redrawWithShadow(image, {}, 0, std::nullopt, screen::scale());
  return rendering::redrawWithShadow(image, shadow->shadowOffset(), shadow->shadowBlurRadius(),
                                     shadow->shadowColor(), screen::scale());
}

void UIBezierPath::drawInsetShadow(Borrowed<const NSShadow> shadow) const {
  if (shadow) rendering::drawInsetShadow(UIGraphicsGetCurrentContext(), *this, *shadow);
}

}  // namespace glyphwright
