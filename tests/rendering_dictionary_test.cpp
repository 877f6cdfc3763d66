// Images from attribute dictionaries.

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/bezier_path.h>
#include <glyphwright/catalogue/icon_type.h>
#include <glyphwright/platform/context.h>
#include <glyphwright/rendering/attribute_dictionary.h>

#include "pixels.h"

namespace glyphwright {
namespace {

using namespace pixels;

UIBezierPath square() {
  return UIBezierPath::bezierPathWithRect({0, 0, 20, 20});
}

UIBezierPath wide() {
  return UIBezierPath::bezierPathWithRect({0, 0, 20, 10});
}

TEST(DictionaryImage, TheHairlineNeedsAPathWithALine) {
  const ScreenScale scale(1);
  const AttributeDictionary attributes{{VNTLGlyphwrightSize, CGSize{40, 40}},
                                       {VNTLGlyphwrightFillColor, red}};
  for (const CGFloat lineWidth : {0.0, -1.0}) {
    UIBezierPath path = wide();
    path.setLineWidth(lineWidth);
    const UIImage image = path.imageWithAttributes(attributes);
    EXPECT_EQ(paintedBox(image), (Box{0, 10, 40, 30})) << lineWidth;
    EXPECT_EQ(at(image, 0, 10), kRed);
  }
  UIBezierPath thick = wide();
  thick.setLineWidth(50);
  expectSamePixels(thick.imageWithAttributes(attributes), wide().imageWithAttributes(attributes));
  EXPECT_EQ(thick.lineWidth(), 50) << "the receiver does not change";
}

TEST(DictionaryImage, OpaqueExactlyWhenTheBackgroundIs) {
  const ScreenScale scale(1);
  // A size between whole pixels leaves the last column partly covered, unless the image is opaque.
  for (const bool opaque : {false, true}) {
    const UIImage image = wide().imageWithAttributes(
        {{VNTLGlyphwrightSize, CGSize{10.5, 10}},
         {VNTLGlyphwrightBackgroundColor, UIColor(0, 0, 1, opaque ? 1 : 0.999)}});
    EXPECT_EQ(image.cgImage().pixelWidth(), 11U);
    EXPECT_EQ(image.size(), (CGSize{10.5, 10}));
    EXPECT_EQ(at(image, 10, 0).alpha == 255, opaque);
  }
}

TEST(DictionaryImage, GradientStopsAndLine) {
  const ScreenScale scale(1);
  UIBezierPath path = square();
  path.setLineWidth(0);
  const auto render = [&](std::initializer_list<std::pair<VNTLGlyphwright, AttributeValue>> more) {
    AttributeDictionary attributes{{VNTLGlyphwrightSize, CGSize{40, 40}},
                                   {VNTLGlyphwrightFillColor, green}};
    for (const auto& [key, value] : more) attributes.setValue(key, value);
    return path.imageWithAttributes(attributes);
  };
  const auto colors = [](std::vector<UIColor> list) {
    return std::pair<VNTLGlyphwright, AttributeValue>(VNTLGlyphwrightGradientColors, list);
  };
  // Three colours: stops 0, 0, 1, so the first shows nowhere.
  expectSamePixels(render({colors({green, red, blue})}), render({colors({red, blue})}));
  // One colour, stop 0: solid up to the end point.
  EXPECT_EQ(at(render({colors({red})}), 20, 20), kRed);
  // Too few stops, no colours, no length: nothing is filled, not even flat.
  for (const UIImage& nothing :
       {render({colors({red, blue}), {VNTLGlyphwrightGradientLocations, std::vector<NSNumber>{0}}}),
        render({colors({})}),
        render({colors({red, blue}), {VNTLGlyphwrightGradientEndPoint, CGPoint{0.5, 0}}})}) {
    EXPECT_EQ(paintedBox(nothing), Box{});
    EXPECT_TRUE(nothing.hasPixels());
  }
  // Another kind of value is no gradient.
  EXPECT_EQ(at(render({{VNTLGlyphwrightGradientColors, red}}), 20, 20), kGreen);
}

TEST(DictionaryImage, BorderRing) {
  const ScreenScale scale(2);
  const auto render = [](AttributeValue width, bool colored) {
    AttributeDictionary attributes{{VNTLGlyphwrightSize, CGSize{40, 40}},
                                   {VNTLGlyphwrightFillColor, red},
                                   {VNTLGlyphwrightStrokeColor, clear},
                                   {VNTLGlyphwrightBorderWidth, std::move(width)}};
    if (colored) attributes.setValue(VNTLGlyphwrightBorderColor, blue);
    return square().imageWithAttributes(attributes);
  };
  EXPECT_EQ(at(render(3, false), 0, 0), kWhite);
  EXPECT_EQ(boxAround(render(3.9, true), [](const Rgba& p) { return p == kRed; }),
            (Box{6, 6, 74, 74}));
  const UIImage plain = square().imageWithAttributes({{VNTLGlyphwrightSize, CGSize{40, 40}},
                                                      {VNTLGlyphwrightFillColor, red},
                                                      {VNTLGlyphwrightStrokeColor, clear}});
  for (const AttributeValue& none :
       {AttributeValue(0.9), AttributeValue(-3), AttributeValue(0), AttributeValue(blue)}) {
    expectSamePixels(render(none, true), plain);
  }
  // No room inside: the ring alone.
  EXPECT_EQ(boxAround(render(20, true), [](const Rgba& p) { return p.red > 0; }), Box{});
}

TEST(DictionaryImage, TypesMoveToTheOriginFirst) {
  const ScreenScale scale(1);
  const AttributeDictionary attributes{{VNTLGlyphwrightSize, CGSize{30, 20}},
                                       {VNTLGlyphwrightFillColor, red}};
  for (const VNTLIconType icon : {VNTLIconType::heart, VNTLIconType::gear, VNTLIconType::circle}) {
    UIBezierPath path = *UIBezierPath::pathForIcon(icon);
    path.translateToZeroPoint();
    EXPECT_LE(largestDifference(UIBezierPath::imageWithIcon(icon, attributes),
                                path.imageWithAttributes(attributes)),
              1);
  }
  // A path that is not at the origin is off by its scaled offset.
  UIBezierPath away = UIBezierPath::bezierPathWithRect({5, 0, 10, 10});
  away.setLineWidth(0);
  EXPECT_EQ(paintedBox(away.imageWithAttributes(attributes)), (Box{15, 0, 30, 20}));
  // No icon type: an image without an icon.
  const UIImage none = UIBezierPath::imageWithIcon(static_cast<VNTLIconType>(129), attributes);
  EXPECT_EQ(none.size(), (CGSize{30, 20}));
  EXPECT_TRUE(none.hasPixels());
  EXPECT_EQ(paintedBox(none), Box{});
}

TEST(StrokeColorImage, OnlyTheWidthGrows) {
  const ScreenScale scale(1);
  UIBezierPath path = wide();
  path.setLineWidth(2);
  const UIImage image = path.imageWithStrokeColor(blue, red);
  EXPECT_EQ(image.size(), (CGSize{24, 10}));
  // The path stands at (2, 2); the line covers one point on either side of its edge.
  EXPECT_EQ(paintedBox(image), (Box{1, 1, 23, 10}));
  EXPECT_EQ(at(image, 1, 5), kBlue);
  EXPECT_EQ(at(image, 3, 5), kRed);
  EXPECT_EQ(at(image, 12, 9), kRed) << "the lower edge is cut off";

  expectSamePixels(path.imageWithStrokeColor(blue, std::nullopt),
                   path.imageWithStrokeColor(blue, blue));
  expectSamePixels(path.imageWithStrokeColor(std::nullopt, red),
                   path.imageWithStrokeColor(red, red));
  expectSamePixels(path.imageWithStrokeColor(std::nullopt, std::nullopt),
                   path.imageWithStrokeColor(UIColor::blackColor(), UIColor::blackColor()));
}

TEST(StrokeColorImage, DrawsAtItsOwnCoordinatesByTheNonZeroRule) {
  const ScreenScale scale(1);
  UIBezierPath path = UIBezierPath::bezierPathWithRect({10, 4, 20, 16});
  path.appendPath(UIBezierPath::bezierPathWithRect({14, 8, 4, 4}));
  path.setUsesEvenOddFillRule(true);
  path.setLineWidth(0);
  const UIImage image = path.imageWithStrokeColor(clear, red);
  EXPECT_EQ(image.size(), (CGSize{20, 16}));
  EXPECT_EQ(paintedBox(image), (Box{10, 4, 20, 16}));
  EXPECT_EQ(at(image, 15, 9), kRed) << "no hole";
  const UIBezierPath heart = *UIBezierPath::pathForIcon(VNTLIconType::heart);
  expectSamePixels(UIBezierPath::imageWithIcon(VNTLIconType::heart, blue, red),
                   heart.imageWithStrokeColor(blue, red));
  EXPECT_FALSE(UIBezierPath::imageWithIcon(static_cast<VNTLIconType>(-1), blue, red).hasPixels());
}

}  // namespace
}  // namespace glyphwright
