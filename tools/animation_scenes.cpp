#include "animation_scenes.h"

#include <algorithm>
#include <utility>
#include <vector>

#include <glyphwright/layers/gradient_shape_layer.h>
#include <glyphwright/rendering/bare_strokes.h>

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

/// The width of the icon's own pen when it is a drawing of bare strokes, otherwise 0.
CGFloat penOf(const UIBezierPath& icon, CGSize size) {
  return rendering::isBareStrokes(icon.cgPath()) ? rendering::ownPenWidth(icon, size) : 0;
}

CGSize lessPen(CGSize size, CGFloat pen) {
  return {size.width - pen, size.height - pen};
}

void usePen(CAShapeLayer& layer, const UIBezierPath& icon, CGFloat width) {
  layer.setLineWidth(width);
  layer.setLineCap(icon.lineCapStyle());
  layer.setLineJoin(icon.lineJoinStyle());
  layer.setMiterLimit(icon.miterLimit());
}

}  // namespace

std::shared_ptr<CALayer> sweepScene(const UIBezierPath& icon, const IconGradient& gradient,
                                    CGSize size, double duration) {
  const auto layer = icon.vntl_gradientShapeLayerWithSize(size);
  if (const CGFloat pen = penOf(icon, size); pen > 0) {
    layer->setPath(fitted(icon, lessPen(size, pen), size));
    const auto mask = layer->maskLayer();
    mask->setStrokeColor(CGColor::blackColor());
    usePen(*mask, icon, pen);
  }
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
  const CGFloat pen = penOf(icon, size);
  const CGFloat width = pen > 0 ? pen : std::min(size.width, size.height) * kLineShare;
  layer->setBounds({0, 0, size.width, size.height});
  layer->setPath(fitted(icon, lessPen(size, width), size));
  layer->setFillColor(std::nullopt);
  layer->setStrokeColor(color);
  usePen(*layer, icon, width);
  if (!(pen > 0)) {
    layer->setLineCap(CGLineCap::round);
    layer->setLineJoin(CGLineJoin::round);
  }
  // The whole outline stands first, so that a still picture of the first frame shows it; then it is
  // taken away, and from the middle on drawn again.
  const auto add = [&](const char* keyPath, std::vector<AnimationValue> values,
                       std::vector<double> times) {
    auto animation = CAKeyframeAnimation::animationWithKeyPath(keyPath);
    animation->setTimingFunctions({{}, easeInEaseOut(), {}, easeInEaseOut(), {}});
    animation->setValues(std::move(values));
    animation->setKeyTimes(std::move(times));
    animation->setDuration(duration);
    layer->addAnimation(animation, keyPath);
  };
  add("strokeStart", {0.0, 0.0, 1.0, 0.0, 0.0, 0.0}, {0, 0.05, 0.45, 0.45, 0.95, 1});
  add("strokeEnd", {1.0, 1.0, 1.0, 0.0, 1.0, 1.0}, {0, 0.05, 0.45, 0.45, 0.95, 1});
  return layer;
}

std::shared_ptr<CALayer> morphScene(const UIBezierPath& icon, const UIBezierPath& to,
                                    const UIColor& color, CGSize size, double duration) {
  auto layer = CAShapeLayer::layer();
  layer->setBounds({0, 0, size.width, size.height});
  layer->setFillColor(color);
  // A pen for the strokes of an icon that has nothing else. It thins out to nothing on the way to
  // one that is filled, whose edge it would blur.
  const CGFloat pen = penOf(icon, size);
  const CGFloat otherPen = penOf(to, size);
  if (pen > 0 || otherPen > 0) {
    layer->setStrokeColor(color);
    usePen(*layer, pen > 0 ? icon : to, pen);
    auto width = CAKeyframeAnimation::animationWithKeyPath("lineWidth");
    const CGFloat none = -1e-9;  // draws nothing, where 0 would be a hairline
    const CGFloat ends[] = {pen > 0 ? pen : none, otherPen > 0 ? otherPen : none};
    width->setValues({ends[0], ends[0], ends[1], ends[1], ends[0]});
    width->setKeyTimes({{0, 0.1, 0.5, 0.6, 1}});
    width->setTimingFunctions({{}, easeInEaseOut(), {}, easeInEaseOut()});
    width->setDuration(duration);
    layer->addAnimation(width, "pen");
  }
  auto [from, other] =
      morphable(fitted(icon, lessPen(size, pen), size), fitted(to, lessPen(size, otherPen), size));
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
