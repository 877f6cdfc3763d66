#include <glyphwright/platform/raster/coverage.h>

#include <algorithm>
#include <bit>
#include <cstring>
#include <variant>

namespace glyphwright::raster {
namespace {

// A region this small is kept in the nearest cache as a whole.
constexpr std::size_t kDenseCells = 128 * 144;
// Bands of rows are as high as the near caches take, so that few edges are met twice.
constexpr std::size_t kBandCells = 64 * 1024;
constexpr int kLeastBandRows = 32;

// A power of two.
int bandRowsFor(std::size_t stride) {
  return std::max(static_cast<int>(std::bit_floor(kBandCells / stride)), kLeastBandRows);
}

// Rows that are painted by turns: few enough to stay in the near caches, as many as that allows.
constexpr std::size_t kTurnBytes = 128 * 1024;

// Sums a shape's rows on demand, from top to bottom, a band of them at a time.
template <typename Cell>
class Sweeper {
 public:
  explicit Sweeper(const Sweep& shape)
      : edges_(shape.edges), rule_(shape.rule), scratch_(shape.scratch), sink_(shape.sink) {
    const bool isDense = stride_ * static_cast<std::size_t>(height_) <= kDenseCells;
    const int rows = isDense ? height_ : bandRowsFor(stride_);
    bandRows_ = std::min(height_, rows);
    const std::size_t cells = stride_ * static_cast<std::size_t>(bandRows_);
    // The last row is set back to zero as far as the others, into the left of the next one.
    const std::size_t wanted = cells + static_cast<std::size_t>(left_);
    if (memory().size() < wanted) memory().resize(wanted);
    if (scratch_.coverage.size() < stride_) scratch_.coverage.resize(stride_);
    band_ = {memory().data(), stride_, nullptr, 0, 0};
    if (isDense) return;
    scratch_.touched.assign(cells / kBlock + kTouchedMargin, 0);
    band_.touched = scratch_.touched.data();
    if (bandRows_ < height_) sortByBand((height_ + bandRows_ - 1) / bandRows_);
  }

  /// Hands on all rows above `row`, counted from the region's top, that have not been.
  void emitUntil(int row) {
    row = std::min(row, height_);
    while (done_ < row) {
      if (done_ == band_.firstRow + band_.rows) openBand();
      const int until = std::min(row, band_.firstRow + band_.rows);
      emit(until - done_);
      done_ = until;
    }
  }

 private:
  LineVector<Cell>& memory() {
    if constexpr (sizeof(Cell) == 2) {
      return scratch_.narrowCells;
    } else {
      return scratch_.wideCells;
    }
  }

  int sum(Cell* from, std::size_t count, int carry, std::uint16_t* out) const {
    if constexpr (sizeof(Cell) == 2) {
      return scratch_.kernels->sumNarrow(from, count, carry, rule_, out);
    } else {
      return scratch_.kernels->sumWide(from, count, carry, rule_, out);
    }
  }

