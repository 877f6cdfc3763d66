// The icons that the application shows everywhere.

#include <memory>
#include <optional>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/bezier_path.h>
#include <glyphwright/catalogue/icon_type.h>
#include <glyphwright/platform/context.h>
#include <glyphwright/platform/image.h>
#include <glyphwright/platform/vantel_kit.h>
#include <glyphwright/rendering/attribute_dictionary.h>

#include "pixels.h"

namespace glyphwright {
namespace {

using namespace pixels;
using Shape = UIImage::Shape;

const UIColor red(1, 0, 0, 1);
const UIColor green(0, 1, 0, 1);
const UIColor blue(0, 0, 1, 1);

UIImage byNumber(int type, const AttributeDictionary& attributes) {
  return UIBezierPath::imageWithIcon(static_cast<VNTLIconType>(type), attributes);
}

TEST(Conveniences, DictionaryImages) {
  const ScreenScale scale(2);
  const CGSize size{24, 20};
  const auto flat = [&](int type, const UIColor& color) {
    return byNumber(type, {{VNTLGlyphwrightSize, size}, {VNTLGlyphwrightFillColor, color}});
  };
  expectSamePixels(UIImage::arrowDownIcon(red, size), flat(83, red));
  expectSamePixels(UIImage::arrowRightIcon(red, size), flat(31, red));
  expectSamePixels(UIImage::arrowLeftIcon(red, size), flat(30, red));
  expectSamePixels(UIImage::onboardingCameraIcon(size, red), flat(96, red));
  expectSamePixels(UIImage::vinylInputButton(size, red), flat(99, red));
  expectSamePixels(UIImage::vinylSongIcon(size), flat(100, UIColor(0.847, 0.847, 0.847, 1)));
  const std::vector<UIColor> colors = {red, blue};
  expectSamePixels(UIImage::emailIcon(size, colors),
                   byNumber(3, {{VNTLGlyphwrightSize, size},
                                {VNTLGlyphwrightGradientColors, colors},
                                {VNTLGlyphwrightGradientStartPoint, CGPoint{0, 0}},
                                {VNTLGlyphwrightGradientEndPoint, CGPoint{1, 1}}}));
}

TEST(Conveniences, MatchAlertDot) {
  const ScreenScale scale(2);
  const CGSize size{20, 20};
  const UIImage ringed = UIImage::matchAlertDot(size, red, blue, 2);
  expectSamePixels(ringed, byNumber(16, {{VNTLGlyphwrightSize, size},
                                         {VNTLGlyphwrightFillColor, red},
                                         {VNTLGlyphwrightBorderWidth, 2},
                                         {VNTLGlyphwrightBorderColor, blue}}));
  EXPECT_EQ(at(ringed, 2, 20), kBlue);
  EXPECT_EQ(at(ringed, 20, 20), kRed);
  const UIImage thin = UIImage::matchAlertDot(size, red, blue, 0.5);
  EXPECT_EQ(boxAround(thin, [](const Rgba& p) { return p.blue > 0; }), Box{});
  expectSamePixels(UIImage::matchAlertDotWithSize(size, red, blue, 2), ringed);
}

TEST(Conveniences, LetterMarkInAWhiteDisc) {
  const ScreenScale scale(3);
  const UIImage image = UIImage::vantelUCircleIcon({30, 30});
  EXPECT_EQ(image.scale(), 1);
  EXPECT_EQ(image.cgImage().pixelWidth(), 30U);
  EXPECT_EQ(at(image, 15, 1), kWhite);
  EXPECT_EQ(at(image, 0, 0), kNone);
  // The mark begins at 20 % of the size and fills 60 % of it along its longer side.
  const Box mark = boxAround(
      image, [](const Rgba& p) { return p.alpha == 255 && p.red < 200 && p.red == p.blue; });
  EXPECT_EQ(mark.minX, 6U);
  EXPECT_EQ(mark.minY, 6U);
  EXPECT_EQ(std::max(mark.maxX, mark.maxY), 24U);
}

TEST(Conveniences, AddPhotosOnARoundGround) {
  const ScreenScale scale(1);
  const UIImage flat = UIImage::addPhotosHomeIcon({90, 90}, blue, red);
  EXPECT_EQ(flat.size(), (CGSize{90, 90}));
  // The sign in 50 by 50 stands at (20, 20).
  const UIImage sign =
      byNumber(87, {{VNTLGlyphwrightSize, CGSize{50, 50}}, {VNTLGlyphwrightFillColor, blue}});
  const UIImage ground =
      byNumber(88, {{VNTLGlyphwrightSize, CGSize{90, 90}}, {VNTLGlyphwrightFillColor, red}});
  UIGraphicsBeginImageContextWithOptions({90, 90}, false, 1);
  ground.drawAtPoint({0, 0});
  sign.drawAtPoint({20, 20});
  expectSamePixels(flat, *UIGraphicsGetImageFromCurrentImageContext());
  UIGraphicsEndImageContext();
  // From the upper right to the lower left corner.
  const std::vector<UIColor> colors = {red, green};
  const UIImage graded = UIImage::addPhotosHomeIcon({90, 90}, blue, colors);
  EXPECT_GT(at(graded, 74, 16).red, 170);
  EXPECT_GT(at(graded, 16, 74).green, 170);
  const UIImage none = UIImage::addPhotosHomeIcon({0, 90}, blue, red);
  EXPECT_EQ(none.size(), CGSize{});
  EXPECT_FALSE(none.hasPixels());
}

TEST(Conveniences, CameraSigns) {
  const ScreenScale scale(2);
  const CGSize size{32, 32};
  const std::optional<UIImage> button = UIImage::instagramProfileConnectButtonImage(red, size);
  ASSERT_TRUE(button);
  EXPECT_EQ(paintedBox(*button).minX, 0U) << "moved to the origin";
  EXPECT_EQ(paintedBox(*button).minY, 0U);
  expectSamePixels(*UIImage::instagramProfileConnectButtonImageWithColor(red, size), *button);

  const std::optional<UIImage> placeholder = UIImage::instagramPlaceholderImage(red, blue, size);
  ASSERT_TRUE(placeholder);
  EXPECT_EQ(at(*placeholder, 0, 0), kBlue);
  const CGRect glyph = UIBezierPath::instagramThumbnailPlaceholder(size).bounds();
  EXPECT_NEAR(
      static_cast<double>(boxAround(*placeholder, [](const Rgba& p) { return p.red > 0; }).minX),
      glyph.origin.x * 2, 1)
      << "not moved";
  expectSamePixels(*UIImage::instagramPlaceholderImageWithColor(red, blue, size), *placeholder);
  EXPECT_FALSE(UIImage::instagramProfileConnectButtonImage(red, {0, 5}));
  EXPECT_FALSE(UIImage::instagramPlaceholderImage(red, blue, {5, -5}));
}

TEST(Conveniences, ShapeIconsGrowTheirCanvas) {
  const ScreenScale scale(1);
  NSShadow shadow;
  shadow.setShadowBlurRadius(3);
  shadow.setShadowOffset({1, 2});
  const VantelKit::Border border{2, blue};
  for (const Shape shape : {Shape::checkmark, Shape::thickCheckmark, Shape::thickX, Shape::thinX}) {
    const std::optional<UIImage> cast = UIImage::shapeIcon({10, 10}, shape, red, border, &shadow);
    ASSERT_TRUE(cast);
    EXPECT_EQ(cast->size(), (CGSize{18, 18}));
    NSShadow colorless = shadow;
    colorless.setShadowColor(std::nullopt);
    const std::optional<UIImage> bare =
        UIImage::shapeIcon({10, 10}, shape, red, border, &colorless);
    EXPECT_EQ(bare->size(), (CGSize{18, 18})) << "the room for the shadow stays";
    EXPECT_GT(largestDifference(*cast, *bare), 20);
    EXPECT_EQ(UIImage::shapeIcon({10, 10}, shape, red, border, nullptr)->size(), (CGSize{12, 12}));
    // The glyph itself, drawn by hand.
    UIBezierPath path;
    switch (shape) {
      case Shape::checkmark:
        path = UIBezierPath::checkmark({10, 10});
        break;
      case Shape::thickCheckmark:
        path = UIBezierPath::thickCheckmark({10, 10});
        break;
      case Shape::thickX:
        path = UIBezierPath::thickX({10, 10});
        break;
      case Shape::thinX:
        path = UIBezierPath::thinX({10, 10}, {3 - 1, 3 - 2});
        break;
    }
    UIGraphicsBeginImageContextWithOptions({18, 18}, false, 1);
    red.setFill();
    path.fill();
    blue.setStroke();
    path.setLineWidth(2);
    path.stroke();
    expectSamePixels(*bare, *UIGraphicsGetImageFromCurrentImageContext());
    UIGraphicsEndImageContext();
  }
  EXPECT_FALSE(UIImage::shapeIcon({-20, 10}, Shape::thickX, red, border, nullptr));
}

TEST(Conveniences, CircleIcons) {
  const ScreenScale scale(1);
  const VantelKit::Border border{2, blue};
  const auto circle = [&](const NSShadow* shadow, std::optional<Shape> shape) {
    return *UIImage::circleIcon({20, 20}, red, border, shadow, shape, {10, 10}, green);
  };
  const UIImage plain = circle(nullptr, std::nullopt);
  EXPECT_EQ(plain.size(), (CGSize{22, 22}));
  EXPECT_GT(at(plain, 0, 11).blue, 240);
  EXPECT_EQ(at(plain, 1, 11), kBlue);
  EXPECT_GT(at(plain, 2, 11).red, 240);
  EXPECT_EQ(at(plain, 0, 0), kNone);
  // The glyph is moved by (6, 6), filled and not stroked.
  const UIImage marked = circle(nullptr, Shape::thickX);
  UIBezierPath glyph = UIBezierPath::thickX({10, 10});
  glyph.applyTransform(CGAffineTransformMakeTranslation(6, 6));
  UIGraphicsBeginImageContextWithOptions({22, 22}, false, 1);
  plain.drawAtPoint({0, 0});
  green.setFill();
  glyph.fill();
  EXPECT_LE(largestDifference(marked, *UIGraphicsGetImageFromCurrentImageContext()), 1);
  UIGraphicsEndImageContext();
  // With a shadow the circle moves against the offset, so that both fit.
  NSShadow shadow;
  shadow.setShadowColor(UIColor::blackColor());
  shadow.setShadowOffset({2, 0});
  shadow.setShadowBlurRadius(4);
  const UIImage cast = circle(&shadow, std::nullopt);
  EXPECT_EQ(cast.size(), (CGSize{30, 30}));
  EXPECT_EQ(paintedBox(cast).minX, 0U);
  EXPECT_EQ(at(cast, 3, 15), kBlue);
  EXPECT_EQ(at(cast, 22, 15), kBlue);
  EXPECT_FALSE(UIImage::circleIcon({20, 20}, red, {-30, blue}, nullptr, std::nullopt, {}, green));
}

}  // namespace
}  // namespace glyphwright
