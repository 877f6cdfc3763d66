// The colours of the ready-made images: flat ones, gradients, and what lies over what.

#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/presets/chat_icons.h>
#include <glyphwright/presets/palette.h>
#include <glyphwright/presets/preset_icons.h>
#include <glyphwright/presets/referral_icons.h>

#include "pixels.h"

namespace glyphwright {
namespace {

using namespace pixels;
using namespace ChatIcons;
using namespace PresetIcons;
using namespace ReferralIcons;
using namespace presets::palette;

/// The pixel at a point.
Rgba pixelAt(const UIImage& image, CGPoint point) {
  return at(image, static_cast<std::size_t>(point.x * image.scale()),
            static_cast<std::size_t>(point.y * image.scale()));
}

void expectNear(const Rgba& actual, const Rgba& expected, int tolerance = 1) {
  EXPECT_NEAR(actual.red, expected.red, tolerance);
  EXPECT_NEAR(actual.green, expected.green, tolerance);
  EXPECT_NEAR(actual.blue, expected.blue, tolerance);
  EXPECT_NEAR(actual.alpha, expected.alpha, tolerance);
}

Rgba bytes(const UIColor& color) {
  const auto byte = [&](CGFloat part) {
    return static_cast<int>(part * color.alpha() * 255 + 0.5);
  };
  return {byte(color.red()), byte(color.green()), byte(color.blue()), byte(1)};
}

/// The colour of a straight gradient at a point, beyond its ends the end colours.
UIColor gradientAt(const presets::GradientStops& stops, CGPoint start, CGPoint end, CGPoint p) {
  const CGFloat dx = end.x - start.x;
  const CGFloat dy = end.y - start.y;
  const CGFloat t = ((p.x - start.x) * dx + (p.y - start.y) * dy) / (dx * dx + dy * dy);
  if (t <= 0) return stops.colors.front();
  std::size_t i = 1;
  while (i < stops.locations.size() && stops.locations[i] <= t) ++i;
  if (i == stops.locations.size()) return stops.colors.back();
  const UIColor& a = stops.colors[i - 1];
  const UIColor& b = stops.colors[i];
  const CGFloat part = (t - stops.locations[i - 1]) / (stops.locations[i] - stops.locations[i - 1]);
  return rgb(a.red() + (b.red() - a.red()) * part, a.green() + (b.green() - a.green()) * part,
             a.blue() + (b.blue() - a.blue()) * part);
}

TEST(PresetsColors, ColorsAtTellingPoints) {
  const ScreenScale screen(4);
  struct Probe {
    const char* what;
    UIImage image;
    CGPoint point;
    UIColor color;
  };
  const UIColor none = UIColor::clearColor();
  const UIColor black30(0, 0, 0, 0.3);
  const Probe probes[] = {
      {"sticker", ActionBar::stickerNormalIcon(), {3, 3}, purple},
      {"its smile", ActionBar::stickerNormalIcon(), {7.2, 9.8}, none},
      {"its eye", ActionBar::stickerNormalIcon(), {9.8, 5}, none},
      {"its flap", ActionBar::stickerNormalIcon(), {14.5, 13.5}, purple},
      {"beside its flap", ActionBar::stickerNormalIcon(), {10.8, 16}, none},
      {"sticker on disc", ActionBar::stickerSelectedIcon(), {9.5, 9.5}, white},
      {"large sticker", ActionBar::stickerNormalBorderlessIcon(), {4, 4}, grey},
      {"large sticker", ActionBar::stickerSelectedBorderlessIcon(), {4, 4}, purple},
      {"plate", ActionBar::gifNormalIcon(), {12, 6}, grey},
      {"letter I", ActionBar::gifNormalIcon(), {13, 12}, none},
      {"plate", ActionBar::gifSelectedIcon(), {12, 6}, dark},
      {"letter I", ActionBar::gifSelectedIcon(), {13, 12}, gifYellow},
      {"book", ActionBar::contactCardNormalIcon(), {2, 11}, grey},
      {"bust", ActionBar::contactCardNormalIcon(), {9.9, 14}, none},
      {"tab", ActionBar::contactCardSelectedIcon(), {22, 11}, contactBlue},
      {"record", ActionBar::vinylNormalIcon(), {12.5, 2}, grey},
      {"its hole", ActionBar::vinylNormalIcon(), {12.5, 12.5}, none},
      {"its sheen", ActionBar::vinylSelectedIcon(), {18.2, 6.8}, none},
      {"record", ActionBar::vinylSelectedIcon(), {12.5, 23}, vinylGreen},
      {"ring", ActionBar::safebeamNormalIcon(), {2.5, 12.5}, lightGrey},
      {"beam", ActionBar::safebeamNormalIcon(), {22.5, 12.5}, grey},
      {"the beam's round start", ActionBar::safebeamNormalIcon(), {10.5, 2.5}, grey},
      {"inside the ring", ActionBar::safebeamNormalIcon(), {12.5, 12.5}, none},
      {"ring", ActionBar::safebeamSelectedIcon(), {2.5, 12.5}, beamRing},
      {"beam", ActionBar::safebeamSelectedIcon(), {22.5, 12.5}, beamMark},
      {"eye", ActionBar::liveOpsMoodraNormalIcon(), {4.95, 5.7}, none},
      {"disc", ActionBar::liveOpsMoodraNormalIconWithBackground(), {4, 16}, offWhite},
      {"eye", ActionBar::liveOpsMoodraNormalIconWithBackground(), {13.95, 14.7}, offWhite},
      {"disc", ActionBar::liveOpsMoodraVariant2NormalIconWithBackground(), {4, 16}, grey},
      {"face", ActionBar::liveOpsMoodraVariant2NormalIconWithBackground(), {16, 10.7}, offWhite},
      {"face", ActionBar::liveOpsMoodraSelectedIcon(), {16, 10}, white},
      {"bubble", PinChat::pinChatCTAIcon(), {1.5, 9}, white},
      {"line of text", PinChat::pinChatCTAIcon(), {6, 6.75}, none},
      {"badge", PinChat::pinChatCTAIcon(), {11.5, 4.5}, white},
      {"round the badge", PinChat::pinChatCTAIcon(), {9.5, 4.5}, none},
      {"pin", PinChat::pinChatCTAIcon(), {14.5, 4.6}, pinBlue},
      {"badge", PinChat::pinChatAttributionIcon(), {1.5, 10}, white},
      {"pin", PinChat::pinChatAttributionIcon(), {13.8, 8.8}, white},
      {"sparkle", PinChat::pinChatStarParticleIcon(), {8, 13}, white},
      {"its ring", PinChat::pinChatStarParticleIcon(), {19.1, 17.1}, none},
      {"camera", createCameraGradientIcon({38, 38}).value(), {15, 19}, white},
      {"flap", createCameraGradientIcon({38, 38}).value(), {28, 19}, white},
      {"disc", createLoopPlayIcon(), {34, 4}, black30},
      {"play", createLoopPlayIcon(), {34, 34}, white},
      {"arrow, half a point out", createLoopPlayIcon(), {15.8, 34}, white},
      {"between", createLoopPlayIcon(), {25, 34}, black30},
      {"confetti", Home::headerIcon({33, 20}), {6.4, 2.6}, lightGrey},
      {"confetti", Home::headerIcon({33, 20}), {31.3, 6.4}, lightGrey},
      {"knot", Home::headerIcon({33, 20}), {15.5, 3.8}, coral},
      {"ribbon on the lid", Home::headerIcon({33, 20}), {17.3, 7.3}, offWhite},
      {"seam", Home::headerIcon({33, 20}), {11, 8.9}, offWhite},
      {"shadow", Home::headerIcon({33, 20}), {8.4, 18.3}, {0.094, 0.114, 0.141, 0.1}},
      {"front sheet", Home::copyNotificationIcon({44, 44}), {19, 24}, white},
      {"sheet behind", Home::copyNotificationIcon({44, 44}), {14, 20}, white},
      {"arrow", Home::shareIcon({76, 73}, none), {38, 30}, offWhite},
      {"tray", Home::shareIcon({76, 73}, none), {38, 55}, offWhite},
      {"cross", Home::closeIcon({24, 24}), {12, 12}, rgb(0, 0, 17.0 / 255)},
      {"beside it", Home::closeIcon({24, 24}), {12, 2}, none},
      {"body", Banner::rewardIcon({48, 40}), {17, 32}, white},
      {"knot", Banner::rewardIcon({48, 40}), {24, 14}, white},
      // the middles of the three turned sparkles
      {"sparkle", Banner::rewardIcon({48, 40}), {42.96, 12.55}, white},
      {"sparkle", Banner::rewardIcon({48, 40}), {4.58, 4.54}, white},
      {"sparkle", Banner::rewardIcon({48, 40}), {10.31, 6.66}, white},
  };
  for (const Probe& probe : probes) {
    SCOPED_TRACE(probe.what + (" at " + testing::PrintToString(probe.point.x)) + ", " +
                 testing::PrintToString(probe.point.y));
    expectNear(pixelAt(probe.image, probe.point), bytes(probe.color));
  }
}

TEST(PresetsColors, GradientsRunBetweenTheirPoints) {
  const ScreenScale screen(8);
  struct Probe {
    const char* what;
    UIImage image;
    const presets::GradientStops& stops;
    CGPoint start;
    CGPoint end;
    std::vector<CGPoint> points;
  };
  const UIColor clear = UIColor::clearColor();
  const Probe probes[] = {
      {"sticker",
       ActionBar::stickerSelectedIcon(),
       stickerGradient,
       {0, 31.34},
       {31.23, 2.89},
       {{15.67, 1}, {2, 15.67}, {29, 15.67}, {13.6, 16.6}}},
      {"flower",
       ActionBar::liveOpsMoodraNormalIcon(),
       moodraGradient,
       {15.93, 0.73},
       {10.61, 18.65},
       {{7, 1.2}, {7, 7.2}, {13, 7.2}, {7, 13.2}}},
      {"flower on disc",
       ActionBar::liveOpsMoodraNormalIconWithBackground(),
       moodraGradient,
       {24.93, 9.73},
       {19.61, 27.65},
       {{16, 10.2}, {16, 16.2}, {16, 22.2}}},
      {"flower's disc",
       ActionBar::liveOpsMoodraSelectedIcon(),
       moodraGradient,
       {32, 0},
       {19.75, 38.31},
       {{16, 1}, {2, 16}, {30, 16}, {16, 31}}},
      {"emblem",
       PinChat::pinChatAttributionIcon(),
       pinChatGradient,
       {6.06, 16.49},
       {18.9, 3.7},
       {{5, 10}, {12, 17.5}, {20, 10}}},
      {"camera",
       createCameraGradientIcon({38, 38}).value(),
       cameraGradient,
       {38, 0},
       {0, 38},
       {{19, 2}, {4, 19}, {34, 19}, {19, 36}}},
      {"upright heart",
       Home::headerIcon({33, 19.3}),
       referralGradient,
       {1.77, 4.87},
       {1.78, 1.01},
       {{1, 2}, {1.8, 4}}},
      {"leaning heart",
       Home::headerIcon({33, 19.3}),
       referralGradient,
       {29.81, 15.2},
       {31.76, 9.39},
       {{29.3, 11}, {30, 13.5}}},
      // beyond the end: the last colour alone
      {"bow",
       Home::headerIcon({33, 19.3}),
       referralGradient,
       {16.4, 11.57},
       {16.4, 7.71},
       {{12.5, 4}, {22.2, 4}}},
      {"box",
       Home::headerIcon({33, 19.3}),
       referralGradient,
       {8.54, 15.85},
       {22.26, -0.17},
       {{10, 7.3}, {12, 16}, {25, 7.3}, {22, 14}}},
      {"copy",
       Home::copyNotificationIcon({44, 44}),
       referralGradient,
       {0, 37.23},
       {40.54, -3.24},
       {{22, 2}, {4, 22}, {40, 22}, {22, 42}}},
      {"share",
       Home::shareIcon({76, 73}, clear),
       referralGradient,
       {2.15, 60.38},
       {57.03, -3.68},
       {{38, 10}, {12, 38}, {64, 38}, {38, 65}}},
  };
  for (const Probe& probe : probes) {
    for (const CGPoint point : probe.points) {
      SCOPED_TRACE(probe.what + (" at " + testing::PrintToString(point.x)) + ", " +
                   testing::PrintToString(point.y));
      expectNear(pixelAt(probe.image, point),
                 bytes(gradientAt(probe.stops, probe.start, probe.end, point)), 3);
    }
  }
}

TEST(PresetsColors, TheShadeLiesOverTheRibbon) {
  const ScreenScale screen(8);
  const UIImage image = Home::headerIcon({33, 19.3});
  const auto shaded = [](const UIColor& under) {
    return rgb(under.red() * 0.9 + dark.red() * 0.1, under.green() * 0.9 + dark.green() * 0.1,
               under.blue() * 0.9 + dark.blue() * 0.1);
  };
  expectNear(pixelAt(image, {17.3, 10.2}), bytes(shaded(offWhite)), 2);
  const CGPoint onBody{12, 10.2};
  expectNear(pixelAt(image, onBody),
             bytes(shaded(gradientAt(referralGradient, {8.54, 15.85}, {22.26, -0.17}, onBody))), 3);
  // The box stands on its shadow, not in it.
  EXPECT_EQ(pixelAt(image, {15, 17.7}).alpha, 255);
  EXPECT_LT(pixelAt(image, {15, 18.6}).alpha, 40);
}

}  // namespace
}  // namespace glyphwright