  // Orders the edges by the band in which they start; level ones come last.
  void sortByBand(int bands) {
    auto& starts = scratch_.bandStarts;
    starts.assign(static_cast<std::size_t>(bands) + 2, 0);
    const int shift = std::countr_zero(static_cast<unsigned>(bandRows_)) + kUnitShift;
    const auto bandOf = [shift, bands](const Edge& e) {
      const int band = std::max(std::min(e.y0, e.y1), 0) >> shift;
      return static_cast<std::size_t>(e.y0 == e.y1 ? bands : band);
    };
    for (const Edge& e : edges_.edges()) ++starts[bandOf(e) + 1];
    for (std::size_t b = 1; b < starts.size(); ++b) starts[b] += starts[b - 1];
    scratch_.sortedEdges.resize(edges_.count);
    for (const Edge& e : edges_.edges()) scratch_.sortedEdges[starts[bandOf(e)]++] = e;
    // Each start has moved to its band's end, which is the next band's start.
    scratch_.activeEdges.clear();
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

  // Accumulates the rows that come next.
  void openBand() {
    band_.firstRow = done_;
    band_.rows = std::min(bandRows_, height_ - done_);
    std::span<const Edge> inBand = edges_.edges();
    if (bandRows_ < height_) {
      auto& active = scratch_.activeEdges;
      keepBelow(active, done_);
      const std::size_t end = scratch_.bandStarts[static_cast<std::size_t>(done_ / bandRows_)];
      active.insert(active.end(),
                    scratch_.sortedEdges.cbegin() + static_cast<std::ptrdiff_t>(next_),
                    scratch_.sortedEdges.cbegin() + static_cast<std::ptrdiff_t>(end));
      next_ = end;
      inBand = active;
    }
    accumulate<Cell>(inBand, band_, *scratch_.kernels);
    if (left_ > 0) carryIn();
  }

  // Adds up what lies left of the region, in the first cell inside.
  void carryIn() {
    for (int row = 0; row < band_.rows; ++row) {
      Cell* const inside = band_.cells + static_cast<std::size_t>(row) * stride_ + left_;
      Cell sum = 0;
      for (Cell* block = inside - left_; block < inside; block += kBlock) {
        for (int i = 0; i < kBlock; ++i) sum = static_cast<Cell>(sum + block[i]);
        std::fill_n(block, kBlock, Cell{0});
      }
      *inside = static_cast<Cell>(*inside + sum);
    }
    if (band_.touched == nullptr) return;
    const std::size_t blocks = stride_ / kBlock;
    for (int row = 0; row < band_.rows; ++row) {
      std::uint8_t* touched = band_.touched + static_cast<std::size_t>(row) * blocks;
      touched[left_ / kBlock] |= touched[left_ / kBlock - 1];
    }
  }

  // Hands on the next rows of the band: as cells where the sink takes them.
  void emit(int rows) {
    const auto first = static_cast<std::size_t>(done_ - band_.firstRow);
    const std::size_t blocks = stride_ / kBlock;
    std::uint8_t* touched = band_.touched == nullptr ? nullptr : band_.touched + first * blocks;
    Cell* cells = band_.cells + first * stride_ + left_;
    std::uint8_t* inside = touched == nullptr ? nullptr : touched + left_ / kBlock;
    if (!emitCells(cells, inside, rows)) {
      for (int row = 0; row < rows; ++row) {
        const auto at = static_cast<std::size_t>(row);
        emitRow(cells + at * stride_, inside == nullptr ? nullptr : inside + at * blocks,
                edges_.region.y0 + done_ + row);
      }
    }
    if (touched != nullptr) std::fill_n(touched, blocks * static_cast<std::size_t>(rows), 0);
  }

  bool emitCells(Cell* cells, const std::uint8_t* touched, int rows) {
    if constexpr (sizeof(Cell) == 2) {
      return sink_.cells(edges_.region.y0 + done_,
                         {cells, stride_, touched, static_cast<std::size_t>(rows),
                          static_cast<std::size_t>(width_), rule_});
    } else {
      return false;
    }
  }

  void emitRow(Cell* from, const std::uint8_t* touched, int y) {
    spans_.clear();
    const int blocks = (static_cast<int>(stride_) - left_) / kBlock;
    if (touched == nullptr) {
      sum(from, static_cast<std::size_t>(blocks) * kBlock, 0, scratch_.coverage.data());
      addSpan(0, blocks, CoverageSpan::kVaries);
      sink_.row({y, spans_, scratch_.coverage.data()});
      return;
    }
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
                    scratch_.coverage.data() + at);
        addSpan(touchedFrom, touchedTo, CoverageSpan::kVaries);
      }
      block = touchedTo;
    }
    sink_.row({y, spans_, scratch_.coverage.data()});
  }

  // The coverage that a running sum stands for.
  int levelOf(int carry) const {
    Cell none = 0;
    std::uint16_t level = 0;
    if constexpr (sizeof(Cell) == 2) {
      scalarKernels().sumNarrow(&none, 1, carry, rule_, &level);
    } else {
      scalarKernels().sumWide(&none, 1, carry, rule_, &level);
    }
    return level;
  }

  void addSpan(int fromBlock, int toBlock, int constant) {
    const int x0 = fromBlock * kBlock;
    const int x1 = std::min(toBlock * kBlock, width_);
    if (x0 < x1) spans_.push_back({x0, x1, constant});
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

  const EdgeList& edges_;
  FillRule rule_;
  Scratch& scratch_;
  RowSink& sink_;
  int width_ = edges_.region.width();
  int height_ = edges_.region.height();
  int left_ = edges_.beyondLeft;
  std::size_t stride_ = cellStride(left_ + width_ + edges_.beyondRight);
  int bandRows_;
  CellBand<Cell> band_;
  int done_ = 0;          // rows
  std::size_t next_ = 0;  // of the sorted edges
  std::vector<CoverageSpan> spans_;
};

using AnySweeper = std::variant<Sweeper<std::int16_t>, Sweeper<std::int32_t>>;

AnySweeper sweeperOf(const Sweep& shape) {
  if (shape.edges.verticalRuns / 2 <= kNarrowWindingLimit) {
    return AnySweeper(std::in_place_index<0>, shape);
  }
  return AnySweeper(std::in_place_index<1>, shape);
}

void emitUntil(AnySweeper& sweeper, int row) {
  std::visit([row](auto& any) { any.emitUntil(row); }, sweeper);
}

}  // namespace

void sweep(const EdgeList& edges, FillRule rule, Scratch& scratch, RowSink& sink) {
  if (edges.region.isEmpty()) return;
  AnySweeper sweeper = sweeperOf({edges, rule, scratch, sink});
  emitUntil(sweeper, edges.region.height());
}

void sweepByTurns(const Sweep& below, const Sweep& above) {
  const PixelRect& first = below.edges.region;
  const PixelRect& second = above.edges.region;
  AnySweeper lower = sweeperOf(below);
  AnySweeper upper = sweeperOf(above);
  const auto rowBytes = static_cast<std::size_t>(std::max(first.width(), second.width())) * 4;
  const int turn = std::max(static_cast<int>(kTurnBytes / rowBytes), 1);
  for (int y = first.y0; y < first.y1; y += turn) {
    emitUntil(lower, y + turn - first.y0);
    emitUntil(upper, y + turn - second.y0);
  }
  emitUntil(upper, second.height());
}

}  // namespace glyphwright::raster
