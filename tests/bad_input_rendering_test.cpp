// Any number may arrive as a size, width, blur, offset, scale or coordinate. Nothing hangs, crashes
// or takes memory without bound.

#include <chrono>
#include <cmath>
#include <functional>
#include <limits>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/bezier_path.h>
#include <glyphwright/catalogue/catalogue.h>
#include <glyphwright/catalogue/icon_type.h>
#include <glyphwright/catalogue/pathable.h>
#include <glyphwright/platform/context.h>
#include <glyphwright/platform/image_renderer.h>
#include <glyphwright/platform/vantel_kit.h>
#include <glyphwright/rendering/attribute_dictionary.h>
#include <glyphwright/rendering/icon_attributes.h>

#include "pixels.h"

namespace glyphwright {
namespace {

using namespace pixels;
using Shape = UIImage::Shape;

constexpr CGFloat kNaN = std::numeric_limits<CGFloat>::quiet_NaN();
constexpr CGFloat kInfinity = std::numeric_limits<CGFloat>::infinity();
constexpr CGFloat kOddNumbers[] = {
    0,      -0.0, -1,        -1e9,       1e-320,
    1e-9,   0.3,  7,         1e9,        1e300,
    -1e300, kNaN, kInfinity, -kInfinity, std::numeric_limits<CGFloat>::max()};

const UIColor blue(0, 0, 1, 0.5);

IconAttributes attributesOf(CGSize size) {
  return {.fillColor = red,
          .backgroundColor = UIColor::clearColor(),
          .stroke = IconStroke(blue, 1),
          .size = size};
}

class BadInput : public testing::Test {
 protected:
  void SetUp() override { began_ = std::chrono::steady_clock::now(); }
  void TearDown() override {
    EXPECT_LT(std::chrono::steady_clock::now() - began_, std::chrono::seconds(60));
    EXPECT_EQ(UIGraphicsGetCurrentContext(), nullptr) << "every context is closed";
  }

