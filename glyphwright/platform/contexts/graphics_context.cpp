#include <glyphwright/platform/contexts/graphics_context.h>

#include <algorithm>
#include <cmath>

#include <glyphwright/platform/drawing/cast_shadow.h>
#include <glyphwright/platform/drawing/drawing.h>
#include <glyphwright/platform/raster/gradient_source.h>
#include <glyphwright/platform/raster/image_source.h>

namespace glyphwright {

using contexts::GraphicsState;
using drawing::Shadow;
using raster::Paint;
using raster::PixelRect;

namespace {

class CanvasSource final : public raster::PixelSource {
 public:
  explicit CanvasSource(raster::Canvas& canvas) : canvas_(canvas) {}
  void pixels(int x, int y, std::size_t count, std::uint8_t* rgba) const override {
    const std::uint8_t* from =
        canvas_.rowAt(y) + static_cast<std::size_t>(x - canvas_.bounds().x0) * 4;
    std::copy_n(from, count * 4, rgba);
  }

 private:
  raster::Canvas& canvas_;
};

}  // namespace

CGContext::CGContext(const PixelRect& pixelBounds, CGSize pointSize, CGFloat pixelsPerPoint,
                     bool isOpaque, const raster::PixelMemory& memory)
    : bounds_(pixelBounds), size_(pointSize), scale_(pixelsPerPoint) {
  state_.transform = CGAffineTransformMakeScale(scale_, scale_);
  state_.clip.bounds = bounds_;
  if (isDrawable()) {
    base_.emplace(bounds_, raster::solidColor(0, 0, 0, isOpaque ? 1 : 0), memory);
  }
}

// Drawings on a context that cannot be drawn on end before they look at the surface: its clip is
// empty.
drawing::Target CGContext::target() {
  return {groups_.empty() ? *base_ : groups_.back().surface,
          state_.clip,
          state_.shadow,
          clipMasks_,
          raster::threadScratch(),
          plans_};
}

void CGContext::restore() {
  const std::size_t floor = groups_.empty() ? 0 : groups_.back().savedDepth;
  if (saved_.size() <= floor) return;
  state_ = std::move(saved_.back());
  saved_.pop_back();
}

void CGContext::concat(const CGAffineTransform& transform) {
  state_.transform = CGAffineTransformConcat(transform, state_.transform);
}

void CGContext::setShadow(CGSize offset, CGFloat blur, const std::optional<CGColor>& color) {
  state_.shadow.reset();
  if (color) state_.shadow = shadowOf(offset, blur, *color);
}

std::optional<Shadow> CGContext::shadowOf(CGSize offset, CGFloat blur, const CGColor& color) const {
  // Where nothing can be drawn the scale may be no number.
  if (!isDrawable() || !(color.alpha() > 0)) return std::nullopt;
  if (!std::isfinite(offset.width) || !std::isfinite(offset.height)) return std::nullopt;
  if (!(blur > 0) || !std::isfinite(blur)) blur = 0;
  if (offset.width == 0 && offset.height == 0 && blur == 0) return std::nullopt;
  // Whole device pixels, truncated; no bitmap is larger than the limit, so neither is an offset
  // that can be seen.
  const auto pixels = [this](CGFloat points) {
    return static_cast<int>(std::clamp(points * scale_, -4 * kMaxPixelSide, 4 * kMaxPixelSide));
  };
  return Shadow{pixels(offset.width), pixels(offset.height),
                std::min(blur * scale_, kMaxBlurPixels), color};
}

bool CGContext::clipTo(const CGPath& path, FillRule rule) {
  pendingPath_ = {};
  CGPath mapped = path;
  mapped.applyTransform(state_.transform);
  state_.clip.intersect(std::move(mapped), rule);
  return state_.clip.node != nullptr;
}

bool CGContext::clipTo(const CGRect& rect) {
  pendingPath_ = {};
  if (const auto area = drawing::wholePixels(rect, state_.transform, state_.clip.bounds)) {
    state_.clip.intersect(*area);
    return false;
  }
  CGPath path;
  path.addRect(rect);
  return clipTo(path, FillRule::nonZero);
}

PixelRect CGContext::reach() const {
  const PixelRect& clip = state_.clip.bounds;
  return state_.shadow && canPaint() ? united(clip, drawing::casterArea(*state_.shadow, clip))
                                     : clip;
}

void CGContext::beginGroup() {
  const PixelRect& clip = state_.clip.bounds;
  PixelRect far = reach();
  // Beyond this it would be larger than any bitmap may be, for a shadow from very far away.
  if (static_cast<CGFloat>(far.width()) * far.height() > kMaxPixels) far = clip;
  groups_.push_back({{clip, far}, state_, saved_.size()});
  state_.alpha = 1;
  state_.shadow.reset();
  // The clip cuts the finished group once; applied inside as well, it would thin its edges twice.
  state_.clip = {far, nullptr};
}

drawing::Surface CGContext::endSurface() {
  Group group = std::move(groups_.back());
  groups_.pop_back();
  saved_.erase(saved_.begin() + static_cast<std::ptrdiff_t>(group.savedDepth), saved_.end());
  state_ = std::move(group.outer);
  if (group.surface.canvas() != nullptr) group.surface.canvas()->materialize();
  return std::move(group.surface);
}

void CGContext::endGroup() {
  if (groups_.empty()) return;
  drawing::Surface surface = endSurface();
  if (surface.canvas() == nullptr) return;
  const CanvasSource source(*surface.canvas());
  drawing::paintAreaWithShadow(target(), surface.canvas()->bounds(), sourcePaint(source, 1));
}

void CGContext::endGroupAsMask() {
  if (groups_.size() < 2) return;
  drawing::Surface mask = endSurface();
  drawing::Surface& masked = groups_.back().surface;
  if (mask.canvas() == nullptr) {
    masked.clear();
  } else if (masked.canvas() != nullptr) {
    masked.canvas()->materialize();
    masked.canvas()->multiplyByAlpha(*mask.canvas());
  }
}

void CGContext::addToPath(const CGPath& path) {
  CGPath mapped = path;
  mapped.applyTransform(state_.transform);
  pendingPath_.addPath(mapped);
}

void CGContext::fillPendingPath(FillRule rule) {
  const CGPath path = std::exchange(pendingPath_, {});
  if (!canPaint()) return;
  drawing::paintFill(target(), {path, CGAffineTransformIdentity, rule}, fillPaint());
}

void CGContext::clipToPendingPath(FillRule rule) {
  state_.clip.intersect(std::exchange(pendingPath_, {}), rule);
}

Paint CGContext::fillPaint() const {
  return drawing::solidPaint(state_.fillColor, state_.alpha);
}

Paint CGContext::strokePaint() const {
  return drawing::solidPaint(state_.strokeColor, state_.alpha);
}

Paint CGContext::sourcePaint(const raster::PixelSource& source, CGFloat alpha) const {
  Paint paint;
  paint.source = &source;
  paint.sourceAlpha = static_cast<std::int16_t>(alpha * state_.alpha * raster::kOne + 0.5);
  return paint;
}

void CGContext::fill(const CGPath& path, FillRule rule) {
  pendingPath_ = {};
  if (canPaint()) drawing::paintFill(target(), {path, state_.transform, rule}, fillPaint());
}

void CGContext::fill(const CGRect& rect) {
  pendingPath_ = {};
  if (canPaint()) drawing::paintRect(target(), rect, state_.transform, fillPaint());
}

void CGContext::stroke(const CGPath& path, const StrokeStyle& style) {
  pendingPath_ = {};
  if (!canPaint()) return;
  drawing::paintStroke(target(), {path, style, state_.transform, bounds_, reach()}, strokePaint());
}

void CGContext::fillAndStroke(const CGPath& path, const CGAffineTransform& placing, FillRule rule,
                              const StrokeStyle& style) {
  pendingPath_ = {};
  if (!canPaint()) return;
  drawing::paintFillAndStroke(target(), {path, placing, rule, fillPaint(), style, strokePaint(),
                                         state_.transform, bounds_, reach()});
}

drawing::Inset CGContext::insetOf(const CGPath& path, FillRule rule,
                                  const contexts::InsetShadow& shadow) const {
  drawing::Inset inset{path,         state_.transform,
                       rule,         shadow.around,
                       shadow.aside, shadowOf(shadow.offset, shadow.blur, shadow.color),
                       state_.alpha, std::nullopt};
  const CGAffineTransform& t = state_.transform;
  const bool isPlain = t.b == 0 && t.c == 0 && t.a == scale_ && t.d == scale_;
  if (inset.shadow && isPlain && scale_ >= 1 && scale_ == std::floor(scale_) &&
      shadow.aside * scale_ < kMaxPixelSide) {
    inset.wholeSteps = static_cast<int>(shadow.aside * scale_);
  }
  return inset;
}

void CGContext::castInset(const CGPath& path, FillRule rule, const contexts::InsetShadow& shadow) {
  pendingPath_ = {};
  if (canPaint()) drawing::paintInset(target(), insetOf(path, rule, shadow));
}

void CGContext::fillWithInset(const CGPath& path, FillRule rule,
                              const contexts::InsetShadow& shadow) {
  pendingPath_ = {};
  if (canPaint()) drawing::paintFillAndInset(target(), insetOf(path, rule, shadow), fillPaint());
}

template <typename Source>
void CGContext::paintSource(const Source& source) {
  if (!source.isDrawable()) return;
  drawing::paintArea(target(), state_.clip.bounds, sourcePaint(source, 1));
}

void CGContext::drawLinearGradient(const CGGradient& gradient, CGPoint start, CGPoint end,
                                   CGGradientDrawingOptions options) {
  if (!canPaint()) return;
  paintSource(raster::LinearGradientSource(gradient, start, end, options, state_.transform,
                                           *raster::threadScratch().kernels));
}

void CGContext::drawRadialGradient(const CGGradient& gradient, CGPoint center, CGFloat radius) {
  if (!canPaint()) return;
  paintSource(raster::RadialGradientSource(gradient, center, radius, state_.transform,
                                           *raster::threadScratch().kernels));
}

void CGContext::drawConicGradient(const CGGradient& gradient, CGPoint center, CGFloat angle) {
  if (!canPaint()) return;
  paintSource(raster::ConicGradientSource(gradient, center, angle, state_.transform,
                                          *raster::threadScratch().kernels));
}

void CGContext::fillWithLinearGradient(const CGPath& path, const CGAffineTransform& placing,
                                       FillRule rule, const CGGradient& gradient, CGPoint start,
                                       CGPoint end, CGGradientDrawingOptions options) {
  pendingPath_ = {};
  if (path.isEmpty() || !canPaint()) return;
  const raster::LinearGradientSource source(gradient, start, end, options, state_.transform,
                                            *raster::threadScratch().kernels);
  if (!source.isDrawable()) return;
  // The pixels of a source cast no shadow from here: through a clip they would not either.
  drawing::paintFill(target(), {path, CGAffineTransformConcat(placing, state_.transform), rule},
                     sourcePaint(source, 1));
}

void CGContext::drawImage(const CGRect& rect, const UIImage& image, CGFloat alpha) {
  if (!canPaint() || !image.hasPixels()) return;
  const CGFloat sourceWidth = image.size().width * image.scale();
  const CGFloat sourceHeight = image.size().height * image.scale();
  if (!(sourceWidth > 0) || !(sourceHeight > 0)) return;
  const CGRect to = CGRectStandardize(rect);
  const CGAffineTransform toDevice = CGAffineTransformConcat(
      CGAffineTransform{to.size.width / sourceWidth, 0, 0, to.size.height / sourceHeight,
                        to.origin.x, to.origin.y},
      state_.transform);
  // What a shadow may need lies beyond the clip.
  PixelRect limit = state_.clip.bounds;
  if (state_.shadow) {
    constexpr int beyond = static_cast<int>(kMaxPixelSide);
    limit = grown(limit, beyond, beyond, beyond, beyond);
  }
  const CGRect box = CGRectApplyAffineTransform(to, state_.transform);
  const PixelRect area = pixelsTouched(
      {CGRectGetMinX(box), CGRectGetMinY(box), CGRectGetMaxX(box), CGRectGetMaxY(box)}, limit);
  if (area.isEmpty()) return;
  const raster::ImageSource source(
      {image.cgImage().rgba().data(), static_cast<int>(image.cgImage().pixelWidth()),
       static_cast<int>(image.cgImage().pixelHeight())},
      toDevice, area);
  if (!source.isDrawable()) return;
  const Paint paint = sourcePaint(source, alpha);
  if (drawing::wholePixels(to, state_.transform, limit)) {
    drawing::paintAreaWithShadow(target(), area, paint);
    return;
  }
  // The shadow goes by the pixels; the image itself is cut at the rectangle's exact edges.
  CGPath edge;
  edge.addRect(to);
  edge.applyTransform(state_.transform);
  drawing::Clip cut = state_.clip;
  cut.intersect(std::move(edge), FillRule::nonZero);
  drawing::paintAreaWithShadow(target().through(cut, state_.shadow), area, paint);
}

}  // namespace glyphwright
