#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/platform/math.h>
#include <tests/layer_pictures.h>

namespace glyphwright {
namespace {

using namespace layerPictures;

TEST(LayerMasking, MasksToBoundsCutsContentAndSublayersButNotTheBorder) {
  const auto layer = CAShapeLayer::layer();
  layer->setBounds({10, 10, 20, 20});
  layer->setFillColor(kRed);
  CGPath path;
  path.addRect({0, 0, 40, 20});
  layer->setPath(path);
  const auto sublayer = CALayer::layer();
  sublayer->setFrame({0, 25, 40, 40});
  sublayer->setBackgroundColor(kGreen);
  layer->addSublayer(sublayer);
  EXPECT_EQ(pixels::paintedBox(drawn(*layer, 1)), (pixels::Box{0, 0, 40, 40}));
  layer->setMasksToBounds(true);
  layer->setBorderWidth(2);
  const UIImage image = drawn(*layer, 1);
  EXPECT_EQ(pixels::paintedBox(image), (pixels::Box{10, 10, 30, 30}));
  EXPECT_EQ(at(image, 10, 15), pixels::kBlack);
  EXPECT_EQ(at(image, 20, 27), pixels::kGreen);
  layer->setCornerRadius(10);
  EXPECT_EQ(at(drawn(*layer, 1), 11, 11), pixels::kNone);
  layer->setBorderWidth(30);  // wider than the layer
  EXPECT_EQ(at(drawn(*layer, 1), 20, 20), pixels::kBlack);
}

TEST(LayerMasking, OnlyTheAlphaOfAMaskCounts) {
  const auto layer = CALayer::layer();
  layer->setBounds({0, 0, 40, 40});
  layer->setBackgroundColor(kRed);
  const auto mask = CAShapeLayer::layer();
  layer->setMask(mask);
  EXPECT_EQ(pixels::paintedBox(drawn(*layer)), pixels::Box{});
  mask->setFrame({10, 0, 20, 20});
  mask->setBackgroundColor(kGreen);
  const UIImage image = drawn(*layer, 1);
  EXPECT_EQ(pixels::paintedBox(image), (pixels::Box{10, 0, 30, 20}));
  EXPECT_EQ(at(image, 15, 15), pixels::kRed);
  mask->setBackgroundColor(UIColor(0, 1, 0, 0.5));
  EXPECT_EQ(at(drawn(*layer, 1), 15, 15), (Rgba{128, 0, 0, 128}));
  EXPECT_EQ(pixels::paintedBox(drawn(*layer, 1)), (pixels::Box{10, 0, 30, 20}));
  mask->setBackgroundColor(std::nullopt);
  CGPath path;
  path.addRect({0, 0, 20, 20});
  mask->setPath(path);
  mask->setFillColor(UIColor(0, 1, 0, 0.5));
  EXPECT_EQ(at(drawn(*layer, 1), 15, 15), (Rgba{128, 0, 0, 128}));
  mask->setPosition({500, 0});
  EXPECT_EQ(pixels::paintedBox(drawn(*layer)), pixels::Box{});
  mask->setPosition({20, 10});
  mask->setHidden(true);
  EXPECT_EQ(pixels::paintedBox(drawn(*layer)), pixels::Box{});
}

// A mask that is one opaque path becomes a clip; anything else goes the long way through an alpha
// channel. Both give the same picture.
TEST(LayerMasking, BothWaysOfMaskingAgree) {
  const auto layer = CALayer::layer();
  layer->setBounds({0, 0, 40, 40});
  layer->setBackgroundColor(kRed);
  layer->setBorderWidth(6);
  const auto sublayer = CALayer::layer();
  sublayer->setFrame({5, 5, 20, 30});
  sublayer->setBackgroundColor(UIColor(0, 0, 1, 0.6));
  layer->addSublayer(sublayer);
  const auto mask = CAShapeLayer::layer();
  mask->setPath(figure());
  mask->setPosition({2, 3});
  layer->setMask(mask);
  for (const CGFloat opacity : {1.0, 0.4}) {
    layer->setOpacity(opacity);
    const UIImage clipped = drawn(*layer);
    mask->addSublayer(CALayer::layer());
    (*mask->sublayers())[0]->setFrame({60, 60, 1, 1});
    (*mask->sublayers())[0]->setBackgroundColor(kRed);
    const UIImage multiplied = drawn(*layer);
    (*mask->sublayers())[0]->removeFromSuperlayer();
    EXPECT_LE(pixels::largestDifference(clipped, multiplied), 1);
    EXPECT_GT(pixels::paintedBox(clipped).maxX, 60U);
  }
}

// All that shows within the bounds is cut there once, whatever it is made of.
TEST(LayerMasking, MasksToBoundsCountsAnEdgeOnce) {
  for (const CGFloat radius : {20.0, 0.0}) {
    const auto layer = CALayer::layer();
    layer->setFrame({0, 0, radius > 0 ? 40.0 : 39.5, 40});
    layer->setBackgroundColor(UIColor(1, 0, 0, 1));
    layer->setCornerRadius(radius);
    layer->setMasksToBounds(true);
    const UIImage plain = layerPictures::drawn(*layer, 1);
    EXPECT_GT(pixels::at(plain, 39, 14).alpha, 0);
    EXPECT_LT(pixels::at(plain, 39, 14).alpha, 255);
    const auto sublayer = CALayer::layer();
    sublayer->setFrame({0, 0, 40, 40});
    sublayer->setBackgroundColor(UIColor(1, 0, 0, 1));
    layer->addSublayer(sublayer);
    layer->setBorderWidth(2);
    layer->setBorderColor(UIColor(1, 0, 0, 1));
    EXPECT_LE(pixels::largestDifference(layerPictures::drawn(*layer, 1), plain), 1);
  }
}

}  // namespace
}  // namespace glyphwright
