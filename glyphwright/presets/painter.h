#pragma once

#include <cstdint>

#include <glyphwright/platform/image.h>
#include <glyphwright/presets/painting.h>

namespace glyphwright::presets {

/// What becomes of a picture whose gradient cannot be made.
enum class FailedGradient : std::uint8_t {
  endsProgram,
  /// Nothing is drawn.
  leavesCanvas,
};

/// A new path of the area, with its fill rule.
UIBezierPath pathOf(const Area& area);

/// Paints the picture into the current context; without one, nothing happens. The gradient is made
/// before anything is painted.
void paint(const Painting& painting, FailedGradient failedGradient = FailedGradient::endsProgram);

/// The picture on a transparent canvas of `size` points at the main screen's scale. A size that
/// cannot be drawn gives an image without pixels.
UIImage imageOf(const Painting& painting, CGSize size,
                FailedGradient failedGradient = FailedGradient::endsProgram);
/// The same on a canvas of the picture's own frame.
UIImage imageOf(const Painting& painting);

}  // namespace glyphwright::presets
