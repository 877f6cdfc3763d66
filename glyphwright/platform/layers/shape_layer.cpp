#include <glyphwright/platform/layers/shape_layer.h>

#include <glyphwright/platform/layers/animatable_fields.h>
#include <glyphwright/platform/layers/path_trimming.h>

namespace glyphwright {
namespace {

bool isVisible(const std::optional<CGColor>& color) {
  return color && color->alpha() > 0;
}

}  // namespace

std::shared_ptr<CAShapeLayer> CAShapeLayer::layer() {
  return std::make_shared<CAShapeLayer>();
}

void CAShapeLayer::setPath(std::optional<CGPath> path) {
  shape_.path = std::move(path);
}

CAShapeLayer::CAShapeLayer(PresentationPass& pass, CALayer& layer) : CALayer(pass, layer) {
  if (const auto* shape = dynamic_cast<const CAShapeLayer*>(&layer)) shape_ = shape->shape_;
}

std::shared_ptr<CALayer> CAShapeLayer::newWithLayer(PresentationPass& pass, CALayer& layer) const {
  return std::make_shared<CAShapeLayer>(pass, layer);
}

LayerParts CAShapeLayer::visibleParts() const {
  LayerParts parts = CALayer::visibleParts();
  if (!shape_.path) return parts;
  if (isVisible(shape_.fillColor)) parts.add(LayerPart::fill);
  const bool anyLength = shape_.strokeEnd > 0 && !(shape_.strokeStart >= shape_.strokeEnd);
  if (isVisible(shape_.strokeColor) && shape_.style.width >= 0 && anyLength) {
    parts.add(LayerPart::stroke);
  }
  return parts;
}

void CAShapeLayer::drawPart(LayerPart part, CGContextRef context, CGFloat alpha) const {
  if (part == LayerPart::fill) {
    const CGColor& color = *shape_.fillColor;
    CGContextSetFillColor(context, color.colorWithAlphaComponent(color.alpha() * alpha));
    CGContextFillPath(context, *shape_.path, shape_.fillRule == CAShapeLayerFillRule::evenOdd);
  } else if (part == LayerPart::stroke) {
    const CGColor& color = *shape_.strokeColor;
    CGContextSetStrokeColor(context, color.colorWithAlphaComponent(color.alpha() * alpha));
    if (!(shape_.strokeStart > 0) && shape_.strokeEnd >= 1) {
      CGContextStrokePath(context, *shape_.path, shape_.style);
    } else {
      const CGPath drawn = trimmedPath(*shape_.path, shape_.strokeStart, shape_.strokeEnd);
      CGContextStrokePath(context, drawn, shape_.style);
    }
  } else {
    CALayer::drawPart(part, context, alpha);
  }
}

template <typename Fields, typename Visit>
bool CAShapeLayer::visitAnimatable(Fields& shape, std::string_view key, Visit visit) {
  if (key == "path") {
    visit(shape.path);
  } else if (key == "fillColor") {
    visit(shape.fillColor);
  } else if (key == "strokeColor") {
    visit(shape.strokeColor);
  } else if (key == "lineWidth") {
    visit(shape.style.width);
  } else if (key == "miterLimit") {
    visit(shape.style.miterLimit);
  } else if (key == "strokeStart") {
    visit(shape.strokeStart);
  } else if (key == "strokeEnd") {
    visit(shape.strokeEnd);
  } else {
    return false;
  }
  return true;
}

std::optional<AnimationValue> CAShapeLayer::valueForKey(std::string_view key) const {
  std::optional<AnimationValue> value;
  const bool known =
      visitAnimatable(shape_, key, [&](const auto& field) { animatable::read(field, value); });
  return known ? value : CALayer::valueForKey(key);
}

void CAShapeLayer::setAnimatedValueForKey(const AnimationValue& value, std::string_view key) {
  const bool known =
      visitAnimatable(shape_, key, [&](auto& field) { animatable::write(field, value); });
  if (!known) CALayer::setAnimatedValueForKey(value, key);
}

}  // namespace glyphwright
