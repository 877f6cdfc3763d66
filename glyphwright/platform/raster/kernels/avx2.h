#pragma once

#include <glyphwright/platform/raster/kernels.h>

/// The loops for machines with AVX2; kernels.h says what they do, the scalar ones how.
namespace glyphwright::raster::avx2 {

#include <glyphwright/platform/raster/kernels/loops.inc>

}  // namespace glyphwright::raster::avx2

namespace glyphwright::raster {

/// Their table; call only where the processor has AVX2.
const Kernels& avx2Kernels();

}  // namespace glyphwright::raster
