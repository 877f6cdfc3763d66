#pragma once

#include <glyphwright/platform/raster/stroke_kernels.h>

/// The loops of strokes for machines with AVX2; kernels.h says what they do.
namespace glyphwright::raster::avx2 {

bool strokeCurve(const StrokeCurve& curve, const StrokeCorners& out);
CornerBox boxCorners(const float* x, const float* y, std::size_t count);
void placeCorners(const float* x, const float* y, std::size_t count, bool backwards,
                  const CornerFrame& frame, const PlacedCorners& out);

}  // namespace glyphwright::raster::avx2
