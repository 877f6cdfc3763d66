#pragma once

#include <glyphwright/presets/painting.h>

/// The colours of the ready-made images, by what they are or what they are for.
namespace glyphwright::presets::palette {

/// An opaque colour from its red, green and blue components.
constexpr UIColor rgb(CGFloat red, CGFloat green, CGFloat blue) {
  return {red, green, blue, 1.0};
}

// Shared by many

inline constexpr UIColor grey = rgb(0.522, 0.565, 0.62);
inline constexpr UIColor purple = rgb(0.592, 0.251, 0.988);
inline constexpr UIColor offWhite = rgb(0.961, 0.969, 0.98);
inline constexpr UIColor white = rgb(1.0, 1.0, 1.0);
inline constexpr UIColor lightGrey = rgb(0.792, 0.82, 0.859);
inline constexpr UIColor dark = rgb(0.094, 0.114, 0.141);

// One sign each

inline constexpr UIColor gifYellow = rgb(0.984, 0.847, 0.125);
inline constexpr UIColor contactBlue = rgb(0.314, 0.624, 0.996);
inline constexpr UIColor vinylGreen = rgb(0.114, 0.725, 0.329);
inline constexpr UIColor pinBlue = rgb(0.161, 0.549, 0.98);
inline constexpr UIColor coral = rgb(0.992, 0.329, 0.424);
inline constexpr UIColor loopPlayDisc = {0.0, 0.0, 0.0, 0.3};

inline constexpr UIColor beamRing = rgb(0.506, 0.694, 0.98);
inline constexpr UIColor beamMark = rgb(0.086, 0.431, 0.984);

/// The safety partner's button: its disc, the ring on it and the beam in the ring.
struct SafebeamColors {
  UIColor disc;
  UIColor ring;
  UIColor mark;
};
inline constexpr SafebeamColors safebeamSelected = {rgb(0.161, 0.545, 0.976),
                                                    rgb(0.948, 0.969, 1.0), rgb(0.675, 0.804, 1.0)};
inline constexpr SafebeamColors safebeamNormal = {rgb(0.922, 0.929, 0.945), beamRing, beamMark};

// Gradients

namespace stops {

inline constexpr CGFloat two[] = {0.0, 1.0};
inline constexpr CGFloat three[] = {0.0, 0.48, 1.0};

inline constexpr UIColor sticker[] = {rgb(0.408, 0.302, 0.933), rgb(0.906, 0.208, 0.945)};
inline constexpr UIColor moodra[] = {rgb(0.188, 0.953, 0.937), rgb(0.945, 0.176, 0.898),
                                     rgb(0.973, 0.714, 0.184)};
inline constexpr UIColor pinChat[] = {rgb(0.24, 0.68, 1.0), rgb(0.2, 0.92, 0.96)};
inline constexpr UIColor camera[] = {rgb(1.0, 0.48, 0.32), rgb(1.0, 0.16, 0.48)};
inline constexpr UIColor referral[] = {rgb(0.992, 0.149, 0.478), rgb(1.0, 0.471, 0.329)};

}  // namespace stops

inline constexpr GradientStops stickerGradient = {stops::sticker, stops::two};
inline constexpr GradientStops moodraGradient = {stops::moodra, stops::three};
inline constexpr GradientStops pinChatGradient = {stops::pinChat, stops::two};
inline constexpr GradientStops cameraGradient = {stops::camera, stops::two};
inline constexpr GradientStops referralGradient = {stops::referral, stops::two};

}  // namespace glyphwright::presets::palette
