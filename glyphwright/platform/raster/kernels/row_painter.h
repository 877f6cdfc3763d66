#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

#include <glyphwright/platform/raster/kernels/rows.h>

/// From rows of cells to whatever paints them, one row or two at a time from left to right.
namespace glyphwright::raster::loops {
namespace {

/// From winding × coverage in 1/1024 to coverage in 1/1024.
template <FillRule rule, typename Shorts>
Shorts foldWinding(Shorts sums) {
  if constexpr (rule == FillRule::nonZero) {
    return min(abs(sums), Shorts::every(kUnitsPerPixel));
  } else {
    const Shorts phase = sums & Shorts::every(2 * kUnitsPerPixel - 1);
    return min(phase, Shorts::every(2 * kUnitsPerPixel) - phase);
  }
}

/// A bit for each of up to 64 blocks, set where it was touched.
template <typename L>
std::uint64_t touchedBits(const std::uint8_t* touched, std::size_t count) {
  const auto half = [&](std::size_t from) {
    return from >= count ? 0 : std::uint64_t{L::marks(touched + from)};
  };
  return half(0) | half(32) << 32;
}

/// The coverage of one shape in one row of pixels or two.
template <typename L, FillRule rule, typename Rows>
class ShapeUnits {
 public:
  using Units = typename L::Shorts;
  using Block = typename TwoRows<L>::Block;

  ShapeUnits(const CellRows& rows, std::size_t y)
      : stride_(rows.stride),
        cells_(rows.cells + y * stride_),
        end_(cells_ + stride_ - rows.before),
        touched_(rows.touched == nullptr ? nullptr : rows.touched + y * (stride_ / kBlock)) {
    if (rows.before == 0) return;
    isCarriedInto_ = true;
    for (std::int16_t* from = cells_ - rows.before; from < cells_; from += Rows::kPixels) {
      sums_.next(Rows::take(from, stride_));
    }
  }

  Units next() {
    const Units sums = sums_.next(Rows::take(cells_, stride_));
    cells_ += Rows::kPixels;
    return foldWinding<rule>(sums);
  }
  /// The same at the end of a row.
  template <typename End>
  Units next(const End& end) {
    return end.cut(next());
  }
  /// Those of a block of two rows.
  Block nextBlock() {
    const Block block = TwoRows<L>::takeBlock(cells_, stride_);
    cells_ += kBlock;
    const Units first = foldWinding<rule>(sums_.next(block.first));
    return {first, foldWinding<rule>(sums_.next(block.second))};
  }
  /// What goes on from the last pixel.
  Units last() const { return foldWinding<rule>(sums_.sum()); }
  void skip(std::size_t blocks) { cells_ += blocks * kBlock; }
  /// Sets the cells that are left back to zero.
  void clearRest() {
    // There are few of them, so that these steps are faster than the call that a loop becomes.
    for (int step = 0; step < 6; ++step, cells_ += Rows::kPixels) {
      if (cells_ >= end_) return;
      Rows::take(cells_, stride_);
    }
    for (; cells_ < end_; cells_ += Rows::kPixels) Rows::take(cells_, stride_);
  }

  /// A bit for each of up to 64 blocks, set where it was touched or something is carried into it.
  std::uint64_t touched(std::size_t from, std::size_t count) const {
    std::uint64_t set = from == 0 && isCarriedInto_ ? 1 : 0;
    for (std::size_t row = 0; row < Rows::kRows; ++row) {
      set |= touchedBits<L>(touched_ + row * (stride_ / kBlock) + from, count);
    }
    return set;
  }

 private:
  std::size_t stride_;
  std::int16_t* cells_;
  std::int16_t* end_;
  const std::uint8_t* touched_;
  bool isCarriedInto_ = false;
  typename Rows::Sums sums_{};
};

/// One row or two, from left to right.
template <typename Shape, typename Rows, typename Painter>
class RowPainter {
 public:
  RowPainter(const Rows& rows, const Shape& shape, const Painter& painter, std::uint8_t* rgba)
      : rows_(rows), shape_(shape), painter_(painter), rgba_(rgba) {}

