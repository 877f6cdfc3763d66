// How a list of pieces is painted, on small pictures made for the purpose.

#include <array>
#include <initializer_list>
#include <limits>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/platform/context.h>
#include <glyphwright/presets/painter.h>

#include "pixels.h"

namespace glyphwright::presets {
namespace {

using namespace pixels;

constexpr UIColor kRedPaint(1, 0, 0, 1);
constexpr UIColor kGreenPaint(0, 1, 0, 1);
constexpr UIColor kBluePaint(0, 0, 1, 1);

constexpr UIColor kRedToBlue[] = {kRedPaint, kBluePaint};
constexpr CGFloat kEnds[] = {0, 1};
constexpr GradientStops kGradient = {kRedToBlue, kEnds};
constexpr GradientStops kTooFewStops = {kRedToBlue, std::span(kEnds).first(1)};

// 8 × 8 points, one pixel a point.
UIImage painted(std::initializer_list<Piece> pieces, const GradientStops* gradient = nullptr,
                FailedGradient failedGradient = FailedGradient::endsProgram) {
  const ScreenScale scale(1);
  return imageOf({{8, 8}, {pieces.begin(), pieces.size()}, gradient}, {8, 8}, failedGradient);
}

const Fill kRedAll{box({0, 0, 8, 8}), kRedPaint};

TEST(PresetsPainter, LaterPiecesLieOverEarlierOnes) {
  const UIImage image =
      painted({Fill{box({0, 0, 6, 8}), kRedPaint}, Fill{box({2, 0, 4, 8}), kGreenPaint},
               Fill{box({4, 0, 2, 8}), kBluePaint}});
  EXPECT_EQ(at(image, 1, 3), kRed);
  EXPECT_EQ(at(image, 3, 3), kGreen);
  EXPECT_EQ(at(image, 5, 3), kBlue);
  EXPECT_EQ(at(image, 7, 3), kNone);
}

TEST(PresetsPainter, StrokesTakeTheirStyleFromThePiece) {
  static constexpr paths::Step line[] = {paths::move(2, 4), paths::line(6, 4)};
  EXPECT_EQ(paintedBox(painted({Stroke{plain(line), kRedPaint, 2}})), (Box{2, 3, 6, 5}));
  EXPECT_EQ(paintedBox(painted({Stroke{plain(line), kRedPaint, 4, 10, CGLineCap::round}})),
            (Box{0, 2, 8, 6}));
  // A corner of 53°: its point goes 2.2 times as far as the line is wide.
  static constexpr paths::Step corner[] = {paths::move(1, 7), paths::line(4, 4), paths::line(1, 1)};
  const auto reach = [](CGFloat miterLimit) {
    return paintedBox(painted({Stroke{plain(corner), kRedPaint, 2, miterLimit}})).maxX;
  };
  EXPECT_EQ(reach(4), 6U);
  EXPECT_EQ(reach(1.2), 5U);
}

TEST(PresetsPainter, AGradientRunsOnBeyondItsPointsAndItsClipEndsWithIt) {
  const UIImage image = painted(
      {ClippedGradient{box({0, 0, 8, 4}), {3, 0}, {5, 0}}, Fill{box({7, 7, 1, 1}), kGreenPaint}},
      &kGradient);
  EXPECT_EQ(at(image, 0, 0), kRed);
  EXPECT_EQ(at(image, 7, 3), kBlue);
  EXPECT_EQ(at(image, 0, 4), kNone);
  EXPECT_EQ(at(image, 7, 7), kGreen);
}

TEST(PresetsPainter, AClippedFillShowsInsideTheClipOnly) {
  const UIImage image = painted({ClippedFill{box({0, 0, 4, 4}), box({2, 2, 6, 6}), kRedPaint},
                                 Fill{box({6, 6, 2, 2}), kGreenPaint}});
  EXPECT_EQ(boxAround(image, [](const Rgba& p) { return p == kRed; }), (Box{2, 2, 4, 4}));
  EXPECT_EQ(at(image, 7, 7), kGreen);
}

TEST(PresetsPainter, AGroupKeepsItsClipAndAnEmptyOnePaintsNothing) {
  const UIImage plainImage = painted({kRedAll});
  expectSamePixels(painted({Group{box({1, 1, 6, 6}), {}}, kRedAll, Group{box({0, 0, 2, 2}), {}}}),
                   plainImage);
  const UIImage image =
      painted({Group{box({1, 1, 4, 4}), Fill{box({-3, -3, 20, 20}), kGreenPaint}},
               Group{box({3, 3, 4, 4}), ClippedGradient{box({0, 0, 5, 8}), {-2, 0}, {-1, 0}}}},
              &kGradient);
  EXPECT_EQ(boxAround(image, [](const Rgba& p) { return p == kGreen; }), (Box{1, 1, 5, 5}));
  EXPECT_EQ(boxAround(image, [](const Rgba& p) { return p == kBlue; }), (Box{3, 3, 5, 7}));
}

TEST(PresetsPainter, TranslucencyEndsWithItsPiece) {
  const UIImage image = painted({Translucent{0.1, box({0, 0, 4, 8}), UIColor::blackColor()},
                                 Fill{box({4, 0, 4, 8}), UIColor::blackColor()}});
  EXPECT_NEAR(at(image, 1, 1).alpha, 25.5, 1);
  EXPECT_EQ(at(image, 6, 1), kBlack);
}

TEST(PresetsPainter, ATurnedPieceIsMovedFirstAndTurnsClockwise) {
  // A quarter turn takes the box beside its own origin to below and left of it.
  constexpr CGFloat quarter = 1.5707963267948966;
  const UIImage image = painted({Turned{{5, 1}, quarter, box({0, 0, 3, 2}), kRedPaint},
                                 Fill{box({7, 7, 1, 1}), kGreenPaint}});
  EXPECT_EQ(boxAround(image, [](const Rgba& p) { return p.red > 200; }), (Box{3, 1, 5, 4}));
  EXPECT_EQ(at(image, 7, 7), kGreen);
}

TEST(PresetsPainter, ALastingClipBindsAllThatFollows) {
  const UIImage image = painted({Fill{box({0, 0, 2, 2}), kGreenPaint},
                                 LastingClip{box({4, 4, 2, 2})}, EndImageContext{}, kRedAll});
  EXPECT_EQ(at(image, 0, 0), kGreen);
  EXPECT_EQ(boxAround(image, [](const Rgba& p) { return p == kRed; }), (Box{4, 4, 6, 6}));
}

// Inside an image context the call does what its name says.
TEST(PresetsPainter, EndingTheContextClosesTheCallersOwn) {
  const Piece pieces[] = {kRedAll, EndImageContext{}, kRedAll};
  UIGraphicsBeginImageContext({8, 8});
  paint({{8, 8}, pieces});
  EXPECT_EQ(UIGraphicsGetCurrentContext(), nullptr);
  UIGraphicsEndImageContext();
}

TEST(PresetsPainter, WithoutAContextNothingHappens) {
  const Piece pieces[] = {kRedAll};
  ASSERT_EQ(UIGraphicsGetCurrentContext(), nullptr);
  paint({{8, 8}, pieces});
  // Not even the gradient is made.
  paint({{8, 8}, pieces, &kTooFewStops});
}

TEST(PresetsPainterDeathTest, AGradientThatCannotBeMadeEndsTheProgram) {
  EXPECT_DEATH(painted({kRedAll}, &kTooFewStops), "glyphwright: the gradient .* cannot be created");
}

TEST(PresetsPainter, AGradientThatCannotBeMadeMayLeaveTheCanvasClear) {
  const UIImage image = painted({kRedAll}, &kTooFewStops, FailedGradient::leavesCanvas);
  EXPECT_EQ(image.size(), (CGSize{8, 8}));
  ASSERT_TRUE(image.hasPixels());
  EXPECT_EQ(paintedBox(image), Box{});
}

TEST(PresetsPainter, ShapesCarryTheirFillRule) {
  static constexpr paths::Step nested[] = {
      paths::move(0, 0), paths::line(8, 0), paths::line(8, 8), paths::line(0, 8), paths::close(),
      paths::move(2, 2), paths::line(6, 2), paths::line(6, 6), paths::line(2, 6), paths::close(),
  };
  EXPECT_EQ(at(painted({Fill{plain(nested), kRedPaint}}), 4, 4), kRed);
  EXPECT_EQ(at(painted({Fill{compound(nested), kRedPaint}}), 4, 4), kNone);
  EXPECT_EQ(at(painted({ClippedFill{compound(nested), box({0, 0, 8, 8}), kRedPaint}}), 4, 4),
            kNone);
  EXPECT_EQ(pathOf(roundedBox({0, 0, 32, 32}, 16)).bounds(), CGRect(0, 0, 32, 32));
}

TEST(PresetsPainter, SizesThatCannotBeDrawnGiveNoPixels) {
  const Piece pieces[] = {Ground{{8, 8}, kRedPaint}, kRedAll, EndImageContext{}};
  for (const CGFloat side : {0.0, -4.0, std::numeric_limits<CGFloat>::quiet_NaN(),
                             std::numeric_limits<CGFloat>::infinity()}) {
    EXPECT_FALSE(imageOf({{8, 8}, pieces}, {side, 8}).hasPixels());
    EXPECT_FALSE(imageOf({{8, 8}, pieces}, {8, side}).hasPixels());
  }
}

}  // namespace
}  // namespace glyphwright::presets
