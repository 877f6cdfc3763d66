#pragma once

#include <glyphwright/platform/raster/kernels.h>

/// The loops over a path's points, for machines with AVX2; kernels.h says what they do.
namespace glyphwright::raster::avx2 {

PointBox boxPoints(const double* points, std::size_t count);
PointBox mapPoints(const double* points, std::size_t count, const double* matrix, double* mapped);

}  // namespace glyphwright::raster::avx2
