#include <limits>
#include <memory>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/bezier_path.h>
#include <glyphwright/catalogue/icon_type.h>
#include <glyphwright/layers/gradient_shape_layer.h>
#include <glyphwright/rendering/attribute_dictionary.h>
#include <tests/pixels.h>

namespace glyphwright {
namespace {

constexpr UIColor kRed(1, 0, 0, 1);
constexpr UIColor kBlue(0, 0, 1, 1);
constexpr auto kNoIcon = static_cast<VNTLIconType>(4711);

UIBezierPath upright() {
  return UIBezierPath::bezierPathWithRect({7, -3, 10, 20});
}

TEST(LayerFactories, APathIsFittedAndCentredInItsLayer) {
  const UIBezierPath path = upright();
  const auto layer = path.shapeLayerWithSize({40, 40});
  EXPECT_EQ(layer->bounds(), CGRect(0, 0, 40, 40));
  EXPECT_EQ(layer->position(), (CGPoint{0, 0}));
  EXPECT_EQ(layer->path()->boundingBox(), CGRect(10, 0, 20, 40));
  EXPECT_EQ(layer->fillColor(), UIColor::blackColor());
  EXPECT_EQ(path.bounds(), CGRect(7, -3, 10, 20));

  const auto gradient = path.vntl_gradientShapeLayerWithSize({40, 40});
  EXPECT_EQ(gradient->bounds(), CGRect(0, 0, 40, 40));
  EXPECT_EQ(gradient->path(), layer->path());
  EXPECT_EQ(gradient->maskLayer()->frame(), CGRect(0, 0, 40, 40));
  EXPECT_EQ(gradient->gradientLayer()->frame(), CGRect(0, 0, 40, 40));
  EXPECT_EQ(gradient->animatableSublayers().size(), 2U);
}

TEST(LayerFactories, AnIconTypeGivesItsPathsLayerAndAnythingElseNull) {
  const auto icon = VNTLIconType::peopleBadge;
  const CGSize size{30, 20};
  const UIBezierPath path = UIBezierPath::peopleBadge();
  EXPECT_EQ(UIBezierPath::shapeLayerWithIcon(icon, size)->path(),
            path.shapeLayerWithSize(size)->path());
  EXPECT_EQ(UIBezierPath::vntl_gradientShapeLayerWithIcon(icon, size)->path(),
            path.shapeLayerWithSize(size)->path());
  EXPECT_EQ(UIBezierPath::shapeLayerWithIcon(kNoIcon, size), nullptr);
  EXPECT_EQ(UIBezierPath::vntl_gradientShapeLayerWithIcon(kNoIcon, size), nullptr);
}

TEST(LayerFactories, OddSizesGiveALayerAllTheSame) {
  for (const CGFloat side : {std::numeric_limits<CGFloat>::quiet_NaN(),
                             std::numeric_limits<CGFloat>::infinity(), 0.0, -10.0, 1e300}) {
    const auto layer = upright().vntl_gradientShapeLayerWithSize({side, 40});
    layer->strokeLayer()->setStrokeColor(kRed);
    layer->setColors({{kRed, kBlue}});
    UIGraphicsBeginImageContext({10, 10});
    layer->renderInContext(UIGraphicsGetCurrentContext());
    UIGraphicsEndImageContext();
    EXPECT_TRUE(layer->bounds().size.width >= 0) << side;
  }
  const auto empty = UIBezierPath().shapeLayerWithSize({40, 40});
  EXPECT_TRUE(empty->path()->isEmpty());
}

AttributeDictionary attributes(CGSize size) {
  return {{VNTLGlyphwrightSize, size},
          {VNTLGlyphwrightFillColor, kBlue},
          {VNTLGlyphwrightStrokeColor, UIColor::clearColor()}};
}

TEST(OutlinedIcons, ABackgroundLayerIsDrawnBehindAndKeepsTheOutline) {
  const pixels::ScreenScale scale(1);
  const auto background = CALayer::layer();
  background->setBounds({0, 0, 40, 40});
  background->setBackgroundColor(UIColor::whiteColor());
  const auto badge = VNTLIconType::badgeOutline;
  const UIImage image =
      UIBezierPath::imageWithIcon(badge, attributes({40, 40}), kRed, background.get());
  EXPECT_EQ(pixels::at(image, 0, 0), pixels::kWhite);
  EXPECT_EQ(pixels::boxAround(image, [](const pixels::Rgba& p) { return p == pixels::kRed; }),
            pixels::boxAround(UIBezierPath::imageWithIcon(badge, attributes({40, 40}), kRed),
                              [](const pixels::Rgba& p) { return p == pixels::kRed; }));
  ASSERT_EQ(background->sublayers()->size(), 1U);
  EXPECT_EQ(background->sublayers()->front()->frame(), CGRect(0, 0, 40, 40));

  // What is no icon type adds nothing; the background alone is drawn.
  const UIImage none =
      UIBezierPath::imageWithIcon(kNoIcon, attributes({40, 40}), kRed, background.get());
  EXPECT_EQ(background->sublayers()->size(), 1U);
  EXPECT_EQ(pixels::largestDifference(none, image), 0);
}

TEST(OutlinedIcons, EveryCallGivesAnImage) {
  EXPECT_EQ(pixels::paintedBox(UIBezierPath::imageWithIcon(kNoIcon, attributes({40, 40}), kRed)),
            pixels::Box{});
  for (const CGSize& size :
       {CGSize{0, 0}, CGSize{-4, 40}, CGSize{std::numeric_limits<CGFloat>::quiet_NaN(), 40},
        CGSize{40, std::numeric_limits<CGFloat>::infinity()}}) {
    EXPECT_FALSE(
        UIBezierPath::imageWithIcon(VNTLIconType::peopleBadge, attributes(size), kRed).hasPixels());
  }
}

}  // namespace
}  // namespace glyphwright
