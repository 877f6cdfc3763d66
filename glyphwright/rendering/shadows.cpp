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

// What casts an inset shadow is the area around the path. It stands wholly to the left of the path,
// outside the clip, and its shadow is sent back by the same distance: only the shadow shows.
struct Surroundings {
  CGRect rect;
  CGFloat aside;
  CGSize offset;  // of the shadow, from there

  Surroundings(const CGRect& bounds, const NSShadow& shadow) {
    const CGSize wanted = shadow.shadowOffset();
    const CGFloat blur = shadow.shadowBlurRadius();
    rect = CGRectInset(bounds, -blur, -blur);
    rect = CGRectOffset(rect, -wanted.width, -wanted.height);
    rect = CGRectInset(CGRectUnion(rect, bounds), -1, -1);
    aside = std::round(rect.size.width);
    offset = {nudged(wanted.width + aside), nudged(wanted.height)};
  }
};

// Where the surroundings would move by whole pixels, they can cast their shadow from where they
// are.
std::optional<contexts::InsetShadow> castInPlace(const CGContext& context, const UIBezierPath& path,
                                                 const Surroundings& surroundings,
                                                 const NSShadow& shadow) {
  const CGAffineTransform& ctm = context.state.ctm;
  const CGFloat scale = context.scale;
  const bool isPlain = ctm.b == 0 && ctm.c == 0 && ctm.a == scale && ctm.d == scale;
  if (!isPlain || scale < 1 || scale != std::floor(scale) || !context.isDrawable() ||
      !(surroundings.aside * scale < kMaxPixelSide)) {
    return std::nullopt;
  }
  std::optional<ShadowState> state =
      context.shadowState(surroundings.offset, shadow.shadowBlurRadius(), *shadow.shadowColor());
  if (!state) return std::nullopt;
  state->dx -= static_cast<int>(surroundings.aside * scale);
  return contexts::InsetShadow{*state, surroundings.rect, path.usesEvenOddFillRule()};
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
  const Surroundings surroundings(path.bounds(), shadow);
  const auto inset = castInPlace(*context, path, surroundings, shadow);
  if (inset && contexts::castInsetShadow(*context, path.cgPath(), *inset)) return;
  CGPath around;
  around.reserve(path.cgPath().verbs().size() + 5, path.cgPath().points().size() + 4);
  around.addRect(surroundings.rect);
  around.addPath(path.cgPath());
  around.applyTransform(CGAffineTransformMakeTranslation(-surroundings.aside, 0));

  CGContextSaveGState(context);
  CGContextSetShadowWithColor(context, surroundings.offset, shadow.shadowBlurRadius(),
                              shadow.shadowColor());
  CGContextClipToPath(context, path.cgPath(), path.usesEvenOddFillRule());
  CGContextSetFillColor(context, UIColor::grayColor());
  CGContextFillPath(context, around, true);
  CGContextRestoreGState(context);
}

void fillWithInsetShadow(CGContextRef context, const UIBezierPath& path, const NSShadow& shadow) {
  if (showsInset(context, path, shadow)) {
    const Surroundings surroundings(path.bounds(), shadow);
    const auto inset = castInPlace(*context, path, surroundings, shadow);
    if (inset && contexts::fillWithInsetShadow(*context, path.cgPath(), *inset)) return;
  }
  CGContextFillPath(context, path.cgPath(), true);
  drawInsetShadow(context, path, shadow);
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
