#include <glyphwright/platform/context.h>

#include <algorithm>

#include <glyphwright/platform/contexts/graphics_context.h>

// The functions of contexts, none of which minds a null one.
namespace glyphwright {

namespace {

CGFloat unit(CGFloat value) {
  return value > 0 ? std::min(value, CGFloat{1}) : 0;
}

}  // namespace

void CGContextSaveGState(CGContextRef context) {
  if (context != nullptr) context->save();
}
void CGContextRestoreGState(CGContextRef context) {
  if (context != nullptr) context->restore();
}
void CGContextConcatCTM(CGContextRef context, const CGAffineTransform& transform) {
  if (context != nullptr) context->concat(transform);
}
void CGContextTranslateCTM(CGContextRef context, CGFloat tx, CGFloat ty) {
  CGContextConcatCTM(context, CGAffineTransformMakeTranslation(tx, ty));
}

void CGContextScaleCTM(CGContextRef context, CGFloat sx, CGFloat sy) {
  CGContextConcatCTM(context, CGAffineTransformMakeScale(sx, sy));
}

void CGContextRotateCTM(CGContextRef context, CGFloat angle) {
  CGContextConcatCTM(context, CGAffineTransformMakeRotation(angle));
}

CGAffineTransform CGContextGetCTM(CGContextRef context) {
  return context == nullptr ? CGAffineTransformIdentity : context->transform();
}

CGFloat CGContextGetBaseScale(CGContextRef context) {
  return context == nullptr ? 1 : context->scale();
}

CGRect CGContextGetClipBoundingBox(CGContextRef context) {
  if (context == nullptr || context->clipBounds().isEmpty()) return CGRectNull;
  const raster::PixelRect& b = context->clipBounds();
  return CGRectApplyAffineTransform(
      {static_cast<CGFloat>(b.x0), static_cast<CGFloat>(b.y0), static_cast<CGFloat>(b.width()),
       static_cast<CGFloat>(b.height())},
      CGAffineTransformInvert(context->transform()));
}

void CGContextSetFillColor(CGContextRef context, const CGColor& color) {
  if (context != nullptr) context->setFillColor(color);
}
void CGContextSetStrokeColor(CGContextRef context, const CGColor& color) {
  if (context != nullptr) context->setStrokeColor(color);
}
void CGContextSetAlpha(CGContextRef context, CGFloat alpha) {
  if (context != nullptr) context->setAlpha(unit(alpha));
}
void CGContextSetShadowWithColor(CGContextRef context, CGSize offset, CGFloat blur,
                                 const std::optional<CGColor>& color) {
  if (context != nullptr) context->setShadow(offset, blur, color);
}
void CGContextAddPath(CGContextRef context, const CGPath& path) {
  if (context != nullptr) context->addToPath(path);
}
void CGContextFillPath(CGContextRef context) {
  if (context != nullptr) context->fillPendingPath(FillRule::nonZero);
}
void CGContextEOFillPath(CGContextRef context) {
  if (context != nullptr) context->fillPendingPath(FillRule::evenOdd);
}
void CGContextClip(CGContextRef context) {
  if (context != nullptr) context->clipToPendingPath(FillRule::nonZero);
}
void CGContextEOClip(CGContextRef context) {
  if (context != nullptr) context->clipToPendingPath(FillRule::evenOdd);
}
void CGContextFillPath(CGContextRef context, const CGPath& path, FillRule rule) {
  if (context != nullptr) context->fill(path, rule);
}
void CGContextStrokePath(CGContextRef context, const CGPath& path, const StrokeStyle& style) {
  if (context != nullptr) context->stroke(path, style);
}
void CGContextClipToPath(CGContextRef context, const CGPath& path, FillRule rule) {
  if (context != nullptr) context->clipTo(path, rule);
}
void CGContextFillRect(CGContextRef context, const CGRect& rect) {
  if (context != nullptr) context->fill(rect);
}
void CGContextClipToRect(CGContextRef context, const CGRect& rect) {
  if (context != nullptr) context->clipTo(rect);
}
void CGContextDrawLinearGradient(CGContextRef context, const CGGradient& gradient, CGPoint start,
                                 CGPoint end, CGGradientDrawingOptions options) {
  if (context != nullptr) context->drawLinearGradient(gradient, start, end, options);
}
void CGContextDrawRadialGradient(CGContextRef context, const CGGradient& gradient, CGPoint center,
                                 CGFloat radius) {
  if (context != nullptr) context->drawRadialGradient(gradient, center, radius);
}
void CGContextDrawConicGradient(CGContextRef context, const CGGradient& gradient, CGPoint center,
                                CGFloat angle) {
  if (context != nullptr) context->drawConicGradient(gradient, center, angle);
}
void CGContextDrawImage(CGContextRef context, const CGRect& rect, const UIImage& image,
                        CGFloat alpha) {
  if (context != nullptr) context->drawImage(rect, image, unit(alpha));
}
void CGContextBeginTransparencyLayer(CGContextRef context) {
  if (context != nullptr) context->beginGroup();
}
void CGContextEndTransparencyLayer(CGContextRef context) {
  if (context != nullptr) context->endGroup();
}

}  // namespace glyphwright
