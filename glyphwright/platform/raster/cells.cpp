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
void add(Cell* cell, int amount) {
  *cell = static_cast<Cell>(*cell + amount);
}

// One edge, running down.
struct Run {
  float x0;
  float x1;
  int y0;
  int y1;
  int sign;  // 1, or −1 for an edge that was given running up
  /// Height per pixel of width, in units. Infinite for an upright edge, which never leaves its
  /// column.
  float perPixel;
};

template <typename Cell, bool Tracked>
class RowWriter {
 public:
  RowWriter(const CellBand<Cell>& band, int row)
      : cells_(band.cells + static_cast<std::size_t>(row) * band.stride),
        touched_(Tracked ? band.touched + static_cast<std::size_t>(row) * band.maskWords
                         : nullptr) {}

  // The part of an edge from xa to xb that covers `cover` units of this row. Pixels left of it keep
  // their sum; pixels right of it gain all of the cover; in between, a pixel gains its share of
  // area. Rounding sums instead of changes keeps every total exact.
  void addPiece(float xa, float xb, int cover, const Run& run) {
    const float low = std::min(xa, xb);
    const float high = std::max(xa, xb);
    const int first = static_cast<int>(low);
    const float fromLeft = low - static_cast<float>(first);
    const float reach = high - static_cast<float>(first);
    Cell* cell = cells_ + first;
    if (reach <= 1) {
      const int right = rounded(static_cast<float>(cover) * (fromLeft + reach) * 0.5F);
      add(cell, run.sign * (cover - right));
      add(cell + 1, run.sign * right);
      touch(first, first + 1);
      return;
    }
    addLongPiece(low, high, cover, run);
  }

 private:
  void addLongPiece(float low, float high, int cover, const Run& run) {
    const int first = static_cast<int>(low);
    const float inFirst = 1 - (low - static_cast<float>(first));
    int sum = std::min(rounded(run.perPixel * inFirst * inFirst * 0.5F), cover);
    add(cells_ + first, run.sign * sum);
    int column = first + 1;
    const int last = static_cast<int>(high);
    for (; column < last; ++column) {
      const int next =
          std::min(rounded(run.perPixel * (static_cast<float>(column) + 0.5F - low)), cover);
      add(cells_ + column, run.sign * (next - sum));
      sum = next;
    }
    // Where the edge ends on a pixel's left side, this gives all of the cover.
    const float inLast = high - static_cast<float>(column);
    const int next = std::max(cover - rounded(run.perPixel * inLast * inLast * 0.5F), 0);
    add(cells_ + column, run.sign * (next - sum));
    add(cells_ + column + 1, run.sign * (cover - next));
    touch(first, column + 1);
  }

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
void addRun(const Run& run, const CellBand<Cell>& band) {
  int row = run.y0 >> kUnitShift;
  const int lastRow = (run.y1 - 1) >> kUnitShift;
  if (row == lastRow) {
    RowWriter<Cell, Tracked>(band, row).addPiece(run.x0, run.x1, run.y1 - run.y0, run);
    return;
  }
  const float slope = (run.x1 - run.x0) / static_cast<float>(run.y1 - run.y0);
  const float low = std::min(run.x0, run.x1);
  const float high = std::max(run.x0, run.x1);
  // Rounding may carry an interpolated x past the edge's own ends, and those lie in the region.
  const auto xAt = [&](int y) {
    return std::clamp(run.x0 + static_cast<float>(y - run.y0) * slope, low, high);
  };
  int top = std::max(run.y0, 0);
  const int bottom = std::min(run.y1, band.rows * kUnitsPerPixel);
  float xa = run.y0 < 0 ? xAt(0) : run.x0;
  row = top >> kUnitShift;
  while (top < bottom) {
    const int rowEnd = std::min((row + 1) << kUnitShift, bottom);
    const float xb = rowEnd == run.y1 ? run.x1 : xAt(rowEnd);
    RowWriter<Cell, Tracked>(band, row).addPiece(xa, xb, rowEnd - top, run);
    xa = xb;
    top = rowEnd;
    ++row;
  }
}

template <typename Cell, bool Tracked>
void accumulateInto(std::span<const Edge> edges, const CellBand<Cell>& band) {
  const int bandTop = band.firstRow * kUnitsPerPixel;
  const int bandHeight = band.rows * kUnitsPerPixel;
  for (const Edge& edge : edges) {
    const int y0 = edge.y0 - bandTop;
    const int y1 = edge.y1 - bandTop;
    const bool down = y0 < y1;
    Run run{down ? edge.x0 : edge.x1,
            down ? edge.x1 : edge.x0,
            down ? y0 : y1,
            down ? y1 : y0,
            down ? 1 : -1,
            0};
    if (run.y1 <= 0 || run.y0 >= bandHeight) continue;
    run.perPixel = static_cast<float>(run.y1 - run.y0) / std::fabs(run.x1 - run.x0);
    addRun<Cell, Tracked>(run, band);
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
