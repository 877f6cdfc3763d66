#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include <glyphwright/platform/raster/edges.h>

namespace glyphwright::raster {

/// Cells come in blocks, the unit in which rows are summed and untouched stretches skipped.
inline constexpr int kBlock = 16;
inline constexpr int kBlockShift = 4;

/// An edge may write this many cells beyond the region's right side.
inline constexpr int kCellMargin = 3;

constexpr std::size_t cellStride(int width) {
  return static_cast<std::size_t>((width + kCellMargin + kBlock - 1) / kBlock * kBlock);
}

/// The largest winding that 16-bit cells can hold; shapes that may wind further take 32-bit ones.
inline constexpr int kNarrowWindingLimit = 31;

/// A band of rows of cells. A cell holds the change of signed coverage, in units of 1/1024, from
/// the pixel before it; the running sum along a row is each pixel's winding times its coverage.
template <typename Cell>
struct CellBand {
  Cell* cells = nullptr;  // rows × stride, all zero between uses
  std::size_t stride = 0;
  /// One bit a block, `maskWords` words a row; null when the rows are read whole.
  std::uint64_t* touched = nullptr;
  std::size_t maskWords = 0;
  int firstRow = 0;  // of the region
  int rows = 0;
};

/// Adds the parts of the edges that lie inside the band's rows.
template <typename Cell>
void accumulate(std::span<const Edge> edges, const CellBand<Cell>& band);

extern template void accumulate<std::int16_t>(std::span<const Edge>, const CellBand<std::int16_t>&);
extern template void accumulate<std::int32_t>(std::span<const Edge>, const CellBand<std::int32_t>&);

}  // namespace glyphwright::raster
