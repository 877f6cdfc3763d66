#include <glyphwright/platform/raster/kernels/avx2.h>

#include <algorithm>
#include <bit>
#include <cstring>
#include <type_traits>

#include <glyphwright/platform/raster/kernels/avx2_blend.h>
#include <glyphwright/platform/raster/kernels/avx2_lanes.h>
#include <glyphwright/platform/raster/kernels/avx2_rows.h>

// Sixteen cells at a time become coverage or pixels; scalar_pixels.cpp says what each loop
// computes.
namespace glyphwright::raster::avx2 {
namespace {

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
  OneRowSums running(carry);
  for (std::size_t i = 0; i < count; i += kBlock) {
    const __m256i sums = running.next(load(cells + i));
    store(cells + i, zero);
    store(coverage + i, fractions(foldWinding<rule>(sums)));
  }
  return static_cast<short>(_mm256_extract_epi16(running.sum(), 0));
}

template <FillRule rule>
void sumInsetBy(std::int16_t* cells, std::size_t count, std::uint16_t* around,
                std::uint16_t* inside) {
  const __m256i zero = _mm256_setzero_si256();
  const __m256i full = _mm256_set1_epi16(kUnitsPerPixel);
  OneRowSums running(0);
  for (std::size_t i = 0; i < count; i += kBlock) {
    const __m256i sums = running.next(load(cells + i));
    store(cells + i, zero);
    const __m256i covered = foldWinding<FillRule::evenOdd>(sums);
    store(around + i, fractions(_mm256_sub_epi16(full, covered)));
    store(inside + i, fractions(rule == FillRule::evenOdd ? covered : foldWinding<rule>(sums)));
  }
}

// A bit for each of up to 64 blocks, set where it was touched.
std::uint64_t touchedBits(const std::uint8_t* touched, std::size_t count) {
  const auto half = [&](std::size_t from) {
    if (from >= count) return std::uint64_t{0};
    const __m256i none = _mm256_cmpeq_epi8(load(touched + from), _mm256_setzero_si256());
    return std::uint64_t{~static_cast<std::uint32_t>(_mm256_movemask_epi8(none))};
  };
  return half(0) | half(32) << 32;
}

std::uint64_t touchedBits(const TwoRows& rows, const std::uint8_t* touched, std::size_t count) {
  return touchedBits(touched, count) | touchedBits(touched + rows.cellStride / kBlock, count);
}
std::uint64_t touchedBits(const OneRow& /*rows*/, const std::uint8_t* touched, std::size_t count) {
  return touchedBits(touched, count);
}

// One row or two, from left to right.
template <FillRule rule, typename Rows, typename Painter>
class RowPainter {
 public:
  RowPainter(const Rows& rows, std::int16_t* cells, const Painter& painter, std::uint8_t* rgba)
      : rows_(rows), cells_(cells), rgba_(rgba), painter_(painter) {}

