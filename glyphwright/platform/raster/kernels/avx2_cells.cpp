#include <glyphwright/platform/raster/kernels/avx2.h>

#include <bit>

#include <glyphwright/platform/raster/kernels/avx2_blend.h>
#include <glyphwright/platform/raster/kernels/avx2_lanes.h>

// Sixteen cells at a time become coverage or pixels; scalar_pixels.cpp says what each loop
// computes.
namespace glyphwright::raster::avx2 {
namespace {

// Running sums of sixteen 16-bit lanes.
__m256i prefixSum(__m256i v) {
  v = _mm256_add_epi16(v, _mm256_slli_si256(v, 2));
  v = _mm256_add_epi16(v, _mm256_slli_si256(v, 4));
  v = _mm256_add_epi16(v, _mm256_slli_si256(v, 8));
  // The upper half goes on from the lower half's total.
  const __m256i lower = _mm256_permute2x128_si256(v, v, 0x08);
  const __m256i total = _mm256_shuffle_epi8(lower, _mm256_set1_epi16(0x0F0E));
  return _mm256_add_epi16(v, total);
}

// The sum so far in every lane.
__m256i carried(__m256i sums) {
  const __m256i top = _mm256_permute2x128_si256(sums, sums, 0x11);
  return _mm256_shuffle_epi8(top, _mm256_set1_epi16(0x0F0E));
}

template <FillRule rule>
__m256i foldWinding(__m256i sums) {
  const __m256i full = _mm256_set1_epi16(kUnitsPerPixel);
  if constexpr (rule == FillRule::nonZero) {
    return _mm256_min_epi16(_mm256_abs_epi16(sums), full);
  } else {
    const __m256i phase = _mm256_and_si256(sums, _mm256_set1_epi16(2 * kUnitsPerPixel - 1));
    return _mm256_min_epi16(phase, _mm256_sub_epi16(_mm256_set1_epi16(2 * kUnitsPerPixel), phase));
  }
}

__m256i fractions(__m256i units) {
  return _mm256_sub_epi16(_mm256_slli_epi16(units, 5), _mm256_srli_epi16(units, 10));
}

template <FillRule rule>
int sumNarrowBy(std::int16_t* cells, std::size_t count, int carry, std::uint16_t* coverage) {
  const __m256i zero = _mm256_setzero_si256();
  __m256i running = _mm256_set1_epi16(static_cast<short>(carry));
  for (std::size_t i = 0; i < count; i += kBlock) {
    const __m256i sums = _mm256_add_epi16(prefixSum(load(cells + i)), running);
    store(cells + i, zero);
    store(coverage + i, fractions(foldWinding<rule>(sums)));
    running = carried(sums);
  }
  return static_cast<short>(_mm256_extract_epi16(running, 0));
}

// The end of a row with more rows to come: whole blocks are stored faster than parts, and what lies
// beyond the end is laid anew by the next row, or stays as it was under no coverage.
struct OpenEnd : Stretch {
  explicit OpenEnd(std::size_t count) : covered(firstLanes(count)) {}
  __m256i cut(__m256i units) const { return _mm256_and_si256(units, covered); }
  __m256i covered;
};

// The end of the last row, beyond which nothing may be touched.
struct ClosedEnd : RowEnd {
  using RowEnd::RowEnd;
  static __m256i cut(__m256i units) { return units; }
};

// A bit for each of up to 64 blocks, set where it was touched.
std::uint64_t touchedBits(const std::uint8_t* touched, std::size_t count) {
  const auto half = [&](std::size_t from) {
    if (from >= count) return std::uint64_t{0};
    const __m256i none = _mm256_cmpeq_epi8(load(touched + from), _mm256_setzero_si256());
    return std::uint64_t{~static_cast<std::uint32_t>(_mm256_movemask_epi8(none))};
  };
  return half(0) | half(32) << 32;
}

// One row, from left to right.
template <FillRule rule, typename Painter>
class RowPainter {
 public:
  RowPainter(std::int16_t* cells, const Painter& painter, std::uint8_t* rgba)
      : cells_(cells), rgba_(rgba), painter_(painter) {}

