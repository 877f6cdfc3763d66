#include <glyphwright/platform/raster/kernels_avx2.h>

#include <immintrin.h>

#include <cstring>

#include <glyphwright/platform/raster/edge_kernels_avx2.h>

// Sixteen pixels at a time in 16-bit lanes; kernels_scalar.cpp says what each loop computes. The
// product with rounding shift that the arithmetic is built on is one instruction here.
namespace glyphwright::raster {
namespace {

__m256i load(const void* from) {
  return _mm256_loadu_si256(static_cast<const __m256i*>(from));
}
void store(void* to, __m256i value) {
  _mm256_storeu_si256(static_cast<__m256i*>(to), value);
}

// A 16-bit constant of eight bytes (one pixel of channels) in every 64-bit lane.
__m256i everyPixel(const std::int16_t* channels) {
  long long bits = 0;
  std::memcpy(&bits, channels, sizeof(bits));
  return _mm256_set1_epi64x(bits);
}

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
  __m256i units;
  if constexpr (rule == FillRule::nonZero) {
    units = _mm256_min_epi16(_mm256_abs_epi16(sums), full);
  } else {
    const __m256i phase = _mm256_and_si256(sums, _mm256_set1_epi16(2 * kUnitsPerPixel - 1));
    units = _mm256_min_epi16(phase, _mm256_sub_epi16(_mm256_set1_epi16(2 * kUnitsPerPixel), phase));
  }
  return _mm256_sub_epi16(_mm256_slli_epi16(units, 5), _mm256_srli_epi16(units, 10));
}

template <FillRule rule>
int sumNarrowBy(std::int16_t* cells, std::size_t count, int carry, std::uint16_t* coverage) {
  const __m256i zero = _mm256_setzero_si256();
  __m256i running = _mm256_set1_epi16(static_cast<short>(carry));
  for (std::size_t i = 0; i < count; i += kBlock) {
    const __m256i sums = _mm256_add_epi16(prefixSum(load(cells + i)), running);
    store(cells + i, zero);
    store(coverage + i, foldWinding<rule>(sums));
    running = carried(sums);
  }
  return static_cast<short>(_mm256_extract_epi16(running, 0));
}

int sumNarrow(std::int16_t* cells, std::size_t count, int carry, FillRule rule,
              std::uint16_t* coverage) {
  return rule == FillRule::nonZero ? sumNarrowBy<FillRule::nonZero>(cells, count, carry, coverage)
                                   : sumNarrowBy<FillRule::evenOdd>(cells, count, carry, coverage);
}

int sumWide(std::int32_t* cells, std::size_t count, int carry, FillRule rule,
            std::uint16_t* coverage) {
  return scalarKernels().sumWide(cells, count, carry, rule, coverage);
}

// The coverage of sixteen pixels repeated for their four channels: quads[k] holds pixels
// 2k, 2k+1 in its lower half and 8 + 2k, 9 + 2k in its upper half.
struct Quads {
  __m256i q[4];
};

Quads repeated(__m256i coverage) {
  const __m256i low = _mm256_unpacklo_epi16(coverage, coverage);
  const __m256i high = _mm256_unpackhi_epi16(coverage, coverage);
  return {{_mm256_unpacklo_epi32(low, low), _mm256_unpackhi_epi32(low, low),
           _mm256_unpacklo_epi32(high, high), _mm256_unpackhi_epi32(high, high)}};
}

__m256i rounded(__m256i channels64) {
  return _mm256_srai_epi16(_mm256_add_epi16(channels64, _mm256_set1_epi16(32)), 6);
}

struct PixelPair {
  __m256i low;  // pixels 0…7
  __m256i high;
};

// The channels of sixteen pixels, ordered as in Quads, as bytes.
PixelPair packed(const Quads& c) {
  const __m256i a = _mm256_packus_epi16(rounded(c.q[0]), rounded(c.q[1]));
  const __m256i b = _mm256_packus_epi16(rounded(c.q[2]), rounded(c.q[3]));
  return {_mm256_permute2x128_si256(a, b, 0x20), _mm256_permute2x128_si256(a, b, 0x31)};
}

// Sixteen pixels as 1/64 levels, ordered as in Quads.
Quads unpacked(__m256i low, __m256i high) {
  const __m256i zero = _mm256_setzero_si256();
  const __m256i a = _mm256_permute2x128_si256(low, high, 0x20);
  const __m256i b = _mm256_permute2x128_si256(low, high, 0x31);
  return {{_mm256_slli_epi16(_mm256_unpacklo_epi8(a, zero), 6),
           _mm256_slli_epi16(_mm256_unpackhi_epi8(a, zero), 6),
           _mm256_slli_epi16(_mm256_unpacklo_epi8(b, zero), 6),
           _mm256_slli_epi16(_mm256_unpackhi_epi8(b, zero), 6)}};
}

// Each pixel's alpha (in 1/64 levels) as a fraction in all four of its channels.
__m256i alphaFractions(__m256i channels64) {
  const __m256i spread = _mm256_set_epi8(15, 14, 15, 14, 15, 14, 15, 14, 7, 6, 7, 6, 7, 6, 7, 6, 15,
                                         14, 15, 14, 15, 14, 15, 14, 7, 6, 7, 6, 7, 6, 7, 6);
  const __m256i alpha = _mm256_srli_epi16(_mm256_shuffle_epi8(channels64, spread), 6);
  return _mm256_add_epi16(_mm256_slli_epi16(alpha, 7), _mm256_srli_epi16(alpha, 1));
}

__m256i over(__m256i source, __m256i alpha, __m256i below) {
  const __m256i rest = _mm256_sub_epi16(_mm256_set1_epi16(kOne), alpha);
  return _mm256_add_epi16(source, _mm256_mulhrs_epi16(below, rest));
}

// A mask for the first `count` of eight pixels.
__m256i firstPixels(std::size_t count) {
  alignas(32) static constexpr std::int32_t bits[16] = {-1, -1, -1, -1, -1, -1, -1, -1};
  return load(bits + 8 - (count < 8 ? count : 8));
}

// Less than sixteen pixels at the end of a row: nothing beyond them is read or written.
struct RowEnd {
  explicit RowEnd(std::size_t pixels)
      : count(pixels),
        first(firstPixels(pixels)),
        second(firstPixels(pixels < 8 ? 0 : pixels - 8)) {}

