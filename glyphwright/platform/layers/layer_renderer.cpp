#include <glyphwright/platform/layers/layer_renderer.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace glyphwright {
namespace {

// NaN counts as 0.
CGFloat unit(CGFloat value) {
  return value > 0 ? std::min(value, 1.0) : 0;
}

bool isVisible(const std::optional<CGColor>& color) {
  return color && color->alpha() > 0;
}

CGColor faded(const CGColor& color, CGFloat alpha) {
  return color.colorWithAlphaComponent(color.alpha() * alpha);
}

}  // namespace

LayerParts CALayer::visibleParts() const {
  LayerParts parts;
  if (CGRectIsEmpty(model_.bounds)) return parts;
  if (isVisible(model_.backgroundColor)) parts.add(LayerPart::background);
  if (model_.contents) parts.add(LayerPart::contents);
  if (model_.borderWidth > 0 && isVisible(model_.borderColor)) parts.add(LayerPart::border);
  return parts;
}

void CALayer::drawPart(LayerPart part, CGContextRef context, CGFloat alpha) const {
  if (part == LayerPart::background) {
    if (model_.cornerRadius > 0) return drawBackground(context, alpha, boundsPath());
    CGContextSetFillColor(context, faded(*model_.backgroundColor, alpha));
    CGContextFillRect(context, model_.bounds);
  } else if (part == LayerPart::contents) {
    const CGFloat scale =
        model_.contentsScale > 0 && std::isfinite(model_.contentsScale) ? model_.contentsScale : 1;
    const CGSize size{static_cast<CGFloat>(model_.contents.pixelWidth()) / scale,
                      static_cast<CGFloat>(model_.contents.pixelHeight()) / scale};
    const UIImage image(model_.contents, scale, size);
    CGContextDrawImage(context, contentsRect(image), image, alpha);
  } else if (part == LayerPart::border) {
    drawBorder(context, alpha, boundsPath());
  }
}

void CALayer::drawBackground(CGContextRef context, CGFloat alpha, const CGPath& outside) const {
  CGContextSetFillColor(context, faded(*model_.backgroundColor, alpha));
  CGContextFillPath(context, outside, FillRule::nonZero);
}

void CALayer::drawBorder(CGContextRef context, CGFloat alpha, CGPath outside) const {
  const CGRect& bounds = model_.bounds;
  const CGFloat width = model_.borderWidth;
  CGPath ring = std::move(outside);
  // A border as wide as the layer leaves no inside.
  if (width * 2 < std::min(bounds.size.width, bounds.size.height)) {
    const CGFloat radius = std::max(boundsRadius() - width, 0.0);
    ring.addRoundedRect(CGRectInset(bounds, width, width), UIRectCorner::allCorners,
                        {radius, radius});
  }
  CGContextSetFillColor(context, faded(*model_.borderColor, alpha));
  CGContextFillPath(context, ring, FillRule::evenOdd);
}

CGFloat CALayer::boundsRadius() const {
  const CGFloat most = std::min(model_.bounds.size.width, model_.bounds.size.height) * 0.5;
  return model_.cornerRadius > 0 ? std::min(model_.cornerRadius, most) : 0;
}

CGPath CALayer::boundsPath() const {
  CGPath path;
  const CGFloat radius = boundsRadius();
  path.addRoundedRect(model_.bounds, UIRectCorner::allCorners, {radius, radius});
  return path;
}

CGRect CALayer::contentsRect(const UIImage& image) const {
  const CGRect& bounds = model_.bounds;
  CGSize size = image.size();
  const CGFloat across = bounds.size.width / size.width;
  const CGFloat down = bounds.size.height / size.height;
  CGFloat factor = 1;
  switch (model_.contentsGravity) {
    case CALayerContentsGravity::resize:
      return bounds;
    case CALayerContentsGravity::resizeAspect:
      factor = std::min(across, down);
      break;
    case CALayerContentsGravity::resizeAspectFill:
      factor = std::max(across, down);
      break;
    case CALayerContentsGravity::center:
      break;
  }
  size = {size.width * factor, size.height * factor};
  return {{CGRectGetMidX(bounds) - size.width * 0.5, CGRectGetMidY(bounds) - size.height * 0.5},
          size};
}

void CALayer::renderInContext(CGContextRef context) const {
  if (!context || !context->isDrawable()) return;
  CGContextSaveGState(context);
  LayerRenderer(*context).render(*this, 1);
  CGContextRestoreGState(context);
}

bool LayerRenderer::isShown(const CALayer& layer) {
  return !layer.model_.hidden && layer.model_.opacity > 0;
}

LayerRenderer::Content LayerRenderer::contentOf(const CALayer& layer, CGFloat alpha) {
  const auto shown = std::count_if(layer.sublayers_.begin(), layer.sublayers_.end(),
                                   [](const auto& sublayer) { return isShown(*sublayer); });
  return {layer, layer.visibleParts(), static_cast<std::size_t>(shown),
          unit(layer.model_.opacity) * alpha};
}

