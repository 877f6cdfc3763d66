#include <glyphwright/platform/raster/coverage.h>

#include <algorithm>
#include <bit>
#include <cstring>

namespace glyphwright::raster {
namespace {

// A region this small is kept in the nearest cache as a whole.
constexpr std::size_t kDenseCells = 128 * 144;
// Bands of rows are as high as the near caches take, so that few edges are met twice.
constexpr std::size_t kBandCells = 48 * 1024;
constexpr int kLeastBandRows = 32;

template <typename Cell>
struct Sweeper {
  const EdgeList& edges;
  FillRule rule;
  Scratch& scratch;
  RowSink& sink;

  int width = edges.region.width();
  int height = edges.region.height();
  std::size_t stride = cellStride(width);
  int bandRows = std::max(static_cast<int>(kBandCells / stride), kLeastBandRows);

  LineVector<Cell>& cells() {
    if constexpr (sizeof(Cell) == 2) {
      return scratch.narrowCells;
    } else {
      return scratch.wideCells;
    }
  }

  int sum(Cell* from, std::size_t count, int carry, std::uint16_t* out) const {
    if constexpr (sizeof(Cell) == 2) {
      return scratch.kernels->sumNarrow(from, count, carry, rule, out);
    } else {
      return scratch.kernels->sumWide(from, count, carry, rule, out);
    }
  }

  CellBand<Cell> band(int rows) {
    if (cells().size() < stride * static_cast<std::size_t>(rows)) {
      cells().resize(stride * static_cast<std::size_t>(rows));
    }
    if (scratch.coverage.size() < stride) scratch.coverage.resize(stride);
    return {cells().data(), stride, nullptr, 0, rows};
  }

  // Hands the band over as cells where the sink takes them.
  bool emitCells(const CellBand<Cell>& current) {
    if constexpr (sizeof(Cell) == 2) {
      return sink.cells(
          edges.region.y0 + current.firstRow,
          {current.cells, stride, current.touched, static_cast<std::size_t>(current.rows),
           static_cast<std::size_t>(width), rule});
    } else {
      return false;
    }
  }

  void dense() {
    const CellBand<Cell> all = band(height);
    accumulate<Cell>(edges.edges(), all, *scratch.kernels);
    if (emitCells(all)) return;
    const CoverageSpan span{0, width, CoverageSpan::kVaries};
    std::uint16_t* coverage = scratch.coverage.data();
    for (int row = 0; row < height; ++row) {
      sum(all.cells + static_cast<std::size_t>(row) * stride, stride, 0, coverage);
      sink.row({edges.region.y0 + row, {&span, 1}, coverage});
    }
  }

  // Orders the edges by the band in which they start; level ones come last.
  void sortByBand(int bands) {
    auto& starts = scratch.bandStarts;
    starts.assign(static_cast<std::size_t>(bands) + 2, 0);
    const auto bandOf = [this, bands](const Edge& e) {
      const int band = std::min(e.y0, e.y1) / (bandRows * kUnitsPerPixel);
      return static_cast<std::size_t>(e.y0 == e.y1 ? bands : band);
    };
    for (const Edge& e : edges.edges()) ++starts[bandOf(e) + 1];
    for (std::size_t b = 1; b < starts.size(); ++b) starts[b] += starts[b - 1];
    scratch.sortedEdges.resize(edges.count);
    for (const Edge& e : edges.edges()) scratch.sortedEdges[starts[bandOf(e)]++] = e;
    // Each start has moved to its band's end, which is the next band's start.
  }

  // Drops the edges that end above a row. Which do nobody can foretell, so all are written.
  static void keepBelow(std::vector<Edge>& active, int row) {
    std::size_t kept = 0;
    for (const Edge& e : active) {
      active[kept] = e;
      kept += std::max(e.y0, e.y1) > row * kUnitsPerPixel ? 1 : 0;
    }
    active.resize(kept);
  }

  void paintBand(const CellBand<Cell>& current, std::span<const Edge> inBand) {
    accumulate<Cell>(inBand, current, *scratch.kernels);
    if (!emitCells(current)) {
      for (int row = 0; row < current.rows; ++row) emitRow(current, row);
    }
    std::fill_n(current.touched, stride / kBlock * static_cast<std::size_t>(current.rows), 0);
  }