  Quads loadPixels(const std::uint8_t* rgba) const {
    const auto* from = reinterpret_cast<const int*>(rgba);
    return unpacked(_mm256_maskload_epi32(from, first), _mm256_maskload_epi32(from + 8, second));
  }
  void storePixels(std::uint8_t* rgba, const Quads& c) const {
    const auto [low, high] = packed(c);
    auto* to = reinterpret_cast<int*>(rgba);
    _mm256_maskstore_epi32(to, first, low);
    _mm256_maskstore_epi32(to + 8, second, high);
  }
  __m256i loadCoverage(const std::uint16_t* coverage) const {
    alignas(32) std::uint16_t values[kBlock] = {};
    for (std::size_t i = 0; i < count; ++i) values[i] = coverage[i];
    return load(values);
  }

  std::size_t count;
  __m256i first;
  __m256i second;
};

// Sixteen pixels in the middle of a row, with the same words.
struct Stretch {
  Quads loadPixels(const std::uint8_t* rgba) const { return unpacked(load(rgba), load(rgba + 32)); }
  void storePixels(std::uint8_t* rgba, const Quads& c) const {
    const auto [low, high] = packed(c);
    store(rgba, low);
    store(rgba + 32, high);
  }
  __m256i loadCoverage(const std::uint16_t* coverage) const { return load(coverage); }
};

// Runs `step(stretch, at)` over a row, sixteen pixels at a time.
template <typename Step>
void inStretches(std::size_t count, Step step) {
  std::size_t at = 0;
  for (; at + kBlock <= count; at += kBlock) step(Stretch{}, at);
  if (at < count) step(RowEnd(count - at), at);
}

// A colour ready for sixteen pixels.
struct Ink {
  explicit Ink(const SolidColor& color)
      : channels(everyPixel(color.channels)),
        alpha(_mm256_set1_epi16(color.alpha)),
        isOpaque(color.isOpaque()) {}

