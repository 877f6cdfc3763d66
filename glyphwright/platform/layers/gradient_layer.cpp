#include <glyphwright/platform/layers/gradient_layer.h>

#include <cmath>

#include <glyphwright/platform/layers/animatable_fields.h>
#include <glyphwright/platform/math.h>

namespace glyphwright {
namespace {

CGPoint inBounds(CGPoint unit, const CGRect& bounds) {
  return {bounds.origin.x + unit.x * bounds.size.width,
          bounds.origin.y + unit.y * bounds.size.height};
}

}  // namespace

std::shared_ptr<CAGradientLayer> CAGradientLayer::layer() {
  return std::make_shared<CAGradientLayer>();
}

void CAGradientLayer::setColors(std::optional<std::vector<CGColor>> colors) {
  gradient_.colors = std::move(colors);
}

void CAGradientLayer::setLocations(std::optional<std::vector<CGFloat>> locations) {
  gradient_.locations = std::move(locations);
}

CAGradientLayer::CAGradientLayer(PresentationPass& pass, CALayer& layer) : CALayer(pass, layer) {
  if (const auto* source = dynamic_cast<const CAGradientLayer*>(&layer)) {
    gradient_ = source->gradient_;
  }
}

std::shared_ptr<CALayer> CAGradientLayer::newWithLayer(PresentationPass& pass,
                                                       CALayer& layer) const {
  return std::make_shared<CAGradientLayer>(pass, layer);
}

LayerParts CAGradientLayer::visibleParts() const {
  LayerParts parts = CALayer::visibleParts();
  const auto& colors = gradient_.colors;
  const auto& locations = gradient_.locations;
  const bool drawn = colors && colors->size() >= 2 &&
                     (!locations || locations->size() == colors->size()) &&
                     gradient_.startPoint != gradient_.endPoint;
  if (drawn && !CGRectIsEmpty(bounds())) parts.add(LayerPart::gradient);
  return parts;
}

void CAGradientLayer::drawPart(LayerPart part, CGContextRef context, CGFloat alpha) const {
  if (part != LayerPart::gradient) return CALayer::drawPart(part, context, alpha);
  std::vector<CGGradient::Stop> stops;
  const std::vector<CGColor>& colors = *gradient_.colors;
  stops.reserve(colors.size());
  const auto last = static_cast<CGFloat>(colors.size() - 1);
  for (std::size_t i = 0; i < colors.size(); ++i) {
    const CGFloat location =
        gradient_.locations ? (*gradient_.locations)[i] : static_cast<CGFloat>(i) / last;
    stops.push_back({location, colors[i].colorWithAlphaComponent(colors[i].alpha() * alpha)});
  }
  drawGradient(context, CGGradient(std::move(stops), CGGradient::Locations::kept));
}

void CAGradientLayer::drawGradient(CGContextRef context, const CGGradient& gradient) const {
  const CGPoint start = inBounds(gradient_.startPoint, bounds());
  const CGPoint end = inBounds(gradient_.endPoint, bounds());
  if (gradient_.type == kCAGradientLayerRadial) {
    const CGFloat radiusX = std::fabs(end.x - start.x);
    const CGFloat radiusY = std::fabs(end.y - start.y);
    if (!(radiusX > 0) || !(radiusY > 0)) return;
    CGContextSaveGState(context);
    CGContextTranslateCTM(context, start.x, start.y);
    CGContextScaleCTM(context, radiusX, radiusY);
    CGContextDrawRadialGradient(context, gradient, {0, 0}, 1);
    CGContextRestoreGState(context);
  } else if (gradient_.type == kCAGradientLayerConic) {
    CGContextDrawConicGradient(context, gradient, start,
                               math::atan2(end.y - start.y, end.x - start.x));
  } else {
    CGContextDrawLinearGradient(context, gradient, start, end,
                                CGGradientDrawingOptions::drawsBeforeAndAfter);
  }
}

template <typename Fields, typename Visit>
bool CAGradientLayer::visitAnimatable(Fields& gradient, std::string_view key, Visit visit) {
  if (key == "colors") {
    visit(gradient.colors);
  } else if (key == "locations") {
    visit(gradient.locations);
  } else if (key == "startPoint") {
    visit(gradient.startPoint);
  } else if (key == "endPoint") {
    visit(gradient.endPoint);
  } else {
    return false;
  }
  return true;
}

std::optional<AnimationValue> CAGradientLayer::valueForKey(std::string_view key) const {
  std::optional<AnimationValue> value;
  const bool known =
      visitAnimatable(gradient_, key, [&](const auto& field) { animatable::read(field, value); });
  return known ? value : CALayer::valueForKey(key);
}

void CAGradientLayer::setAnimatedValueForKey(const AnimationValue& value, std::string_view key) {
  const bool known =
      visitAnimatable(gradient_, key, [&](auto& field) { animatable::write(field, value); });
  if (!known) CALayer::setAnimatedValueForKey(value, key);
}

}  // namespace glyphwright