 private:
  std::chrono::steady_clock::time_point began_;
};

TEST_F(BadInput, SizesThatCannotBeDrawnGiveImagesWithoutPixels) {
  const ScreenScale scale(2);
  const CGSize sizes[] = {{0, 0},    {0, 9},    {9, 0},         {-9, 9},         {9, -1e300},
                          {kNaN, 9}, {9, kNaN}, {kInfinity, 9}, {9, -kInfinity}, {1e300, 1e300},
                          {1e9, 9},  {9, 8193}, {8192, 8192},   {kNaN, kNaN}};
  const std::vector<UIColor> colors = {red, blue};
  const VantelKit::Border border{1, blue};
  const std::vector<std::function<UIImage(CGSize)>> makers = {
      [](CGSize s) { return UIBezierPath::heartPath().makeImage(attributesOf(s)); },
      [](CGSize s) {
        IconAttributes attributes = attributesOf(s);
        attributes.border = IconBorder(red, 2);
        attributes.dropShadow = IconShadow(red, {1, 1}, 3);
        attributes.insetShadow = IconShadow(red, {1, 1}, 3);
        return UIBezierPath::newImage(App::Shapes::Checks::checkmark, attributes);
      },
      [](CGSize s) {
        return UIBezierPath::imageWithIcon(
            VNTLIconType::heart, {{VNTLGlyphwrightSize, s},
                                  {VNTLGlyphwrightBorderWidth, 2},
                                  {VNTLGlyphwrightDropShadow, std::make_shared<NSShadow>()}});
      },
      [](CGSize s) {
        return UIImage::vantelUCircleIcon({s.width * 2, s.height * 2});
      },
      [&](CGSize s) { return UIImage::addPhotosHomeIcon(s, red, colors); },
      [&](CGSize s) { return UIImage::emailIcon(s, colors); },
      [](CGSize s) { return UIImage::matchAlertDot(s, red, blue, 1); },
      [](CGSize s) { return UIImage::instagramPlaceholderImage(red, blue, s).value_or(UIImage()); },
      [&](CGSize s) {
        const CGSize smaller{s.width - 1, s.height - 1};
        return UIImage::shapeIcon(smaller, Shape::thinX, red, border, nullptr).value_or(UIImage());
      },
      [](CGSize s) {
        return UIBezierPath::bezierPathWithRect({CGPoint{}, s}).imageWithStrokeColor(red, blue);
      },
      [](CGSize s) {
        bool ran = false;
        const UIImage image = UIGraphicsImageRenderer(s).image([&](const auto& context) {
          ran = context.cgContext() != nullptr && UIGraphicsGetCurrentContext() != nullptr;
          UIBezierPath::heartPath().fill();
        });
        EXPECT_TRUE(ran);
        EXPECT_EQ(image.size().width, s.width > 0 ? s.width : 0);
        EXPECT_EQ(image.size().height, s.height > 0 ? s.height : 0);
        return image;
      },
  };
  for (std::size_t maker = 0; maker < makers.size(); ++maker) {
    for (const CGSize size : sizes) {
      // The line makes room for itself, and a negative width is none.
      if (maker == 9 && !(size.width > 0 && size.height > 0)) continue;
      EXPECT_FALSE(makers[maker](size).hasPixels())
          << maker << ": " << size.width << " x " << size.height;
    }
    EXPECT_TRUE(makers[maker]({9, 9}).hasPixels()) << maker;
  }
  EXPECT_FALSE(UIBezierPath::heartPath().imageWithAttributes({}).hasPixels());
}

TEST_F(BadInput, OddNumbersInRecords) {
  const ScreenScale scale(1);
  for (const CGFloat odd : kOddNumbers) {
    const auto render = [&](auto change) {
      IconAttributes attributes = attributesOf({20, 20});
      change(attributes);
      const UIImage image = UIBezierPath::heartPath().makeImage(attributes);
      EXPECT_EQ(image.cgImage().pixelWidth(), 20U) << odd;
    };
    render([&](IconAttributes& a) { a.stroke->width = odd; });
    render([&](IconAttributes& a) { a.border = IconBorder(blue, odd); });
    render([&](IconAttributes& a) { a.dropShadow = IconShadow(blue, {2, 2}, odd); });
    render([&](IconAttributes& a) { a.dropShadow = IconShadow(blue, {odd, 2}, 2); });
    render([&](IconAttributes& a) { a.dropShadow = IconShadow(blue, {odd, -odd}, odd); });
    render([&](IconAttributes& a) { a.insetShadow = IconShadow(blue, {2, 2}, odd); });
    render([&](IconAttributes& a) { a.insetShadow = IconShadow(blue, {2, odd}, 2); });
    render([&](IconAttributes& a) { a.insetShadow = IconShadow(blue, {odd, odd}, odd); });
    render([&](IconAttributes& a) {
      a.insetShadow = a.dropShadow = IconShadow(blue, {1, 1}, 1);
      a.insetShadow->shadow = nullptr;
      a.dropShadow->shadow = nullptr;
    });
    render([&](IconAttributes& a) { a.fillColor = UIColor(odd, odd, odd, odd); });
    render([&](IconAttributes& a) { a.backgroundColor = UIColor(odd, 0, 0, 1); });
    render([&](IconAttributes& a) {
      a.gradient = IconGradient({red, blue}, {{odd, 0}, {0, 1}}, std::vector<CGFloat>{odd, -odd});
    });
    render([&](IconAttributes& a) {
      a.gradient = IconGradient({UIColor(odd, 0, 0, 1), red}, {{0, odd}, {odd, odd}}, {0, 1});
    });
  }
}

TEST_F(BadInput, OddNumbersInDictionaries) {
  const ScreenScale scale(1);
  const UIBezierPath path = UIBezierPath::checkmarkPath();
  for (const CGFloat odd : kOddNumbers) {
    auto shadow = std::make_shared<NSShadow>();
    shadow->setShadowBlurRadius(odd);
    shadow->setShadowOffset({1, odd});
    for (const auto& [key, value] : std::vector<std::pair<VNTLGlyphwright, AttributeValue>>{
             {VNTLGlyphwrightStrokeWidth, odd},
             {VNTLGlyphwrightBorderWidth, odd},
             {VNTLGlyphwrightDropShadow, shadow},
             {VNTLGlyphwrightInsetShadow, shadow},
             {VNTLGlyphwrightGradientLocations, std::vector<NSNumber>{odd, odd}},
             {VNTLGlyphwrightGradientStartPoint, CGPoint{odd, 0}},
             {VNTLGlyphwrightGradientEndPoint, CGPoint{odd, odd}}}) {
      const UIImage image = path.imageWithAttributes(
          {{VNTLGlyphwrightSize, CGSize{20, 20}},
           {VNTLGlyphwrightGradientColors, std::vector<UIColor>{red, blue}},
           {key, value}});
      EXPECT_EQ(image.cgImage().pixelWidth(), 20U) << key.rawValue() << ' ' << odd;
    }
  }
}

TEST_F(BadInput, AColourThatCannotBeReadIsNotOpaque) {
  const ScreenScale scale(1);
  IconAttributes attributes = attributesOf({10.5, 10});
  attributes.backgroundColor = UIColor(kNaN, 0, 1, 1);
  EXPECT_LT(at(UIBezierPath().makeImage(attributes), 10, 0).alpha, 255);
  attributes.backgroundColor = UIColor(7, -3, 1, 1);
  EXPECT_EQ(at(UIBezierPath().makeImage(attributes), 10, 0).alpha, 255);
}

TEST_F(BadInput, OddPathsPaintNothingButTheBackground) {
  const ScreenScale scale(1);
  for (const CGFloat odd : {kNaN, kInfinity, -kInfinity, 1e300, 1e-320}) {
    UIBezierPath path = UIBezierPath::heartPath();
    path.addLineToPoint({odd, 3});
    path.addCurveToPoint({5, odd}, {odd, odd}, {1, -odd});
    IconAttributes attributes = attributesOf({20, 20});
    attributes.insetShadow = IconShadow(blue, {1, 1}, 2);
    attributes.dropShadow = IconShadow(blue, {1, 1}, 2);
    EXPECT_TRUE(path.makeImage(attributes).hasPixels());
    path.setLineWidth(odd);
    path.imageWithStrokeColor(red, blue);
    UIBezierPath scaled = path;
    scaled.scaleToFitSize({odd, 4});
    scaled.centerAlignWithinSize({odd, odd});
    scaled.translateToZeroPoint();
  }
}

TEST_F(BadInput, OddScales) {
  for (const CGFloat odd : {-1.0, kNaN, kInfinity, 1e300, 1e9}) {
    EXPECT_FALSE(UIImage::render({9, 9}, odd, nullptr)) << odd;
    EXPECT_FALSE(VantelKit::drawImage({9, 9}, true, odd, nullptr).hasPixels()) << odd;
    UIGraphicsImageRendererFormat format;
    format.scale = odd;
    const auto withShadow = [](const UIGraphicsImageRendererContext& context) {
      CGContextSetShadowWithColor(context.cgContext(), {0, 3}, 2, red);
      CGContextFillRect(context.cgContext(), {{1, 1}, {3, 3}});
    };
    EXPECT_FALSE(UIGraphicsImageRenderer({9, 9}, format).image(withShadow).hasPixels()) << odd;
  }
  const ScreenScale scale(2);
  for (const CGFloat odd : {0.0, -1.0, kNaN, kInfinity}) {
    VantelKit::Screen::setScale(odd);
    EXPECT_EQ(VantelKit::Screen::scale(), 2) << "the last good one stays";
  }
}

// Requests put together at random, many of them senseless.
TEST_F(BadInput, RandomRequests) {
  const ScreenScale scale(1);
  std::mt19937 random(11);
  const auto number = [&]() -> CGFloat {
    if (random() % 3 == 0) return kOddNumbers[random() % std::size(kOddNumbers)];
    return static_cast<CGFloat>(static_cast<int>(random() % 4001) - 2000) / 50;
  };
  const auto color = [&] { return UIColor(number(), number(), number(), number()); };
  const auto shadow = [&] { return IconShadow(color(), {number(), number()}, number()); };
  const UIBezierPath paths[] = {UIBezierPath::heartPath(), UIBezierPath::gearPath(),
                                UIBezierPath()};
  for (int i = 0; i < 3000; ++i) {
    IconAttributes attributes{color(), color(), {}, {}, {}, {}, {}, {number(), number()}};
    if (random() % 2) attributes.stroke = IconStroke(color(), number());
    if (random() % 3 == 0) attributes.border = IconBorder(color(), number());
    if (random() % 2) attributes.dropShadow = shadow();
    if (random() % 2) attributes.insetShadow = shadow();
    if (random() % 2) {
      attributes.gradient = IconGradient(
          {color(), color()}, {{number(), number()}, {number(), number()}}, {number(), number()});
    }
    const UIImage image = paths[random() % std::size(paths)].makeImage(attributes);
    EXPECT_LE(image.cgImage().pixelWidth() * image.cgImage().pixelHeight(), 41U * 41U);
  }
}

}  // namespace
}  // namespace glyphwright
