#pragma once

#include <glyphwright/platform/raster/stroke_kernels.h>

/// The text that explains the loops of strokes.
namespace glyphwright::raster::scalar {

bool strokeCurve(const StrokeCurve& curve, const StrokeCorners& out);
CornerBox boxCorners(const float* x, const float* y, std::size_t count);
void placeCorners(const float* x, const float* y, std::size_t count, bool backwards,
                  const CornerFrame& frame, const PlacedCorners& out);

}  // namespace glyphwright::raster::scalar
