#include <cmath>
#include <utility>

#include <glyphwright/bezier_path.h>
#include <glyphwright/catalogue/icon_type.h>
#include <glyphwright/layers/gradient_shape_layer.h>
#include <glyphwright/platform/context_stack.h>
#include <glyphwright/platform/screen.h>
#include <glyphwright/rendering/attribute_dictionary.h>

namespace glyphwright {
namespace {

// How much of the outline the icon inside it takes.
constexpr CGFloat kInnerShare = 0.85;
constexpr CGFloat kInnerMargin = (1 - kInnerShare) / 2;

// Layers refuse what is not a number, and a factory never fails: such a side counts as 0.
CGSize finite(CGSize size) {
  return {std::isfinite(size.width) ? size.width : 0, std::isfinite(size.height) ? size.height : 0};
}

template <typename Layer>
std::shared_ptr<Layer> fittedLayer(UIBezierPath path, CGSize asked) {
  const CGSize size = finite(asked);
  path.translateToZeroPoint();
  path.scaleToFitSize(size);
  path.centerAlignWithinSize(size);
  auto layer = Layer::layer();
  layer->setBounds({0, 0, size.width, size.height});
  layer->setPath(path.cgPath());
  return layer;
}

// The outline that an icon stands on: its own shape, except that the people are framed by the badge
// they belong to.
VNTLIconType outlineOf(VNTLIconType icon) {
  return icon == VNTLIconType::peopleBadge ? VNTLIconType::badgeOutline : icon;
}

}  // namespace

std::shared_ptr<CAShapeLayer> UIBezierPath::shapeLayerWithSize(CGSize size) const {
  return fittedLayer<CAShapeLayer>(*this, size);
}

std::shared_ptr<VNTLGradientShapeLayer> UIBezierPath::vntl_gradientShapeLayerWithSize(
    CGSize size) const {
  return fittedLayer<VNTLGradientShapeLayer>(*this, size);
}

std::shared_ptr<CAShapeLayer> UIBezierPath::shapeLayerWithIcon(IconNumber icon, CGSize size) {
  std::optional<UIBezierPath> path = pathForIcon(icon);
  return path ? fittedLayer<CAShapeLayer>(*std::move(path), size) : nullptr;
}

std::shared_ptr<VNTLGradientShapeLayer> UIBezierPath::vntl_gradientShapeLayerWithIcon(
    IconNumber icon, CGSize size) {
  std::optional<UIBezierPath> path = pathForIcon(icon);
  return path ? fittedLayer<VNTLGradientShapeLayer>(*std::move(path), size) : nullptr;
}

UIImage UIBezierPath::imageWithIcon(IconNumber icon, const AttributeDictionary& attributes,
                                    const UIColor& withOutLineColor,
                                    Borrowed<CALayer> backgroundLayer) {
  const CGSize asked = attributes.size(VNTLGlyphwrightSize).value_or(CGSize{});
  const CGSize size = finite(asked);
  const std::shared_ptr<CAShapeLayer> outline = shapeLayerWithIcon(outlineOf(icon), size);
  if (outline) {
    outline->setFillColor(withOutLineColor);
    const CGSize innerSize{size.width * kInnerShare, size.height * kInnerShare};
    AttributeDictionary inner = attributes;
    inner.setValue(VNTLGlyphwrightSize, innerSize);
    auto picture = CAShapeLayer::layer();
    picture->setFrame({{size.width * kInnerMargin, size.height * kInnerMargin}, innerSize});
    picture->setContents(imageWithIcon(icon, inner).cgImage());
    outline->addSublayer(std::move(picture));
    if (backgroundLayer) {
      backgroundLayer->addSublayer(outline);
      outline->setPosition({size.width * 0.5, size.height * 0.5});
    }
  }
  // What is no icon type has no outline and leaves the background alone.
  contexts::Scope scope(asked, false, screen::scale(), true);
  const CALayer* drawn = backgroundLayer ? backgroundLayer.get() : outline.get();
  if (drawn) drawn->renderInContext(scope.context());
  return scope.image();
}

}  // namespace glyphwright
