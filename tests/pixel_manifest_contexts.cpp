// Pictures of contexts and of layers.

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <glyphwright/bezier_path.h>
#include <glyphwright/platform/context.h>
#include <glyphwright/platform/image.h>
#include <glyphwright/rendering/icon_attributes.h>

#include "layer_pictures.h"
#include "pixel_manifest.h"

namespace glyphwright::pixel_manifest {
namespace {

using layerPictures::drawn;
using layerPictures::figure;

const UIColor kInk(0.11, 0.13, 0.19, 1);
const UIColor kRose(0.93, 0.26, 0.4, 1);
const UIColor kAmber(0.98, 0.7, 0.2, 1);
const UIColor kTeal(0.1, 0.6, 0.6, 0.75);
const UIColor kShade(0, 0, 0.1, 0.6);

CGPath wave(int turns) {
  CGPath path;
  path.moveToPoint({2, 20});
  for (int i = 0; i < turns; ++i) {
    const CGFloat x = 2 + 36.0 * i / turns;
    path.addCurveToPoint({x + 36.0 / turns, 20}, {x, -20}, {x + 12, 60});
  }
  return path;
}

}  // namespace

void addContexts(std::vector<Picture>& list) {
  const auto add = [&](std::string name, std::function<void(CGContextRef)> actions) {
    list.push_back({"context-" + name, [actions] {
                      return drawn([&](CGContextRef context) {
                        CGContextSetFillColor(context, kTeal);
                        CGContextSetStrokeColor(context, kInk);
                        actions(context);
                      });
                    }});
  };
  add("strokes-of-every-join", [](CGContextRef context) {
    for (const CGLineJoin join : {CGLineJoin::miter, CGLineJoin::round, CGLineJoin::bevel}) {
      CGContextStrokePath(context, wave(7), {.width = 2.5, .cap = CGLineCap::round, .join = join});
      CGContextScaleCTM(context, 1.5, 0.5);  // the pen is stretched from now on
      CGContextTranslateCTM(context, -6, 36);
    }
  });
  add("many-turns", [](CGContextRef context) {
    CGPath path;
    for (int i = 0; i < 70; ++i) path.addEllipseInRect({{1.0 + i / 9.0, 1}, {30, 37}});
    CGContextFillPath(context, path, FillRule::nonZero);
  });
  add("group-in-clips", [](CGContextRef context) {
    CGContextClipToPath(context, wave(3), FillRule::nonZero);
    CGContextClipToPath(context, figure(), FillRule::nonZero);
    CGContextSetShadowWithColor(context, {1, 1}, 3, kShade);
    CGContextBeginTransparencyLayer(context);
    CGContextFillPath(context, wave(4), FillRule::evenOdd);
    CGContextStrokePath(context, wave(2), {.width = 3});
    CGContextEndTransparencyLayer(context);
  });
  add("gradients-and-images", [](CGContextRef context) {
    const CGGradient gradient(layerPictures::stops());
    CGContextDrawLinearGradient(context, gradient, {3, 4}, {30, 20},
                                CGGradientDrawingOptions::drawsBeforeAndAfter);
    CGContextClipToPath(context, wave(3), FillRule::nonZero);
    CGContextDrawRadialGradient(context, gradient, {20, 20}, 15);
    CGContextDrawConicGradient(context, gradient, {20, 20}, 1);
    const UIImage star = UIBezierPath::starPath().makeImage(
        {.fillColor = kRose, .backgroundColor = UIColor::clearColor(), .size = {40, 40}});
    CGContextSetShadowWithColor(context, {1, 1}, 2, kShade);
    CGContextDrawImage(context, {{2.5, 2.5}, {20, 30}}, star, 0.8);
    CGContextRotateCTM(context, 0.3);
    CGContextDrawImage(context, {{12, 2}, {9, 9}}, star, 1);
  });
  list.push_back({"context-paths", [] {
                    UIBezierPath path = UIBezierPath::arrowIcon({1, 2}, {30, 20}, 3, 9, 8);
                    path.appendPath(UIBezierPath::gearPath().bezierPathByReversingPath());
                    path.appendPath(UIBezierPath::bezierPathWithCGPath(wave(9)));
                    path.translateToZeroPoint();
                    path.scaleToFitSize({39, 39});
                    return path.imageWithStrokeColor(kRose, kTeal);
                  }});
}

void addLayers(std::vector<Picture>& list) {
  using namespace layerPictures;
  // A board with every part that a layer has, whose round corners its content, three gradients, a
  // trimmed stroke and a picture, does not leave.
  const auto board = [] {
    const auto layer = CAShapeLayer::layer();
    layer->setBounds({0, 0, 40, 40});
    layer->setBackgroundColor(kAmber);
    layer->setContents(CGImage(1, 1, std::vector<std::uint8_t>(4, 255)));
    layer->setContentsGravity(CALayerContentsGravity::center);
    layer->setContentsScale(1.0 / 30);
    CGPath tile;
    tile.addRect({1, 8, 12, 24});
    layer->setPath(tile);
    layer->setFillColor(kTeal);
    layer->setStrokeColor(kShade);
    layer->setLineWidth(3);
    layer->setCornerRadius(11.5);
    layer->setMasksToBounds(true);
    layer->setBorderWidth(1.5);
    layer->setBorderColor(kTeal);
    CGFloat turn = 0;
    for (const std::string_view type :
         {kCAGradientLayerAxial, kCAGradientLayerRadial, kCAGradientLayerConic}) {
      const auto gradient = CAGradientLayer::layer();
      setGradient(*gradient);
      gradient->setType(std::string(type));
      gradient->setFrame({3 + 11 * turn, 4, 13, 16});
      gradient->setTransform(CGAffineTransformMakeRotation(0.3 * turn));
      gradient->setCornerRadius(3);
      layer->addSublayer(gradient);
      turn += 1;
    }
    const auto shape = CAShapeLayer::layer();
    shape->setPath(figure());
    shape->setFillRule(CAShapeLayerFillRule::evenOdd);
    shape->setFillColor(kRose.colorWithAlphaComponent(0.5));
    shape->setStrokeColor(kInk);
    shape->setLineWidth(2.5);
    shape->setLineCap(CGLineCap::round);
    shape->setStrokeStart(0.1);
    shape->setStrokeEnd(0.8);
    layer->addSublayer(shape);
    const auto picture = CALayer::layer();
    picture->setFrame({22, 24, 14, 12});
    picture->setContents(
        UIBezierPath::gearPath()
            .makeImage({.fillColor = kInk, .backgroundColor = kAmber, .size = {20, 20}})
            .cgImage());
    picture->setContentsGravity(CALayerContentsGravity::resizeAspect);
    picture->setOpacity(0.8);
    layer->addSublayer(picture);
    return layer;
  };
  list.push_back({"layer-board", [=] { return drawn(*board()); }});
  list.push_back({"layer-translucent", [=] {
                    const auto layer = board();
                    layer->setOpacity(0.6);
                    return drawn(*layer);
                  }});
  list.push_back({"layer-masked", [=] {
                    const auto layer = board();
                    const auto mask = CAGradientLayer::layer();
                    mask->setFrame({2, 1, 36.5, 38});
                    setGradient(*mask);
                    layer->setMask(mask);
                    return drawn(*layer);
                  }});
  list.push_back({"layer-clipped", [=] {
                    const auto layer = board();
                    const auto mask = CAShapeLayer::layer();
                    mask->setPath(figure());
                    layer->setMask(mask);
                    return drawn(*layer);
                  }});
  list.push_back(
      {"layer-gradient-shape", [] {
         const auto layer = UIBezierPath::heartPath().vntl_gradientShapeLayerWithSize({40, 40});
         setGradient(*layer->gradientLayer());
         layer->strokeLayer()->setStrokeColor(kInk);
         layer->strokeLayer()->setLineWidth(1.5);
         return drawn(*layer);
       }});
  list.push_back(
      {"layer-animated", [] {
         const auto heart = UIBezierPath::heartPath().vntl_gradientShapeLayerWithSize({40, 40});
         heart->setColors({{kRose, kTeal, kRose}});
         heart->strokeLayer()->setStrokeColor(kInk);
         heart->strokeLayer()->setLineWidth(3);
         const auto sweep = CABasicAnimation::animationWithKeyPath("locations");
         sweep->setFromValue(std::vector<CGFloat>{0, 0.1, 0.5});
         sweep->setToValue(std::vector<CGFloat>{0.5, 0.9, 1});
         sweep->setDuration(1);
         heart->addAnimation(sweep, "sweep");
         const auto draw = CABasicAnimation::animationWithKeyPath("strokeEnd");
         draw->setFromValue(0.0);
         draw->setDuration(1);
         const auto group = CAAnimationGroup::animation();
         group->setAnimations({draw});
         group->setDuration(1);
         heart->strokeLayer()->addAnimation(group, "draw");
         return drawn(*heart->presentationLayerAtTime(0.4));
       }});
}

}  // namespace glyphwright::pixel_manifest
