// Trees of all kinds of layers with masks and animations, presented at some time and drawn.

#include <iterator>
#include <memory>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include <glyphwright/layers/gradient_shape_layer.h>

#include "input.h"

namespace {

using namespace glyphwright;
using Layers = std::vector<std::shared_ptr<CALayer>>;

std::shared_ptr<CALayer> makeLayer(fuzz::Input& input) {
  switch (input.below(4)) {
    case 0:
      return CAShapeLayer::layer();
    case 1:
      return CAGradientLayer::layer();
    case 2:
      return VNTLGradientShapeLayer::layer();
    default:
      return CALayer::layer();
  }
}

AnimationValue value(fuzz::Input& input) {
  switch (input.below(9)) {
    case 0:
      return input.point();
    case 1:
      return input.size();
    case 2:
      return input.rect();
    case 3: {
      const CGPoint x = input.point();
      const CGPoint y = input.point();
      const CGPoint t = input.point();
      return CGAffineTransform{x.x, x.y, y.x, y.y, t.x, t.y};
    }
    case 4:
      return input.color();
    case 5:
      return std::vector<CGColor>{input.color(), input.color()};
    case 6:
      return std::vector<CGFloat>{input.number(), input.number()};
    case 7:
      return input.path();
    default:
      return input.number();
  }
}

std::string keyPath(fuzz::Input& input) {
  std::istringstream all(
      "bounds position transform opacity colors locations startPoint endPoint path strokeStart "
      "strokeEnd lineWidth fillColor strokeColor cornerRadius zPosition transform.rotation "
      "transform.scale bounds.size position.x frame borderWidth backgroundColor");
  std::string keyPath;
  for (std::size_t skipped = input.below(24); skipped > 0; --skipped) all >> keyPath;
  return keyPath;
}

void setTiming(fuzz::Input& input, CAMediaTiming& timing) {
  timing.setDuration(input.number());
  if (input.coin()) return;
  timing.setBeginTime(input.number());
  timing.setSpeed(input.number());
  timing.setTimeOffset(input.number());
  timing.setRepeatCount(input.number());
  timing.setRepeatDuration(input.number());
  timing.setAutoreverses(input.coin());
  timing.setFillMode(static_cast<CAMediaTimingFillMode>(input.below(4)));
}

std::shared_ptr<CAAnimation> animation(fuzz::Input& input, int depth) {
  std::shared_ptr<CAAnimation> result;
  const std::size_t kind = input.below(4);
  if (kind == 0 && depth < 3) {
    auto group = CAAnimationGroup::animation();
    group->setAnimations({animation(input, depth + 1), animation(input, depth + 1)});
    result = group;
  } else if (kind == 1) {
    auto keyframes = CAKeyframeAnimation::animationWithKeyPath(keyPath(input));
    keyframes->setValues({value(input), value(input), value(input)});
    if (input.coin()) keyframes->setKeyTimes({{0, input.number(), 1}});
    if (input.coin()) keyframes->setCalculationMode(CAAnimationCalculationMode::discrete);
    keyframes->setAdditive(input.coin());
    result = keyframes;
  } else {
    auto basic = CABasicAnimation::animationWithKeyPath(keyPath(input));
    if (input.coin()) basic->setFromValue(value(input));
    if (input.coin()) basic->setToValue(value(input));
    if (input.coin()) basic->setByValue(value(input));
    basic->setAdditive(input.coin());
    basic->setCumulative(input.coin());
    result = basic;
  }
  setTiming(input, *result);
  if (input.coin()) {
    result->setTimingFunction(CAMediaTimingFunction::functionWithControlPoints(
        input.number(), input.number(), input.number(), input.number()));
  }
  return result;
}

template <typename Gradient>
void setGradient(fuzz::Input& input, Gradient& gradient) {
  std::vector<CGColor> colors;
  std::vector<CGFloat> locations;
  for (std::size_t count = input.below(5); count > 0; --count) colors.push_back(input.color());
  for (std::size_t count = input.below(5); count > 0; --count) locations.push_back(input.number());
  gradient.setColors(std::move(colors));
  if (input.coin()) gradient.setLocations(std::move(locations));
  gradient.setStartPoint(input.point());
  gradient.setEndPoint(input.point());
  gradient.setType(input.coin() ? "conic" : "radial");
}

void setLook(fuzz::Input& input, CALayer& layer) {
  layer.setOpacity(input.number());
  layer.setCornerRadius(input.number());
  layer.setBorderWidth(input.number());
  layer.setBackgroundColor(input.color());
  layer.setMasksToBounds(input.coin());
  layer.setContents(CGImage(1, 1, std::vector<std::uint8_t>(4, input.byte())));
  layer.setContentsGravity(static_cast<CALayerContentsGravity>(input.below(4)));
  layer.setContentsScale(input.number());
  if (auto* shape = dynamic_cast<CAShapeLayer*>(&layer)) {
    shape->setPath(input.path());
    shape->setStrokeColor(input.color());
    shape->setLineWidth(input.number());
    shape->setStrokeEnd(input.number());
  }
  if (auto* gradient = dynamic_cast<CAGradientLayer*>(&layer)) setGradient(input, *gradient);
  if (auto* both = dynamic_cast<VNTLGradientShapeLayer*>(&layer)) {
    both->setPath(input.path());
    setGradient(input, *both);
    if (!input.coin()) return;
    both->strokeLayer()->setStrokeColor(input.color());
    both->strokeLayer()->setLineWidth(input.number());
    both->strokeLayer()->setStrokeStart(input.number());
  }
}

void change(fuzz::Input& input, Layers& layers) {
  const std::shared_ptr<CALayer> layer = layers[input.below(layers.size())];
  const std::shared_ptr<CALayer> other = layers[input.below(layers.size())];
  switch (input.below(9)) {
    case 0:
    case 1:
      layers.push_back(makeLayer(input));
      layer->addSublayer(layers.back());
      break;
    case 2:
      layer->addSublayer(other);
      break;
    case 3:
      layer->setMask(other);
      break;
    case 4:
      input.coin() ? layer->setFrame(input.rect()) : layer->setBounds(input.rect());
      break;
    case 5:
      layer->setAnchorPoint(input.point());
      layer->setTransform(CGAffineTransformMakeRotation(input.number()));
      layer->setZPosition(input.number());
      break;
    case 6:
      setLook(input, *layer);
      break;
    case 7:
      setTiming(input, *layer);
      break;
    default:
      layer->addAnimation(animation(input, 0),
                          input.coin() ? std::optional<std::string>("key") : std::nullopt);
      break;
  }
}

void draw(const CALayer& layer) {
  UIGraphicsBeginImageContextWithOptions({24, 24}, false, 1);
  layer.renderInContext(UIGraphicsGetCurrentContext());
  UIGraphicsEndImageContext();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  Layers layers{makeLayer(input)};
  for (int steps = 0; steps < 40 && !input.isEmpty(); ++steps) {
    try {
      change(input, layers);
    } catch (const std::invalid_argument&) {
      // NaN and circles are refused.
    }
  }
  draw(*layers.front());
  draw(*layers.front()->presentationLayerAtTime(input.number()));
  draw(*layers.back()->presentationLayerAtTime(0.5));
  return 0;
}