  // Stretches of Rows::kPixels.
  void sum(std::size_t stretches) {
    for (; stretches > 0; --stretches) {
      painter_.paint(rows_, rgba_, shape_.next());
      rgba_ += Rows::kPixels * 4;
    }
  }
  void sumWhereTouched(std::size_t blocks) {
    for (std::size_t from = 0; from < blocks; from += 64) {
      const std::size_t count = std::min(blocks - from, std::size_t{64});
      std::uint64_t set = shape_.touched(from, count);
      for (std::size_t at = 0; at < count;) {
        const std::size_t gap =
            std::min(static_cast<std::size_t>(std::countr_zero(set)), count - at);
        if (gap > 0) {
          painter_.goOn(rows_, rgba_, gap, from + at == 0, shape_.last());
          shape_.skip(gap);
          rgba_ += gap * kBlock * 4;
          at += gap;
          if (at == count) break;
          set >>= gap;
        }
        const std::size_t run =
            std::min(static_cast<std::size_t>(std::countr_one(set)), count - at);
        sumTouched(run * (kBlock / Rows::kPixels));
        at += run;
        set = run < 64 ? set >> run : 0;
      }
    }
  }
  template <typename End>
  void finish(const End& end) {
    painter_.paint(end, rgba_, shape_.next(end));
  }
  void clearRest() { shape_.clearRest(); }

 private:
  // Of these, few are empty: asking would cost more than painting them.
  void sumTouched(std::size_t stretches) {
    if constexpr (requires { painter_.prepare(rgba_, stretches); }) {
      painter_.prepare(rgba_, stretches * Rows::kPixels);
    }
    for (; stretches > 0; --stretches) {
      painter_.paintAny(rows_, rgba_, shape_.next());
      rgba_ += Rows::kPixels * 4;
    }
  }

