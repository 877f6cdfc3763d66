#pragma once

#include <cstddef>
#include <cstdint>

#include <glyphwright/platform/raster/cells.h>
#include <glyphwright/platform/raster/edges.h>
#include <glyphwright/platform/raster/scratch.h>

namespace glyphwright::raster {

/// The cells of a shape, from top to bottom: small shapes as a whole, large ones in bands of rows
/// that stay in the near caches, with marks for the blocks that edges touch.
template <typename Cell>
class CellBands {
 public:
  /// Rows and pixels are those of `area`, which contains the edges' region, and is that where some
  /// have been added up.
  CellBands(const EdgeList& edges, const PixelRect& area, CellMemory& memory,
            const Kernels& kernels);
  CellBands(const CellBands&) = delete;
  CellBands& operator=(const CellBands&) = delete;
  /// Cells that an exception left as they were are set back to zero.
  ~CellBands();

  /// Where the open band ends, in rows of the area; none is open at first.
  int end() const { return firstRow_ + band_.rows; }
  /// Opens the next band. Rows of the one before must have been set back to zero.
  void openNext();

  /// The first pixel's cell of a row in the open band; `before` more lie to its left and belong to
  /// what is left of the area.
  Cell* cells(int row) const {
    return band_.cells + static_cast<std::size_t>(row - firstRow_) * band_.stride + before_;
  }
  std::size_t stride() const { return band_.stride; }
  std::size_t before() const { return before_; }
  /// The mark of the first pixel's block, or null where all rows are to be read whole.
  const std::uint8_t* touched(int row) const {
    return band_.touched == nullptr ? nullptr : marks(row) + before_ / kBlock;
  }
  /// Takes back rows whose cells have been set back to zero, in order.
  void takeBack(int row, int rows);

 private:
  std::uint8_t* marks(int row) const {
    return band_.touched + static_cast<std::size_t>(row - firstRow_) * (band_.stride / kBlock);
  }
  void listByBand(int bands);
  void addSums();

  const EdgeList& edges_;
  CellMemory& memory_;
  const Kernels& kernels_;
  int height_;
  int top_;  // rows of the area above the region
  std::size_t before_;
  int bandRows_ = 0;
  CellBand<Cell> band_;
  int firstRow_ = 0;  // of the band
  int takenBack_ = 0;
};

extern template class CellBands<std::int16_t>;
extern template class CellBands<std::int32_t>;

}  // namespace glyphwright::raster
