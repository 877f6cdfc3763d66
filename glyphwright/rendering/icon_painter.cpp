#include <glyphwright/rendering/icon_painter.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include <glyphwright/platform/context.h>
#include <glyphwright/platform/context_stack.h>
#include <glyphwright/platform/contexts/graphics_context.h>
#include <glyphwright/platform/gradient.h>
#include <glyphwright/platform/screen.h>
#include <glyphwright/rendering/fitting.h>
#include <glyphwright/rendering/shadows.h>

namespace glyphwright::rendering {
namespace {

bool isClear(const UIColor* color) {
  return color && color->alpha() == 0;
}

bool isOpaque(const UIColor* color) {
  CGFloat alpha = 0;
  return color && color->getRed(nullptr, nullptr, nullptr, &alpha) && alpha == 1.0;
}

// What comes off both sides of the image: room for the outline and, on either side, the shadow.
CGFloat insetOf(const IconPaint& paint) {
  CGFloat inset = paint.strokeWidth;
  if (paint.dropShadow) {
    const CGSize offset = paint.dropShadow->offset;
    inset += paint.dropShadow->blur;
    inset += std::max(2 * std::fabs(offset.width), 2 * std::fabs(offset.height));
  }
  return inset;
}

bool showsFill(const IconPaint& paint) {
  if (!paint.gradient) return !isClear(paint.fill);
  const std::span<const UIColor> colors = paint.gradient->colors;
  return std::any_of(colors.begin(), colors.end(), [](const UIColor& c) { return c.alpha() > 0; });
}

// The path's own line width only says whether there is an outline, not how wide it is.
bool showsOutline(const UIBezierPath& path, const IconPaint& paint) {
  return path.lineWidth() > 0 && paint.strokeWidth >= 0 && !isClear(paint.strokeColor);
}

bool showsInsetShadow(const IconPaint& paint) {
  return paint.insetShadow && paint.insetShadow->shadowColor() &&
         paint.insetShadow->shadowColor()->alpha() > 0;
}

std::optional<CGGradient> gradientOf(const GradientFill& fill) {
  if (fill.stops) {
    return CGGradientCreateWithColors(CGColorSpaceCreateDeviceRGB(), fill.colors, *fill.stops);
  }
  // Stop i is i ÷ (n − 1) in whole numbers: 0 for all but the last. So the gradient runs between
  // the last two colours, and the first shows only ahead of the start point.
  const std::size_t count = fill.colors.size();
  std::vector<CGFloat> stops(count, 0);
  if (count > 1) stops.back() = 1;
  return CGGradientCreateWithColors(CGColorSpaceCreateDeviceRGB(), fill.colors, stops);
}

void fillWithGradient(CGContextRef context, const UIBezierPath& path, const CGAffineTransform& fit,
                      const IconPaint& paint) {
  const std::optional<CGGradient> gradient = gradientOf(*paint.gradient);
  if (!gradient) return;
  const CGFloat inset = insetOf(paint);
  const auto inBox = [&](CGPoint unit) {
    return CGPoint{inset / 2 + unit.x * (paint.size.width - inset),
                   inset / 2 + unit.y * (paint.size.height - inset)};
  };
  context->fillWithLinearGradient(path.cgPath(), fit, FillRule::evenOdd, *gradient,
                                  inBox(paint.gradient->start), inBox(paint.gradient->end),
                                  CGGradientDrawingOptions::drawsBeforeStartLocation);
}

void fillShape(CGContextRef context, const UIBezierPath& path, const CGAffineTransform& fit,
               const IconPaint& paint) {
  if (paint.gradient) return fillWithGradient(context, path, fit, paint);
  if (paint.fill) CGContextSetFillColor(context, *paint.fill);
  // A flat fill takes nothing but points from user space.
  context->withTransform(fit, [&] { context->fill(path.cgPath(), FillRule::evenOdd); });
}

StrokeStyle outlineStyle(const UIBezierPath& path, const IconPaint& paint) {
  return {paint.strokeWidth, path.lineCapStyle(), path.lineJoinStyle(), path.miterLimit()};
}

void outlineShape(CGContextRef context, const UIBezierPath& path, const IconPaint& paint) {
  if (paint.strokeColor) CGContextSetStrokeColor(context, *paint.strokeColor);
  CGContextStrokePath(context, path.cgPath(), outlineStyle(path, paint));
}

void fillAndOutlineShape(CGContextRef context, const UIBezierPath& path,
                         const CGAffineTransform& fit, const IconPaint& paint) {
  if (paint.fill) CGContextSetFillColor(context, *paint.fill);
  if (paint.strokeColor) CGContextSetStrokeColor(context, *paint.strokeColor);
  context->fillAndStroke(path.cgPath(), fit, FillRule::evenOdd, outlineStyle(path, paint));
}

// Fill, inset shadow, outline, and the drop shadow that they cast together. `fit` places a path
// that is only filled, or filled and outlined in one go; any other one comes placed.
void paintShape(CGContextRef context, const UIBezierPath& path, const CGAffineTransform& fit,
                const IconPaint& paint) {
  const bool fill = showsFill(paint);
  const bool inset = showsInsetShadow(paint);
  const bool outline = showsOutline(path, paint);
  if (!fill && !inset && !outline) return;

  const std::optional<DropShadow>& shadow = paint.dropShadow;
  const bool casts = shadow && paint.shadowTime == IconPaint::ShadowTime::inPass &&
                     castsShadow(shadow->offset, shadow->blur, shadow->color);
  // A flat fill or an outline alone casts its own shadow. Several pieces need a group, or each
  // would throw its shadow on the one before; a gradient paints through a clip, which would keep
  // its shadow in.
  const bool grouped = casts && (inset || (fill && (outline || paint.gradient)));
  if (casts) {
    CGContextSaveGState(context);
    CGContextSetShadowWithColor(context, shadow->offset, shadow->blur, shadow->color);
  }
  if (grouped) CGContextBeginTransparencyLayer(context);
  const bool flat = fill && !paint.gradient;
  if (flat && inset) {
    if (paint.fill) CGContextSetFillColor(context, *paint.fill);
    fillWithInsetShadow(context, path, *paint.insetShadow);
    if (outline) outlineShape(context, path, paint);
  } else if (flat && outline) {
    fillAndOutlineShape(context, path, fit, paint);
  } else {
    if (fill) fillShape(context, path, fit, paint);
    if (inset) drawInsetShadow(context, path, *paint.insetShadow);
    if (outline) outlineShape(context, path, paint);
  }
  if (grouped) CGContextEndTransparencyLayer(context);
  if (casts) CGContextRestoreGState(context);
}

void fitAndPaint(CGContextRef context, const UIBezierPath& path, Placement placement,
                 const IconPaint& paint) {
  const CGFloat inset = insetOf(paint);
  const CGSize inner{paint.size.width - inset, paint.size.height - inset};
  const CGRect bounds = path.bounds();
  const CGAffineTransform fit = placement == Placement::fromOrigin
                                    ? originFittingTransform(bounds, inner, paint.size)
                                    : fittingTransform(bounds, inner, paint.size);
  const bool isFlat = showsFill(paint) && !paint.gradient;
  if (!showsInsetShadow(paint) && (isFlat || !showsOutline(path, paint))) {
    // Mapping the points once will do.
    paintShape(context, path, fit, paint);
    return;
  }
  UIBezierPath fitted = path;
  fitted.applyTransform(fit);
  paintShape(context, fitted, CGAffineTransformIdentity, paint);
}

void paintPlain(CGContextRef context, const UIBezierPath& path, Placement placement,
                const IconPaint& paint) {
  if (paint.background && !isClear(paint.background)) {
    CGContextSaveGState(context);
    CGContextSetFillColor(context, *paint.background);
    CGContextFillRect(context, {CGPoint{}, paint.size});
    CGContextRestoreGState(context);
  }
  if (!path.isEmpty()) fitAndPaint(context, path, placement, paint);
}

// The finished image, with the shadow where that falls on everything.
UIImage imageOf(contexts::Scope& scope, const IconPaint& paint) {
  const std::optional<DropShadow>& shadow = paint.dropShadow;
  if (!shadow || paint.shadowTime == IconPaint::ShadowTime::inPass) return scope.image();
  return redrawWithShadow(scope.image(), shadow->offset, shadow->blur, shadow->color,
                          scope.context()->scale());
}

void paintWithBorder(CGContextRef context, const UIBezierPath& path, Placement placement,
                     const IconPaint& paint) {
  const CGFloat width = static_cast<CGFloat>(paint.border.width);
  IconPaint outer;
  outer.size = paint.size;
  outer.fill = outer.strokeColor = &paint.border.color;
  outer.strokeWidth = paint.border.outlineWidth;
  fitAndPaint(context, path, placement, outer);

  // The inner icon, with all that belongs to it, is an image of its own: its background and shadow
  // end at its edge.
  const CGRect within = CGRectInset({CGPoint{}, paint.size}, width, width);
  if (CGRectIsEmpty(within)) return;
  IconPaint inner = paint;
  inner.border = {};
  inner.size = {paint.size.width - 2 * width, paint.size.height - 2 * width};
  contexts::Scope scope(inner.size, isOpaque(inner.background), context->scale(), true);
  if (scope.isDrawable()) paintPlain(scope.context(), path, placement, inner);
  const UIImage image = imageOf(scope, inner);
  CGContextDrawImage(context, within, image);
}

}  // namespace

UIImage paintIcon(const UIBezierPath& path, Placement placement, const IconPaint& paint,
                  CGFloat asked, UIImage&& reused) {
  const CGFloat scale = asked == 0 ? screen::scale() : asked;
  contexts::Scope scope(paint.size, isOpaque(paint.background), scale, true,
                        contexts::ImageMemory::leftBy(std::move(reused), paint.size, scale));
  if (!scope.isDrawable()) return scope.image();
  if (paint.border.width >= 1) {
    paintWithBorder(scope.context(), path, placement, paint);
    return scope.image();
  }
  paintPlain(scope.context(), path, placement, paint);
  return imageOf(scope, paint);
}

bool paintIcon(const UIBezierPath& path, Placement placement, const IconPaint& paint, CGFloat scale,
               const PixelBuffer& into) {
  if (!into.isUsable()) return false;
  contexts::Scope scope(paint.size, isOpaque(paint.background), scale, true, into);
  if (!scope.isDrawable()) return false;
  const auto painted = paint.border.width >= 1 ? paintWithBorder : paintPlain;
  painted(scope.context(), path, placement, paint);
  scope.finish(into);
  return true;
}

}  // namespace glyphwright::rendering