  const Rows rows_;
  Shape shape_;
  const Painter& painter_;
  std::uint8_t* rgba_;
};

/// Goes on with the pixel to the left for whole blocks, with nothing at a row's start.
template <typename L, typename Rows>
void repeatPixels(const Rows& rows, std::uint8_t* rgba, std::size_t blocks, bool isStart) {
  for (std::size_t row = 0; row < Rows::kRows; ++row, rgba += rows.rowBytes) {
    std::int32_t pixel = 0;
    if (!isStart) std::memcpy(&pixel, rgba - sizeof(pixel), sizeof(pixel));
    const auto eight = L::Ints::every(pixel);
    std::uint8_t* at = rgba;
    for (std::size_t b = 0; b < blocks; ++b, at += std::size_t{kBlock} * 4) {
      store(at, eight);
      store(at + 32, eight);
    }
  }
}

/// The same in four rows side by side.
template <typename L>
void repeatSideBySide(std::uint8_t* rgba, std::size_t rowBytes, std::size_t blocks, bool isStart) {
  typename L::Ints eight[4];
  for (std::size_t row = 0; row < 4; ++row) {
    std::int32_t pixel = 0;
    if (!isStart) std::memcpy(&pixel, rgba + row * rowBytes - sizeof(pixel), sizeof(pixel));
    eight[row] = L::Ints::every(pixel);
  }
  std::uint8_t* const end = rgba + blocks * kBlock * 4;
  if (blocks % 2 != 0) {
    for (std::size_t row = 0; row < 4; ++row) {
      store(rgba + row * rowBytes, eight[row]);
      store(rgba + row * rowBytes + 32, eight[row]);
    }
    rgba += kBlock * 4;
  }
  for (; rgba < end; rgba += 2 * kBlock * 4) {
    std::uint8_t* to = rgba;
    for (const auto& pixels : eight) {
      for (int at = 0; at < 2 * kBlock * 4; at += 32) store(to + at, pixels);
      to += rowBytes;
    }
  }
}

/// Where pixels go.
struct PixelRows {
  std::uint8_t* rgba;
  std::size_t rowBytes;
  std::size_t rows;
  std::size_t width;
  bool isMarked;  // where their shape was touched
};

// Rows from `from` up to but not including `until`, as many at a time as `layout` says.
template <typename Rows, typename End, typename ShapeOf, typename PainterOf>
void paintRows(const PixelRows& pixels, const Rows& layout, std::size_t from, std::size_t until,
               const End& end, const ShapeOf& shapeOf, const PainterOf& painterOf) {
  const std::size_t width = pixels.width;
  for (std::size_t y = from; y < until; y += Rows::kRows) {
    const auto shape = shapeOf(layout, y);
    const auto& painter = painterOf(layout, y);
    RowPainter row(layout, shape, painter, pixels.rgba + y * pixels.rowBytes);
    if (!pixels.isMarked) {
      row.sum(width / Rows::kPixels);
    } else {
      row.sumWhereTouched(width / kBlock);
      row.sum(width % kBlock / Rows::kPixels);
    }
    if (width % Rows::kPixels != 0) row.finish(end);
    row.clearRest();
  }
}

// Rows up to but not including `until` in fours: what is marked in one of them is taken for marked
// in all, and their pixels are written side by side, since memory takes several rows at a time
// faster than one after the other. Gives the row that comes next.
template <typename L, typename ShapeOf, typename PainterOf>
std::size_t paintFours(const PixelRows& pixels, const TwoRows<L>& two, std::size_t until,
                       const TwoRowsEnd<L>& end, const ShapeOf& shapeOf,
                       const PainterOf& painterOf) {
  const std::size_t rowBytes = pixels.rowBytes;
  const std::size_t blocks = pixels.width / kBlock;
  std::size_t y = 0;
  for (; y + 4 <= until; y += 4) {
    std::uint8_t* rgba = pixels.rgba + y * rowBytes;
    auto upper = shapeOf(two, y);
    auto lower = shapeOf(two, y + 2);
    const auto& upperPainter = painterOf(two, y);
    const auto& lowerPainter = painterOf(two, y + 2);
    for (std::size_t from = 0; from < blocks; from += 64) {
      const std::size_t count = std::min(blocks - from, std::size_t{64});
      std::uint64_t set = upper.touched(from, count) | lower.touched(from, count);
      for (std::size_t at = 0;; set &= set - 1) {
        const std::size_t next = std::min(static_cast<std::size_t>(std::countr_zero(set)), count);
        if (next > at) {
          const std::size_t gap = next - at;
          repeatSideBySide<L>(rgba, rowBytes, gap, from + at == 0);
          upper.skip(gap);
          lower.skip(gap);
          rgba += gap * kBlock * 4;
        }
        if (next == count) break;
        upperPainter.paintBlock(two, rgba, upper.nextBlock());
        lowerPainter.paintBlock(two, rgba + 2 * rowBytes, lower.nextBlock());
        rgba += kBlock * 4;
        at = next + 1;
      }
    }
    const auto finish = [&](auto& shape, const auto& painter, std::uint8_t* to) {
      RowPainter rest(two, shape, painter, to);
      rest.sum(pixels.width % kBlock / TwoRows<L>::kPixels);
      if (pixels.width % TwoRows<L>::kPixels != 0) rest.finish(end);
      rest.clearRest();
    };
    finish(upper, upperPainter, rgba);
    finish(lower, lowerPainter, rgba + 2 * rowBytes);
  }
  return y;
}

/// `shapeOf(layout, y)` gives the coverage of row `y`, or of that and the next, and
/// `painterOf(layout, y)` what they are painted with. Where a set gains by it, two rows at a time,
/// but for the last ones, from which a whole stretch would reach too far; and four at a time where
/// it is marked what was touched, and untouched pixels only repeat what is left of them.
template <typename L, typename ShapeOf, typename PainterOf>
void paintShape(const PixelRows& pixels, const ShapeOf& shapeOf, const PainterOf& painterOf) {
  std::size_t done = 0;
  if constexpr (L::kPairsRows) {
    const std::size_t cut = pixels.width % TwoRows<L>::kPixels;
    const std::size_t reach = cut == 0 ? 0 : (TwoRows<L>::kPixels - cut) * 4;
    const std::size_t last = std::min((reach + pixels.rowBytes - 1) / pixels.rowBytes, pixels.rows);
    const std::size_t paired = (pixels.rows - last) / 2 * 2;
    const TwoRows<L> two{pixels.rowBytes};
    const TwoRowsEnd<L> end(two, cut);
    if constexpr (std::decay_t<decltype(painterOf(two, 0))>::kRepeats) {
      if (pixels.isMarked) done = paintFours(pixels, two, paired, end, shapeOf, painterOf);
    }
    paintRows(pixels, two, done, paired, end, shapeOf, painterOf);
    done = paired;
  }
  paintRows(pixels, OneRow<L>{pixels.rowBytes}, done, pixels.rows,
            OneRowEnd<L>{pixels.width % OneRow<L>::kPixels}, shapeOf, painterOf);
}

/// Runs `step` with all that it calls inlined, where the set wants that. What happens for every
/// block is called in several places, which compilers take for a reason not to inline it.
template <typename Step>
[[gnu::flatten]] void flattened(const Step& step) {
  step();
}
template <typename L, typename Step>
void run(const Step& step) {
  if constexpr (L::kFlattens) {
    flattened(step);
  } else {
    step();
  }
}

/// Runs `step` with a rule that is known when compiling.
template <typename Step>
void withRule(FillRule rule, const Step& step) {
  if (rule == FillRule::nonZero) {
    step(std::integral_constant<FillRule, FillRule::nonZero>{});
  } else {
    step(std::integral_constant<FillRule, FillRule::evenOdd>{});
  }
}

/// One colour for all rows.
template <typename Painter>
auto evenly(const Painter& painter) {
  return [painter](const auto& /*layout*/, std::size_t /*y*/) -> const auto& {
    return painter;
  };
}

}  // namespace
}  // namespace glyphwright::raster::loops
