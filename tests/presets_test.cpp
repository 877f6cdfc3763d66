// The outlines of the ready-made images, read as data, and what painting them does when it cannot.
// What they look like, and so how each kind of piece is painted, is in the manifest of pictures.

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/platform/context.h>
#include <glyphwright/presets/chat_paintings.h>
#include <glyphwright/presets/painter.h>
#include <glyphwright/presets/preset_paintings.h>
#include <glyphwright/presets/referral_paintings.h>

#include "pixels.h"
#include "tools/outline_check.h"

namespace glyphwright::presets {
namespace {

// Every painting there is; those whose pieces depend on arguments with one set of them.
std::vector<Painting> allPaintings() {
  static const Piece vinyl[] = {vinylPiece(palette::grey)};
  static const auto safebeam = safebeamPieces(true, true);
  static const auto camera = cameraGradientPieces({38, 38});
  static const auto share = referralSharePieces({76, 73}, palette::white);
  return {stickerNormal,
          stickerSelected,
          stickerNormalBorderless,
          stickerSelectedBorderless,
          gifNormal,
          gifSelected,
          contactCardNormal,
          contactCardSelected,
          {vinylFrame, vinyl},
          safebeamNormal,
          safebeamSelected,
          moodraNormal,
          moodraWithBackground,
          moodraVariant2,
          moodraSelected,
          pinChatCTA,
          pinChatAttribution,
          pinChatStarParticle,
          {safebeamFrame, safebeam},
          {{38, 38}, camera, &palette::cameraGradient},
          loopPlay,
          referralHeader,
          referralCopy,
          {referralShareFrame, share, &palette::referralGradient},
          referralReward};
}

// What a piece paints and the clips it paints through.
struct ShapesOf {
  using Shapes = std::vector<Area>;
  Shapes operator()(std::monostate) const { return {}; }
  Shapes operator()(const Fill& piece) const { return {piece.area}; }
  Shapes operator()(const Stroke& piece) const { return {piece.area}; }
  Shapes operator()(const ClippedGradient& piece) const { return {piece.clip}; }
  Shapes operator()(const ClippedFill& piece) const { return {piece.clip, piece.area}; }
  Shapes operator()(const Group& piece) const {
    Shapes shapes = std::visit(*this, piece.content);
    shapes.push_back(piece.clip);
    return shapes;
  }
  Shapes operator()(const Translucent& piece) const { return {piece.area}; }
  Shapes operator()(const Turned& piece) const { return {piece.area}; }
  Shapes operator()(const Ground&) const { return {}; }
  Shapes operator()(const LastingClip& piece) const { return {piece.area}; }
  Shapes operator()(EndImageContext) const { return {}; }
};

bool isOneOf(const Area& area, std::initializer_list<const paths::Step*> steps) {
  for (const paths::Step* first : steps) {
    if (area.steps.data() == first) return true;
  }
  return false;
}

TEST(PresetsArtwork, OutlinesKeepTheRulesOfDrawing) {
  int seen = 0;
  for (const Painting& painting : allPaintings()) {
    for (const Piece& piece : painting.pieces) {
      for (const Area& area : std::visit(ShapesOf{}, piece)) {
        if (area.kind != Area::Kind::outline) continue;
        ++seen;
        const outline_check::Report report = outline_check::check(pathOf(area).cgPath());
        SCOPED_TRACE(testing::PrintToString(painting.frame) + ", from " +
                     testing::PrintToString(report.frame.origin.x) + ", " +
                     testing::PrintToString(report.frame.origin.y));
        // The beam is an open line, to be stroked. The sticker's disc runs from its top to the
        // left. The letters of the animated pictures are holes of the plate, also where they are
        // painted on it.
        const bool isLine = isOneOf(area, {artwork::beam});
        const bool runsBack =
            isOneOf(area, {artwork::stickerDisc, afterFirstContour(artwork::gif).data()});
        EXPECT_EQ(report.openContours(), isLine ? 1U : 0U);
        EXPECT_EQ(report.impliedReturns(), 0U);
        EXPECT_EQ(report.emptyEdges, 0U);
        EXPECT_EQ(report.offGridCoordinates, 0U);
        EXPECT_TRUE(report.meetings.empty());
        EXPECT_EQ(report.wrongWindings(), runsBack ? report.contours.size() : 0U);
      }
    }
  }
  EXPECT_GT(seen, 35);
}

TEST(PresetsArtwork, CopiesLieOnTheGridAndShapesCarryTheirRule) {
  static constexpr paths::Step steps[] = {paths::move(1.01, -1.01), paths::line(0.5, 2),
                                          paths::close()};
  constexpr auto copy = scaled(steps, 1.5, 0.333, 10, -10);
  EXPECT_EQ(copy[0].end, (CGPoint{11.52, -10.34}));
  EXPECT_EQ(copy[1].end, (CGPoint{10.75, -9.33}));
  EXPECT_EQ(copy[2].verb, PathVerb::close);
  EXPECT_EQ(paths::onGrid(-0.004), 0);
  EXPECT_EQ(paths::onGrid(-2.675001), -2.68);
  EXPECT_EQ(firstContour(steps).size(), 3U);
  EXPECT_TRUE(afterFirstContour(steps).empty());
  EXPECT_TRUE(pathOf(compound(steps)).usesEvenOddFillRule());
  EXPECT_FALSE(pathOf(plain(steps)).usesEvenOddFillRule());
}

// Inside an image context the call does what its name says.
TEST(PresetsPainter, EndingTheContextClosesTheCallersOwn) {
  const Piece pieces[] = {Ground{}, EndImageContext{}, Ground{}};
  UIGraphicsBeginImageContext({8, 8});
  paint({{8, 8}, pieces});
  EXPECT_EQ(UIGraphicsGetCurrentContext(), nullptr);
}

TEST(PresetsPainterDeathTest, AGradientThatCannotBeMade) {
  static constexpr UIColor colors[] = {UIColor(1, 0, 0, 1), UIColor(0, 0, 1, 1)};
  static constexpr CGFloat stops[] = {0};
  static constexpr GradientStops tooFew = {colors, stops};
  const Piece pieces[] = {Ground{{8, 8}, colors[0]}};
  EXPECT_DEATH(imageOf({{8, 8}, pieces, &tooFew}, {8, 8}, FailedGradient::endsProgram),
               "glyphwright: the gradient .* cannot be created");
  const UIImage image = imageOf({{8, 8}, pieces, &tooFew}, {8, 8}, FailedGradient::leavesCanvas);
  EXPECT_EQ(image.size(), (CGSize{8, 8}));
  ASSERT_TRUE(image.hasPixels());
  EXPECT_EQ(pixels::paintedBox(image), pixels::Box{});
  paint({{8, 8}, pieces, &tooFew});  // without a context it is not even tried
}

}  // namespace
}  // namespace glyphwright::presets
