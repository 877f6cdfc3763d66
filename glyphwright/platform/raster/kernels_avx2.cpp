#include <glyphwright/platform/raster/kernels_avx2.h>

#include <immintrin.h>

#include <cstring>

#include <glyphwright/platform/raster/cells.h>

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
    const __m256i top = _mm256_permute2x128_si256(sums, sums, 0x11);
    running = _mm256_shuffle_epi8(top, _mm256_set1_epi16(0x0F0E));
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

// Packs the channels of sixteen pixels, ordered as in Quads, and stores them.
void storePixels(std::uint8_t* rgba, const Quads& c) {
  const __m256i a = _mm256_packus_epi16(rounded(c.q[0]), rounded(c.q[1]));
  const __m256i b = _mm256_packus_epi16(rounded(c.q[2]), rounded(c.q[3]));
  store(rgba, _mm256_permute2x128_si256(a, b, 0x20));
  store(rgba + 32, _mm256_permute2x128_si256(a, b, 0x31));
}

// Sixteen pixels as 1/64 levels, ordered as in Quads.
Quads loadPixels(const std::uint8_t* rgba) {
  const __m256i zero = _mm256_setzero_si256();
  const __m256i first = load(rgba);
  const __m256i second = load(rgba + 32);
  const __m256i a = _mm256_permute2x128_si256(first, second, 0x20);
  const __m256i b = _mm256_permute2x128_si256(first, second, 0x31);
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

// Runs `step(pixels, coverage, source)` over stretches of sixteen pixels; what is left at the end
// goes through a stretch of its own on the stack. `step` skips nothing and reads whole stretches.
template <bool readsPixels, bool readsSource, typename Step>
void inStretches(std::uint8_t* rgba, const std::uint16_t* coverage, const std::uint8_t* source,
                 std::size_t count, Step step) {
  std::size_t i = 0;
  for (; i + kBlock <= count; i += kBlock) {
    step(rgba + i * 4, coverage + i, readsSource ? source + i * 4 : nullptr);
  }
  const std::size_t rest = count - i;
  if (rest == 0) return;
  alignas(32) std::uint16_t coverageEnd[kBlock] = {};
  alignas(32) std::uint8_t pixelEnd[kBlock * 4];
  alignas(32) std::uint8_t sourceEnd[kBlock * 4];
  std::memcpy(coverageEnd, coverage + i, rest * sizeof(std::uint16_t));
  if constexpr (readsPixels) std::memcpy(pixelEnd, rgba + i * 4, rest * 4);
  if constexpr (readsSource) std::memcpy(sourceEnd, source + i * 4, rest * 4);
  step(pixelEnd, coverageEnd, sourceEnd);
  std::memcpy(rgba + i * 4, pixelEnd, rest * 4);
}

void writeSolid(std::uint8_t* rgba, const std::uint16_t* coverage, std::size_t count,
                const SolidColor& color) {
  const __m256i channels = everyPixel(color.channels);
  inStretches<false, false>(
      rgba, coverage, nullptr, count,
      [&](std::uint8_t* pixels, const std::uint16_t* levels, const std::uint8_t*) {
        Quads c = repeated(load(levels));
        for (__m256i& q : c.q) q = _mm256_mulhrs_epi16(channels, q);
        storePixels(pixels, c);
      });
}

void blendSolid(std::uint8_t* rgba, const std::uint16_t* coverage, std::size_t count,
                const SolidColor& color) {
  const __m256i channels = everyPixel(color.channels);
  const __m256i alpha = _mm256_set1_epi16(color.alpha);
  inStretches<true, false>(
      rgba, coverage, nullptr, count,
      [&](std::uint8_t* pixels, const std::uint16_t* levels, const std::uint8_t*) {
        const __m256i covered = load(levels);
        if (_mm256_testz_si256(covered, covered) != 0) return;
        Quads c = repeated(covered);
        const Quads below = loadPixels(pixels);
        for (int k = 0; k < 4; ++k) {
          c.q[k] = over(_mm256_mulhrs_epi16(channels, c.q[k]), _mm256_mulhrs_epi16(alpha, c.q[k]),
                        below.q[k]);
        }
        storePixels(pixels, c);
      });
}

void writePixels(std::uint8_t* rgba, const std::uint16_t* coverage, std::size_t count,
                 const std::uint8_t* source) {
  inStretches<false, true>(
      rgba, coverage, source, count,
      [](std::uint8_t* pixels, const std::uint16_t* levels, const std::uint8_t* from) {
        Quads c = repeated(load(levels));
        const Quads above = loadPixels(from);
        for (int k = 0; k < 4; ++k) c.q[k] = _mm256_mulhrs_epi16(above.q[k], c.q[k]);
        storePixels(pixels, c);
      });
}

void blendPixels(std::uint8_t* rgba, const std::uint16_t* coverage, std::size_t count,
                 const std::uint8_t* source) {
  inStretches<true, true>(
      rgba, coverage, source, count,
      [](std::uint8_t* pixels, const std::uint16_t* levels, const std::uint8_t* from) {
        const __m256i covered = load(levels);
        if (_mm256_testz_si256(covered, covered) != 0) return;
        Quads c = repeated(covered);
        const Quads above = loadPixels(from);
        const Quads below = loadPixels(pixels);
        for (int k = 0; k < 4; ++k) {
          const __m256i alpha = _mm256_mulhrs_epi16(alphaFractions(above.q[k]), c.q[k]);
          c.q[k] = over(_mm256_mulhrs_epi16(above.q[k], c.q[k]), alpha, below.q[k]);
        }
        storePixels(pixels, c);
      });
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
            std::size_t tapCount, std::size_t count) {
  std::size_t i = 0;
  for (; i + kBlock <= count; i += kBlock) {
    __m256i total = _mm256_setzero_si256();
    for (std::size_t k = 0; k < tapCount; ++k) {
      const __m256i part = _mm256_mulhrs_epi16(load(rows[k] + i), _mm256_set1_epi16(taps[k]));
      total = _mm256_adds_epi16(total, part);
    }
    store(out + i, total);
  }
  if (i == count) return;
  for (; i < count; ++i) {
    int total = 0;
    for (std::size_t k = 0; k < tapCount; ++k) total += scaled(rows[k][i], taps[k]);
    out[i] = static_cast<std::uint16_t>(total < kOne ? total : kOne);
  }
}

constexpr Kernels kAvx2{sumNarrow,   sumWide,          writeSolid,    blendSolid, writePixels,
                        blendPixels, multiplyCoverage, scaleCoverage, filter};

}  // namespace

const Kernels& avx2Kernels() {
  return kAvx2;
}

}  // namespace glyphwright::raster
