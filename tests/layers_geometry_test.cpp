#include <cmath>
#include <limits>
#include <memory>
#include <stdexcept>

#include <gtest/gtest.h>

#include <glyphwright/platform/layers/layer.h>
#include <glyphwright/platform/math.h>

namespace glyphwright {
namespace {

constexpr CGFloat kNaN = std::numeric_limits<CGFloat>::quiet_NaN();
constexpr CGFloat kInfinity = std::numeric_limits<CGFloat>::infinity();

void expectNear(const CGRect& actual, const CGRect& expected) {
  EXPECT_NEAR(actual.origin.x, expected.origin.x, 1e-9);
  EXPECT_NEAR(actual.origin.y, expected.origin.y, 1e-9);
  EXPECT_NEAR(actual.size.width, expected.size.width, 1e-9);
  EXPECT_NEAR(actual.size.height, expected.size.height, 1e-9);
}

TEST(LayerGeometry, FrameFollowsFromBoundsPositionAndAnchor) {
  struct Case {
    CGRect bounds;
    CGPoint position;
    CGPoint anchor;
    CGRect frame;
  };
  for (const Case& c : {
           Case{{0, 0, 100, 50}, {60, 45}, {0.5, 0.5}, {10, 20, 100, 50}},
           Case{{0, 0, 100, 50}, {0, 0}, {0.5, 0.5}, {-50, -25, 100, 50}},
           Case{{7, 9, 100, 50}, {60, 45}, {0.5, 0.5}, {10, 20, 100, 50}},
           Case{{0, 0, 100, 50}, {10, 20}, {0, 0}, {10, 20, 100, 50}},
           Case{{0, 0, 100, 50}, {10, 20}, {1, 2}, {-90, -80, 100, 50}},
       }) {
    const auto layer = CALayer::layer();
    layer->setBounds(c.bounds);
    layer->setPosition(c.position);
    layer->setAnchorPoint(c.anchor);
    EXPECT_EQ(layer->frame(), c.frame);
  }
}

TEST(LayerGeometry, SettingTheFrameSetsPositionAndSizeAndKeepsTheBoundsOrigin) {
  const auto layer = CALayer::layer();
  layer->setBounds({3, 4, 1, 1});
  layer->setFrame({10, 20, 100, 50});
  EXPECT_EQ(layer->bounds(), CGRect(3, 4, 100, 50));
  EXPECT_EQ(layer->position(), (CGPoint{60, 45}));
}

TEST(LayerGeometry, NegativeSizesAreStandardised) {
  const auto layer = CALayer::layer();
  layer->setFrame({0, 0, -100, -50});
  EXPECT_EQ(layer->bounds(), CGRect(0, 0, 100, 50));
  EXPECT_EQ(layer->position(), (CGPoint{-50, -25}));
  layer->setBounds({0, 0, -100, -50});
  EXPECT_EQ(layer->bounds(), CGRect(-100, -50, 100, 50));
}

TEST(LayerGeometry, TheFrameUnderATransformIsTheBoxAroundIt) {
  const CGFloat diagonal = std::sqrt(2.0);
  struct Case {
    CGAffineTransform transform;
    CGRect frame;  // of a 100 by 50 layer at (200, 100)
  };
  for (const Case& c : {
           Case{CGAffineTransformMakeScale(2, 3), {100, 25, 200, 150}},
           Case{CGAffineTransformMakeScale(-1, 1), {150, 75, 100, 50}},
           Case{CGAffineTransformMakeRotation(math::kPi / 2), {175, 50, 50, 100}},
           Case{CGAffineTransformMakeRotation(math::kPi / 4),
                {200 - 37.5 * diagonal, 100 - 37.5 * diagonal, 75 * diagonal, 75 * diagonal}},
           Case{CGAffineTransformMakeTranslation(5, -7), {155, 68, 100, 50}},
           Case{CGAffineTransformMakeScale(0, 0), {200, 100, 0, 0}},
       }) {
    const auto layer = CALayer::layer();
    layer->setBounds({0, 0, 100, 50});
    layer->setPosition({200, 100});
    layer->setTransform(c.transform);
    expectNear(layer->frame(), c.frame);
  }
}

TEST(LayerGeometry, AFrameSetUnderATransformReadsBack) {
  for (const CGPoint anchor : {CGPoint{0.5, 0.5}, CGPoint{0, 1}}) {
    for (const CGAffineTransform& transform :
         {CGAffineTransformMakeScale(2, -3), CGAffineTransformMakeRotation(math::kPi / 2),
          CGAffineTransformMakeTranslation(5, -7)}) {
      const auto layer = CALayer::layer();
      layer->setAnchorPoint(anchor);
      layer->setTransform(transform);
      layer->setFrame({10, 20, 100, 50});
      expectNear(layer->frame(), {10, 20, 100, 50});
    }
  }
}

TEST(LayerGeometry, NaNIsRefusedAndChangesNothing) {
  const auto layer = CALayer::layer();
  layer->setFrame({10, 20, 100, 50});
  EXPECT_THROW(layer->setBounds({kNaN, 0, 1, 1}), std::invalid_argument);
  EXPECT_THROW(layer->setBounds({0, 0, 1, kNaN}), std::invalid_argument);
  EXPECT_THROW(layer->setPosition({0, kNaN}), std::invalid_argument);
  EXPECT_THROW(layer->setFrame({0, 0, kNaN, 1}), std::invalid_argument);
  EXPECT_THROW(layer->setFrame({-kInfinity, 0, kInfinity, 1}), std::invalid_argument);
  EXPECT_THROW(layer->setAnchorPoint({kNaN, 0}), std::invalid_argument);
  EXPECT_THROW(layer->setTransform({1, 0, 0, kNaN, 0, 0}), std::invalid_argument);
  EXPECT_THROW(layer->setZPosition(kNaN), std::invalid_argument);
  EXPECT_EQ(layer->frame(), CGRect(10, 20, 100, 50));
  EXPECT_EQ(layer->zPosition(), 0);
}

}  // namespace
}  // namespace glyphwright