  void banded() {
    CellBand<Cell> current = band(std::min(bandRows, height));
    const std::size_t blocks = stride / kBlock * static_cast<std::size_t>(current.rows);
    scratch.touched.assign(blocks + kTouchedMargin, 0);
    current.touched = scratch.touched.data();
    if (height <= bandRows) return paintBand(current, edges.edges());

    const int bands = (height + bandRows - 1) / bandRows;
    sortByBand(bands);
    auto& active = scratch.activeEdges;
    active.clear();
    auto next = scratch.sortedEdges.cbegin();
    for (int b = 0; b < bands; ++b) {
      current.firstRow = b * bandRows;
      current.rows = std::min(bandRows, height - current.firstRow);
      const auto end =
          scratch.sortedEdges.cbegin() + scratch.bandStarts[static_cast<std::size_t>(b)];
      active.insert(active.end(), next, end);
      next = end;
      paintBand(current, active);
      keepBelow(active, current.firstRow + bandRows);
    }
  }

  void emitRow(const CellBand<Cell>& current, int row) {
    Cell* from = current.cells + static_cast<std::size_t>(row) * stride;
    const int blocks = static_cast<int>(stride) / kBlock;
    const std::uint8_t* touched = current.touched + row * blocks;
    spans.clear();
    int carry = 0;
    int block = 0;
    while (block < blocks) {
      const int touchedFrom = nextBlock(touched, block, blocks, false);
      if (touchedFrom > block) {
        addSpan(block, touchedFrom, levelOf(carry));
      }
      const int touchedTo = nextBlock(touched, touchedFrom, blocks, true);
      if (touchedTo > touchedFrom) {
        const auto at = static_cast<std::size_t>(touchedFrom) * kBlock;
        carry = sum(from + at, static_cast<std::size_t>(touchedTo - touchedFrom) * kBlock, carry,
                    scratch.coverage.data() + at);
        addSpan(touchedFrom, touchedTo, CoverageSpan::kVaries);
      }
      block = touchedTo;
    }
    sink.row({edges.region.y0 + current.firstRow + row, spans, scratch.coverage.data()});
  }

  // The coverage that a running sum stands for.
  int levelOf(int carry) const {
    Cell none = 0;
    std::uint16_t level = 0;
    if constexpr (sizeof(Cell) == 2) {
      scalarKernels().sumNarrow(&none, 1, carry, rule, &level);
    } else {
      scalarKernels().sumWide(&none, 1, carry, rule, &level);
    }
    return level;
  }

  void addSpan(int fromBlock, int toBlock, int constant) {
    const int x0 = fromBlock * kBlock;
    const int x1 = std::min(toBlock * kBlock, width);
    if (x0 < x1) spans.push_back({x0, x1, constant});
  }

  // The first block from `from` on that is not `set`.
  static int nextBlock(const std::uint8_t* touched, int from, int blocks, bool set) {
    const std::uint64_t same = set ? 0x0101010101010101 : 0;
    for (; from < blocks; from += 8) {
      std::uint64_t eight = 0;
      std::memcpy(&eight, touched + from, sizeof(eight));
      eight ^= same;
      if (eight != 0) return std::min(from + std::countr_zero(eight) / 8, blocks);
    }
    return blocks;
  }

  std::vector<CoverageSpan> spans = {};
};

template <typename Cell>
void sweepWith(const EdgeList& edges, FillRule rule, Scratch& scratch, RowSink& sink) {
  Sweeper<Cell> sweeper{edges, rule, scratch, sink};
  if (sweeper.stride * static_cast<std::size_t>(sweeper.height) <= kDenseCells) {
    sweeper.dense();
  } else {
    sweeper.banded();
  }
}

}  // namespace

void sweep(const EdgeList& edges, FillRule rule, Scratch& scratch, RowSink& sink) {
  if (edges.region.isEmpty()) return;
  if (edges.verticalRuns / 2 <= kNarrowWindingLimit) {
    sweepWith<std::int16_t>(edges, rule, scratch, sink);
  } else {
    sweepWith<std::int32_t>(edges, rule, scratch, sink);
  }
}

}  // namespace glyphwright::raster
