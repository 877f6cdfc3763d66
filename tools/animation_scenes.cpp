#include "animation_scenes.h"

#include <algorithm>
#include <utility>
#include <vector>

#include <glyphwright/layers/gradient_shape_layer.h>

#include "path_morph.h"

namespace glyphwright::cli {
namespace {

// The outline's width as a share of the icon's shorter side.
constexpr CGFloat kLineShare = 1.0 / 24;

std::shared_ptr<CABasicAnimation> moving(const char* keyPath, AnimationValue from,
                                         AnimationValue to, double duration) {
  auto animation = CABasicAnimation::animationWithKeyPath(keyPath);
  animation->setFromValue(std::move(from));
  animation->setToValue(std::move(to));
  animation->setDuration(duration);
  return animation;
}

CAMediaTimingFunction easeInEaseOut() {
  return CAMediaTimingFunction::functionWithName(CAMediaTimingFunctionName::easeInEaseOut);
}

CGPath fitted(UIBezierPath icon, CGSize box, CGSize size) {
  icon.translateToZeroPoint();
  icon.scaleToFitSize(box);
  icon.centerAlignWithinSize(size);
  return icon.cgPath();
}

}  // namespace

std::shared_ptr<CALayer> sweepScene(const UIBezierPath& icon, const IconGradient& gradient,
                                    CGSize size, double duration) {
  const auto layer = icon.vntl_gradientShapeLayerWithSize(size);
  // Two rounds of the colours and the first one again: moved on by one round, the picture is the
  // same as before.
  std::vector<CGColor> colors = gradient.colors;
  colors.insert(colors.end(), gradient.colors.begin(), gradient.colors.end());
  colors.push_back(gradient.colors.front());
  layer->setColors(std::move(colors));
  const CGPoint start = gradient.locations.front();
  const CGPoint end = gradient.locations.back();
  const CGSize round{end.x - start.x, end.y - start.y};
  const CGPoint before{start.x - round.width, start.y - round.height};
  layer->setStartPoint(before);
  layer->setEndPoint(end);
  layer->addAnimation(moving("startPoint", before, start, duration), "start");
  layer->addAnimation(
      moving("endPoint", end, CGPoint{end.x + round.width, end.y + round.height}, duration), "end");
  return layer;
}

std::shared_ptr<CALayer> strokeScene(const UIBezierPath& icon, const UIColor& color, CGSize size,
                                     double duration) {
  auto layer = CAShapeLayer::layer();
  const CGFloat width = std::min(size.width, size.height) * kLineShare;
  layer->setBounds({0, 0, size.width, size.height});
  layer->setPath(fitted(icon, {size.width - width, size.height - width}, size));
  layer->setFillColor(std::nullopt);
  layer->setStrokeColor(color);
  layer->setLineWidth(width);
  layer->setLineCap(CGLineCap::round);
  layer->setLineJoin(CGLineJoin::round);
  const auto add = [&](const char* keyPath, std::vector<double> times) {
    auto animation = CAKeyframeAnimation::animationWithKeyPath(keyPath);
    animation->setValues({0.0, 0.0, 1.0, 1.0});
    animation->setKeyTimes(std::move(times));
    animation->setTimingFunctions({{}, easeInEaseOut(), {}});
    animation->setDuration(duration);
    layer->addAnimation(animation, keyPath);
  };
  add("strokeEnd", {0, 0, 0.5, 1});
  add("strokeStart", {0, 0.6, 1, 1});
  return layer;
}

std::shared_ptr<CALayer> morphScene(const UIBezierPath& icon, const UIBezierPath& to,
                                    const UIColor& color, CGSize size, double duration) {
  auto layer = CAShapeLayer::layer();
  layer->setBounds({0, 0, size.width, size.height});
  layer->setFillColor(color);
  auto [from, other] = morphable(fitted(icon, size, size), fitted(to, size, size));
  auto animation = CAKeyframeAnimation::animationWithKeyPath("path");
  animation->setValues({from, from, other, other, from});
  animation->setKeyTimes({{0, 0.1, 0.5, 0.6, 1}});
  animation->setTimingFunctions({{}, easeInEaseOut(), {}, easeInEaseOut()});
  animation->setDuration(duration);
  layer->addAnimation(animation, "morph");
  layer->setPath(std::move(from));
  return layer;
}

}  // namespace glyphwright::cli
