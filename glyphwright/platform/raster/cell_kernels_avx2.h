#pragma once

#include <glyphwright/platform/raster/kernels.h>

/// The loops from cells to coverage and pixels, for machines with AVX2; kernels.h says what they
/// do.
namespace glyphwright::raster::avx2 {

int sumNarrow(std::int16_t* cells, std::size_t count, int carry, FillRule rule,
              std::uint16_t* coverage);
void writeCells(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& rows,
                const SolidColor& color);
void blendCells(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& rows,
                const SolidColor& color);
void writeCellsByRow(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& rows,
                     const SolidColor* colors);
void blendCellsByRow(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& rows,
                     const SolidColor* colors);

}  // namespace glyphwright::raster::avx2
