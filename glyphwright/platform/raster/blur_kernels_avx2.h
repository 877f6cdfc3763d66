#pragma once

#include <glyphwright/platform/raster/kernels.h>

/// The loops that blur, for machines with AVX2; kernels.h says what they do.
namespace glyphwright::raster::avx2 {

void filterDown(std::uint16_t* out, const FilterRows& rows, const std::int16_t* taps,
                std::size_t count);
void filterAlong(std::uint16_t* out, const std::uint16_t* in, const std::int16_t* taps,
                 std::size_t reach, std::size_t count);

}  // namespace glyphwright::raster::avx2
