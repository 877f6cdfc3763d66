#include <glyphwright/rendering/shadows.h>

#include <cmath>

#include <glyphwright/platform/context_stack.h>
#include <glyphwright/platform/graphics_context.h>
#include <glyphwright/platform/screen.h>

namespace glyphwright {
namespace rendering {
namespace {

// The platform truncates shadow offsets to whole pixels; a little more than the wanted length, away
// from zero, keeps rounding noise from costing a pixel.
CGFloat nudged(CGFloat offset) {
  return offset + std::copysign(0.1, offset);
}

// Where the surroundings would move by whole pixels, their shadow can be had from the path's own.
bool castWithoutMoving(CGContext& context, const UIBezierPath& path, CGFloat aside) {
  const CGAffineTransform& ctm = context.state.ctm;
  const CGFloat scale = context.scale;
  const bool isPlain = ctm.b == 0 && ctm.c == 0 && ctm.a == scale && ctm.d == scale;
  if (!isPlain || scale < 1 || scale != std::floor(scale) || !context.state.shadow ||
      !(aside * scale < kMaxPixelSide)) {
    return false;
  }
  ShadowState shadow = *context.state.shadow;
  shadow.dx -= static_cast<int>(aside * scale);
  return contexts::castInsetShadow(context, path.cgPath(), path.usesEvenOddFillRule(), shadow);
}

}  // namespace

bool castsShadow(CGSize offset, CGFloat blur, const std::optional<UIColor>& color) {
  return color && color->alpha() > 0 && std::isfinite(offset.width) &&
         std::isfinite(offset.height) && (offset.width != 0 || offset.height != 0 || blur > 0);
}

void drawInsetShadow(CGContextRef context, const UIBezierPath& path, const NSShadow& shadow) {
  const std::optional<UIColor>& color = shadow.shadowColor();
  if (!context || path.isEmpty() || !color || color->alpha() == 0) return;
  const CGSize offset = shadow.shadowOffset();
  const CGFloat blur = shadow.shadowBlurRadius();
  const CGRect bounds = path.bounds();
  CGRect around = CGRectInset(bounds, -blur, -blur);
  around = CGRectOffset(around, -offset.width, -offset.height);
  around = CGRectInset(CGRectUnion(around, bounds), -1, -1);

  // What casts the shadow is the area around the path. It stands wholly to the left of the path,
  // outside the clip, and its shadow is sent back by the same distance: only the shadow shows.
  const CGFloat aside = std::round(around.size.width);
  CGContextSaveGState(context);
  CGContextSetShadowWithColor(context, {nudged(offset.width + aside), nudged(offset.height)}, blur,
                              color);
  if (castWithoutMoving(*context, path, aside)) {
    CGContextRestoreGState(context);
    return;
  }
  CGPath surroundings;
  surroundings.reserve(path.cgPath().verbs().size() + 5, path.cgPath().points().size() + 4);
  surroundings.addRect(around);
  surroundings.addPath(path.cgPath());
  surroundings.applyTransform(CGAffineTransformMakeTranslation(-aside, 0));

  CGContextClipToPath(context, path.cgPath(), path.usesEvenOddFillRule());
  CGContextSetFillColor(context, UIColor::grayColor());
  CGContextFillPath(context, surroundings, true);
  CGContextRestoreGState(context);
}

UIImage redrawWithShadow(const UIImage& image, CGSize offset, CGFloat blur,
                         const std::optional<UIColor>& color) {
  const CGFloat scale = screen::scale();
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

UIImage UIBezierPath::imageWithDropShadow(const NSShadow& shadow, const UIImage& image) const {
  return rendering::redrawWithShadow(image, shadow.shadowOffset(), shadow.shadowBlurRadius(),
                                     shadow.shadowColor());
}

void UIBezierPath::drawInsetShadow(const NSShadow& shadow) const {
  rendering::drawInsetShadow(UIGraphicsGetCurrentContext(), *this, shadow);
}

}  // namespace glyphwright