  // Stretches of Rows::kPixels.
  void sum(std::size_t stretches) {
    for (; stretches > 0; --stretches) {
      painter_.paint(rows_, rgba_, foldWinding<rule>(sums_.next(rows_.take(cells_))));
      cells_ += Rows::kPixels;
      rgba_ += Rows::kPixels * 4;
    }
  }
  void sumWhereTouched(const std::uint8_t* touched, std::size_t blocks) {
    for (std::size_t from = 0; from < blocks; from += 64) {
      const std::size_t count = std::min(blocks - from, std::size_t{64});
      std::uint64_t set = touchedBits(rows_, touched + from, count);
      for (std::size_t at = 0; at < count;) {
        const std::size_t gap =
            std::min(static_cast<std::size_t>(std::countr_zero(set)), count - at);
        if (gap > 0) {
          painter_.goOn(rows_, rgba_, gap, from + at == 0, foldWinding<rule>(sums_.sum()));
          cells_ += gap * kBlock;
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
    painter_.paint(end, rgba_, end.cut(foldWinding<rule>(sums_.next(rows_.take(cells_)))));
    cells_ += Rows::kPixels;
  }
  // Sets the cells that are left back to zero.
  void clearUntil(const std::int16_t* end) {
    for (; cells_ < end; cells_ += Rows::kPixels) rows_.take(cells_);
  }

 private:
  // Of these, few are empty: asking would cost more than painting them.
  void sumTouched(std::size_t stretches) {
    for (; stretches > 0; --stretches) {
      painter_.paintAny(rows_, rgba_, foldWinding<rule>(sums_.next(rows_.take(cells_))));
      cells_ += Rows::kPixels;
      rgba_ += Rows::kPixels * 4;
    }
  }

  const Rows rows_;
  std::int16_t* cells_;
  std::uint8_t* rgba_;
  const Painter& painter_;
  typename Rows::Sums sums_{};
};

// Rows from `from` up to but not including `until`, as many at a time as `layout` says.
template <FillRule rule, typename Rows, typename End, typename PainterOf>
void paintRows(std::uint8_t* rgba, const CellRows& rows, const Rows& layout, std::size_t from,
               std::size_t until, const End& end, const PainterOf& painterOf) {
  const std::size_t stride = rows.stride;
  const std::size_t blocks = rows.width / kBlock;
  const std::size_t cut = rows.width % Rows::kPixels;
  for (std::size_t y = from; y < until; y += Rows::kRows) {
    std::int16_t* const cells = rows.cells + y * stride;
    const auto& painter = painterOf(layout, y);
    RowPainter<rule, Rows, std::decay_t<decltype(painter)>> row(layout, cells, painter,
                                                                rgba + y * layout.rowBytes);
    if (rows.touched == nullptr) {
      row.sum(rows.width / Rows::kPixels);
    } else {
      row.sumWhereTouched(rows.touched + y * (stride / kBlock), blocks);
      row.sum(rows.width % kBlock / Rows::kPixels);
    }
    if (cut != 0) row.finish(end);
    row.clearUntil(cells + stride);
  }
}

// Two rows at a time, and the last ones, from which a whole stretch would reach too far, singly.
template <FillRule rule, typename PainterOf>
void paintCellsBy(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& rows,
                  const PainterOf& painterOf) {
  const std::size_t cut = rows.width % TwoRows::kPixels;
  const std::size_t reach = cut == 0 ? 0 : (TwoRows::kPixels - cut) * 4;
  const std::size_t last = std::min((reach + rowBytes - 1) / rowBytes, rows.rows);
  const std::size_t paired = (rows.rows - last) / 2 * 2;
  const TwoRows two{rowBytes, rows.stride};
  paintRows<rule>(rgba, rows, two, 0, paired, TwoRowsEnd(two, cut), painterOf);
  paintRows<rule>(rgba, rows, OneRow{rowBytes, rows.stride}, paired, rows.rows,
                  OneRowEnd(rows.width % OneRow::kPixels), painterOf);
}

// `painterOf(rows, y)` gives what row `y`, or that and the next, are painted with.
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
  // The lower eight lanes have the first colour.
  Writer(const SolidColor& first, const SolidColor& second) {
    const auto channelsOf = [](const SolidColor& color) {
      return _mm_loadl_epi64(reinterpret_cast<const __m128i*>(color.channels));
    };
    const __m256i both = _mm256_set_m128i(channelsOf(second), channelsOf(first));
    const __m256i halved = _mm256_srli_epi16(both, 1);
    for (int c = 0; c < 4; ++c) {
      const auto bytes = static_cast<short>(0x0100 + 0x0202 * c);
      channels_[c] = _mm256_shuffle_epi8(halved, _mm256_set1_epi16(bytes));
    }
  }
  // The colours of premultiplied pixels: bytes become 1/32 levels.
  Writer(std::uint32_t first, std::uint32_t second) {
    const auto everywhere = [](std::uint32_t pixel) {
      return _mm_set1_epi32(static_cast<int>(pixel));
    };
    const __m256i both = _mm256_set_m128i(everywhere(second), everywhere(first));
    for (int c = 0; c < 4; ++c) {
      const auto byte = static_cast<short>(c << 8 | 0x80);
      channels_[c] = _mm256_srli_epi16(_mm256_shuffle_epi8(both, _mm256_set1_epi16(byte)), 3);
    }
  }
  template <typename Rows>
  void paint(const Rows& rows, std::uint8_t* rgba, __m256i units) const {
    rows.write(rgba, pixels(units));
  }
  template <typename Rows>
  void paintAny(const Rows& rows, std::uint8_t* rgba, __m256i units) const {
    paint(rows, rgba, units);
  }
  // Whole blocks of one coverage, that of the pixel before them; none at a row's start.
  template <typename Rows>
  void goOn(const Rows& rows, std::uint8_t* rgba, std::size_t blocks, bool isStart,
            __m256i /*units*/) const {
    for (std::size_t row = 0; row < Rows::kRows; ++row, rgba += rows.rowBytes) {
      int pixel = 0;
      if (!isStart) std::memcpy(&pixel, rgba - sizeof(pixel), sizeof(pixel));
      const __m256i eight = _mm256_set1_epi32(pixel);
      std::uint8_t* at = rgba;
      for (std::size_t b = 0; b < blocks; ++b, at += std::size_t{kBlock} * 4) {
        store(at, eight);
        store(at + 32, eight);
      }
    }
  }

 private:
  WovenPixels pixels(__m256i units) const {
    const auto channel = [&](int c) { return _mm256_mulhrs_epi16(units, channels_[c]); };
    const __m256i rg = _mm256_or_si256(channel(0), _mm256_slli_epi16(channel(1), 8));
    const __m256i ba = _mm256_or_si256(channel(2), _mm256_slli_epi16(channel(3), 8));
    return {_mm256_unpacklo_epi16(rg, ba), _mm256_unpackhi_epi16(rg, ba)};
  }

  __m256i channels_[4];
};

class Blender {
 public:
  Blender(const SolidColor& first, const SolidColor& second)
      : ink_(first, second),
        writer_(first, second),
        isOpaque_(first.isOpaque() && second.isOpaque()) {}
  Blender(std::uint32_t first, std::uint32_t second)
      : Blender(solidColor(first), solidColor(second)) {}
  template <typename Rows>
  void paint(const Rows& rows, std::uint8_t* rgba, __m256i units) const {
    if (!isZero(units)) paintAny(rows, rgba, units);
  }
  template <typename Rows>
  void paintAny(const Rows& rows, std::uint8_t* rgba, __m256i units) const {
    const WovenPixels below = rows.read(rgba);
    const __m256i covered = fractions(units);
    rows.write(rgba, {ink_.over(_mm256_unpacklo_epi16(covered, covered), below.a),
                      ink_.over(_mm256_unpackhi_epi16(covered, covered), below.b)});
  }
  template <typename Rows>
  void goOn(const Rows& rows, std::uint8_t* rgba, std::size_t blocks, bool /*isStart*/,
            __m256i units) const {
    if (isZero(units)) return;
    const bool isFull = isZero(_mm256_xor_si256(units, _mm256_set1_epi16(kUnitsPerPixel)));
    for (std::size_t at = 0; at < blocks * kBlock; at += Rows::kPixels) {
      if (isOpaque_ && isFull) {
        writer_.paint(rows, rgba + at * 4, units);
      } else {
        paint(rows, rgba + at * 4, units);
      }
    }
  }

 private:
  PlainInk ink_;
  Writer writer_;
  bool isOpaque_;
};

// One colour for all rows.
template <typename Painter>
auto evenly(const SolidColor& color) {
  return [painter = Painter(color, color)](const auto& /*rows*/, std::size_t /*y*/) -> const auto& {
    return painter;
  };
}

template <typename Painter>
auto byRow(const std::uint32_t* colors) {
  return [colors](const auto& rows, std::size_t y) {
    return Painter(colors[y], colors[y + rows.kRows - 1]);
  };
}

}  // namespace

int sumNarrow(std::int16_t* cells, std::size_t count, int carry, FillRule rule,
              std::uint16_t* coverage) {
  return rule == FillRule::nonZero ? sumNarrowBy<FillRule::nonZero>(cells, count, carry, coverage)
                                   : sumNarrowBy<FillRule::evenOdd>(cells, count, carry, coverage);
}

void sumInset(std::int16_t* cells, std::size_t count, FillRule rule, std::uint16_t* around,
              std::uint16_t* inside) {
  rule == FillRule::nonZero ? sumInsetBy<FillRule::nonZero>(cells, count, around, inside)
                            : sumInsetBy<FillRule::evenOdd>(cells, count, around, inside);
}

void writeCells(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& rows,
                const SolidColor& color) {
  paintCells(rgba, rowBytes, rows, evenly<Writer>(color));
}

void blendCells(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& rows,
                const SolidColor& color) {
  paintCells(rgba, rowBytes, rows, evenly<Blender>(color));
}

void writeCellsByRow(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& rows,
                     const std::uint32_t* colors) {
  paintCells(rgba, rowBytes, rows, byRow<Writer>(colors));
}

void blendCellsByRow(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& rows,
                     const std::uint32_t* colors) {
  paintCells(rgba, rowBytes, rows, byRow<Blender>(colors));
}

}  // namespace glyphwright::raster::avx2
