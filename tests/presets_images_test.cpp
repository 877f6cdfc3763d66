// The ready-made images as the application gets them.

#include <cmath>
#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/presets/chat_icons.h>
#include <glyphwright/presets/preset_icons.h>
#include <glyphwright/presets/referral_icons.h>

#include "pixels.h"

namespace glyphwright {
namespace {

using namespace pixels;
using namespace ChatIcons;
using namespace PresetIcons;
using namespace ReferralIcons;

struct Ready {
  const char* name;
  CGSize size;
  std::function<UIImage()> make;
};

// All 27, those that take a size at the size of their drawing.
std::vector<Ready> readyMade() {
  return {
      {"stickerNormal", {18.56, 17.72}, ActionBar::stickerNormalIcon},
      {"stickerSelected", {31.34, 31.34}, ActionBar::stickerSelectedIcon},
      {"gifNormal", {24, 24}, ActionBar::gifNormalIcon},
      {"gifSelected", {24, 24}, ActionBar::gifSelectedIcon},
      {"contactCardNormal", {23, 22.25}, ActionBar::contactCardNormalIcon},
      {"contactCardSelected", {23, 22.25}, ActionBar::contactCardSelectedIcon},
      {"vinylNormal", {25, 25}, ActionBar::vinylNormalIcon},
      {"vinylSelected", {25, 25}, ActionBar::vinylSelectedIcon},
      {"stickerNormalBorderless", {27.09, 25.88}, ActionBar::stickerNormalBorderlessIcon},
      {"stickerSelectedBorderless", {27.09, 25.88}, ActionBar::stickerSelectedBorderlessIcon},
      {"safebeamNormal", {25, 25}, ActionBar::safebeamNormalIcon},
      {"safebeamSelected", {25, 25}, ActionBar::safebeamSelectedIcon},
      {"moodraNormal", {16, 16}, ActionBar::liveOpsMoodraNormalIcon},
      {"moodraWithBackground", {32, 32}, ActionBar::liveOpsMoodraNormalIconWithBackground},
      {"moodraVariant2", {32, 32}, ActionBar::liveOpsMoodraVariant2NormalIconWithBackground},
      {"moodraSelected", {32, 32}, ActionBar::liveOpsMoodraSelectedIcon},
      {"pinChatCTA", {19, 17}, PinChat::pinChatCTAIcon},
      {"pinChatAttribution", {24, 21}, PinChat::pinChatAttributionIcon},
      {"pinChatStarParticle", {24, 21}, PinChat::pinChatStarParticleIcon},
      {"safebeam",
       {31, 31},
       [] {
         return createSafebeamIcon({31, 31}, false, true);
       }},
      {"camera",
       {38, 38},
       [] {
         return createCameraGradientIcon({38, 38}).value();
       }},
      {"loopPlay", {68, 68}, createLoopPlayIcon},
      {"header",
       {33, 19.3},
       [] {
         return Home::headerIcon({33, 19.3});
       }},
      {"copyNotification",
       {44, 44},
       [] {
         return Home::copyNotificationIcon({44, 44});
       }},
      {"share",
       {76, 73},
       [] {
         return Home::shareIcon({76, 73}, UIColor::clearColor());
       }},
      {"close",
       {24, 24},
       [] {
         return Home::closeIcon({24, 24});
       }},
      {"reward",
       {48, 40},
       [] {
         return Banner::rewardIcon({48, 40});
       }},
  };
}

TEST(PresetsImages, SizesScalesAndClearCorners) {
  for (const CGFloat scale : {1.0, 2.0, 3.0}) {
    const ScreenScale screen(scale);
    for (const Ready& ready : readyMade()) {
      SCOPED_TRACE(ready.name);
      const UIImage image = ready.make();
      EXPECT_EQ(image.size(), ready.size);
      EXPECT_EQ(image.scale(), scale);
      EXPECT_EQ(image.cgImage().pixelWidth(), std::ceil(ready.size.width * scale - 1e-6));
      EXPECT_EQ(image.cgImage().pixelHeight(), std::ceil(ready.size.height * scale - 1e-6));
      // The cross alone reaches into its corners.
      if (ready.name != std::string("close")) {
        EXPECT_LT(at(image, 0, 0).alpha, 8);
        EXPECT_LT(at(image, image.cgImage().pixelWidth() - 1, 0).alpha, 8);
      }
      EXPECT_NE(paintedBox(image), Box{});
    }
  }
}

TEST(PresetsImages, TwoCallsDrawEqualImages) {
  for (const Ready& ready : readyMade()) {
    const UIImage first = ready.make();
    const UIImage second = ready.make();
    EXPECT_EQ(largestDifference(first, second), 0) << ready.name;
    EXPECT_NE(first.cgImage().rgba().data(), second.cgImage().rgba().data()) << ready.name;
  }
}

TEST(PresetsImages, TheLowDiscLeavesASliverAboveAndIsCutBelow) {
  const ScreenScale screen(25);
  for (const auto make : {ActionBar::liveOpsMoodraNormalIconWithBackground,
                          ActionBar::liveOpsMoodraVariant2NormalIconWithBackground}) {
    const UIImage image = make();
    EXPECT_EQ(paintedBox(image), (Box{0, 5, 800, 800}));
    EXPECT_EQ(at(image, 375, 799).alpha, 255);
  }
  const UIImage selected = ActionBar::liveOpsMoodraSelectedIcon();
  EXPECT_EQ(paintedBox(selected), (Box{0, 0, 800, 800}));
  EXPECT_LT(at(selected, 350, 799).alpha, 100);
}

}  // namespace
}  // namespace glyphwright
