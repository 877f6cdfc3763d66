#include <glyphwright/platform/layers/layer_renderer.h>

#include <glyphwright/platform/layers/shape_layer.h>

namespace glyphwright {

std::optional<LayerRenderer::MaskClip> LayerRenderer::clipOf(const CALayer& mask) {
  const Content content = contentOf(mask, 1);
  if (content.alpha < 1 || content.sublayers > 0 || mask.mask_ || mask.model_.masksToBounds) {
    return std::nullopt;
  }
  MaskClip clip{{}, FillRule::nonZero};
  const auto* shape = dynamic_cast<const CAShapeLayer*>(&mask);
  if (shape && content.parts.isOnly(LayerPart::fill) && shape->fillColor()->alpha() == 1) {
    clip = {*shape->path(), shape->fillRule()};
  } else if (content.parts.isOnly(LayerPart::background) &&
             mask.model_.backgroundColor->alpha() == 1) {
    clip.path = mask.boundsPath();
  } else {
    return std::nullopt;
  }
  const CGAffineTransform placement = placementOf(mask);
  if (placement != CGAffineTransformIdentity) clip.path.applyTransform(placement);
  return clip;
}

void LayerRenderer::renderMasked(const Content& content) {
  const CALayer& mask = *content.layer.mask_;
  if (!isShown(mask) || contentOf(mask, 1).isEmpty()) return;
  const std::optional<MaskClip> clip = clipOf(mask);
  if (!clip) return renderThroughAlpha(content, mask);
  CGContextSaveGState(&context_);
  CGContextClipToPath(&context_, clip->path, clip->rule);
  // Several operations through one clip would show each other at its edges.
  if (content.isOneOperation()) {
    Content clipped = content;
    const CGRect box = clip->path.boundingBox();
    clipped.insideBounds = content.layer.model_.cornerRadius <= 0 &&
                           CGRectIntersection(box, content.layer.model_.bounds) == box;
    renderContent(clipped);
  } else {
    renderGroup(content);
  }
  CGContextRestoreGState(&context_);
}

// The general case: the content as a group, the mask as another one over the same pixels, and the
// content's pixels times the mask's alpha.
void LayerRenderer::renderThroughAlpha(const Content& content, const CALayer& mask) {
  beginGroup(content.alpha);
  Content opaque = content;
  opaque.alpha = 1;
  renderContent(opaque);

  context_.beginGroup();
  renderInSuperlayer(mask, 1);
  context_.endGroupAsMask();
  endGroup();
}

}  // namespace glyphwright
