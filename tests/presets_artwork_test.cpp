// The outlines of the ready-made images and the order in which they are painted, read as data:
// nothing is drawn here.

#include <array>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/presets/chat_paintings.h>
#include <glyphwright/presets/painter.h>
#include <glyphwright/presets/preset_paintings.h>
#include <glyphwright/presets/referral_paintings.h>

#include "tools/outline_check.h"

namespace glyphwright::presets {
namespace {

struct Named {
  const char* name;
  Painting painting;
};

// Every painting there is; those whose pieces depend on arguments with one set of them.
std::vector<Named> allPaintings() {
  static const Piece vinyl[] = {vinylPiece(palette::grey)};
  static const auto safebeam = safebeamPieces(true, true);
  static const auto camera = cameraGradientPieces({38, 38});
  static const auto share = referralSharePieces({76, 73}, palette::white);
  return {
      {"stickerNormal", stickerNormal},
      {"stickerSelected", stickerSelected},
      {"stickerNormalBorderless", stickerNormalBorderless},
      {"stickerSelectedBorderless", stickerSelectedBorderless},
      {"gifNormal", gifNormal},
      {"gifSelected", gifSelected},
      {"contactCardNormal", contactCardNormal},
      {"contactCardSelected", contactCardSelected},
      {"vinyl", {vinylFrame, vinyl}},
      {"safebeamNormal", safebeamNormal},
      {"safebeamSelected", safebeamSelected},
      {"moodraNormal", moodraNormal},
      {"moodraWithBackground", moodraWithBackground},
      {"moodraVariant2", moodraVariant2},
      {"moodraSelected", moodraSelected},
      {"pinChatCTA", pinChatCTA},
      {"pinChatAttribution", pinChatAttribution},
      {"pinChatStarParticle", pinChatStarParticle},
      {"safebeam", {safebeamFrame, safebeam}},
      {"camera", {{38, 38}, camera, &palette::cameraGradient}},
      {"loopPlay", loopPlay},
      {"referralHeader", referralHeader},
      {"referralCopy", referralCopy},
      {"referralShare", {referralShareFrame, share, &palette::referralGradient}},
      {"referralReward", referralReward},
  };
}

// What a piece paints and the clips it paints through.
struct ShapesOf {
  using Shapes = std::vector<Shape>;
  Shapes operator()(std::monostate) const { return {}; }
  Shapes operator()(const Fill& piece) const { return {piece.shape}; }
  Shapes operator()(const Stroke& piece) const { return {piece.shape}; }
  Shapes operator()(const ClippedGradient& piece) const { return {piece.clip}; }
  Shapes operator()(const ClippedFill& piece) const { return {piece.clip, piece.shape}; }
  Shapes operator()(const Group& piece) const {
    Shapes shapes = std::visit(*this, piece.content);
    shapes.push_back(piece.clip);
    return shapes;
  }
  Shapes operator()(const Translucent& piece) const { return {piece.shape}; }
  Shapes operator()(const Turned& piece) const { return {piece.shape}; }
  Shapes operator()(const Ground&) const { return {}; }
  Shapes operator()(const LastingClip& piece) const { return {piece.shape}; }
  Shapes operator()(EndImageContext) const { return {}; }
};

bool isOneOf(const Shape& shape, std::initializer_list<const paths::Step*> steps) {
  for (const paths::Step* first : steps) {
    if (shape.steps.data() == first) return true;
  }
  return false;
}

TEST(PresetsArtwork, OutlinesKeepTheRulesOfDrawing) {
  int seen = 0;
  for (const auto& [name, painting] : allPaintings()) {
    for (const Piece& piece : painting.pieces) {
      for (const Shape& shape : std::visit(ShapesOf{}, piece)) {
        if (shape.kind != Shape::Kind::outline) continue;
        ++seen;
        const outline_check::Report report = outline_check::check(pathOf(shape).cgPath());
        const std::string what = std::string(name) + ", from " +
                                 testing::PrintToString(report.frame.origin.x) + ", " +
                                 testing::PrintToString(report.frame.origin.y);
        SCOPED_TRACE(what);
        // The beam is an open line, to be stroked. The sticker's disc runs from its top to the
        // left. The letters of the animated pictures are holes of the plate, also where they are
        // painted on it.
        const bool isLine = isOneOf(shape, {artwork::beam});
        const bool runsBack =
            isOneOf(shape, {artwork::stickerDisc, afterFirstContour(artwork::gif).data()});
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

TEST(PresetsArtwork, OutlinesStayInTheirFrames) {
  struct Extent {
    const char* name;
    std::span<const paths::Step> steps;
    std::array<double, 4> ink;  // min x, min y, max x, max y
    std::size_t contours;
  };
  const Extent extents[] = {
      {"sticker", artwork::sticker, {0, 0, 18.56, 17.72}, 5},
      {"stickerOnDisc", artwork::stickerOnDisc, {6.39, 6.81, 24.95, 24.53}, 5},
      {"stickerLarge", artwork::stickerLarge, {0, 0, 27.09, 25.88}, 5},
      {"stickerDisc", artwork::stickerDisc, {0, 0, 31.34, 31.34}, 1},
      {"gif", artwork::gif, {1, 4, 23, 20}, 4},
      {"addressBook", artwork::addressBook, {0, 0, 23, 22.25}, 3},
      {"record", artwork::record, {0, 0, 25, 25}, 4},
      {"beam", artwork::beam, {12.5, 2.5, 22.5, 17.5}, 1},
      {"moodFlower", artwork::moodFlower, {0, 0.2, 14, 14.2}, 4},
      {"moodFlowerOnDisc", artwork::moodFlowerOnDisc, {9, 9.2, 23, 23.2}, 4},
      {"moodFlowerLarge", artwork::moodFlowerLarge, {8, 8, 24, 24}, 4},
      {"pinChatBubble", artwork::pinChatBubble, {0, 2.5, 15.5, 17}, 3},
      {"watchRing", artwork::watchRing, {5.5, 5.55, 25.4, 25.45}, 2},
      {"watchBeam", artwork::watchBeam, {6.57, 13.5, 25.4, 25.45}, 1},
      {"videoCamera", artwork::videoCamera, {9, 13, 29, 25}, 2},
      {"heartUpright", artwork::heartUpright, {0, 1, 3.6, 4.9}, 1},
      {"heartLeaning", artwork::heartLeaning, {28.6, 9.4, 33, 15.2}, 1},
      {"bow", artwork::bow, {10.9, 1.3, 23.8, 6.3}, 2},
      {"giftBox", artwork::giftBox, {8.4, 6.31, 26.3, 18.17}, 1},
      {"giftShadow", artwork::giftShadow, {7.5, 17.2, 27.2, 19.3}, 1},
      {"copySign", artwork::copySign, {13, 13, 31, 31}, 3},
      {"rewardBodyLeft", artwork::rewardBodyLeft, {12, 24, 23, 40}, 1},
      {"rewardLidRight", artwork::rewardLidRight, {25, 17, 38, 22}, 1},
      {"rewardSparkleLarge", artwork::rewardSparkleLarge, {0, 0, 8, 8}, 1},
      {"rewardSparkleSmall", artwork::rewardSparkleSmall, {1.5, 0, 6.83, 5.33}, 1},
  };
  for (const Extent& extent : extents) {
    SCOPED_TRACE(extent.name);
    const outline_check::Report report = outline_check::check(pathOf(plain(extent.steps)).cgPath());
    EXPECT_NEAR(CGRectGetMinX(report.ink), extent.ink[0], 0.011);
    EXPECT_NEAR(CGRectGetMinY(report.ink), extent.ink[1], 0.011);
    EXPECT_NEAR(CGRectGetMaxX(report.ink), extent.ink[2], 0.011);
    EXPECT_NEAR(CGRectGetMaxY(report.ink), extent.ink[3], 0.011);
    EXPECT_EQ(report.contours.size(), extent.contours);
  }
}

// Signs that are filled non-zero have to bring their holes along as turns.
TEST(PresetsArtwork, HolesRunAgainstTheirShapes) {
  for (const std::span<const paths::Step> steps :
       {std::span<const paths::Step>(artwork::record), {artwork::moodFlower}}) {
    const outline_check::Report report = outline_check::check(pathOf(plain(steps)).cgPath());
    ASSERT_EQ(report.contours.size(), 4U);
    for (const outline_check::Contour& contour : report.contours) {
      EXPECT_EQ(contour.signedArea < 0, contour.depth == 1);
    }
    EXPECT_TRUE(report.looksTheSameUnderBothRules());
  }
}

TEST(PresetsArtwork, GradientsHaveAStopForEachColor) {
  int gradients = 0;
  for (const auto& [name, painting] : allPaintings()) {
    bool asks = false;
    for (const Piece& piece : painting.pieces) {
      const auto* group = std::get_if<Group>(&piece);
      asks = asks || std::holds_alternative<ClippedGradient>(piece) ||
             (group && std::holds_alternative<ClippedGradient>(group->content));
    }
    EXPECT_EQ(asks, painting.gradient != nullptr) << name;
    if (painting.gradient == nullptr) continue;
    ++gradients;
    EXPECT_EQ(painting.gradient->colors.size(), painting.gradient->locations.size()) << name;
    EXPECT_EQ(painting.gradient->locations.front(), 0) << name;
    EXPECT_EQ(painting.gradient->locations.back(), 1) << name;
  }
  EXPECT_EQ(gradients, 9);
}

// Pieces that paint nothing one could see, and are there all the same.
TEST(PresetsArtwork, TheOddPiecesAreKept) {
  const auto safebeam = safebeamPieces(false, false);
  const auto& clip = std::get<LastingClip>(safebeam[2]);
  EXPECT_EQ(clip.shape.rect, CGRect(5.5, 13.5, 19.9, 12));
  EXPECT_TRUE(std::holds_alternative<EndImageContext>(safebeam[4]));
  EXPECT_EQ(std::get<Fill>(safebeam[0]).color.alpha(), 0);
  const auto share = referralSharePieces({10, 20}, palette::white);
  EXPECT_EQ(std::get<Ground>(share[0]).size, (CGSize{10, 20}));
  for (const std::size_t i : {std::size_t{1}, share.size() - 1}) {
    const auto& group = std::get<Group>(share[i]);
    EXPECT_TRUE(std::holds_alternative<std::monostate>(group.content));
    EXPECT_EQ(group.clip.rect, CGRect(0, 9, 76, 64));
  }
  const auto& badge = std::get<Group>(pinChatAttributionPieces[0]);
  EXPECT_EQ(std::get<Fill>(badge.content).shape.rect, CGRect(-4.9, -4.75, 33.9, 30.3));
}

TEST(PresetsArtwork, CopiesLieOnTheGrid) {
  static constexpr paths::Step steps[] = {paths::move(1.01, -1.01), paths::line(0.5, 2),
                                          paths::close()};
  constexpr auto copy = scaled(steps, 1.5, 0.333, 10, -10);
  EXPECT_EQ(copy[0].end, (CGPoint{11.52, -10.34}));
  EXPECT_EQ(copy[1].end, (CGPoint{10.75, -9.33}));
  EXPECT_EQ(copy[2].verb, PathVerb::close);
  EXPECT_EQ(onGrid(-0.004), 0);
  EXPECT_EQ(onGrid(-2.675001), -2.68);
  EXPECT_EQ(firstContour(steps).size(), 3U);
  EXPECT_TRUE(afterFirstContour(steps).empty());
}

}  // namespace
}  // namespace glyphwright::presets
