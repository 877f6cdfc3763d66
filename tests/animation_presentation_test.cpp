#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/layers/gradient_shape_layer.h>
#include <glyphwright/platform/math.h>
#include <tests/pixels.h>

namespace glyphwright {
namespace {

using Keys = std::vector<std::string>;
using Value = std::optional<AnimationValue>;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr UIColor kRed(1, 0, 0, 1);
constexpr UIColor kBlue(0, 0, 1, 1);

std::shared_ptr<CABasicAnimation> basic(const char* keyPath, AnimationValue from, AnimationValue to,
                                        double duration = 1) {
  auto animation = CABasicAnimation::animationWithKeyPath(keyPath);
  animation->setFromValue(std::move(from));
  animation->setToValue(std::move(to));
  animation->setDuration(duration);
  return animation;
}

CGPath square(CGFloat side) {
  CGPath path;
  path.addRect({0, 0, side, side});
  return path;
}

TEST(StoredAnimations, AreCopiesUnderTheirKeys) {
  const auto layer = CALayer::layer();
  EXPECT_FALSE(layer->animationKeys());
  const auto animation = basic("opacity", 0.0, 1.0);
  layer->addAnimation(animation, "a");
  layer->addAnimation(animation, "b");
  animation->setToValue(0.5);
  EXPECT_NE(layer->animationForKey("a"), animation);
  const auto stored =
      std::dynamic_pointer_cast<const CABasicAnimation>(layer->animationForKey("a"));
  ASSERT_TRUE(stored);
  EXPECT_EQ(stored->keyPath(), "opacity");
  EXPECT_EQ(stored->toValue(), AnimationValue(1.0));

  layer->addAnimation(animation, "a");
  EXPECT_EQ(layer->animationKeys(), (Keys{"b", "a"}));
  layer->removeAnimationForKey("none");
  layer->removeAnimationForKey("b");
  EXPECT_EQ(layer->animationKeys(), Keys{"a"});
  EXPECT_EQ(layer->animationForKey("b"), nullptr);
  layer->removeAllAnimations();
  EXPECT_FALSE(layer->animationKeys());
  layer->addAnimation(nullptr, "a");
  EXPECT_FALSE(layer->animationKeys());
}

TEST(StoredAnimations, WithoutAKeyTheyPileUpUnlisted) {
  const auto layer = CALayer::layer();
  const auto step = basic("position", CGPoint{1, 0}, CGPoint{1, 0});
  step->setAdditive(true);
  layer->addAnimation(step, std::nullopt);
  layer->addAnimation(step, std::nullopt);
  EXPECT_EQ(layer->animationKeys(), Keys{});
  EXPECT_EQ(layer->presentationLayerAtTime(0.5)->position(), (CGPoint{2, 0}));
}

TEST(StoredAnimations, TransitionsHaveOneKeyAndDurationsADefault) {
  const auto layer = CALayer::layer();
  layer->addAnimation(CATransition::animation(), "mine");
  layer->addAnimation(CATransition::animation(), std::nullopt);
  EXPECT_EQ(layer->animationKeys(), Keys{"transition"});
  EXPECT_EQ(
      std::dynamic_pointer_cast<const CATransition>(layer->animationForKey("transition"))->type(),
      "fade");
  struct Case {
    double given, stored;
  };
  for (const Case& c : {Case{0, 0.25}, Case{-3, 0.25}, Case{kNaN, 0.25}, Case{0.1, 0.1}}) {
    const auto animation = basic("opacity", 0.0, 1.0, c.given);
    layer->addAnimation(animation, "k");
    EXPECT_EQ(layer->animationForKey("k")->duration(), c.stored);
  }
}

TEST(Presentation, WithoutATimeItHoldsTheModel) {
  const auto layer = CAShapeLayer::layer();
  layer->setFrame({1, 2, 30, 40});
  layer->setOpacity(0.5);
  layer->setPath(square(5));
  layer->setMask(CALayer::layer());
  const auto gradient = CAGradientLayer::layer();
  gradient->setColors({{kRed, kBlue}});
  gradient->setType("conic");
  layer->addSublayer(gradient);
  layer->addAnimation(basic("opacity", 0.0, 1.0), "k");
  for (const auto& presented : {layer->presentationLayer(), layer->presentationLayerAtTime(kNaN),
                                layer->presentationLayerAtTime(99)}) {
    const auto copy = std::dynamic_pointer_cast<CAShapeLayer>(presented);
    ASSERT_TRUE(copy);
    EXPECT_NE(copy, layer);
    EXPECT_EQ(copy->frame(), layer->frame());
    EXPECT_EQ(copy->opacity(), 0.5);
    EXPECT_EQ(copy->path(), square(5));
    EXPECT_EQ(copy->mask()->superlayer(), copy.get());
    const auto inner = std::dynamic_pointer_cast<CAGradientLayer>(copy->sublayers()->front());
    ASSERT_TRUE(inner);
    EXPECT_NE(inner, gradient);
    EXPECT_EQ(inner->colors(), gradient->colors());
    EXPECT_EQ(inner->type(), "conic");
    EXPECT_EQ(inner->superlayer(), copy.get());
  }
}

// Every property that can be animated, from one value to another, read half way.
TEST(Presentation, EveryAnimatablePropertyMoves) {
  struct Case {
    const char* keyPath;
    AnimationValue from, to, half;
  };
  const auto check = [](const std::shared_ptr<CALayer>& layer, std::vector<Case> cases) {
    for (const Case& c : cases) {
      layer->removeAllAnimations();
      const Value before = layer->valueForKeyPath(c.keyPath);
      layer->addAnimation(basic(c.keyPath, c.from, c.to), "k");
      EXPECT_EQ(layer->presentationLayerAtTime(0.5)->valueForKeyPath(c.keyPath), c.half)
          << c.keyPath;
      EXPECT_EQ(layer->valueForKeyPath(c.keyPath), before) << c.keyPath;
      const AnimationValue otherKind = std::vector<CGFloat>{9};
      layer->addAnimation(basic(c.keyPath, otherKind, otherKind), "k");
      if (!std::holds_alternative<std::vector<CGFloat>>(c.from)) {
        EXPECT_EQ(layer->presentationLayerAtTime(0.5)->valueForKeyPath(c.keyPath), before)
            << c.keyPath << " of another kind";
      }
    }
  };
  const UIColor purple(0.5, 0, 0.5, 1);
  const std::vector<Case> ofAll{
      {"bounds", CGRect{0, 0, 10, 10}, CGRect{2, 4, 20, 30}, CGRect{1, 2, 15, 20}},
      {"bounds", CGRect{0, 0, 10, 10}, CGRect{0, 0, -30, 10}, CGRect{-10, 0, 10, 10}},
      {"bounds.size", CGSize{10, 10}, CGSize{20, 30}, CGSize{15, 20}},
      {"position", CGPoint{0, 0}, CGPoint{10, 20}, CGPoint{5, 10}},
      {"position.x", 4.0, 8.0, 6.0},
      {"anchorPoint", CGPoint{0, 0}, CGPoint{1, 1}, CGPoint{0.5, 0.5}},
      {"transform", CGAffineTransformIdentity, CGAffineTransformMakeScale(3, 1),
       CGAffineTransformMakeScale(2, 1)},
      {"transform.translation.x", 0.0, 8.0, 4.0},
      {"zPosition", 0.0, 8.0, 4.0},
      {"opacity", 0.0, 0.5, 0.25},
      {"cornerRadius", 0.0, 8.0, 4.0},
      {"borderWidth", 0.0, 8.0, 4.0},
      {"borderColor", kRed, kBlue, purple},
      {"backgroundColor", kRed, kBlue, purple},
  };
  check(CALayer::layer(), ofAll);
  const auto shape = CAShapeLayer::layer();
  check(shape, ofAll);
  check(shape, {{"path", square(2), square(4), square(3)},
                {"fillColor", kRed, kBlue, purple},
                {"strokeColor", kRed, kBlue, purple},
                {"lineWidth", 0.0, 8.0, 4.0},
                {"miterLimit", 0.0, 8.0, 4.0},
                {"strokeStart", 0.0, 0.5, 0.25},
                {"strokeEnd", 0.0, 0.5, 0.25}});
  const auto gradient = CAGradientLayer::layer();
  check(gradient, ofAll);
  check(gradient, {{"colors", std::vector<CGColor>{kRed, kBlue}, std::vector<CGColor>{kBlue, kRed},
                    std::vector<CGColor>{purple, purple}},
                   {"locations", std::vector<CGFloat>{0, 0.5}, std::vector<CGFloat>{0.5, 1},
                    std::vector<CGFloat>{0.25, 0.75}},
                   {"startPoint", CGPoint{0, 0}, CGPoint{1, 1}, CGPoint{0.5, 0.5}},
                   {"endPoint", CGPoint{0, 0}, CGPoint{1, 1}, CGPoint{0.5, 0.5}}});
}

TEST(Presentation, UnknownKeyPathsAndValuesThatAreNoNumbersDoNothing) {
  const auto layer = CAShapeLayer::layer();
  layer->setFrame({0, 0, 10, 10});
  int key = 0;
  const auto add = [&](const char* keyPath, AnimationValue value) {
    layer->addAnimation(basic(keyPath, value, value), std::to_string(key++));
  };
  for (const char* keyPath : {"", ".", "colors", "frame", "position.z", "position.", ".x", "hidden",
                              "strokeColor.red", "path.x"}) {
    add(keyPath, 0.5);
  }
  add("bounds", CGRect{0, 0, kNaN, 1});
  add("position", CGPoint{kNaN, 0});
  add("position.y", kNaN);
  add("transform", CGAffineTransform{kNaN, 0, 0, 1, 0, 0});
  add("opacity", kNaN);
  layer->addAnimation(std::make_shared<CABasicAnimation>(), "no key path");
  layer->addAnimation(std::make_shared<CAAnimation>(), "of no kind");
  const auto shown = layer->presentationLayerAtTime(0.1);
  EXPECT_EQ(shown->frame(), CGRect(0, 0, 10, 10));
  EXPECT_EQ(shown->opacity(), 1);
}

TEST(Presentation, AnimationsApplyInOrderAdditivesOnTop) {
  const auto layer = CALayer::layer();
  layer->setOpacity(0.25);
  layer->addAnimation(basic("opacity", 0.5, 0.5), "a");
  auto more = basic("opacity", 0.125, 0.125);
  more->setAdditive(true);
  layer->addAnimation(more, "b");
  EXPECT_EQ(layer->presentationLayerAtTime(0)->opacity(), 0.625);
  layer->addAnimation(basic("opacity", 0.5, 0.5), "a");
  EXPECT_EQ(layer->presentationLayerAtTime(0)->opacity(), 0.5);
}

TEST(Presentation, CumulativeRunsStartWhereTheLastOneEnded) {
  const auto layer = CALayer::layer();
  auto turn = basic("transform.rotation", 0.0, 0.25);
  turn->setRepeatCount(4);
  turn->setCumulative(true);
  layer->addAnimation(turn, "turn");
  auto walk = basic("position", CGPoint{10, 0}, CGPoint{20, 0});
  walk->setRepeatCount(4);
  walk->setCumulative(true);
  layer->addAnimation(walk, "walk");
  const auto shown = layer->presentationLayerAtTime(2.5);
  EXPECT_EQ(shown->position(), (CGPoint{15 + 2 * 20, 0}));
  EXPECT_NEAR(std::get<CGFloat>(*shown->valueForKeyPath("transform.rotation")), 0.625, 1e-12);
}

TEST(Presentation, TheTimingFunctionSetsThePace) {
  const auto layer = CALayer::layer();
  auto animation = basic("opacity", 0.0, 1.0);
  const auto easeIn = CAMediaTimingFunction::functionWithName(CAMediaTimingFunctionName::easeIn);
  animation->setTimingFunction(easeIn);
  layer->addAnimation(animation, "k");
  EXPECT_EQ(layer->presentationLayerAtTime(0.25)->opacity(), easeIn.valueAt(0.25));
}

TEST(Presentation, LayersHaveTheirOwnTimeWithinTheirSuperlayers) {
  const auto parent = CALayer::layer();
  const auto child = CALayer::layer();
  parent->addSublayer(child);
  parent->setSpeed(2);
  child->setBeginTime(1);
  child->setTimeOffset(0.25);
  child->addAnimation(basic("opacity", 0.0, 1.0), "k");
  // 0.75 s are 1.5 s of the parent, 0.5 s of the child, which is 0.25 s ahead.
  EXPECT_EQ(parent->presentationLayerAtTime(0.75)->sublayers()->front()->opacity(), 0.75);
  EXPECT_EQ(child->presentationLayerAtTime(0.75)->opacity(), 0.75);
}

TEST(Groups, PlayWithinTheirOwnTime) {
  const auto layer = CALayer::layer();
  auto late = basic("opacity", 0.0, 1.0, 4);
  late->setBeginTime(1);
  late->setFillMode(CAMediaTimingFillMode::backwards);
  auto group = CAAnimationGroup::animation();
  group->setAnimations({late, nullptr, basic("zPosition", 0.0, 8.0, 0)});
  group->setDuration(2);
  group->setSpeed(0.5);
  layer->addAnimation(group, "g");
  const auto stored =
      std::dynamic_pointer_cast<const CAAnimationGroup>(layer->animationForKey("g"));
  ASSERT_EQ(stored->animations().size(), 2U);
  EXPECT_NE(stored->animations()[0], late);
  EXPECT_EQ(stored->animations()[1]->duration(), 2);
  struct Case {
    double time, opacity, z;
  };
  for (const Case& c : {Case{0, 0, 0}, Case{1, 0, 2}, Case{3, 0.125, 6}, Case{4, 1, 0}}) {
    const auto shown = layer->presentationLayerAtTime(c.time);
    EXPECT_EQ(shown->opacity(), c.opacity) << c.time;
    EXPECT_EQ(shown->zPosition(), c.z) << c.time;
  }
  group->setFillMode(CAMediaTimingFillMode::forwards);
  layer->addAnimation(group, "g");
  EXPECT_EQ(layer->presentationLayerAtTime(9)->opacity(), 0.25);
  EXPECT_EQ(layer->presentationLayerAtTime(9)->zPosition(), 8);
}

TEST(Groups, ThatHoldThemselvesEnd) {
  auto group = CAAnimationGroup::animation();
  group->setAnimations({group, group, basic("opacity", 0.5, 0.5), group});
  const auto layer = VNTLGradientShapeLayer::layer();
  layer->addAnimation(group, "g");
  EXPECT_EQ(layer->presentationLayerAtTime(0.1)->opacity(), 0.5);
  group->setAnimations({});
}

// A subclass that presents itself as its own class.
class Named : public CAShapeLayer {
 public:
  Named() = default;
  Named(PresentationPass& pass, CALayer& layer) : CAShapeLayer(pass, layer) {
    if (const auto* source = dynamic_cast<const Named*>(&layer)) name = source->name;
  }
  std::shared_ptr<CALayer> newWithLayer(PresentationPass& pass, CALayer& layer) const override {
    return std::make_shared<Named>(pass, layer);
  }
  std::string name;
};

TEST(Presentation, SubclassesCopyWhatTheyAdd) {
  const auto layer = std::make_shared<Named>();
  layer->name = "heart";
  layer->setLineWidth(3);
  const auto copy = std::dynamic_pointer_cast<Named>(layer->presentationLayer());
  ASSERT_TRUE(copy);
  EXPECT_EQ(copy->name, "heart");
  EXPECT_EQ(copy->lineWidth(), 3);
}

}  // namespace
}  // namespace glyphwright
