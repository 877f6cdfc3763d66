// The icons that the application shows everywhere. What they look like is in the manifest of
// pictures.

#include <optional>

#include <gtest/gtest.h>

#include <glyphwright/platform/image.h>
#include <glyphwright/platform/shadow.h>
#include <glyphwright/platform/vantel_kit.h>

#include "pixels.h"

namespace glyphwright {
namespace {

using namespace pixels;
using Shape = UIImage::Shape;

TEST(Conveniences, SecondNamesGiveTheSameImages) {
  const CGSize size{32, 30};
  expectSamePixels(UIImage::matchAlertDotWithSize(size, red, blue, 2),
                   UIImage::matchAlertDot(size, red, blue, 2));
  expectSamePixels(*UIImage::instagramProfileConnectButtonImageWithColor(red, size),
                   *UIImage::instagramProfileConnectButtonImage(red, size));
  expectSamePixels(*UIImage::instagramPlaceholderImageWithColor(red, blue, size),
                   *UIImage::instagramPlaceholderImage(red, blue, size));
  const UIImage thin = UIImage::matchAlertDot(size, red, blue, 0.5);
  EXPECT_EQ(boxAround(thin, [](const Rgba& p) { return p.blue > 0; }), Box{});
}

TEST(Conveniences, CanvasesGrowWithBorderAndShadow) {
  const ScreenScale scale(3);
  NSShadow shadow;
  shadow.setShadowBlurRadius(3);
  shadow.setShadowOffset({1, 2});
  shadow.setShadowColor(std::nullopt);  // the room for the shadow stays
  const VantelKit::Border border{2, blue};
  const auto shape = [&](CGSize size, const NSShadow* cast) {
    return UIImage::shapeIcon(size, Shape::thickX, red, border, cast);
  };
  EXPECT_EQ(shape({10, 8}, &shadow)->size(), (CGSize{18, 16}));
  EXPECT_EQ(shape({10, 8}, nullptr)->size(), (CGSize{12, 10}));
  EXPECT_FALSE(shape({-20, 10}, nullptr));
  const auto circle = [&](CGFloat width) {
    return UIImage::circleIcon({20, 20}, red, {width, blue}, &shadow, std::nullopt, {}, green);
  };
  EXPECT_EQ(circle(2)->size(), (CGSize{28, 28}));
  EXPECT_FALSE(circle(-30));
  EXPECT_EQ(UIImage::vantelUCircleIcon({30, 30}).scale(), 1);
  EXPECT_FALSE(UIImage::instagramProfileConnectButtonImage(red, {0, 5}));
  EXPECT_FALSE(UIImage::addPhotosHomeIcon({0, 90}, blue, red).hasPixels());
}

}  // namespace
}  // namespace glyphwright