  Quads covered(__m256i coverage) const {
    Quads c = repeated(coverage);
    for (__m256i& q : c.q) q = _mm256_mulhrs_epi16(channels, q);
    return c;
  }
  Quads coveredOver(__m256i coverage, const Quads& below) const {
    Quads c = repeated(coverage);
    for (int k = 0; k < 4; ++k) {
      c.q[k] = over(_mm256_mulhrs_epi16(channels, c.q[k]), _mm256_mulhrs_epi16(alpha, c.q[k]),
                    below.q[k]);
    }
    return c;
  }
  // Eight pixels of one coverage.
  __m256i evenly(__m256i coverage) const {
    const __m256i q = rounded(_mm256_mulhrs_epi16(channels, coverage));
    return _mm256_packus_epi16(q, q);
  }

  __m256i channels;
  __m256i alpha;
  bool isOpaque;
};

bool isZero(__m256i v) {
  return _mm256_testz_si256(v, v) != 0;
}

void writeSolid(std::uint8_t* rgba, const std::uint16_t* coverage, std::size_t count,
                const SolidColor& color) {
  const Ink ink(color);
  inStretches(count, [&](auto stretch, std::size_t at) {
    stretch.storePixels(rgba + at * 4, ink.covered(stretch.loadCoverage(coverage + at)));
  });
}

void blendSolid(std::uint8_t* rgba, const std::uint16_t* coverage, std::size_t count,
                const SolidColor& color) {
  const Ink ink(color);
  inStretches(count, [&](auto stretch, std::size_t at) {
    const __m256i covered = stretch.loadCoverage(coverage + at);
    if (isZero(covered)) return;
    std::uint8_t* pixels = rgba + at * 4;
    stretch.storePixels(pixels, ink.coveredOver(covered, stretch.loadPixels(pixels)));
  });
}

void writePixels(std::uint8_t* rgba, const std::uint16_t* coverage, std::size_t count,
                 const std::uint8_t* source) {
  inStretches(count, [&](auto stretch, std::size_t at) {
    Quads c = repeated(stretch.loadCoverage(coverage + at));
    const Quads above = stretch.loadPixels(source + at * 4);
    for (int k = 0; k < 4; ++k) c.q[k] = _mm256_mulhrs_epi16(above.q[k], c.q[k]);
    stretch.storePixels(rgba + at * 4, c);
  });
}

void blendPixels(std::uint8_t* rgba, const std::uint16_t* coverage, std::size_t count,
                 const std::uint8_t* source) {
  inStretches(count, [&](auto stretch, std::size_t at) {
    const __m256i covered = stretch.loadCoverage(coverage + at);
    if (isZero(covered)) return;
    Quads c = repeated(covered);
    std::uint8_t* pixels = rgba + at * 4;
    const Quads above = stretch.loadPixels(source + at * 4);
    const Quads below = stretch.loadPixels(pixels);
    for (int k = 0; k < 4; ++k) {
      const __m256i alpha = _mm256_mulhrs_epi16(alphaFractions(above.q[k]), c.q[k]);
      c.q[k] = over(_mm256_mulhrs_epi16(above.q[k], c.q[k]), alpha, below.q[k]);
    }
    stretch.storePixels(pixels, c);
  });
}

template <FillRule rule, typename Painter>
void paintRow(std::int16_t* cells, const std::uint8_t* touched, std::size_t stride,
              std::size_t width, const RowEnd& end, const Painter& painter, std::uint8_t* rgba) {
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
    painter.paint(end, rgba + block * kBlock * 4, foldWinding<rule>(sums));
  }
  for (std::size_t x = block * kBlock; x < stride; x += kBlock) store(cells + x, zero);
}

