#pragma once

#include <vector>

#include <glyphwright/platform/path.h>
#include <glyphwright/platform/raster/kernels.h>
#include <glyphwright/platform/raster/stroke_outline.h>
#include <glyphwright/platform/stroke_style.h>

namespace glyphwright::raster {

/// How a path is stroked.
struct Stroke {
  /// Above 0. In the pen's space, where the pen is a circle.
  double width;
  const StrokeStyle& style;
  double tolerance;  // in the pen's space
  /// From the pen's space to device pixels.
  CGAffineTransform toDevice;
  /// Around all pixels that can show it, in the pen's space; far outside it, corners may be missing
  /// where that makes no difference inside.
  DeviceBox shown;
};

/// The area of a stroke. `points` are the path's points in the pen's space. Set the outline's
/// origin before. An outline that is too long to be kept goes to `sink` piece by piece, the last
/// one included, and leaves nothing; true when all of it stands in `out` and the sink got none.
bool strokeOutline(const CGPath& path, const std::vector<CGPoint>& points, const Stroke& stroke,
                   const Kernels& kernels, StrokeOutline& out, OutlineSink& sink);

/// The flattening tolerance of strokes, in pixels; the outside of a curve bends wider than its
/// middle.
inline constexpr double kStrokeTolerance = 0.03;

}  // namespace glyphwright::raster