  void sum(std::size_t blocks) {
    for (; blocks > 0; --blocks) {
      painter_.paint(Stretch{}, rgba_, foldWinding<rule>(sums()));
      cells_ += kBlock;
      rgba_ += std::size_t{kBlock} * 4;
    }
  }
  void sumWhereTouched(const std::uint8_t* touched, std::size_t blocks) {
    for (std::size_t from = 0; from < blocks; from += 64) {
      const std::size_t count = blocks - from < 64 ? blocks - from : 64;
      std::uint64_t set = touchedBits(touched + from, count);
      for (std::size_t at = 0; at < count;) {
        const std::size_t gap = least(static_cast<std::size_t>(std::countr_zero(set)), count - at);
        if (gap > 0) {
          painter_.even(rgba_, gap, foldWinding<rule>(running_));
          cells_ += gap * kBlock;
          rgba_ += gap * kBlock * 4;
          at += gap;
          if (at == count) break;
          set >>= gap;
        }
        const std::size_t run = least(static_cast<std::size_t>(std::countr_one(set)), count - at);
        sumTouched(run);
        at += run;
        set = run < 64 ? set >> run : 0;
      }
    }
  }
  template <typename End>
  void finish(const End& end) {
    painter_.paint(end, rgba_, end.cut(foldWinding<rule>(sums())));
    cells_ += kBlock;
  }
  std::int16_t* next() const { return cells_; }

 private:
  // Of these, few are empty: asking would cost more than painting them.
  void sumTouched(std::size_t blocks) {
    for (; blocks > 0; --blocks) {
      painter_.paintAny(Stretch{}, rgba_, foldWinding<rule>(sums()));
      cells_ += kBlock;
      rgba_ += std::size_t{kBlock} * 4;
    }
  }

  static std::size_t least(std::size_t a, std::size_t b) { return a < b ? a : b; }

  // Of the block at hand, which is set back to zero.
  __m256i sums() {
    const __m256i sums = _mm256_add_epi16(prefixSum(load(cells_)), running_);
    store(cells_, _mm256_setzero_si256());
    running_ = carried(sums);
    return sums;
  }

  std::int16_t* cells_;
  std::uint8_t* rgba_;
  const Painter& painter_;
  __m256i running_ = _mm256_setzero_si256();
};

template <FillRule rule, typename End, typename Painter>
void paintRow(std::int16_t* cells, const std::uint8_t* touched, std::size_t stride,
              std::size_t width, const End& end, const Painter& painter, std::uint8_t* rgba) {
  RowPainter<rule, Painter> row(cells, painter, rgba);
  if (touched == nullptr) {
    row.sum(width / kBlock);
  } else {
    row.sumWhereTouched(touched, width / kBlock);
  }
  if (width % kBlock != 0) row.finish(end);
  for (std::int16_t* at = row.next(); at < cells + stride; at += kBlock) {
    store(at, _mm256_setzero_si256());
  }
}

template <FillRule rule, typename PainterOf>
void paintCellsBy(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& rows,
                  const PainterOf& painterOf) {
  const std::size_t cut = rows.width % kBlock;
  const OpenEnd open(cut);
  const ClosedEnd closed(cut);
  // As many of the last rows are closed as a whole block would reach over from.
  const std::size_t reach = (kBlock - cut) * 4;
  std::int16_t* cells = rows.cells;
  const std::uint8_t* touched = rows.touched;
  for (std::size_t left = rows.rows; left > 0; --left) {
    const auto& painter = painterOf(rows.rows - left);
    if ((left - 1) * rowBytes >= reach) {
      paintRow<rule>(cells, touched, rows.stride, rows.width, open, painter, rgba);
    } else {
      paintRow<rule>(cells, touched, rows.stride, rows.width, closed, painter, rgba);
    }
    rgba += rowBytes;
    cells += rows.stride;
    if (touched != nullptr) touched += rows.stride / kBlock;
  }
}

// `painterOf(row)` gives what a row is painted with.
template <typename PainterOf>
void paintCells(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& rows,
                const PainterOf& painterOf) {
  if (rows.rule == FillRule::nonZero) {
    paintCellsBy<FillRule::nonZero>(rgba, rowBytes, rows, painterOf);
  } else {
    paintCellsBy<FillRule::evenOdd>(rgba, rowBytes, rows, painterOf);
  }
}

// One channel of sixteen pixels a register, woven into pixels only when they are bytes.
class Writer {
 public:
  explicit Writer(const SolidColor& color) {
    for (int c = 0; c < 4; ++c) {
      channels_[c] = _mm256_set1_epi16(static_cast<short>(color.channels[c] >> 1));
    }
  }
  template <typename S>
  void paint(const S& stretch, std::uint8_t* rgba, __m256i units) const {
    stretch.storeBytes(rgba, pixels(units));
  }
  template <typename S>
  void paintAny(const S& stretch, std::uint8_t* rgba, __m256i units) const {
    paint(stretch, rgba, units);
  }
  // Whole blocks of one coverage.
  void even(std::uint8_t* rgba, std::size_t blocks, __m256i units) const {
    const __m256i eight = pixels(units).low;
    for (; blocks > 0; --blocks, rgba += std::size_t{kBlock} * 4) {
      store(rgba, eight);
      store(rgba + 32, eight);
    }
  }

