#pragma once

#include <glyphwright/platform/raster/kernels.h>

namespace glyphwright::raster {

/// The table for machines with AVX2; call only where the processor has it.
const Kernels& avx2Kernels();

}  // namespace glyphwright::raster
