#pragma once

#include <glyphwright/platform/raster/stroke_kernels.h>

/// The text that explains the loops of strokes.
namespace glyphwright::raster::scalar {

bool strokeCurve(const StrokeCurve& curve, const StrokeCorners& out);

}  // namespace glyphwright::raster::scalar
