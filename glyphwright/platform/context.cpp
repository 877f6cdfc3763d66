#include <glyphwright/platform/context.h>

#include <algorithm>
#include <cmath>

#include <glyphwright/platform/graphics_context.h>
#include <glyphwright/platform/math.h>
#include <glyphwright/platform/path_shapes.h>
#include <glyphwright/platform/raster/gradient_source.h>
#include <glyphwright/platform/raster/image_source.h>

namespace glyphwright {

using raster::DeviceBox;
using raster::FillRule;
using raster::Paint;
using raster::PixelRect;

namespace {

CGFloat unit(CGFloat value) {
  return value > 0 ? std::min(value, CGFloat{1}) : 0;
}

FillRule ruleOf(bool evenOdd) {
  return evenOdd ? FillRule::evenOdd : FillRule::nonZero;
}

void fillDevicePath(CGContextRef context, FillRule rule) {
  if (context == nullptr) return;
  CGPath path;
  std::swap(path, context->pendingPath);
  const Paint paint = solidPaint(context->state.fillColor, context->state.alpha);
  if (paint.isClear() || context->state.clip.bounds.isEmpty()) return;
  context->clipMask();
  context->paintShape(FilledShape(path, CGAffineTransformIdentity, rule, raster::threadScratch()),
                      paint);
}

void clipToPendingPath(CGContextRef context, FillRule rule) {
  if (context == nullptr) return;
  CGPath path;
  std::swap(path, context->pendingPath);
  context->clipTo(std::move(path), rule);
}

// The whole pixels that a device box covers exactly; nothing when it cuts through one.
std::optional<PixelRect> wholePixels(const CGRect& rect, const CGAffineTransform& ctm,
                                     const PixelRect& limit) {
  if (ctm.b != 0 || ctm.c != 0) return std::nullopt;
  const CGRect box = CGRectApplyAffineTransform(rect, ctm);
  const DeviceBox device{CGRectGetMinX(box), CGRectGetMinY(box), CGRectGetMaxX(box),
                         CGRectGetMaxY(box)};
  const auto isWhole = [](double v, int from, int to) {
    return v <= from || v >= to || v == std::floor(v);
  };
  if (!isWhole(device.minX, limit.x0, limit.x1) || !isWhole(device.maxX, limit.x0, limit.x1) ||
      !isWhole(device.minY, limit.y0, limit.y1) || !isWhole(device.maxY, limit.y0, limit.y1)) {
    return std::nullopt;
  }
  return pixelsTouched(device, limit);
}

}  // namespace

void CGContextSaveGState(CGContextRef context) {
  if (context != nullptr) context->saved.push_back(context->state);
}

void CGContextRestoreGState(CGContextRef context) {
  if (context == nullptr) return;
  const std::size_t floor = context->groups.empty() ? 0 : context->groups.back().savedDepth;
  if (context->saved.size() <= floor) return;
  context->state = std::move(context->saved.back());
  context->saved.pop_back();
}

void CGContextConcatCTM(CGContextRef context, const CGAffineTransform& transform) {
  if (context != nullptr)
    context->state.ctm = CGAffineTransformConcat(transform, context->state.ctm);
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
  return context == nullptr ? CGAffineTransformIdentity : context->state.ctm;
}

CGFloat CGContextGetBaseScale(CGContextRef context) {
  return context == nullptr ? 1 : context->scale;
}

CGRect CGContextGetClipBoundingBox(CGContextRef context) {
  if (context == nullptr || context->state.clip.bounds.isEmpty()) return CGRectNull;
  const PixelRect& b = context->state.clip.bounds;
  return CGRectApplyAffineTransform(
      {static_cast<CGFloat>(b.x0), static_cast<CGFloat>(b.y0), static_cast<CGFloat>(b.width()),
       static_cast<CGFloat>(b.height())},
      CGAffineTransformInvert(context->state.ctm));
}

void CGContextSetFillColor(CGContextRef context, const CGColor& color) {
  if (context != nullptr) context->state.fillColor = color;
}

void CGContextSetStrokeColor(CGContextRef context, const CGColor& color) {
  if (context != nullptr) context->state.strokeColor = color;
}

void CGContextSetAlpha(CGContextRef context, CGFloat alpha) {
  if (context != nullptr) context->state.alpha = unit(alpha);
}

void CGContextSetShadowWithColor(CGContextRef context, CGSize offset, CGFloat blur,
                                 const std::optional<CGColor>& color) {
  // Where nothing can be drawn the scale may be no number.
  if (context == nullptr || !context->isDrawable()) return;
  context->state.shadow.reset();
  if (color) context->state.shadow = context->shadowState(offset, blur, *color);
}

void CGContextAddPath(CGContextRef context, const CGPath& path) {
  if (context == nullptr) return;
  CGPath mapped = path;
  mapped.applyTransform(context->state.ctm);
  context->pendingPath.addPath(mapped);
}

void CGContextFillPath(CGContextRef context) {
  fillDevicePath(context, FillRule::nonZero);
}
void CGContextEOFillPath(CGContextRef context) {
  fillDevicePath(context, FillRule::evenOdd);
}
void CGContextClip(CGContextRef context) {
  clipToPendingPath(context, FillRule::nonZero);
}
void CGContextEOClip(CGContextRef context) {
  clipToPendingPath(context, FillRule::evenOdd);
}

void CGContextFillPath(CGContextRef context, const CGPath& path, bool evenOdd) {
  if (context == nullptr) return;
  context->pendingPath = {};
  const Paint paint = solidPaint(context->state.fillColor, context->state.alpha);
  if (paint.isClear() || path.isEmpty() || context->state.clip.bounds.isEmpty()) return;
  context->clipMask();
  context->paintShape(
      FilledShape(path, context->state.ctm, ruleOf(evenOdd), raster::threadScratch()), paint);
}

void CGContextStrokePath(CGContextRef context, const CGPath& path, const StrokeStyle& style) {
  if (context == nullptr) return;
  context->pendingPath = {};
  const Paint paint = solidPaint(context->state.strokeColor, context->state.alpha);
  if (paint.isClear() || path.isEmpty() || context->state.clip.bounds.isEmpty()) return;
  context->clipMask();
  const StrokedShape shape(path, style, context->state.ctm, {context->bounds, context->reach()},
                           raster::threadScratch());
  context->paintShape(shape, paint);
}

void CGContextClipToPath(CGContextRef context, const CGPath& path, bool evenOdd) {
  if (context == nullptr) return;
  context->pendingPath = {};
  CGPath mapped = path;
  mapped.applyTransform(context->state.ctm);
  context->clipTo(std::move(mapped), ruleOf(evenOdd));
}

void CGContextFillRect(CGContextRef context, const CGRect& rect) {
  if (context == nullptr) return;
  context->pendingPath = {};
  GraphicsState& state = context->state;
  const Paint paint = solidPaint(state.fillColor, state.alpha);
  if (paint.isClear() || state.clip.bounds.isEmpty()) return;
  const std::optional<PixelRect> area = wholePixels(rect, state.ctm, state.clip.bounds);
  if (area && !state.shadow && !state.clip.node) {
    if (area->isEmpty()) return;
    raster::Canvas& canvas = context->canvasFor(*area);
    const bool covers = area->covers(canvas.bounds());
    if (covers && (paint.color.isOpaque() || canvas.isUntouched())) {
      canvas.setGround(paint.color);
    } else {
      context->paintArea(*area, paint, false);
    }
    return;
  }
  CGPath path;
  path.addRect(rect);
  context->clipMask();
  context->paintShape(FilledShape(path, state.ctm, FillRule::nonZero, raster::threadScratch()),
                      paint);
}

void CGContextClipToRect(CGContextRef context, const CGRect& rect) {
  if (context == nullptr) return;
  context->pendingPath = {};
  const std::optional<PixelRect> area =
      wholePixels(rect, context->state.ctm, context->state.clip.bounds);
  if (area) {
    context->clipTo(*area);
    return;
  }
  CGPath path;
  path.addRect(rect);
  CGContextClipToPath(context, path, false);
}

namespace {

Paint sourcePaint(const raster::PixelSource& source, CGFloat alpha) {
  Paint paint;
  paint.source = &source;
  paint.sourceAlpha = static_cast<std::int16_t>(alpha * raster::kOne + 0.5);
  return paint;
}

template <typename Source>
void paintGradient(CGContextRef context, const Source& source) {
  if (!source.isDrawable()) return;
  const Paint paint = sourcePaint(source, context->state.alpha);
  if (!paint.isClear()) context->paintArea(context->state.clip.bounds, paint, false);
}

const raster::Kernels& loops() {
  return *raster::threadScratch().kernels;
}

bool canPaint(CGContextRef context) {
  return context != nullptr && !context->state.clip.bounds.isEmpty();
}

}  // namespace

void CGContextDrawLinearGradient(CGContextRef context, const CGGradient& gradient, CGPoint start,
                                 CGPoint end, CGGradientDrawingOptions options) {
  if (!canPaint(context)) return;
  paintGradient(context, raster::LinearGradientSource(gradient, start, end, options,
                                                      context->state.ctm, loops()));
}

void contexts::fillWithLinearGradient(CGContext& context, const CGPath& path,
                                      const CGAffineTransform& placing, bool evenOdd,
                                      const CGGradient& gradient, CGPoint start, CGPoint end,
                                      CGGradientDrawingOptions options) {
  context.pendingPath = {};
  if (path.isEmpty() || !canPaint(&context)) return;
  const raster::LinearGradientSource source(gradient, start, end, options, context.state.ctm,
                                            loops());
  if (!source.isDrawable()) return;
  const Paint paint = sourcePaint(source, context.state.alpha);
  if (paint.isClear()) return;
  context.clipMask();
  const CGAffineTransform toDevice = CGAffineTransformConcat(placing, context.state.ctm);
  context.paintShape(FilledShape(path, toDevice, ruleOf(evenOdd), raster::threadScratch()), paint);
}

void CGContextDrawRadialGradient(CGContextRef context, const CGGradient& gradient, CGPoint center,
                                 CGFloat radius) {
  if (!canPaint(context)) return;
  paintGradient(
      context, raster::RadialGradientSource(gradient, center, radius, context->state.ctm, loops()));
}

void CGContextDrawConicGradient(CGContextRef context, const CGGradient& gradient, CGPoint center,
                                CGFloat angle) {
  if (!canPaint(context)) return;
  paintGradient(context,
                raster::ConicGradientSource(gradient, center, angle, context->state.ctm, loops()));
}

void CGContextDrawImage(CGContextRef context, const CGRect& rect, const UIImage& image,
                        CGFloat alpha) {
  if (!canPaint(context) || !image.hasPixels()) return;
  const CGFloat sourceWidth = image.size().width * image.scale();
  const CGFloat sourceHeight = image.size().height * image.scale();
  if (!(sourceWidth > 0) || !(sourceHeight > 0)) return;
  const CGRect to = CGRectStandardize(rect);
  const CGAffineTransform toDevice = CGAffineTransformConcat(
      CGAffineTransform{to.size.width / sourceWidth, 0, 0, to.size.height / sourceHeight,
                        to.origin.x, to.origin.y},
      context->state.ctm);
  // What a shadow may need lies beyond the clip.
  PixelRect limit = context->state.clip.bounds;
  if (context->state.shadow) {
    constexpr int beyond = static_cast<int>(kMaxPixelSide);
    limit = grown(limit, beyond, beyond, beyond, beyond);
  }
  const CGRect box = CGRectApplyAffineTransform(to, context->state.ctm);
  const PixelRect area = pixelsTouched(
      {CGRectGetMinX(box), CGRectGetMinY(box), CGRectGetMaxX(box), CGRectGetMaxY(box)}, limit);
  if (area.isEmpty()) return;
  const raster::ImageSource source(
      {image.cgImage().rgba().data(), static_cast<int>(image.cgImage().pixelWidth()),
       static_cast<int>(image.cgImage().pixelHeight())},
      toDevice, area);
  if (!source.isDrawable()) return;
  const Paint paint = sourcePaint(source, unit(alpha) * context->state.alpha);
  if (paint.isClear()) return;
  if (wholePixels(to, context->state.ctm, limit)) {
    context->paintArea(area, paint, true);
    return;
  }
  // The shadow goes by the pixels; the image itself is cut at the rectangle's exact edges.
  CGPath edge;
  edge.addRect(to);
  CGContextSaveGState(context);
  CGContextClipToPath(context, edge, false);
  context->paintArea(area, paint, true);
  CGContextRestoreGState(context);
}

void CGContextBeginTransparencyLayer(CGContextRef context) {
  if (context != nullptr) context->beginGroup();
}

void CGContextEndTransparencyLayer(CGContextRef context) {
  if (context != nullptr) context->endGroup();
}

}  // namespace glyphwright