CGAffineTransform LayerRenderer::placementOf(const CALayer& layer) {
  const auto& model = layer.model_;
  const CGRect& bounds = model.bounds;
  const CGPoint anchor{bounds.origin.x + model.anchorPoint.x * bounds.size.width,
                       bounds.origin.y + model.anchorPoint.y * bounds.size.height};
  if (model.transform == CGAffineTransformIdentity) {
    return CGAffineTransformMakeTranslation(model.position.x - anchor.x,
                                            model.position.y - anchor.y);
  }
  const CGAffineTransform aboutAnchor = CGAffineTransformConcat(
      CGAffineTransformMakeTranslation(-anchor.x, -anchor.y), model.transform);
  return CGAffineTransformConcat(
      aboutAnchor, CGAffineTransformMakeTranslation(model.position.x, model.position.y));
}

void LayerRenderer::render(const CALayer& layer, CGFloat alpha) {
  if (!isShown(layer)) return;
  const Content content = contentOf(layer, alpha);
  if (content.isEmpty()) return;
  if (layer.mask_) {
    renderMasked(content);
  } else if (content.alpha == 1 || content.isSingle()) {
    renderContent(content);
  } else {
    renderGroup(content);
  }
}

void LayerRenderer::renderInSuperlayer(const CALayer& layer, CGFloat alpha) {
  const CGAffineTransform placement = placementOf(layer);
  if (placement == CGAffineTransformIdentity) return render(layer, alpha);
  context_.withTransform(placement, [&] { render(layer, alpha); });
}

void LayerRenderer::beginGroup(CGFloat alpha) {
  CGContextSaveGState(&context_);
  CGContextSetAlpha(&context_, context_.alpha() * alpha);
  context_.beginGroup();
}

void LayerRenderer::endGroup() {
  context_.endGroup();
  CGContextRestoreGState(&context_);
}

void LayerRenderer::renderGroup(const Content& content) {
  beginGroup(content.alpha);
  Content opaque = content;
  opaque.alpha = 1;
  renderContent(opaque);
  endGroup();
}

bool LayerRenderer::clipToBounds(const CALayer& layer) {
  if (layer.model_.cornerRadius > 0) {
    return context_.clipTo(layer.boundsPath(), FillRule::nonZero);
  }
  return context_.clipTo(layer.model_.bounds);
}

void LayerRenderer::renderContent(const Content& content) {
  const CALayer& layer = content.layer;
  if (!layer.model_.masksToBounds || content.insideBounds) return renderParts(content, false);
  CGContextSaveGState(&context_);
  const bool cutsThroughPixels = clipToBounds(layer);
  if (cutsThroughPixels && !content.isOneOperation()) {
    // Several operations through one clip would show each other at its edges.
    Content opaque = content;
    opaque.alpha = 1;
    beginGroup(content.alpha);
    renderParts(opaque, true);
    endGroup();
  } else {
    renderParts(content, true);
  }
  CGContextRestoreGState(&context_);
}

// What is cut at the bounds reaches beyond them: edges of its own there would count twice.
void LayerRenderer::renderParts(const Content& content, bool isCut) {
  const CALayer& layer = content.layer;
  const LayerParts parts = content.parts;
  const auto draw = [&](LayerPart part) {
    if (parts.has(part)) layer.drawPart(part, &context_, content.alpha);
  };
  const auto beyond = [&] {
    const CGRect& bounds = layer.model_.bounds;
    CGPath path;
    path.addRect(CGRectInset(bounds, -bounds.size.width, -bounds.size.height));
    return path;
  };
  if (isCut && parts.has(LayerPart::background)) {
    layer.drawBackground(&context_, content.alpha, beyond());
  } else {
    draw(LayerPart::background);
  }
  if (parts.has(LayerPart::gradient) && !isCut && !content.insideBounds) {
    CGContextSaveGState(&context_);
    clipToBounds(layer);
    draw(LayerPart::gradient);
    CGContextRestoreGState(&context_);
  } else {
    draw(LayerPart::gradient);
  }
  draw(LayerPart::contents);
  draw(LayerPart::fill);
  draw(LayerPart::stroke);
  if (content.sublayers > 0) renderSublayers(content);
  if (isCut && parts.has(LayerPart::border)) {
    layer.drawBorder(&context_, content.alpha, beyond());
  } else {
    draw(LayerPart::border);
  }
}

void LayerRenderer::renderSublayers(const Content& content) {
  const auto& sublayers = content.layer.sublayers_;
  const auto below = [](const auto& a, const auto& b) {
    return a->model_.zPosition < b->model_.zPosition;
  };
  if (std::is_sorted(sublayers.begin(), sublayers.end(), below)) {
    for (const auto& sublayer : sublayers) renderInSuperlayer(*sublayer, content.alpha);
    return;
  }
  std::vector<const CALayer*> ordered;
  ordered.reserve(sublayers.size());
  for (const auto& sublayer : sublayers) ordered.push_back(sublayer.get());
  std::stable_sort(ordered.begin(), ordered.end(), below);
  for (const CALayer* sublayer : ordered) renderInSuperlayer(*sublayer, content.alpha);
}

}  // namespace glyphwright
