#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include <glyphwright/platform/raster/edges.h>
#include <glyphwright/platform/raster/kernels.h>

namespace glyphwright::raster {

/// An edge may write this many cells beyond the region's right side.
inline constexpr int kCellMargin = kPieceCells;

constexpr std::size_t cellStride(int width) {
  return static_cast<std::size_t>(width + kCellMargin + kBlock - 1) / kBlock * kBlock;
}

/// The largest winding that 16-bit cells can hold; shapes that may wind further take 32-bit ones.
inline constexpr int kNarrowWindingLimit = 31;

/// A band of rows of cells. A cell holds the change of signed coverage, in units of 1/1024, from
/// the pixel before it; the running sum along a row is each pixel's winding times its coverage.
template <typename Cell>
struct CellBand {
  Cell* cells = nullptr;  // rows × stride, all zero between uses
  std::size_t stride = 0;
  /// One byte a block, row after row, set to 1 where an edge wrote; null when the rows are read
  /// whole.
  std::uint8_t* touched = nullptr;
  int firstRow = 0;  // in rows of the region; negative where the band begins above it
  int rows = 0;
  int left = 0;  // cells from a row's start to where x counts from
};

/// Adds the parts of the edges that lie inside the band's rows.
template <typename Cell>
void accumulate(std::span<const Edge> edges, const CellBand<Cell>& band, const Kernels& kernels);

extern template void accumulate<std::int16_t>(std::span<const Edge>, const CellBand<std::int16_t>&,
                                              const Kernels&);
extern template void accumulate<std::int32_t>(std::span<const Edge>, const CellBand<std::int32_t>&,
                                              const Kernels&);

}  // namespace glyphwright::raster
