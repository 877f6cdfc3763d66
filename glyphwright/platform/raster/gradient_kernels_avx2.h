#pragma once

#include <glyphwright/platform/raster/kernels.h>

/// The loop that looks colours up, for machines with AVX2; kernels.h says what it does.
namespace glyphwright::raster::avx2 {

void rampPixels(std::uint8_t* rgba, const Ramp& ramp, double from, double step, std::size_t count);

}  // namespace glyphwright::raster::avx2
