#include <glyphwright/platform/raster/cells.h>

#include <algorithm>

namespace glyphwright::raster {
namespace {

// Rounds a value that is never negative.
int rounded(float value) {
  return static_cast<int>(value + 0.5F);
}

template <typename Cell>
void add(Cell* cell, int amount) {
  *cell = static_cast<Cell>(*cell + amount);
}

template <typename Cell, bool Tracked>
class RowWriter {
 public:
  RowWriter(const CellBand<Cell>& band, int row)
      : cells_(band.cells + static_cast<std::size_t>(row) * band.stride),
        touched_(Tracked ? band.touched + static_cast<std::size_t>(row) * band.maskWords
                         : nullptr) {}

  // An edge from xa to xb that covers `cover` units of this row, `sign` giving its direction.
  // Pixels left of it keep their sum; pixels right of it gain all of the cover; in between, a
  // pixel gains its share of area. Rounding sums instead of changes keeps every total exact.
  void addPiece(float xa, float xb, int cover, int sign) {
    const float low = std::min(xa, xb);
    const float high = std::max(xa, xb);
    const int first = static_cast<int>(low);
    const float fromLeft = low - static_cast<float>(first);
    const float reach = high - static_cast<float>(first);
    Cell* cell = cells_ + first;
    const auto height = static_cast<float>(cover);
    if (reach <= 1) {
      const int right = rounded(height * (fromLeft + reach) * 0.5F);
      add(cell, sign * (cover - right));
      add(cell + 1, sign * right);
      touch(first, first + 1);
      return;
    }
    const float perPixel = height / (high - low);
    const float inFirst = 1 - fromLeft;
    int sum = rounded(perPixel * inFirst * inFirst * 0.5F);
    add(cell, sign * sum);
    int column = first + 1;
    const int last = static_cast<int>(high);
    for (; column < last; ++column) {
      const int next = rounded(perPixel * (static_cast<float>(column) + 0.5F - low));
      add(cells_ + column, sign * (next - sum));
      sum = next;
    }
    // Where the edge ends on a pixel's left side, the formula below gives all of the cover.
    const float inLast = high - static_cast<float>(column);
    const int next = cover - rounded(perPixel * inLast * inLast * 0.5F);
    add(cells_ + column, sign * (next - sum));
    add(cells_ + column + 1, sign * (cover - next));
    touch(first, column + 1);
  }

 private:
  void touch(int from, int to) {
    if constexpr (Tracked) {
      for (int block = from >> kBlockShift; block <= to >> kBlockShift; ++block) {
        touched_[block >> 6] |= std::uint64_t{1} << (block & 63);
      }
    }
  }

  Cell* cells_;
  std::uint64_t* touched_;
};

template <typename Cell, bool Tracked>
void accumulateInto(std::span<const Edge> edges, const CellBand<Cell>& band) {
  const int bandTop = band.firstRow * kUnitsPerPixel;
  const int bandHeight = band.rows * kUnitsPerPixel;
  for (const Edge& edge : edges) {
    int sign = 1;
    float x0 = edge.x0;
    float x1 = edge.x1;
    int y0 = edge.y0 - bandTop;
    int y1 = edge.y1 - bandTop;
    if (y0 > y1) {
      std::swap(y0, y1);
      std::swap(x0, x1);
      sign = -1;
    }
    if (y1 <= 0 || y0 >= bandHeight) continue;
    int row = y0 >> kUnitShift;
    if (row == (y1 - 1) >> kUnitShift) {
      RowWriter<Cell, Tracked>(band, row).addPiece(x0, x1, y1 - y0, sign);
      continue;
    }
    const float slope = (x1 - x0) / static_cast<float>(y1 - y0);
    const float low = std::min(x0, x1);
    const float high = std::max(x0, x1);
    // Rounding may carry an interpolated x past the edge's own ends, and those lie in the region.
    const auto xAt = [&](int y) {
      return std::clamp(x0 + static_cast<float>(y - y0) * slope, low, high);
    };
    int top = std::max(y0, 0);
    const int bottom = std::min(y1, bandHeight);
    row = top >> kUnitShift;
    float xa = xAt(top);
    while (top < bottom) {
      const int rowEnd = std::min((row + 1) << kUnitShift, bottom);
      const float xb = rowEnd == y1 ? x1 : xAt(rowEnd);
      RowWriter<Cell, Tracked>(band, row).addPiece(xa, xb, rowEnd - top, sign);
      xa = xb;
      top = rowEnd;
      ++row;
    }
  }
}

}  // namespace

template <typename Cell>
void accumulate(std::span<const Edge> edges, const CellBand<Cell>& band) {
  if (band.touched != nullptr) {
    accumulateInto<Cell, true>(edges, band);
  } else {
    accumulateInto<Cell, false>(edges, band);
  }
}

template void accumulate<std::int16_t>(std::span<const Edge>, const CellBand<std::int16_t>&);
template void accumulate<std::int32_t>(std::span<const Edge>, const CellBand<std::int32_t>&);

}  // namespace glyphwright::raster
