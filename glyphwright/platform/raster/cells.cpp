#include <glyphwright/platform/raster/cells.h>

#include <algorithm>
#include <cmath>

namespace glyphwright::raster {
namespace {

// Rounds a value that is never negative.
int rounded(float value) {
  return static_cast<int>(value + 0.5F);
}

template <typename Cell>
void change(Cell& cell, int amount) {
  cell = static_cast<Cell>(cell + amount);
}

// Adds pieces of edges to a band. Nearly all change three cells, which have been worked out many at
// a time; wide ones are walked column by column.
template <typename Cell, bool Tracked>
class Accumulator {
 public:
  explicit Accumulator(const CellBand<Cell>& band) : band_(band) {}

  void add(const Pieces& pieces) {
    for (std::size_t i = 0; i < pieces.count; ++i) {
      const std::int32_t at = pieces.cell[i];
      if (pieces.isWide[i] != 0) {
        addWide(pieces.xa[i], pieces.xb[i], pieces.cover[i], at);
        continue;
      }
      Cell* cell = band_.cells + at;
      change(cell[0], pieces.amount0[i]);
      change(cell[1], pieces.amount1[i]);
      change(cell[2], pieces.amount2[i]);
      if constexpr (Tracked) {
        band_.touched[at >> kBlockShift] = 1;
        band_.touched[(at + 2) >> kBlockShift] = 1;
      }
    }
  }

 private:
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
    if constexpr (Tracked) {
      const std::int32_t lastBlock = (firstCell + last + 1 - first) >> kBlockShift;
      for (std::int32_t b = firstCell >> kBlockShift; b <= lastBlock; ++b) {
        band_.touched[b] = 1;
      }
    }
  }

  const CellBand<Cell>& band_;
};

template <typename Cell, bool Tracked>
void accumulateInto(std::span<const Edge> edges, const CellBand<Cell>& band,
                    const Kernels& kernels) {
  Accumulator<Cell, Tracked> accumulator(band);
  EdgeRows rows{edges.data(), edges.size(), band.firstRow * kUnitsPerPixel, band.rows,
                static_cast<std::int32_t>(band.stride)};
  Pieces pieces;
  while (kernels.cutEdges(rows, pieces), pieces.count > 0) {
    kernels.cellAmounts(pieces);
    accumulator.add(pieces);
  }
}

}  // namespace

template <typename Cell>
void accumulate(std::span<const Edge> edges, const CellBand<Cell>& band, const Kernels& kernels) {
  if (band.touched != nullptr) {
    accumulateInto<Cell, true>(edges, band, kernels);
  } else {
    accumulateInto<Cell, false>(edges, band, kernels);
  }
}

template void accumulate<std::int16_t>(std::span<const Edge>, const CellBand<std::int16_t>&,
                                       const Kernels&);
template void accumulate<std::int32_t>(std::span<const Edge>, const CellBand<std::int32_t>&,
                                       const Kernels&);

}  // namespace glyphwright::raster
