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
  appearance_.path = std::move(path);
}

CAShapeLayer::CAShapeLayer(PresentationPass& pass, CALayer& layer) : CALayer(pass, layer) {
  if (const auto* shape = dynamic_cast<const CAShapeLayer*>(&layer))
    appearance_ = shape->appearance_;
}

std::shared_ptr<CALayer> CAShapeLayer::newWithLayer(PresentationPass& pass, CALayer& layer) const {
  return std::make_shared<CAShapeLayer>(pass, layer);
}

LayerParts CAShapeLayer::visibleParts() const {
  LayerParts parts = CALayer::visibleParts();
  if (!appearance_.path) return parts;
  if (isVisible(appearance_.fillColor)) parts.add(LayerPart::fill);
  const bool anyLength =
      appearance_.strokeEnd > 0 && !(appearance_.strokeStart >= appearance_.strokeEnd);
  if (isVisible(appearance_.strokeColor) && appearance_.style.width >= 0 && anyLength) {
    parts.add(LayerPart::stroke);
  }
  return parts;
}

void CAShapeLayer::drawPart(LayerPart part, CGContextRef context, CGFloat alpha) const {
  if (part == LayerPart::fill) {
    const CGColor& color = *appearance_.fillColor;
    CGContextSetFillColor(context, color.colorWithAlphaComponent(color.alpha() * alpha));
    CGContextFillPath(context, *appearance_.path, appearance_.fillRule);
  } else if (part == LayerPart::stroke) {
    const CGColor& color = *appearance_.strokeColor;
    CGContextSetStrokeColor(context, color.colorWithAlphaComponent(color.alpha() * alpha));
    if (!(appearance_.strokeStart > 0) && appearance_.strokeEnd >= 1) {
      CGContextStrokePath(context, *appearance_.path, appearance_.style);
    } else {
      const CGPath drawn =
          trimmedPath(*appearance_.path, appearance_.strokeStart, appearance_.strokeEnd);
      CGContextStrokePath(context, drawn, appearance_.style);
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
      visitAnimatable(appearance_, key, [&](const auto& field) { animatable::read(field, value); });
  return known ? value : CALayer::valueForKey(key);
}

void CAShapeLayer::setAnimatedValueForKey(const AnimationValue& value, std::string_view key) {
  const bool known =
      visitAnimatable(appearance_, key, [&](auto& field) { animatable::write(field, value); });
  if (!known) CALayer::setAnimatedValueForKey(value, key);
}

}  // namespace glyphwright
