#include <glyphwright/platform/raster/coverage.h>

#include <algorithm>
#include <bit>
#include <cstdlib>
#include <cstring>
#include <variant>

#include <glyphwright/platform/raster/cell_bands.h>

namespace glyphwright::raster {
namespace {

// Rows that are painted by turns: few enough to stay in the near caches, as many as that allows.
constexpr std::size_t kTurnBytes = 128 * 1024;

// Sums a shape's rows on demand, from top to bottom.
template <typename Cell>
class Sweeper {
 public:
  explicit Sweeper(const Sweep& shape)
      : region_(shape.edges.region),
        rule_(shape.rule),
        coverage_(shape.memory.coverage),
        kernels_(shape.kernels),
        sink_(shape.sink),
        bands_(shape.edges, region_, shape.memory, shape.kernels) {
    if (coverage_.size() < bands_.stride()) coverage_.resize(bands_.stride());
  }

  /// Hands on all rows above `row`, counted from the region's top, that have not been.
  void emitUntil(int row) {
    row = std::min(row, region_.height());
    while (done_ < row) {
      if (done_ == bands_.end()) bands_.openNext();
      const int until = std::min(row, bands_.end());
      emit(until - done_);
      bands_.takeBack(done_, until - done_);
      done_ = until;
    }
  }

 private:
  int sum(Cell* from, std::size_t count, int carry, std::uint16_t* out) const {
    if constexpr (sizeof(Cell) == 2) {
      return kernels_.sumNarrow(from, count, carry, rule_, out);
    } else {
      for (std::size_t i = 0; i < count; ++i) {
        carry = static_cast<int>(static_cast<unsigned>(carry) + static_cast<unsigned>(from[i]));
        from[i] = 0;
        out[i] = levelOf(carry);
      }
      return carry;
    }
  }

  // Hands on the next rows of the band: as cells where the sink takes them.
  void emit(int rows) {
    if constexpr (sizeof(Cell) == 2) {
      const bool isDone = sink_.cells(
          region_.y0 + done_, {bands_.cells(done_), bands_.stride(), bands_.touched(done_),
                               static_cast<std::size_t>(rows),
                               static_cast<std::size_t>(region_.width()), rule_, bands_.before()});
      if (isDone) return;
    }
    for (int row = done_; row < done_ + rows; ++row) {
      emitRow(bands_.cells(row), bands_.touched(row), region_.y0 + row);
    }
  }

  void emitRow(Cell* from, const std::uint8_t* touched, int y) {
    spans_.clear();
    const std::size_t before = bands_.before();
    const int blocks = static_cast<int>((bands_.stride() - before) / kBlock);
    int carry = sum(from - before, before, 0, coverage_.data());
    if (touched == nullptr) {
      sum(from, static_cast<std::size_t>(blocks) * kBlock, carry, coverage_.data());
      addSpan(0, blocks, CoverageSpan::kVaries);
      sink_.row({y, spans_, coverage_.data()});
      return;
    }
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
                    coverage_.data() + at);
        addSpan(touchedFrom, touchedTo, CoverageSpan::kVaries);
      }
      block = touchedTo;
    }
    sink_.row({y, spans_, coverage_.data()});
  }

  // The coverage that a running sum stands for, as sumNarrow has it.
  std::uint16_t levelOf(int carry) const {
    int units = std::clamp(carry, -kUnitsPerPixel, kUnitsPerPixel);
    units = std::abs(units);
    if (rule_ == FillRule::evenOdd) {
      const int phase = carry & (2 * kUnitsPerPixel - 1);
      units = std::min(phase, 2 * kUnitsPerPixel - phase);
    }
    return static_cast<std::uint16_t>((units << 5) - (units >> 10));
  }

  void addSpan(int fromBlock, int toBlock, int constant) {
    const int x0 = fromBlock * kBlock;
    const int x1 = std::min(toBlock * kBlock, region_.width());
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

  const PixelRect& region_;
  FillRule rule_;
  std::vector<std::uint16_t>& coverage_;
  const Kernels& kernels_;
  RowSink& sink_;
  CellBands<Cell> bands_;
  int done_ = 0;  // rows
  std::vector<CoverageSpan> spans_;
};

using AnySweeper = std::variant<Sweeper<std::int16_t>, Sweeper<std::int32_t>>;

AnySweeper sweeperOf(const Sweep& shape) {
  if (isNarrow(shape.edges)) {
    return AnySweeper(std::in_place_index<0>, shape);
  }
  return AnySweeper(std::in_place_index<1>, shape);
}

void emitUntil(AnySweeper& sweeper, int row) {
  std::visit([row](auto& any) { any.emitUntil(row); }, sweeper);
}

}  // namespace

void sweep(const EdgeList& edges, FillRule rule, CellMemory& memory, const Kernels& kernels,
           RowSink& sink) {
  if (edges.region.isEmpty()) return;
  AnySweeper sweeper = sweeperOf({edges, rule, memory, kernels, sink});
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
