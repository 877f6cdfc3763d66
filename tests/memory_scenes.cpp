#include "memory_scenes.h"

#include <memory>
#include <optional>
#include <utility>

#include <glyphwright/bezier_path.h>
#include <glyphwright/catalogue/catalogue.h>
#include <glyphwright/catalogue/icon_type.h>
#include <glyphwright/catalogue/icons.h>
#include <glyphwright/catalogue/pathable.h>
#include <glyphwright/layers/gradient_shape_layer.h>
#include <glyphwright/platform/context.h>
#include <glyphwright/platform/image.h>
#include <glyphwright/presets/chat_icons.h>
#include <glyphwright/presets/referral_icons.h>
#include <glyphwright/rendering/attribute_dictionary.h>
#include <glyphwright/rendering/icon_attributes.h>

namespace glyphwright::memory {
namespace {

using Bytes = std::vector<std::uint8_t>;

const UIColor kRose(0.93, 0.26, 0.4, 1);
const UIColor kTeal(0.1, 0.6, 0.6, 0.75);
const UIColor kShade(0, 0, 0.1, 0.6);

Bytes bytesOf(const UIImage& image) {
  const auto rgba = image.cgImage().rgba();
  return {rgba.begin(), rgba.end()};
}

template <typename Actions>
Bytes drawn(Actions actions) {
  return bytesOf(
      UIImage::render({40, 40}, 2, [&](CGContext& context) { actions(&context); }).value());
}

IconAttributes plain() {
  return {.fillColor = kRose,
          .backgroundColor = UIColor::clearColor(),
          .stroke = IconStroke(UIColor::clearColor(), 0),
          .size = {40, 40}};
}

template <typename Change>
Scene record(std::string name, Change change) {
  return {std::move(name), [change] {
            IconAttributes attributes = plain();
            change(attributes);
            return bytesOf(UIBezierPath::newImage(Icons::star, attributes));
          }};
}

CGPath wave(int turns) {
  CGPath path;
  path.moveToPoint({2, 20});
  for (int i = 0; i < turns; ++i) {
    const CGFloat x = 2 + 36.0 * i / turns;
    path.addCurveToPoint({x + 36.0 / turns, 20}, {x, -20}, {x + 12, 60});
  }
  return path;
}

CGGradient twoColors() {
  const CGColor colors[] = {kRose, kTeal};
  return CGGradientCreateWithColors(CGColorSpaceCreateDeviceRGB(), colors, {}).value();
}

std::shared_ptr<VNTLGradientShapeLayer> animatedHeart() {
  auto heart = UIBezierPath::heartPath().vntl_gradientShapeLayerWithSize({40, 40});
  heart->setColors({{kRose, kTeal, kRose}});
  heart->strokeLayer()->setStrokeColor(kShade);
  heart->strokeLayer()->setLineWidth(3);
  auto sweep = CABasicAnimation::animationWithKeyPath("locations");
  sweep->setFromValue(std::vector<CGFloat>{0, 0.1, 0.5});
  sweep->setToValue(std::vector<CGFloat>{0.5, 0.9, 1});
  sweep->setDuration(1);
  heart->addAnimation(sweep, "sweep");
  auto draw = CABasicAnimation::animationWithKeyPath("strokeEnd");
  draw->setFromValue(0.0);
  draw->setDuration(1);
  auto group = CAAnimationGroup::animation();
  group->setAnimations({draw});
  group->setDuration(1);
  heart->strokeLayer()->addAnimation(group, "draw");
  return heart;
}

void addRecords(std::vector<Scene>& list) {
  list.push_back(record("Fill", [](IconAttributes&) {}));
  list.push_back(record("Hairline", [](IconAttributes& a) { a.stroke.reset(); }));
  list.push_back(record("Outline", [](IconAttributes& a) { a.stroke = IconStroke(kTeal, 3); }));
  list.push_back(record("SlantedGradient", [](IconAttributes& a) {
    a.gradient =
        IconGradient({kRose, kTeal, kShade}, {}, IconGradient::Direction::topLeftToBottomRight);
  }));
  list.push_back(record("DropShadow", [](IconAttributes& a) {
    a.dropShadow = IconShadow(kShade, {1, 2}, 4);
  }));
  list.push_back(record("WideBlur", [](IconAttributes& a) {
    a.size = {160, 160};
    a.dropShadow = IconShadow(kShade, {1, 2}, 48);
  }));
  list.push_back(record("InsetShadow", [](IconAttributes& a) {
    a.insetShadow = IconShadow(kShade, {1, 2}, 4);
  }));
  list.push_back(everything());
  list.push_back(
      {"Dictionary", [] {
         // One by one: gcc 12 destroys what it has not made where a list throws midway.
         AttributeDictionary look;
         look.setValue(VNTLGlyphwrightSize, CGSize{40, 40});
         look.setValue(VNTLGlyphwrightGradientColors, std::vector<UIColor>{kRose, kTeal});
         look.setValue(VNTLGlyphwrightBorderWidth, 2);
         look.setValue(VNTLGlyphwrightInsetShadow, IconShadow(kShade, {0, 1}, 2).shadow);
         look.setValue(VNTLGlyphwrightDropShadow, IconShadow(kShade, {1, 1}, 3).shadow);
         return bytesOf(UIBezierPath::imageWithIcon(VNTLIconType::gear, look));
       }});
  list.push_back({"Canvas", [] {
                    const std::vector<Pathable> icons(3, App::Shapes::Checks::checkmark);
                    const std::vector<IconAttributes> attributes(3, plain());
                    const std::vector<CGPoint> positions = {{0, 0}, {20, 0}, {0, 20.5}};
                    const std::vector<CGSize> sizes(3, CGSize{30, 17});
                    return bytesOf(UIBezierPath::newImage(icons, attributes, positions, sizes,
                                                          CGSize{50, 50}));
                  }});
  list.push_back({"Painting", [] {
                    Bytes all = bytesOf(ChatIcons::ActionBar::stickerSelectedIcon());
                    const Bytes more = bytesOf(ReferralIcons::Home::headerIcon({40, 30}));
                    all.insert(all.end(), more.begin(), more.end());
                    return all;
                  }});
}

void addContexts(std::vector<Scene>& list) {
  list.push_back(
      {"StrokesOfEveryJoin", [] {
         return drawn([](CGContextRef context) {
           for (const CGLineJoin join : {CGLineJoin::miter, CGLineJoin::round, CGLineJoin::bevel}) {
             const StrokeStyle style{.width = 2.5, .cap = CGLineCap::round, .join = join};
             CGContextStrokePath(context, wave(7), style);
             CGContextScaleCTM(context, 1.5, 0.5);  // the pen is stretched from now on
           }
         });
       }});
  list.push_back({"AWindingOfManyTurns", [] {
                    return drawn([](CGContextRef context) {
                      CGPath path;
                      for (int i = 0; i < 70; ++i)
                        path.addEllipseInRect({{1.0 + i / 9.0, 1}, {30, 37}});
                      CGContextFillPath(context, path, false);
                    });
                  }});
  list.push_back({"ShadowsThroughClipsInAGroup", [] {
                    return drawn([](CGContextRef context) {
                      CGContextSaveGState(context);
                      CGContextClipToPath(context, wave(3), false);
                      CGContextClipToPath(context, UIBezierPath::heartPath().cgPath(), false);
                      CGContextSetShadowWithColor(context, {1, 1}, 3, kShade);
                      CGContextBeginTransparencyLayer(context);
                      CGContextSetFillColor(context, kTeal);
                      CGContextFillPath(context, wave(4), true);
                      CGContextStrokePath(context, wave(2), StrokeStyle{.width = 3});
                      CGContextEndTransparencyLayer(context);
                      CGContextRestoreGState(context);
                    });
                  }});
  list.push_back({"GradientsAndAnImage", [] {
                    return drawn([](CGContextRef context) {
                      const CGGradient gradient = twoColors();
                      CGContextDrawLinearGradient(context, gradient, {3, 4}, {30, 20},
                                                  CGGradientDrawingOptions(3));
                      CGContextClipToPath(context, wave(3), false);
                      CGContextDrawRadialGradient(context, gradient, {20, 20}, 15);
                      CGContextDrawConicGradient(context, gradient, {20, 20}, 1);
                      const UIImage star = UIBezierPath::newImage(Icons::star, plain());
                      CGContextSetShadowWithColor(context, {1, 1}, 2, kShade);
                      CGContextDrawImage(context, {{2.5, 2.5}, {20, 30}}, star, 0.8);
                      CGContextRotateCTM(context, 0.3);
                      CGContextDrawImage(context, {{12, 2}, {9, 9}}, star, 1);
                    });
                  }});
}

void addLayers(std::vector<Scene>& list) {
  list.push_back({"Layers", [] {
                    const auto heart = animatedHeart();
                    const auto mask = UIBezierPath::starPath().shapeLayerWithSize({40, 40});
                    const auto root = CALayer::layer();
                    root->setFrame({{0, 0}, {40, 40}});
                    root->setCornerRadius(8);
                    root->setMasksToBounds(true);
                    root->setBackgroundColor(kTeal);
                    root->setContents(UIBezierPath::newImage(Icons::star, plain()).cgImage());
                    root->addSublayer(heart);
                    heart->setMask(mask);
                    root->setOpacity(0.8);
                    return drawn([&](CGContextRef context) {
                      root->renderInContext(context);
                      root->presentationLayerAtTime(0.4)->renderInContext(context);
                    });
                  }});
  list.push_back({"Paths", [] {
                    UIBezierPath path = UIBezierPath::arrowIcon({1, 2}, {30, 20}, 3, 9, 8);
                    path.appendPath(UIBezierPath::gearPath().bezierPathByReversingPath());
                    path.appendPath(UIBezierPath::bezierPathWithCGPath(wave(9)));
                    path.translateToZeroPoint();
                    path.scaleToFitSize({39, 39});
                    return bytesOf(path.imageWithStrokeColor(kRose, kTeal));
                  }});
}

}  // namespace

Scene everything() {
  return record("Everything", [](IconAttributes& a) {
    a.border = IconBorder(kTeal, 3);
    a.stroke = IconStroke(kShade, 1.5);
    a.gradient = IconGradient({kRose, kTeal}, {}, IconGradient::Direction::leftToRight);
    a.dropShadow = IconShadow(kShade, {1, 2}, 4);
    a.insetShadow = IconShadow(kShade, {0, -2}, 3);
  });
}

std::vector<Scene> scenes() {
  std::vector<Scene> list;
  addRecords(list);
  addContexts(list);
  addLayers(list);
  return list;
}

}  // namespace glyphwright::memory
