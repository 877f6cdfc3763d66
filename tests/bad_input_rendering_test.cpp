// Any number may arrive as a size or a scale; what else may is put together by the fuzzers.

#include <functional>
#include <limits>
#include <memory>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/bezier_path.h>
#include <glyphwright/catalogue/catalogue.h>
#include <glyphwright/catalogue/icon_type.h>
#include <glyphwright/catalogue/pathable.h>
#include <glyphwright/platform/context.h>
#include <glyphwright/platform/image_renderer.h>
#include <glyphwright/platform/vantel_kit.h>
#include <glyphwright/presets/ready_made.h>
#include <glyphwright/rendering/attribute_dictionary.h>
#include <glyphwright/rendering/icon_attributes.h>

#include "pixels.h"

namespace glyphwright {
namespace {

using namespace pixels;
using Shape = UIImage::Shape;

constexpr CGFloat kNaN = std::numeric_limits<CGFloat>::quiet_NaN();
constexpr CGFloat kInfinity = std::numeric_limits<CGFloat>::infinity();

IconAttributes attributesOf(CGSize size) {
  return {.fillColor = red,
          .backgroundColor = UIColor::clearColor(),
          .stroke = IconStroke(blue, 1),
          .size = size};
}

TEST(BadInput, SizesThatCannotBeDrawnGiveImagesWithoutPixels) {
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
  for (const presets::ReadyMadeImage& image : presets::readyMadeImages()) {
    if (!image.usualSize) continue;
    for (const CGSize size : sizes) EXPECT_FALSE(image.draw({.size = size}).hasPixels());
    EXPECT_TRUE(image.draw({.size = {0.01, 0.01}}).hasPixels()) << image.name;
  }
}

TEST(BadInput, AColourThatCannotBeReadIsNotOpaque) {
  const ScreenScale scale(1);
  IconAttributes attributes = attributesOf({10.5, 10});
  attributes.backgroundColor = UIColor(kNaN, 0, 1, 1);
  EXPECT_LT(at(UIBezierPath().makeImage(attributes), 10, 0).alpha, 255);
  attributes.backgroundColor = UIColor(7, -3, 1, 1);
  EXPECT_EQ(at(UIBezierPath().makeImage(attributes), 10, 0).alpha, 255);
}

TEST(BadInput, OddScales) {
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

}  // namespace
}  // namespace glyphwright
