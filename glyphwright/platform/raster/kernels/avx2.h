#pragma once

#include <glyphwright/platform/raster/kernels.h>

/// The loops for machines with AVX2; kernels.h says what they do, the scalar ones how.
namespace glyphwright::raster::avx2 {

#include <glyphwright/platform/raster/kernels/loops.inc>

}  // namespace glyphwright::raster::avx2
