#include <glyphwright/platform/raster/cell_kernels_avx2.h>

#include <glyphwright/platform/raster/pixel_lanes_avx2.h>

// Sixteen cells at a time become coverage or pixels; kernels_scalar.cpp says what each loop
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

template <FillRule rule, typename End, typename Painter>
void paintRow(std::int16_t* cells, const std::uint8_t* touched, std::size_t stride,
              std::size_t width, const End& end, const Painter& painter, std::uint8_t* rgba) {
  const __m256i zero = _mm256_setzero_si256();
  const std::size_t whole = width / kBlock;
  __m256i running = zero;
  std::size_t block = 0;
  while (block < whole) {
    if (touched != nullptr && touched[block] == 0) {
      const std::size_t from = block;
      while (block < whole && touched[block] == 0) ++block;
      painter.even(rgba + from * kBlock * 4, (block - from) * kBlock, foldWinding<rule>(running));
      continue;
    }
    std::int16_t* at = cells + block * kBlock;
    const __m256i sums = _mm256_add_epi16(prefixSum(load(at)), running);
    store(at, zero);
    painter.paint(Stretch{}, rgba + block * kBlock * 4, foldWinding<rule>(sums));
    running = carried(sums);
    ++block;
  }
  if (width % kBlock != 0) {
    const __m256i sums = _mm256_add_epi16(prefixSum(load(cells + block * kBlock)), running);
    painter.paint(end, rgba + block * kBlock * 4, end.cut(foldWinding<rule>(sums)));
  }
  for (std::size_t x = block * kBlock; x < stride; x += kBlock) store(cells + x, zero);
}

template <FillRule rule, typename Painter>
void paintCellsBy(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& rows,
                  const Painter& painter) {
  const std::size_t cut = rows.width % kBlock;
  const OpenEnd open(cut);
  const ClosedEnd closed(cut);
  // As many of the last rows are closed as a whole block would reach over from.
  const std::size_t reach = (kBlock - cut) * 4;
  std::int16_t* cells = rows.cells;
  const std::uint8_t* touched = rows.touched;
  for (std::size_t left = rows.rows; left > 0; --left) {
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

template <typename Painter>
void paintCells(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& rows,
                const Painter& painter) {
  if (rows.rule == FillRule::nonZero) {
    paintCellsBy<FillRule::nonZero>(rgba, rowBytes, rows, painter);
  } else {
    paintCellsBy<FillRule::evenOdd>(rgba, rowBytes, rows, painter);
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
  void even(std::uint8_t* rgba, std::size_t count, __m256i units) const {
    const __m256i eight = pixels(units).low;
    for (std::size_t at = 0; at < count * 4; at += 32) store(rgba + at, eight);
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
  explicit Blender(const SolidColor& color) : ink_(color), writer_(color) {}
  template <typename S>
  void paint(const S& stretch, std::uint8_t* rgba, __m256i units) const {
    if (isZero(units)) return;
    stretch.storePixels(rgba, ink_.coveredOver(fractions(units), stretch.loadPixels(rgba)));
  }
  void even(std::uint8_t* rgba, std::size_t pixels, __m256i units) const {
    if (isZero(units)) return;
    if (ink_.isOpaque && _mm256_extract_epi16(units, 0) == kUnitsPerPixel) {
      writer_.even(rgba, pixels, units);
      return;
    }
    for (std::size_t at = 0; at < pixels; at += kBlock) paint(Stretch{}, rgba + at * 4, units);
  }

 private:
  Ink ink_;
  Writer writer_;
};

}  // namespace

int sumNarrow(std::int16_t* cells, std::size_t count, int carry, FillRule rule,
              std::uint16_t* coverage) {
  return rule == FillRule::nonZero ? sumNarrowBy<FillRule::nonZero>(cells, count, carry, coverage)
                                   : sumNarrowBy<FillRule::evenOdd>(cells, count, carry, coverage);
}

void writeCells(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& rows,
                const SolidColor& color) {
  paintCells(rgba, rowBytes, rows, Writer(color));
}

void blendCells(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& rows,
                const SolidColor& color) {
  paintCells(rgba, rowBytes, rows, Blender(color));
}

}  // namespace glyphwright::raster::avx2