template <typename Painter>
void paintCells(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& rows,
                const Painter& painter) {
  const std::uint8_t* touched = rows.touched;
  const RowEnd end(rows.width % kBlock);
  for (std::size_t row = 0; row < rows.rows; ++row) {
    std::int16_t* cells = rows.cells + row * rows.stride;
    if (rows.rule == FillRule::nonZero) {
      paintRow<FillRule::nonZero>(cells, touched, rows.stride, rows.width, end, painter, rgba);
    } else {
      paintRow<FillRule::evenOdd>(cells, touched, rows.stride, rows.width, end, painter, rgba);
    }
    rgba += rowBytes;
    if (touched != nullptr) touched += rows.stride / kBlock;
  }
}

struct Writer {
  template <typename S>
  void paint(const S& stretch, std::uint8_t* rgba, __m256i coverage) const {
    stretch.storePixels(rgba, ink.covered(coverage));
  }
  void even(std::uint8_t* rgba, std::size_t pixels, __m256i coverage) const {
    const __m256i eight = ink.evenly(coverage);
    for (std::size_t at = 0; at < pixels * 4; at += 32) store(rgba + at, eight);
  }
  Ink ink;
};

struct Blender {
  template <typename S>
  void paint(const S& stretch, std::uint8_t* rgba, __m256i coverage) const {
    if (isZero(coverage)) return;
    stretch.storePixels(rgba, ink.coveredOver(coverage, stretch.loadPixels(rgba)));
  }
  void even(std::uint8_t* rgba, std::size_t pixels, __m256i coverage) const {
    if (isZero(coverage)) return;
    if (ink.isOpaque && _mm256_extract_epi16(coverage, 0) == kOne) {
      Writer{ink}.even(rgba, pixels, coverage);
      return;
    }
    for (std::size_t at = 0; at < pixels; at += kBlock) paint(Stretch{}, rgba + at * 4, coverage);
  }
  Ink ink;
};

void writeCells(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& rows,
                const SolidColor& color) {
  paintCells(rgba, rowBytes, rows, Writer{Ink(color)});
}

void blendCells(std::uint8_t* rgba, std::size_t rowBytes, const CellRows& rows,
                const SolidColor& color) {
  paintCells(rgba, rowBytes, rows, Blender{Ink(color)});
}

void multiplyCoverage(std::uint16_t* coverage, const std::uint16_t* other, std::size_t count) {
  std::size_t i = 0;
  for (; i + kBlock <= count; i += kBlock) {
    store(coverage + i, _mm256_mulhrs_epi16(load(coverage + i), load(other + i)));
  }
  scalarKernels().multiplyCoverage(coverage + i, other + i, count - i);
}

void scaleCoverage(std::uint16_t* coverage, int fraction, std::size_t count) {
  const __m256i factor = _mm256_set1_epi16(static_cast<short>(fraction));
  std::size_t i = 0;
  for (; i + kBlock <= count; i += kBlock) {
    store(coverage + i, _mm256_mulhrs_epi16(load(coverage + i), factor));
  }
  scalarKernels().scaleCoverage(coverage + i, fraction, count - i);
}

void filter(std::uint16_t* out, const std::uint16_t* const* rows, const std::int16_t* taps,
            std::size_t reach, std::size_t count) {
  for (std::size_t i = 0; i < count; i += kBlock) {
    __m256i total = _mm256_mulhrs_epi16(load(rows[reach] + i), _mm256_set1_epi16(taps[0]));
    for (std::size_t k = 1; k <= reach; ++k) {
      const __m256i mean = _mm256_avg_epu16(load(rows[reach - k] + i), load(rows[reach + k] + i));
      total = _mm256_adds_epi16(total, _mm256_mulhrs_epi16(mean, _mm256_set1_epi16(taps[k])));
    }
    store(out + i, total);
  }
}

constexpr Kernels kAvx2{avx2::sampleCurve, avx2::cutEdges, avx2::cellAmounts, sumNarrow,
                        sumWide,           writeCells,     blendCells,        writeSolid,
                        blendSolid,        writePixels,    blendPixels,       multiplyCoverage,
                        scaleCoverage,     filter};

}  // namespace

const Kernels& avx2Kernels() {
  return kAvx2;
}

}  // namespace glyphwright::raster
