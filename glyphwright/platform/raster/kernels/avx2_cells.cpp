#include <glyphwright/platform/raster/kernels/avx2.h>

#include <type_traits>

#include <glyphwright/platform/raster/kernels/avx2_blend.h>
#include <glyphwright/platform/raster/kernels/avx2_lanes.h>
#include <glyphwright/platform/raster/kernels/avx2_row_painter.h>

// Sixteen cells at a time become coverage or pixels; scalar_pixels.cpp says what each loop
// computes.
namespace glyphwright::raster::avx2 {
namespace {

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

// One channel of sixteen pixels a register, woven into pixels only when they are bytes.
class Writer {
 public:
  static constexpr bool kRepeats = true;  // pixels of untouched cells are like those before them
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
  void paintBlock(const TwoRows& rows, std::uint8_t* rgba, const TwoRows::Block& units) const {
    rows.writeBlock(rgba, pixels(units.first), pixels(units.second));
  }
  // Whole blocks of one coverage, that of the pixel before them; none at a row's start.
  template <typename Rows>
  void goOn(const Rows& rows, std::uint8_t* rgba, std::size_t blocks, bool isStart,
            __m256i /*units*/) const {
    repeatPixels(rows, rgba, blocks, isStart);
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
  static constexpr bool kRepeats = false;
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

// `painterOf(layout, y)` gives what row `y`, or that and the next, are painted with.
template <typename PainterOf>
void paintCells(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& rows,
                const PainterOf& painterOf) {
  withRule(rows.rule, [&](auto rule) {
    const auto shapeOf = [&](const auto& layout, std::size_t y) {
      return ShapeUnits<rule(), std::decay_t<decltype(layout)>>(rows, y);
    };
    paintShape({rgba, rowBytes, rows.rows, rows.width, rows.touched != nullptr}, shapeOf,
               painterOf);
  });
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
  paintCells(rgba, rowBytes, rows, evenly(Writer(color, color)));
}

void blendCells(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& rows,
                const SolidColor& color) {
  paintCells(rgba, rowBytes, rows, evenly(Blender(color, color)));
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
