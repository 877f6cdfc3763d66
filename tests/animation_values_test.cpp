#include <cmath>
#include <limits>
#include <memory>
#include <optional>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/platform/layers/animation.h>
#include <glyphwright/platform/math.h>

namespace glyphwright {
namespace {

using Value = std::optional<AnimationValue>;

CGPath triangle(CGFloat side) {
  CGPath path;
  path.moveToPoint({0, 0});
  path.addQuadCurveToPoint({side, 0}, {side / 2, -side});
  path.addCurveToPoint({0, side}, {side, side / 2}, {side / 2, side});
  path.closeSubpath();
  path.addLineToPoint({-side, -side});
  return path;
}

CGPath otherShape() {
  CGPath path;
  path.addRect({0, 0, 1, 1});
  return path;
}

TEST(AnimationValues, MoveByTheirComponents) {
  const UIColor gray = UIColor::colorWithWhite(0.5, 1);
  struct Case {
    AnimationValue from, to, quarter;
  };
  for (const Case& c : {
           Case{2.0, 4.0, 2.5},
           Case{CGPoint{0, 8}, CGPoint{4, 0}, CGPoint{1, 6}},
           Case{CGSize{0, 8}, CGSize{4, 0}, CGSize{1, 6}},
           Case{CGRect{0, 0, 4, 8}, CGRect{4, 8, 8, 0}, CGRect{1, 2, 5, 6}},
           Case{UIColor(1, 0, 0, 1), UIColor(0, 0, 1, 0), UIColor(0.75, 0, 0.25, 0.75)},
           Case{UIColor::blackColor(), UIColor::whiteColor(), UIColor::colorWithWhite(0.25, 1)},
           Case{gray, UIColor(0.5, 0.5, 1, 1), UIColor(0.5, 0.5, 0.625, 1)},
           Case{std::vector<CGFloat>{0, 1}, std::vector<CGFloat>{1, 1},
                std::vector<CGFloat>{0.25, 1}},
           Case{std::vector<CGColor>{UIColor(0, 0, 0, 1)},
                std::vector<CGColor>{UIColor(1, 1, 1, 1)},
                std::vector<CGColor>{UIColor(0.25, 0.25, 0.25, 1)}},
           Case{triangle(4), triangle(8), triangle(5)},
           Case{CGAffineTransformMakeTranslation(0, 8), CGAffineTransformMakeTranslation(4, 0),
                CGAffineTransformMakeTranslation(1, 6)},
           Case{CGAffineTransformIdentity, CGAffineTransformMakeScale(3, 5),
                CGAffineTransformMakeScale(1.5, 2)},
       }) {
    EXPECT_EQ(interpolate(c.from, c.to, 0), c.from);
    EXPECT_EQ(interpolate(c.from, c.to, 0.25), c.quarter) << c.from.index();
    EXPECT_EQ(interpolate(c.from, c.to, 1), c.to);
  }
  EXPECT_EQ(interpolate(2.0, 4.0, -0.5), Value(1.0));
  EXPECT_EQ(interpolate(0.1, 0.1, 0.3), Value(0.1));
  EXPECT_EQ(interpolate(2.0, CGPoint{1, 1}, 0.5), std::nullopt);
}

TEST(AnimationValues, WhatDoesNotMatchSwitchesHalfWay) {
  struct Case {
    AnimationValue from, to;
  };
  for (const Case& c : {Case{triangle(4), otherShape()}, Case{CGPath(), otherShape()},
                        Case{std::vector<CGFloat>{0}, std::vector<CGFloat>{0, 1}},
                        Case{std::vector<CGColor>{}, std::vector<CGColor>{UIColor(1, 1, 1, 1)}}}) {
    EXPECT_EQ(interpolate(c.from, c.to, 0.25), c.from);
    EXPECT_EQ(interpolate(c.from, c.to, 0.4999), c.from);
    EXPECT_EQ(interpolate(c.from, c.to, 0.5), c.to);
    EXPECT_EQ(interpolate(c.from, c.to, 0.75), c.to);
  }
}

void expectNear(const Value& value, const CGAffineTransform& expected) {
  ASSERT_TRUE(value);
  const auto& t = std::get<CGAffineTransform>(*value);
  const CGFloat actual[] = {t.a, t.b, t.c, t.d, t.tx, t.ty};
  const CGFloat wanted[] = {expected.a, expected.b,  expected.c,
                            expected.d, expected.tx, expected.ty};
  for (int i = 0; i < 6; ++i) EXPECT_NEAR(actual[i], wanted[i], 1e-12) << i;
}

TEST(AnimationValues, TransformsMoveByRotationScaleAndShear) {
  const auto rotation = [](CGFloat degrees) {
    return CGAffineTransformMakeRotation(degrees * math::kPi / 180);
  };
  expectNear(interpolate(CGAffineTransformIdentity, rotation(90), 0.5), rotation(45));
  // The shorter way round.
  expectNear(interpolate(rotation(170), rotation(-150), 0.25), rotation(180));
  expectNear(interpolate(rotation(-170), rotation(150), 0.25), rotation(-180));
  // A mirror image passes through a line, not through a half turn.
  expectNear(interpolate(CGAffineTransformIdentity, CGAffineTransformMakeScale(-1, 1), 0.25),
             CGAffineTransformMakeScale(0.5, 1));
  expectNear(interpolate(CGAffineTransformIdentity, CGAffineTransformMakeScale(1, -1), 0.75),
             CGAffineTransformMakeScale(1, -0.5));
  expectNear(interpolate(CGAffineTransform{1, 0, 2, 1, 0, 0}, CGAffineTransformIdentity, 0.5),
             {1, 0, 1, 1, 0, 0});
  expectNear(interpolate(CGAffineTransformMakeScale(0, 0), CGAffineTransformMakeScale(2, 2), 0.5),
             CGAffineTransformMakeScale(1, 1));
}

TEST(AnimationValues, Accumulate) {
  EXPECT_EQ(accumulate(2.0, 3.0, 4), Value(14.0));
  EXPECT_EQ(accumulate(CGPoint{1, 2}, CGPoint{3, 4}, -1), Value(CGPoint{-2, -2}));
  EXPECT_EQ(accumulate(triangle(1), triangle(2), 1), Value(triangle(3)));
  EXPECT_EQ(accumulate(triangle(1), otherShape(), 1), Value(triangle(1)));
  EXPECT_EQ(accumulate(2.0, CGPoint{}, 1), std::nullopt);
  const CGAffineTransform step = CGAffineTransformMakeTranslation(3, 0);
  EXPECT_EQ(accumulate(CGAffineTransformMakeScale(2, 2), step, 5),
            Value(CGAffineTransform{2, 0, 0, 2, 30, 0}));
  EXPECT_EQ(accumulate(CGAffineTransformIdentity, step, -2),
            Value(CGAffineTransformMakeTranslation(-6, 0)));
  expectNear(
      accumulate(CGAffineTransformIdentity, CGAffineTransformMakeTranslation(1e-6, 0), 1e300),
      CGAffineTransformMakeTranslation(1, 0));
}

TEST(AnimationValues, PartsAreReadAndReplaced) {
  const CGAffineTransform turned = CGAffineTransformConcat(CGAffineTransformMakeScale(2, 4),
                                                           CGAffineTransformMakeTranslation(5, 6));
  struct Case {
    AnimationValue whole;
    const char* part;
    AnimationValue value, replacement, replaced;
  };
  for (const Case& c : {
           Case{CGPoint{1, 2}, "y", 2.0, 7.0, CGPoint{1, 7}},
           Case{CGSize{1, 2}, "width", 1.0, 7.0, CGSize{7, 2}},
           Case{CGRect{1, 2, 3, 4}, "size", CGSize{3, 4}, CGSize{5, 6}, CGRect{1, 2, 5, 6}},
           Case{CGRect{1, 2, 3, 4}, "origin.x", 1.0, 9.0, CGRect{9, 2, 3, 4}},
           Case{CGRect{1, 2, 3, 4}, "size.height", 4.0, 9.0, CGRect{1, 2, 3, 9}},
           Case{turned, "scale.y", 4.0, 1.0, CGAffineTransform{2, 0, 0, 1, 5, 6}},
           Case{turned, "scale", 3.0, 1.0, CGAffineTransform{1, 0, 0, 1, 5, 6}},
           Case{turned, "translation.x", 5.0, 0.0, CGAffineTransform{2, 0, 0, 4, 0, 6}},
           Case{turned, "translation", CGSize{5, 6}, CGSize{0, 0}, CGAffineTransform{2, 0, 0, 4}},
       }) {
    EXPECT_EQ(partOfValue(c.whole, c.part), c.value) << c.part;
    EXPECT_EQ(replacingPart(c.whole, c.part, c.replacement), c.replaced) << c.part;
    EXPECT_EQ(replacingPart(c.whole, c.part, CGPath()), std::nullopt) << c.part;
  }
  expectNear(replacingPart(CGAffineTransformIdentity, "rotation", 1.0),
             CGAffineTransformMakeRotation(1));
  for (const char* part : {"", "z", "x.y", "size.depth", "rotation.x", "origin."}) {
    for (const AnimationValue& whole :
         {AnimationValue(CGPoint{}), AnimationValue(CGRect{}), AnimationValue(turned),
          AnimationValue(1.0), AnimationValue(CGPath())}) {
      EXPECT_EQ(partOfValue(whole, part), std::nullopt) << part;
      EXPECT_EQ(replacingPart(whole, part, 1.0), std::nullopt) << part;
    }
  }
}

TEST(BasicAnimations, TakeWhatIsMissingFromTheLayer) {
  struct Case {
    Value from, to, by;
    Value half, halfOfNothing;  // with the current value 100, and with none
  };
  for (const Case& c : {
           Case{10.0, 20.0, {}, 15.0, 15.0},
           Case{10.0, 20.0, 500.0, 15.0, 15.0},
           Case{10.0, {}, 4.0, 12.0, 12.0},
           Case{{}, 20.0, 4.0, 18.0, 18.0},
           Case{10.0, {}, {}, 55.0, 10.0},
           Case{{}, 20.0, {}, 60.0, 20.0},
           Case{{}, {}, 4.0, 102.0, {}},
           Case{{}, {}, {}, {}, {}},
           Case{10.0, CGPoint{}, {}, {}, {}},
           Case{10.0, {}, CGPoint{}, {}, {}},
           Case{{}, 20.0, CGPoint{}, {}, {}},
       }) {
    CABasicAnimation animation;
    animation.setFromValue(c.from);
    animation.setToValue(c.to);
    animation.setByValue(c.by);
    EXPECT_EQ(animation.valueAt(0.5, 100.0), c.half);
    EXPECT_EQ(animation.valueAt(0.5, std::nullopt), c.halfOfNothing);
  }
}

TEST(KeyframeAnimations, RunThroughTheirValues) {
  CAKeyframeAnimation animation;
  const auto at = [&](double progress) { return animation.valueAt(progress, std::nullopt); };
  EXPECT_EQ(at(0.5), std::nullopt);
  animation.setValues({7.0});
  EXPECT_EQ(at(0), Value(7.0));
  EXPECT_EQ(at(0.7), Value(7.0));

  animation.setValues({0.0, 10.0, 40.0});
  struct Case {
    double progress;
    double even, timed, discrete, discreteTimed;
  };
  for (const Case& c : {Case{0, 0, 0, 0, 0}, Case{0.25, 5, 10, 0, 10}, Case{0.5, 10, 20, 10, 10},
                        Case{0.75, 25, 30, 40, 10}, Case{1, 40, 40, 40, 40}}) {
    animation.setCalculationMode(CAAnimationCalculationMode::linear);
    animation.setKeyTimes(std::nullopt);
    EXPECT_EQ(at(c.progress), Value(c.even)) << c.progress;
    animation.setKeyTimes({{0, 0.25, 1}});
    EXPECT_EQ(at(c.progress), Value(c.timed)) << c.progress;
    animation.setCalculationMode(CAAnimationCalculationMode::discrete);
    EXPECT_EQ(at(c.progress), Value(c.discreteTimed)) << c.progress;
    animation.setKeyTimes(std::nullopt);
    EXPECT_EQ(at(c.progress), Value(c.discrete)) << c.progress;
  }
  animation.setKeyTimes({{0, 0.9, 0.95, 1}});
  EXPECT_EQ(at(0.8), Value(0.0));
  EXPECT_EQ(at(0.92), Value(10.0));

  animation.setCalculationMode(CAAnimationCalculationMode::linear);
  constexpr double nan = std::numeric_limits<double>::quiet_NaN();
  for (const std::vector<double>& ignored : {std::vector<double>{},
                                             {0, 1},
                                             {0, 0.5, 0.2},
                                             {0, nan, 1},
                                             {-1, 0, 1},
                                             {0, 0.9, 2},
                                             {0, 0.9, 0.95, 1}}) {
    animation.setKeyTimes(ignored);
    EXPECT_EQ(at(0.25), Value(5.0));
  }
  animation.setKeyTimes({{0.5, 0.5, 1}});
  EXPECT_EQ(at(0.25), Value(0.0));
  EXPECT_EQ(at(0.5), Value(10.0));
  EXPECT_EQ(at(-1), Value(0.0));
}

TEST(KeyframeAnimations, HaveAPaceForEachLeg) {
  CAKeyframeAnimation animation;
  animation.setValues({0.0, 10.0, 20.0});
  const auto easeIn = CAMediaTimingFunction::functionWithName(CAMediaTimingFunctionName::easeIn);
  animation.setTimingFunctions({easeIn});
  EXPECT_EQ(animation.valueAt(0.25, {}), Value(10 * easeIn.valueAt(0.5)));
  EXPECT_EQ(animation.valueAt(0.75, {}), Value(15.0));
}

}  // namespace
}  // namespace glyphwright
