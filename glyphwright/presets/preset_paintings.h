#pragma once

#include <array>

#include <glyphwright/presets/painting.h>
#include <glyphwright/presets/palette.h>
#include <glyphwright/presets/preset_artwork.h>

/// The presets: what they are painted of, in paint order.
namespace glyphwright::presets {

inline constexpr CGSize safebeamFrame = {31, 31};

/// Without background the disc is still painted, fully clear. The clip bounds the beam and stays in
/// force on purpose; so does the call at the end, which finds no context that it could close.
constexpr std::array<Piece, 5> safebeamPieces(bool selected, bool withBackground) {
  const palette::SafebeamColors& colors =
      selected ? palette::safebeamSelected : palette::safebeamNormal;
  return {
      Fill{oval({0, 0, 31, 31}), colors.disc.colorWithAlphaComponent(withBackground ? 1.0 : 0.0)},
      Fill{compound(artwork::watchRing), colors.ring},
      LastingClip{box({5.5, 13.5, 19.9, 12.0})},
      Fill{compound(artwork::watchBeam), colors.mark},
      EndImageContext{},
  };
}

/// The disc and its gradient follow the size; the camera stays where it is, right for 38 × 38.
constexpr std::array<Piece, 2> cameraGradientPieces(CGSize size) {
  return {
      ClippedGradient{oval({{0, 0}, size}), {size.width, 0}, {0, size.height}},
      Fill{compound(artwork::videoCamera), palette::white},
  };
}

inline constexpr Piece loopPlayPieces[] = {
    Fill{oval({0, 0, 68, 68}), palette::loopPlayDisc},
    Fill{compound(artwork::loopPlay), palette::white},
    Stroke{compound(artwork::loopPlay), palette::white, 1, 4},
};
inline constexpr Painting loopPlay = {{68, 68}, loopPlayPieces};

}  // namespace glyphwright::presets
