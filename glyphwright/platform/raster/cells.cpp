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
void add(Cell& cell, int amount) {
  cell = static_cast<Cell>(cell + amount);
}

// Cuts edges into pieces of one row each. Pieces that span at most one pixel across are gathered
// and worked out many at a time; longer ones are walked column by column.
template <typename Cell, bool Tracked>
class Accumulator {
 public:
  Accumulator(const CellBand<Cell>& band, const Kernels& kernels)
      : band_(band),
        kernels_(kernels),
        top_(band.firstRow * kUnitsPerPixel),
        height_(band.rows * kUnitsPerPixel),
        stride_(static_cast<std::int32_t>(band.stride)) {}

  void addEdge(const Edge& edge) {
    const int y0 = edge.y0 - top_;
    const int y1 = edge.y1 - top_;
    const int upper = std::min(y0, y1);
    const int lower = std::max(y0, y1);
    if (Tracked && (lower <= 0 || upper >= height_)) return;
    const int row = upper >> kUnitShift;
    if (row == (lower - 1) >> kUnitShift) {
      addPiece(edge.x0, edge.x1, y1 - y0, row * stride_);
    } else if (y0 < y1) {
      addRows(edge.x0, edge.x1, y0, y1, 1);
    } else {
      addRows(edge.x1, edge.x0, y1, y0, -1);
    }
  }

  // Adds what has been gathered to the cells.
  void flush() {
    kernels_.cellAmounts(pieces_, count_);
    for (std::size_t i = 0; i < count_; ++i) {
      const std::int32_t at = pieces_.cell[i];
      Cell* cell = band_.cells + at;
      add(cell[0], pieces_.amount0[i]);
      add(cell[1], pieces_.amount1[i]);
      add(cell[2], pieces_.amount2[i]);
      if constexpr (Tracked) {
        band_.touched[at >> kBlockShift] = 1;
        band_.touched[(at + 2) >> kBlockShift] = 1;
      }
    }
    count_ = 0;
  }

 private:
  // An edge of several rows, running down.
  void addRows(float x0, float x1, int y0, int y1, int sign) {
    const float slope = (x1 - x0) / static_cast<float>(y1 - y0);
    int top = std::max(y0, 0);
    const int bottom = std::min(y1, height_);
    // Rounding may carry x past the edge's ends by a hair, which the cells' margin takes.
    float xa = y0 < 0 ? x0 + static_cast<float>(-y0) * slope : x0;
    int row = top >> kUnitShift;
    std::int32_t start = row * stride_;
    // Heights are whole numbers below 2²⁴: exact, however often a row's is added.
    auto depth = static_cast<float>(((row + 1) << kUnitShift) - y0);
    for (int rowEnd = (row + 1) << kUnitShift; rowEnd < bottom; rowEnd += kUnitsPerPixel) {
      const float xb = x0 + depth * slope;
      addPiece(xa, xb, sign * (rowEnd - top), start);
      xa = xb;
      top = rowEnd;
      depth += kUnitsPerPixel;
      start += stride_;
    }
    const float xb = bottom == y1 ? x1 : x0 + depth * slope;
    addPiece(xa, xb, sign * (bottom - top), start);
  }

  void addPiece(float xa, float xb, int cover, std::int32_t rowStart) {
    if (std::fabs(xb - xa) > 1) {
      addLongPiece(std::min(xa, xb), std::max(xa, xb), cover, rowStart);
      return;
    }
    if (count_ == Pieces::kCapacity) flush();
    pieces_.xa[count_] = xa;
    pieces_.xb[count_] = xb;
    pieces_.cover[count_] = cover;
    pieces_.cell[count_] = rowStart;
    ++count_;
  }

  // Pixels left of the piece keep their sum; pixels right of it gain all of the cover; in between,
  // a pixel gains its share of area. Rounding sums instead of changes keeps every total exact.
  void addLongPiece(float low, float high, int signedCover, std::int32_t rowStart) {
    const int sign = signedCover < 0 ? -1 : 1;
    const int cover = signedCover * sign;
    const float perPixel = static_cast<float>(cover) / (high - low);
    const int first = static_cast<int>(low);
    Cell* cell = band_.cells + rowStart + first;
    const float inFirst = 1 - (low - static_cast<float>(first));
    int sum = std::min(rounded(perPixel * inFirst * inFirst * 0.5F), cover);
    add(*cell++, sign * sum);
    const int last = static_cast<int>(high);
    float middle = inFirst + 0.5F;  // from the low end to the middle of the next column
    for (int column = first + 1; column < last; ++column) {
      const int next = std::min(rounded(perPixel * middle), cover);
      add(*cell++, sign * (next - sum));
      sum = next;
      middle += 1;
    }
    // Where the piece ends on a pixel's left side, this gives all of the cover.
    const float inLast = high - static_cast<float>(last);
    const int next = std::max(cover - rounded(perPixel * inLast * inLast * 0.5F), 0);
    add(cell[0], sign * (next - sum));
    add(cell[1], sign * (cover - next));
    if constexpr (Tracked) {
      const std::int32_t lastBlock = (rowStart + last + 1) >> kBlockShift;
      for (std::int32_t b = (rowStart + first) >> kBlockShift; b <= lastBlock; ++b) {
        band_.touched[b] = 1;
      }
    }
  }

  const CellBand<Cell>& band_;
  const Kernels& kernels_;
  int top_;
  int height_;
  std::int32_t stride_;
  std::size_t count_ = 0;
  Pieces pieces_;
};

template <typename Cell, bool Tracked>
void accumulateInto(std::span<const Edge> edges, const CellBand<Cell>& band,
                    const Kernels& kernels) {
  Accumulator<Cell, Tracked> accumulator(band, kernels);
  for (const Edge& edge : edges) accumulator.addEdge(edge);
  accumulator.flush();
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
