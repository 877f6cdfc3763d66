// Images from attribute records, single and on a canvas.

#include <limits>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/bezier_path.h>
#include <glyphwright/catalogue/catalogue.h>
#include <glyphwright/catalogue/icons.h>
#include <glyphwright/catalogue/pathable.h>
#include <glyphwright/platform/context.h>
#include <glyphwright/rendering/icon_attributes.h>

#include "pixels.h"

namespace glyphwright {
namespace {

using namespace pixels;
using App::Shapes::Checks;

IconAttributes flat(CGSize size) {
  return {.fillColor = red, .backgroundColor = clear, .stroke = IconStroke(clear, 0), .size = size};
}

TEST(RecordImage, MovesThePathToTheOriginFirst) {
  const ScreenScale scale(2);
  const UIBezierPath away = UIBezierPath::bezierPathWithRect({50, -30, 10, 5});
  const UIImage image = away.makeImage(flat({40, 40}));
  EXPECT_EQ(paintedBox(image), (Box{0, 20, 80, 60}));
  EXPECT_EQ(away.bounds(), CGRect(50, -30, 10, 5)) << "the receiver does not change";
}

TEST(RecordImage, CasesRenderAsTheirPathsDo) {
  const ScreenScale scale(2);
  const IconAttributes attributes = flat({24, 24});
  const UIImage direct = UIBezierPath::checkmarkPath().makeImage(attributes);
  EXPECT_NE(paintedBox(direct), Box{});
  expectSamePixels(UIBezierPath::newImage(Checks::checkmark, attributes), direct);
  expectSamePixels(UIBezierPath::newImage(Icons::checkmark, attributes), direct);
  EXPECT_DEATH(UIBezierPath::newImage(Icons::shieldIcon, attributes), "safetyCenterShield");
}

TEST(RecordImage, AnEmptyPathLeavesTheBackground) {
  const ScreenScale scale(1);
  IconAttributes attributes = flat({8, 8});
  attributes.backgroundColor = blue;
  attributes.dropShadow = IconShadow(red, {1, 1}, 2);
  attributes.insetShadow = IconShadow(red, {1, 1}, 2);
  attributes.stroke = IconStroke(red, 2);
  const UIImage image = UIBezierPath().makeImage(attributes);
  EXPECT_EQ(boxAround(image, [](const Rgba& p) { return p == kBlue; }), (Box{0, 0, 8, 8}));
  attributes.border = IconBorder(red, 2);
  EXPECT_EQ(at(UIBezierPath().makeImage(attributes), 0, 0), kBlack);
  EXPECT_EQ(at(UIBezierPath().makeImage(attributes), 2, 2), kBlue);
}

TEST(RecordImage, GradientRunsFromTheFirstToTheLastLocation) {
  const ScreenScale scale(1);
  UIBezierPath square = UIBezierPath::bezierPathWithRect({0, 0, 10, 10});
  IconAttributes attributes = flat({40, 40});
  attributes.gradient = IconGradient({red, blue}, {}, IconGradient::Direction::leftToRight);
  const UIImage along = square.makeImage(attributes);
  // `points` are the stops.
  attributes.gradient->points = {0.5, 0.5};
  const UIImage hard = square.makeImage(attributes);
  EXPECT_EQ(at(hard, 19, 0), kRed);
  EXPECT_EQ(at(hard, 20, 0), kBlue);
  // Surplus stops are ignored, missing ones paint nothing, none at all are derived.
  attributes.gradient->points = {0.5, 0.5, 0.1};
  expectSamePixels(square.makeImage(attributes), hard);
  attributes.gradient->points = {0.5};
  EXPECT_EQ(paintedBox(square.makeImage(attributes)), Box{});
  // Points between the ends change nothing.
  attributes.gradient->points = {};
  attributes.gradient->locations = {{0, 0}, {0.9, 0.9}, {1, 0}};
  expectSamePixels(square.makeImage(attributes), along);
  // No locations: top to bottom. One: no length, nothing.
  attributes.gradient->locations = {};
  EXPECT_EQ(at(square.makeImage(attributes), 0, 20), at(square.makeImage(attributes), 39, 20));
  attributes.gradient->locations = {{0.5, 0.5}};
  EXPECT_EQ(paintedBox(square.makeImage(attributes)), Box{});
  // A single colour has the stop NaN, which draws as 0.
  attributes.gradient = IconGradient({red}, {{0, 0}, {1, 0}}, IconGradient::Direction::leftToRight);
  EXPECT_EQ(at(square.makeImage(attributes), 20, 20), kRed);
}

TEST(RecordImage, BorderIsReadAsAWholeNumber) {
  const ScreenScale scale(1);
  const UIBezierPath square = UIBezierPath::bezierPathWithRect({0, 0, 10, 10});
  IconAttributes attributes = flat({40, 40});
  const UIImage plain = square.makeImage(attributes);
  const struct {
    CGFloat width;
    Box red;
  } rows[] = {{3, {3, 3, 37, 37}},
              {3.9, {3, 3, 37, 37}},
              {0.9, {0, 0, 40, 40}},
              {-2, {0, 0, 40, 40}},
              {std::numeric_limits<CGFloat>::quiet_NaN(), {0, 0, 40, 40}},
              {20, {0, 0, 0, 0}},
              {1e300, {0, 0, 0, 0}}};
  for (const auto& row : rows) {
    attributes.border = IconBorder(blue, row.width);
    EXPECT_EQ(boxAround(square.makeImage(attributes), [](const Rgba& p) { return p == kRed; }),
              row.red)
        << row.width;
  }
}

TEST(RecordImage, ABlurBelowZeroReadsAsZero) {
  const ScreenScale scale(1);
  const UIBezierPath square = UIBezierPath::bezierPathWithRect({0, 0, 10, 10});
  IconAttributes attributes = flat({40, 40});
  attributes.dropShadow = IconShadow(blue, {2, 2}, 0);
  const UIImage sharp = square.makeImage(attributes);
  EXPECT_EQ(boxAround(sharp, [](const Rgba& p) { return p == kRed; }), (Box{2, 2, 38, 38}));
  EXPECT_EQ(at(sharp, 39, 20), kBlue);
  for (const CGFloat blur : {-8.0, std::numeric_limits<CGFloat>::quiet_NaN()}) {
    attributes.dropShadow->blur = blur;
    expectSamePixels(square.makeImage(attributes), sharp);
  }
}

// What a canvas looks like is in the manifest of pictures.
TEST(Canvas, CountsDecideWhateverTheScreensScale) {
  const ScreenScale scale(3);
  const std::vector<Pathable> icons(2, Pathable(Checks::checkmark));
  const std::vector<IconAttributes> attributes(2, flat({4, 4}));
  const std::vector<CGPoint> positions(3);
  const std::vector<CGSize> sizes(2, CGSize{4, 4});
  const auto render = [&](std::size_t i, std::size_t a, std::size_t p, std::size_t s) {
    return UIBezierPath::newImage(std::span(icons).first(i), std::span(attributes).first(a),
                                  std::span(positions).first(p), std::span(sizes).first(s),
                                  CGSize{8, 8});
  };
  for (const UIImage& image : {render(2, 2, 3, 2), render(2, 1, 2, 2), render(1, 2, 2, 2)}) {
    EXPECT_EQ(image.size(), CGSize{});
    EXPECT_EQ(image.scale(), 1);
    EXPECT_FALSE(image.hasPixels());
  }
  EXPECT_TRUE(render(1, 1, 1, 2).hasPixels());
  const UIImage blank = render(0, 0, 0, 0);
  EXPECT_EQ(blank.size(), (CGSize{8, 8}));
  EXPECT_EQ(blank.scale(), 1);
  EXPECT_EQ(paintedBox(blank), Box{});
  EXPECT_DEATH(render(2, 2, 2, 1), "out of range");
}

TEST(Canvas, WithoutAnImageTheContextStaysOpen) {
  const UIImage none = UIBezierPath::newImage({}, {}, {}, {}, CGSize{0, 0});
  EXPECT_FALSE(none.hasPixels());
  EXPECT_EQ(none.size(), CGSize{});
  // The caller of a broken canvas still has its null context on the stack: below it, nothing is
  // current any more until it is ended.
  UIGraphicsBeginImageContext({4, 4});
  UIBezierPath::newImage({}, {}, {}, {}, CGSize{0, 0});
  EXPECT_EQ(UIGraphicsGetCurrentContext(), nullptr);
  UIGraphicsEndImageContext();
  EXPECT_NE(UIGraphicsGetCurrentContext(), nullptr);
  UIGraphicsEndImageContext();
  UIGraphicsEndImageContext();
}

}  // namespace
}  // namespace glyphwright
