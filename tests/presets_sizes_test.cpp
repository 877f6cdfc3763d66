// The ready-made images whose canvas the caller chooses.

#include <functional>
#include <limits>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/presets/preset_icons.h>
#include <glyphwright/presets/referral_icons.h>

#include "pixels.h"

namespace glyphwright {
namespace {

using namespace pixels;
using namespace PresetIcons;
using namespace ReferralIcons;

using Sized = std::function<UIImage(CGSize)>;

struct Drawing {
  Sized make;
  CGSize frame;
};

// Those that are not scaled to the canvas. The frames are rounded up to whole points.
const Drawing kDrawings[] = {
    {[](CGSize size) { return createSafebeamIcon(size, true, true); }, {31, 31}},
    {Home::headerIcon, {33, 20}},
    {Home::copyNotificationIcon, {44, 44}},
    {[](CGSize size) { return Home::shareIcon(size, UIColor::clearColor()); }, {76, 73}},
    {Banner::rewardIcon, {48, 40}},
};

/// The upper left part of an image, in pixels, is the other image; or as much of it as there is.
void expectSameCorner(const UIImage& image, const UIImage& other, std::size_t width,
                      std::size_t height) {
  for (std::size_t y = 0; y < height; ++y) {
    for (std::size_t x = 0; x < width; ++x) {
      ASSERT_EQ(at(image, x, y), at(other, x, y)) << x << ", " << y;
    }
  }
}

TEST(PresetsSizes, ALargerCanvasLeavesRoomASmallerOneCrops) {
  const ScreenScale screen(2);
  for (const auto& [make, frame] : kDrawings) {
    const auto width = static_cast<std::size_t>(frame.width * 2);
    const auto height = static_cast<std::size_t>(frame.height * 2);
    const UIImage own = make(frame);
    const UIImage large = make({frame.width * 2, frame.height + 7});
    EXPECT_EQ(large.size(), (CGSize{frame.width * 2, frame.height + 7}));
    expectSameCorner(large, own, width, height);
    const Box box = paintedBox(large);
    EXPECT_LE(box.maxX, width);
    EXPECT_LE(box.maxY, height);
    const UIImage small = make({16, 11});
    EXPECT_EQ(small.cgImage().pixelWidth(), 32U);
    expectSameCorner(small, own, 32, 22);
  }
}

TEST(PresetsSizes, SizesThatCannotBeDrawnGiveImagesWithoutPixels) {
  constexpr CGFloat nan = std::numeric_limits<CGFloat>::quiet_NaN();
  constexpr CGFloat infinity = std::numeric_limits<CGFloat>::infinity();
  std::vector<Sized> all;
  for (const Drawing& drawing : kDrawings) all.push_back(drawing.make);
  all.emplace_back(Home::closeIcon);
  all.emplace_back([](CGSize size) { return createCameraGradientIcon(size).value(); });
  for (const Sized& make : all) {
    for (const CGFloat side : {0.0, -3.0, nan, infinity, 1e300}) {
      EXPECT_FALSE(make({side, 20}).hasPixels());
      EXPECT_FALSE(make({20, side}).hasPixels());
    }
    EXPECT_TRUE(make({0.01, 0.01}).hasPixels());
  }
}

TEST(PresetsSizes, TheCamerasDiscFollowsTheSizeTheCameraDoesNot) {
  const ScreenScale screen(2);
  const UIImage square = createCameraGradientIcon({38, 38}).value();
  EXPECT_EQ(paintedBox(square), (Box{0, 0, 76, 76}));
  const UIImage wide = createCameraGradientIcon({76, 38}).value();
  EXPECT_EQ(paintedBox(wide), (Box{0, 0, 152, 76}));
  const auto isWhite = [](const Rgba& p) { return p == kWhite; };
  EXPECT_EQ(boxAround(square, isWhite), (Box{18, 26, 58, 50}));
  EXPECT_EQ(boxAround(wide, isWhite), boxAround(square, isWhite));
  // An ellipse: its middle reaches the edges, its corners are clear.
  EXPECT_EQ(at(wide, 76, 1).alpha, 255);
  EXPECT_EQ(at(wide, 4, 10), kNone);
  // From the upper right to the lower left corner, whatever the shape.
  // A fifth of the way in from each end:
  EXPECT_NEAR(at(wide, 120, 12).green, (0.48 - 0.32 * 0.2) * 255, 2);
  EXPECT_NEAR(at(wide, 32, 64).green, (0.48 - 0.32 * 0.8) * 255, 2);
}

TEST(PresetsSizes, TheShareIconsBackgroundFillsTheCanvas) {
  const UIColor teal(0, 0.5, 0.5, 1);
  const Rgba tealBytes{0, 128, 128, 255};
  for (const CGSize size : {CGSize{76, 73}, CGSize{120, 90}, CGSize{20, 10}}) {
    const UIImage image = Home::shareIcon(size, teal);
    const UIImage clear = Home::shareIcon(size, UIColor::clearColor());
    int background = 0;
    for (std::size_t y = 0; y < image.cgImage().pixelHeight(); ++y) {
      for (std::size_t x = 0; x < image.cgImage().pixelWidth(); ++x) {
        ASSERT_EQ(at(image, x, y).alpha, 255);
        const Rgba emblem = at(clear, x, y);
        if (emblem.alpha == 255) {
          ASSERT_EQ(at(image, x, y), emblem);
        }
        if (emblem.alpha == 0) {
          ASSERT_EQ(at(image, x, y), tealBytes);
          ++background;
        }
      }
    }
    EXPECT_GT(background, 100);
  }
}

TEST(PresetsSizes, TheCloseIconIsScaled) {
  const ScreenScale screen(1);
  EXPECT_EQ(paintedBox(Home::closeIcon({24, 24})), (Box{0, 0, 24, 24}));
  EXPECT_EQ(paintedBox(Home::closeIcon({60, 60})), (Box{0, 0, 60, 60}));
  // Fitted to the shorter side and centred, with the hairline that outlines every icon.
  EXPECT_EQ(paintedBox(Home::closeIcon({40, 20})), (Box{9, 0, 31, 20}));
}

}  // namespace
}  // namespace glyphwright
