#include <functional>
#include <limits>
#include <memory>
#include <vector>

#include <gtest/gtest.h>

#include <tests/layer_pictures.h>

namespace glyphwright {
namespace {

using namespace layerPictures;

// The same operations, by hand and by layers, give the same bits.

TEST(LayerRendering, AShapeIsItsFillAndThenItsStroke) {
  const auto layer = CAShapeLayer::layer();
  layer->setPath(figure());
  EXPECT_GT(pixels::largestDifference(drawn(*layer), drawn(*CALayer::layer())), 0);
  for (const FillRule rule : {FillRule::nonZero, FillRule::evenOdd}) {
    layer->setFillRule(rule);
    layer->setFillColor(UIColor(0.9, 0.3, 0.1, 0.7));
    layer->setStrokeColor(kBlue);
    const StrokeStyle style{2.5, CGLineCap::round, CGLineJoin::bevel, 4};
    layer->setLineWidth(style.width);
    layer->setLineCap(style.cap);
    layer->setLineJoin(style.join);
    layer->setMiterLimit(style.miterLimit);
    const UIImage byHand = drawn([&](CGContextRef context) {
      CGContextSetFillColor(context, *layer->fillColor());
      CGContextFillPath(context, figure(), rule);
      CGContextSetStrokeColor(context, kBlue);
      CGContextStrokePath(context, figure(), style);
    });
    pixels::expectSamePixels(drawn(*layer), byHand);
  }
}

TEST(LayerRendering, SublayersStandWhereTheirGeometryPutsThem) {
  const auto parent = CALayer::layer();
  const auto sublayer = CAShapeLayer::layer();
  parent->addSublayer(sublayer);
  sublayer->setPath(figure());
  sublayer->setBounds({4, 6, 20, 10});
  sublayer->setAnchorPoint({0.25, 1});
  sublayer->setPosition({15, 22});
  for (const CGAffineTransform& transform :
       {CGAffineTransformIdentity, CGAffineTransformMakeRotation(0.5),
        CGAffineTransformMakeScale(-0.75, 0.5)}) {
    sublayer->setTransform(transform);
    const UIImage byHand = drawn([&](CGContextRef context) {
      CGContextTranslateCTM(context, 15, 22);
      CGContextConcatCTM(context, transform);
      CGContextTranslateCTM(context, -(4 + 5), -(6 + 10));
      CGContextFillPath(context, figure(), FillRule::nonZero);
    });
    EXPECT_LE(pixels::largestDifference(drawn(*parent), byHand), 1);
  }
}

TEST(LayerRendering, TheReceiverIsDrawnInItsOwnCoordinates) {
  const auto layer = CALayer::layer();
  layer->setBackgroundColor(kRed);
  layer->setBounds({10, 5, 20, 10});
  layer->setPosition({300, 300});
  layer->setAnchorPoint({0, 0});
  layer->setTransform(CGAffineTransformMakeScale(3, 3));
  EXPECT_EQ(pixels::paintedBox(drawn(*layer)), (pixels::Box{20, 10, 60, 30}));
}

TEST(LayerRendering, SublayersAreDrawnByZAndThenInOrder) {
  const auto parent = CALayer::layer();
  const auto add = [&](const UIColor& color, CGFloat z) {
    const auto layer = CALayer::layer();
    layer->setBackgroundColor(color);
    layer->setFrame({0, 0, 10, 10});
    layer->setZPosition(z);
    parent->addSublayer(layer);
    return layer;
  };
  const auto red = add(kRed, 0);
  const auto green = add(kGreen, 0);
  EXPECT_EQ(at(drawn(*parent), 0, 0), pixels::kGreen);
  red->setZPosition(1);
  EXPECT_EQ(at(drawn(*parent), 0, 0), pixels::kRed);
  const auto blue = add(kBlue, 1);
  EXPECT_EQ(at(drawn(*parent), 0, 0), pixels::kBlue);
  blue->setHidden(true);
  EXPECT_EQ(at(drawn(*parent), 0, 0), pixels::kRed);
  red->setOpacity(std::numeric_limits<CGFloat>::quiet_NaN());
  EXPECT_EQ(at(drawn(*parent), 0, 0), pixels::kGreen);
  parent->setHidden(true);
  EXPECT_EQ(at(drawn(*parent), 0, 0), pixels::kNone);
}

TEST(LayerRendering, ManySublayersOfOneHeightKeepTheirOrder) {
  const auto parent = CALayer::layer();
  for (int i = 0; i < 99; ++i) {
    const auto layer = CALayer::layer();
    layer->setBackgroundColor(UIColor(i / 98.0, 1 - i / 98.0, 0, 1));
    layer->setFrame({0, 0, 10, 10});
    layer->setZPosition(i % 3 == 0 ? 1 : 0);
    parent->addSublayer(layer);
  }
  EXPECT_EQ(at(drawn(*parent), 0, 0), (Rgba{250, 5, 0, 255}));  // the 97th
}

TEST(LayerRendering, OpacityIsTheGroups) {
  const auto parent = CALayer::layer();
  for (int i = 0; i < 3; ++i) {
    const auto layer = CALayer::layer();
    layer->setBackgroundColor(kRed);
    layer->setFrame({static_cast<CGFloat>(i) * 5, 0, 10, 10});
    parent->addSublayer(layer);
  }
  parent->setOpacity(0.5);
  EXPECT_EQ(at(drawn(*parent, 1), 1, 1), (Rgba{128, 0, 0, 128}));
  EXPECT_EQ(at(drawn(*parent, 1), 7, 1), (Rgba{128, 0, 0, 128}));
  (*parent->sublayers())[1]->setHidden(true);
  (*parent->sublayers())[2]->setHidden(true);
  EXPECT_EQ(at(drawn(*parent, 1), 1, 1), (Rgba{128, 0, 0, 128}));
  // The context's own alpha counts as well.
  (*parent->sublayers())[1]->setHidden(false);
  const UIImage image = drawn(
      [&](CGContextRef context) {
        CGContextSetAlpha(context, 0.5);
        parent->renderInContext(context);
      },
      1);
  EXPECT_EQ(at(image, 7, 1), (Rgba{64, 0, 0, 64}));
}

TEST(LayerRendering, ContentsFillTheBounds) {
  const std::vector<std::uint8_t> rgba{255, 0, 0, 255, 0, 0, 255, 255};  // red beside blue
  const auto layer = CALayer::layer();
  layer->setBounds({0, 0, 40, 40});
  layer->setContents(CGImage(2, 1, rgba));
  struct Case {
    CALayerContentsGravity gravity;
    pixels::Box box;
  };
  for (const Case& c : {Case{CALayerContentsGravity::resize, {0, 0, 40, 40}},
                        Case{CALayerContentsGravity::resizeAspect, {0, 10, 40, 30}},
                        Case{CALayerContentsGravity::resizeAspectFill, {0, 0, 40, 40}},
                        Case{CALayerContentsGravity::center, {18, 19, 22, 21}}}) {
    layer->setContentsGravity(c.gravity);
    layer->setContentsScale(0.5);
    const UIImage image = drawn(*layer, 1);
    EXPECT_EQ(pixels::paintedBox(image), c.box);
    EXPECT_GT(at(image, c.box.minX, 20).red, 250);
    EXPECT_GT(at(image, c.box.maxX - 1, 20).blue, 250);
  }
}

TEST(LayerRendering, WhatCannotBeDrawnIsNot) {
  const auto gradient = CAGradientLayer::layer();
  gradient->setBounds({0, 0, 40, 40});
  const auto expectNothing = [&](const char* what) {
    for (const char* type : {"axial", "radial", "conic"}) {
      gradient->setType(type);
      EXPECT_EQ(pixels::paintedBox(drawn(*gradient)), pixels::Box{}) << what << ' ' << type;
    }
  };
  gradient->setColors(std::vector<CGColor>{});
  expectNothing("no colours");
  gradient->setColors({{kRed}});
  expectNothing("one colour");
  gradient->setColors({{kRed, kGreen}});
  for (const std::vector<CGFloat>& locations : {std::vector<CGFloat>{}, {0.5}, {0, 0.5, 1}}) {
    gradient->setLocations(locations);
    expectNothing("locations of another number");
  }
  gradient->setLocations(std::nullopt);
  gradient->setEndPoint(gradient->startPoint());
  expectNothing("equal points");
  gradient->setEndPoint({std::numeric_limits<CGFloat>::quiet_NaN(), 1});
  expectNothing("a point that is not a number");
  gradient->setType("radial");
  gradient->setEndPoint({0.5, 1});
  EXPECT_EQ(pixels::paintedBox(drawn(*gradient)), pixels::Box{}) << "points on one axis";
  gradient->setType("axial");
  EXPECT_EQ(pixels::paintedBox(drawn(*gradient)), (pixels::Box{0, 0, 80, 80}));

  const auto shape = CAShapeLayer::layer();
  CGPath path = figure();
  path.addLineToPoint({std::numeric_limits<CGFloat>::infinity(), 0});
  shape->setPath(path);
  shape->setStrokeColor(kRed);
  EXPECT_EQ(pixels::paintedBox(drawn(*shape)), pixels::Box{});
  shape->setPath(figure());
  shape->setFillColor(std::nullopt);
  for (const CGFloat width : {-1.0, std::numeric_limits<CGFloat>::quiet_NaN()}) {
    shape->setLineWidth(width);
    EXPECT_EQ(pixels::paintedBox(drawn(*shape)), pixels::Box{});
  }
  shape->renderInContext(nullptr);
}

TEST(LayerRendering, TheContextsStateIsLeftAsItWas) {
  const auto layer = CAShapeLayer::layer();
  layer->setPath(figure());
  layer->setFillColor(kRed);
  layer->setStrokeColor(kRed);
  layer->setMasksToBounds(true);
  layer->setBounds({0, 0, 4, 4});
  layer->setOpacity(0.5);
  layer->setMask(CAGradientLayer::layer());
  layer->mask()->setBackgroundColor(UIColor(0, 0, 0, 0.5));
  layer->mask()->setFrame({0, 0, 2, 2});
  const auto finished = [&](bool afterALayer) {
    return drawn([&](CGContextRef context) {
      CGContextSetFillColor(context, kGreen);
      CGContextSetAlpha(context, 0.75);
      CGContextTranslateCTM(context, 9, 8);
      if (afterALayer) layer->renderInContext(context);
      CGContextClipToRect(context, {10, 10, 30, 30});
      CGContextFillRect(context, {10, 10, 20, 30});
      CGContextStrokePath(context, figure(), {2});
    });
  };
  pixels::expectSamePixels(finished(true), finished(false));
}

}  // namespace
}  // namespace glyphwright
