#pragma once

#include <cstddef>

#include <glyphwright/platform/path.h>
#include <glyphwright/platform/stroke_style.h>

#include "plane.h"

namespace glyphwright::reference {

/// What a pen covers on its way along a path, from 16 × 8 samples a pixel.
struct SweptPen {
  /// The share of each pixel that is covered.
  Plane covered;
  /// The same with everything counted as often as the pen passes over it, which a rasteriser that
  /// sums areas cannot tell apart from as many pieces beside each other in one pixel.
  Plane counted;
};

/// The pen is the diameter of a circle as wide as the style says. It stays across the path while it
/// goes along every line and curve and turns with it; between segments it leaves a join on the
/// outer side, and at the ends of an open contour a cap. The path is in the pen's space, which
/// `toPixels` maps; widths above 0 only.
SweptPen sweptPen(const CGPath& path, const StrokeStyle& style, const CGAffineTransform& toPixels,
                  std::size_t width, std::size_t height);

}  // namespace glyphwright::reference