 private:
  PixelPair pixels(__m256i units) const {
    const auto channel = [&](int c) { return _mm256_mulhrs_epi16(units, channels_[c]); };
    const __m256i rg = _mm256_or_si256(channel(0), _mm256_slli_epi16(channel(1), 8));
    const __m256i ba = _mm256_or_si256(channel(2), _mm256_slli_epi16(channel(3), 8));
    const __m256i a = _mm256_unpacklo_epi16(rg, ba);
    const __m256i b = _mm256_unpackhi_epi16(rg, ba);
    return {_mm256_permute2x128_si256(a, b, 0x20), _mm256_permute2x128_si256(a, b, 0x31)};
  }

  __m256i channels_[4];
};

class Blender {
 public:
  explicit Blender(const SolidColor& color)
      : ink_(color), writer_(color), isOpaque_(color.isOpaque()) {}
  template <typename S>
  void paint(const S& stretch, std::uint8_t* rgba, __m256i units) const {
    if (!isZero(units)) paintAny(stretch, rgba, units);
  }
  template <typename S>
  void paintAny(const S& stretch, std::uint8_t* rgba, __m256i units) const {
    stretch.storeBytes(rgba, ink_.over(fractions(units), stretch.loadBytes(rgba)));
  }
  void even(std::uint8_t* rgba, std::size_t blocks, __m256i units) const {
    if (isZero(units)) return;
    if (isOpaque_ && _mm256_extract_epi16(units, 0) == kUnitsPerPixel) {
      writer_.even(rgba, blocks, units);
      return;
    }
    for (std::size_t b = 0; b < blocks; ++b) paint(Stretch{}, rgba + b * kBlock * 4, units);
  }

 private:
  PlainInk ink_;
  Writer writer_;
  bool isOpaque_;
};

}  // namespace

int sumNarrow(std::int16_t* cells, std::size_t count, int carry, FillRule rule,
              std::uint16_t* coverage) {
  return rule == FillRule::nonZero ? sumNarrowBy<FillRule::nonZero>(cells, count, carry, coverage)
                                   : sumNarrowBy<FillRule::evenOdd>(cells, count, carry, coverage);
}

void writeCells(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& rows,
                const SolidColor& color) {
  const Writer writer(color);
  paintCells(rgba, rowBytes, rows, [&](std::size_t) -> const Writer& { return writer; });
}

void blendCells(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& rows,
                const SolidColor& color) {
  const Blender blender(color);
  paintCells(rgba, rowBytes, rows, [&](std::size_t) -> const Blender& { return blender; });
}

void writeCellsByRow(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& rows,
                     const SolidColor* colors) {
  paintCells(rgba, rowBytes, rows, [&](std::size_t row) { return Writer(colors[row]); });
}

void blendCellsByRow(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& rows,
                     const SolidColor* colors) {
  paintCells(rgba, rowBytes, rows, [&](std::size_t row) { return Blender(colors[row]); });
}

}  // namespace glyphwright::raster::avx2
