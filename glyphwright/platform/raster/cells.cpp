#include <glyphwright/platform/raster/cells.h>

#include <algorithm>
#include <bit>
#include <cstring>

namespace glyphwright::raster {
namespace {

// Rounds a value that is never negative.
int rounded(float value) {
  return static_cast<int>(value + 0.5F);
}

// Windings beyond all numbers begin again.
template <typename Cell>
void change(Cell& cell, int amount) {
  cell = static_cast<Cell>(static_cast<unsigned>(cell) + static_cast<unsigned>(amount));
}

// Adds pieces of edges to a band. Nearly all change four cells, which have been worked out many at
// a time; wide ones are walked column by column.
template <typename Cell>
class Accumulator {
 public:
  explicit Accumulator(const CellBand<Cell>& band, const Kernels& kernels)
      : band_(band), kernels_(kernels) {}

  void add(const Pieces& pieces) {
    if constexpr (sizeof(Cell) == 2) {
      kernels_.addPieces(pieces, band_.cells, band_.touched);
    } else {
      addNarrow(pieces);
    }
    // Seldom is any of 64 wide.
    const std::size_t groups = (pieces.count + 7) / 8;
    for (std::size_t from = 0; from < groups; from += 8) {
      std::uint64_t wide = 0;
      std::memcpy(&wide, pieces.wide + from, sizeof(wide));
      // Bytes beyond the last group are those of earlier pieces.
      if (groups - from < 8) wide &= (std::uint64_t{1} << 8 * (groups - from)) - 1;
      for (; wide != 0; wide &= wide - 1) {
        const std::size_t i = from * 8 + static_cast<std::size_t>(std::countr_zero(wide));
        addWide(pieces.xa[i], pieces.xb[i], pieces.cover[i], pieces.cell[i]);
      }
    }
  }

 private:
  void addNarrow(const Pieces& pieces) {
    for (std::size_t i = 0; i < pieces.count; ++i) {
      const std::int32_t at = pieces.cell[i];
      for (int k = 0; k < kPieceCells; ++k) change(band_.cells[at + k], pieces.amounts[i][k]);
      touch(at, at + kPieceCells - 1);
    }
  }

  void touch(std::int32_t from, std::int32_t to) {
    if (band_.touched == nullptr) return;
    for (std::int32_t b = from >> kBlockShift; b <= to >> kBlockShift; ++b) band_.touched[b] = 1;
  }

  // Pixels left of the piece keep their sum; pixels right of it gain all of the cover; in between,
  // a pixel gains its share of area. Rounding sums instead of changes keeps every total exact.
  void addWide(float xa, float xb, int signedCover, std::int32_t firstCell) {
    const float low = std::min(xa, xb);
    const float high = std::max(xa, xb);
    const int sign = signedCover < 0 ? -1 : 1;
    const int cover = signedCover * sign;
    const float perPixel = static_cast<float>(cover) / (high - low);
    const int first = static_cast<int>(low);
    Cell* cell = band_.cells + firstCell;
    const float inFirst = 1 - (low - static_cast<float>(first));
    int sum = std::min(rounded(perPixel * inFirst * inFirst * 0.5F), cover);
    change(*cell++, sign * sum);
    const int last = static_cast<int>(high);
    float middle = inFirst + 0.5F;  // from the low end to the middle of the next column
    for (int column = first + 1; column < last; ++column) {
      const int next = std::min(rounded(perPixel * middle), cover);
      change(*cell++, sign * (next - sum));
      sum = next;
      middle += 1;
    }
    // Where the piece ends on a pixel's left side, this gives all of the cover.
    const float inLast = high - static_cast<float>(last);
    const int next = std::max(cover - rounded(perPixel * inLast * inLast * 0.5F), 0);
    change(cell[0], sign * (next - sum));
    change(cell[1], sign * (cover - next));
    touch(firstCell, firstCell + last + 1 - first);
  }

  const CellBand<Cell>& band_;
  const Kernels& kernels_;
};

}  // namespace

template <typename Cell>
void accumulate(std::span<const Edge> edges, const CellBand<Cell>& band, const Kernels& kernels) {
  Accumulator<Cell> accumulator(band, kernels);
  EdgeRows rows(edges, band.firstRow * kUnitsPerPixel, band.rows,
                static_cast<std::int32_t>(band.stride), band.left);
  Pieces pieces;
  while (kernels.cutEdges(rows, pieces), pieces.count > 0) {
    kernels.cellAmounts(pieces);
    accumulator.add(pieces);
  }
}

template void accumulate<std::int16_t>(std::span<const Edge>, const CellBand<std::int16_t>&,
                                       const Kernels&);
template void accumulate<std::int32_t>(std::span<const Edge>, const CellBand<std::int32_t>&,
                                       const Kernels&);

}  // namespace glyphwright::raster
