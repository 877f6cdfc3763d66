#include <limits>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/bezier_path.h>
#include <glyphwright/layers/gradient_shape_layer.h>

namespace glyphwright {
namespace {

using LayerPtr = std::shared_ptr<CALayer>;
using Layers = std::vector<LayerPtr>;
using Keys = std::vector<std::string>;

CGPath squarePath(CGFloat side) {
  CGPath path;
  path.addRect({0, 0, side, side});
  return path;
}

std::shared_ptr<CABasicAnimation> animationOf(const char* keyPath) {
  auto animation = CABasicAnimation::animationWithKeyPath(keyPath);
  animation->setFromValue(0.0);
  animation->setToValue(1.0);
  return animation;
}

TEST(GradientShapeLayer, TheStrokeLayerIsMadeWhenAskedForAndStaysInStep) {
  const auto layer = VNTLGradientShapeLayer::layer();
  layer->setBounds({0, 0, 40, 30});
  layer->setPath(squarePath(10));
  layer->addAnimation(animationOf("path"), "k");
  EXPECT_EQ(layer->animatableSublayers().size(), 2U);

  const auto stroke = layer->strokeLayer();
  EXPECT_EQ(layer->strokeLayer(), stroke);
  EXPECT_EQ(stroke->fillColor(), UIColor::clearColor());
  EXPECT_FALSE(stroke->strokeColor());
  EXPECT_EQ(stroke->path(), squarePath(10));
  EXPECT_EQ(stroke->frame(), layer->maskLayer()->frame());
  EXPECT_EQ(stroke->frame(), CGRect(0, 0, 40, 30));
  ASSERT_EQ(layer->sublayers()->size(), 2U);
  EXPECT_EQ(layer->sublayers()->back(), stroke);
  EXPECT_EQ(layer->animatableSublayers(),
            (Layers{layer->maskLayer(), layer->gradientLayer(), stroke}));
  EXPECT_FALSE(stroke->animationKeys());

  layer->setPath(squarePath(20));
  EXPECT_EQ(stroke->path(), squarePath(20));
  EXPECT_EQ(layer->path(), squarePath(20));
  layer->setPath(std::nullopt);
  EXPECT_FALSE(stroke->path());
}

TEST(GradientShapeLayer, BoundsBecomeFramesAndFramesBecomeBounds) {
  const auto layer = VNTLGradientShapeLayer::layer();
  layer->strokeLayer();
  layer->setBounds({10, 20, 100, 50});
  for (const LayerPtr& inner : layer->animatableSublayers()) {
    EXPECT_EQ(inner->frame(), CGRect(10, 20, 100, 50));
    EXPECT_EQ(inner->bounds(), CGRect(0, 0, 100, 50));
  }

  layer->setBounds({5, 6, 1, 1});
  layer->setFrame({10, 20, 100, 50});
  EXPECT_EQ(layer->frame(), CGRect(10, 20, 100, 50));
  EXPECT_EQ(layer->bounds(), CGRect(5, 6, 100, 50));
  for (const LayerPtr& inner : layer->animatableSublayers()) {
    EXPECT_EQ(inner->bounds(), CGRect(0, 0, 100, 50));
    // The bounds that the frame set on the way handed themselves on as a frame.
    EXPECT_EQ(inner->position(), (CGPoint{55, 31}));
  }
  layer->setFrame({0, 0, -30, -20});
  EXPECT_EQ(layer->maskLayer()->bounds(), CGRect(0, 0, 30, 20));
}

TEST(GradientShapeLayer, NaNReachesNoInnerLayer) {
  const auto layer = VNTLGradientShapeLayer::layer();
  layer->setBounds({0, 0, 40, 40});
  EXPECT_THROW(layer->setFrame({0, 0, std::numeric_limits<CGFloat>::quiet_NaN(), 1}),
               std::invalid_argument);
  EXPECT_EQ(layer->maskLayer()->frame(), CGRect(0, 0, 40, 40));
}

TEST(GradientShapeLayer, AnimationsAreHandedOnByKeyPath) {
  struct Case {
    const char* keyPath;
    bool forwarded;
  };
  for (const Case& c : {Case{"bounds", true}, Case{"startPoint", true}, Case{"endPoint", true},
                        Case{"locations", true}, Case{"colors", true}, Case{"path", true},
                        Case{"opacity", false}, Case{"position", false}, Case{"transform", false},
                        Case{"Colors", false}, Case{"bounds.size", false}, Case{"", false}}) {
    const auto layer = VNTLGradientShapeLayer::layer();
    layer->strokeLayer();
    layer->addAnimation(animationOf(c.keyPath), "k");
    EXPECT_NE(layer->animationForKey("k"), nullptr) << c.keyPath;
    for (const LayerPtr& inner : layer->animatableSublayers()) {
      EXPECT_EQ(inner->animationForKey("k") != nullptr, c.forwarded) << c.keyPath;
    }
    EXPECT_EQ(layer->animationKeys(), c.forwarded ? (Keys{"k", "k"}) : Keys{"k"}) << c.keyPath;
  }

  const auto layer = VNTLGradientShapeLayer::layer();
  auto nameless = std::make_shared<CABasicAnimation>();
  layer->addAnimation(nameless, "nameless");
  layer->addAnimation(CATransition::animation(), "fade");
  layer->addAnimation(nullptr, "null");
  EXPECT_EQ(layer->animationKeys(), (Keys{"nameless", "transition"}));
  EXPECT_FALSE(layer->maskLayer()->animationKeys());
}

TEST(GradientShapeLayer, KeysListTheInnerLayersOnceAndThenItsOwn) {
  const auto layer = VNTLGradientShapeLayer::layer();
  ASSERT_TRUE(layer->animationKeys());
  EXPECT_EQ(layer->animationKeys(), Keys{});
  layer->addAnimation(animationOf("opacity"), "own");
  layer->addAnimation(animationOf("colors"), "both");
  layer->gradientLayer()->addAnimation(animationOf("opacity"), "inner");
  EXPECT_EQ(layer->animationKeys(), (Keys{"both", "inner", "own", "both"}));
}

TEST(GradientShapeLayer, LooksUpAndRemovesAnimationsInTheInnerLayersToo) {
  const auto layer = VNTLGradientShapeLayer::layer();
  auto own = animationOf("colors");
  own->setSpeed(3);
  layer->addAnimation(own, "k");
  EXPECT_EQ(layer->animationForKey("k")->speed(), 3);
  layer->CALayer::removeAnimationForKey("k");
  EXPECT_EQ(layer->animationForKey("k"), layer->maskLayer()->animationForKey("k"));
  EXPECT_EQ(layer->animationForKey("none"), nullptr);

  layer->strokeLayer()->addAnimation(animationOf("lineWidth"), "k");
  layer->removeAnimationForKey("k");
  EXPECT_EQ(layer->animationKeys(), Keys{});

  layer->addAnimation(animationOf("path"), std::nullopt);
  layer->addAnimation(animationOf("path"), "p");
  layer->removeAllAnimations();
  for (const LayerPtr& inner : layer->animatableSublayers()) EXPECT_FALSE(inner->animationKeys());
}

TEST(GradientShapeLayer, ThePresentationCopySharesOnlyTheStrokeLayer) {
  const auto layer = VNTLGradientShapeLayer::layer();
  layer->setBounds({0, 0, 40, 40});
  layer->setPath(squarePath(10));
  const auto early = std::dynamic_pointer_cast<VNTLGradientShapeLayer>(layer->presentationLayer());
  ASSERT_TRUE(early);
  EXPECT_EQ(early->animatableSublayers().size(), 2U);
  EXPECT_EQ(layer->animatableSublayers().size(), 2U);

  const auto stroke = layer->strokeLayer();
  const auto copy = std::dynamic_pointer_cast<VNTLGradientShapeLayer>(layer->presentationLayer());
  ASSERT_TRUE(copy);
  EXPECT_EQ(copy->strokeLayer(), stroke);
  EXPECT_NE(copy->maskLayer(), layer->maskLayer());
  EXPECT_NE(copy->gradientLayer(), layer->gradientLayer());
  EXPECT_EQ(copy->gradientSubLayers(), (Layers{copy->maskLayer(), copy->gradientLayer()}));
  EXPECT_EQ(copy->path(), squarePath(10));
  // The copied tree is made of those very copies, and the shared outline stays in its own tree.
  EXPECT_EQ(copy->gradientLayer()->superlayer(), copy.get());
  EXPECT_EQ(copy->gradientLayer()->mask(), copy->maskLayer());
  EXPECT_EQ(stroke->superlayer(), layer.get());
  ASSERT_EQ(copy->sublayers()->size(), 2U);
  EXPECT_NE(copy->sublayers()->back(), stroke);
}

TEST(GradientShapeLayer, InitWithALayerOfAnotherClassHasNoInnerLayers) {
  const auto plain = CALayer::layer();
  plain->setOpacity(0.25);
  const auto copy = VNTLGradientShapeLayer::initWithLayer(*plain);
  EXPECT_EQ(copy->opacity(), 0.25);
  EXPECT_FALSE(copy->gradientSubLayers());
  EXPECT_TRUE(copy->animatableSublayers().empty());
  EXPECT_FALSE(copy->sublayers());
  copy->setFrame({0, 0, 10, 10});
  EXPECT_EQ(copy->animationKeys(), Keys{});

  const auto source = VNTLGradientShapeLayer::layer();
  const auto before = source->gradientSubLayers();
  source->copyCustomPropertiesFromLayer(*plain);
  EXPECT_EQ(source->gradientSubLayers(), before);
}

TEST(GradientShapeLayer, InnerLayersThatLeadBackAreNotFollowedForEver) {
  const auto layer = VNTLGradientShapeLayer::layer();
  const auto other = VNTLGradientShapeLayer::layer();
  layer->setGradientSubLayers(Layers{layer, nullptr, other});
  other->setGradientSubLayers(Layers{layer});
  layer->setBounds({0, 0, 10, 10});
  layer->setFrame({0, 0, 20, 20});
  layer->addAnimation(animationOf("path"), "k");
  EXPECT_NE(layer->animationForKey("k"), nullptr);
  EXPECT_EQ(layer->animationForKey("none"), nullptr);
  EXPECT_FALSE(layer->animationKeys()->empty());
  layer->removeAnimationForKey("k");
  layer->removeAllAnimations();
  EXPECT_EQ(layer->animationKeys(), Keys{});
  layer->setGradientSubLayers(std::nullopt);
  other->setGradientSubLayers(std::nullopt);

  // A gradient layer that holds this one: presenting either comes to an end.
  const auto outer = CAGradientLayer::layer();
  outer->addSublayer(layer);
  layer->setGradientLayer(outer);
  EXPECT_NE(layer->presentationLayer(), nullptr);
  EXPECT_NE(outer->presentationLayer(), nullptr);
  layer->setGradientLayer(nullptr);
}

TEST(GradientShapeLayer, ChainsOfInnerLayersMayHaveAnyLengthAndShape) {
  // Each holds the next one twice: followed link by link, this is 2 to the power of 100,000 steps
  // on a stack 100,000 deep.
  std::vector<std::shared_ptr<VNTLGradientShapeLayer>> chain(100000);
  for (auto& layer : chain) layer = VNTLGradientShapeLayer::layer();
  for (std::size_t i = 1; i < chain.size(); ++i) {
    chain[i - 1]->setGradientSubLayers(Layers{chain[i], chain[i]});
  }
  const auto first = chain.front();
  const auto last = chain.back();
  chain.clear();
  first->setFrame({5, 5, 30, 20});
  EXPECT_EQ(last->frame(), CGRect(0, 0, 30, 20));
  first->addAnimation(animationOf("path"), "k");
  EXPECT_NE(last->animationForKey("k"), nullptr);
  first->removeAllAnimations();
  EXPECT_EQ(last->animationForKey("k"), nullptr);
}

}  // namespace
}  // namespace glyphwright
