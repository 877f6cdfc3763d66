#pragma once

#include <immintrin.h>

#include <cstddef>
#include <cstdint>
#include <cstring>

#include <glyphwright/platform/raster/kernels.h>

/// Sixteen pixels at a time in 16-bit lanes, for machines with AVX2: the words that the loops over
/// pixels are written in. The product with rounding shift that the arithmetic is built on is one
/// instruction here.
namespace glyphwright::raster::avx2 {

inline __m256i load(const void* from) {
  return _mm256_loadu_si256(static_cast<const __m256i*>(from));
}
inline void store(void* to, __m256i value) {
  _mm256_storeu_si256(static_cast<__m256i*>(to), value);
}

// A bit for each of eight lanes, set where they are.
inline unsigned bits(__m256i lanes) {
  return static_cast<unsigned>(_mm256_movemask_ps(_mm256_castsi256_ps(lanes)));
}

// One value in every 16-bit lane.
inline __m256i everyLane(int value) {
  return _mm256_set1_epi16(static_cast<short>(value));
}

// One value in the lower eight lanes and another in the upper ones.
inline __m256i inHalves(std::int16_t lower, std::int16_t upper) {
  return _mm256_set_m128i(_mm_set1_epi16(upper), _mm_set1_epi16(lower));
}

// A 16-bit constant of eight bytes (one pixel of channels) in every 64-bit lane.
inline __m256i everyPixel(const std::int16_t* channels) {
  long long bits = 0;
  std::memcpy(&bits, channels, sizeof(bits));
  return _mm256_set1_epi64x(bits);
}

// The coverage of sixteen pixels repeated for their four channels: quads[k] holds pixels
// 2k, 2k+1 in its lower half and 8 + 2k, 9 + 2k in its upper half.
struct Quads {
  __m256i q[4];
};

inline Quads repeated(__m256i coverage) {
  const __m256i low = _mm256_unpacklo_epi16(coverage, coverage);
  const __m256i high = _mm256_unpackhi_epi16(coverage, coverage);
  return {{_mm256_unpacklo_epi32(low, low), _mm256_unpackhi_epi32(low, low),
           _mm256_unpacklo_epi32(high, high), _mm256_unpackhi_epi32(high, high)}};
}

inline __m256i rounded(__m256i channels64) {
  return _mm256_mulhrs_epi16(channels64, _mm256_set1_epi16(1 << 9));  // (v + 32) >> 6
}

struct PixelPair {
  __m256i low;  // pixels 0…7
  __m256i high;
};

// The channels of sixteen pixels, ordered as in Quads, as bytes.
inline PixelPair packed(const Quads& c) {
  const __m256i a = _mm256_packus_epi16(rounded(c.q[0]), rounded(c.q[1]));
  const __m256i b = _mm256_packus_epi16(rounded(c.q[2]), rounded(c.q[3]));
  return {_mm256_permute2x128_si256(a, b, 0x20), _mm256_permute2x128_si256(a, b, 0x31)};
}

// Sixteen pixels as 1/64 levels, ordered as in Quads.
inline Quads unpacked(__m256i low, __m256i high) {
  const __m256i zero = _mm256_setzero_si256();
  const __m256i a = _mm256_permute2x128_si256(low, high, 0x20);
  const __m256i b = _mm256_permute2x128_si256(low, high, 0x31);
  return {{_mm256_slli_epi16(_mm256_unpacklo_epi8(a, zero), 6),
           _mm256_slli_epi16(_mm256_unpackhi_epi8(a, zero), 6),
           _mm256_slli_epi16(_mm256_unpacklo_epi8(b, zero), 6),
           _mm256_slli_epi16(_mm256_unpackhi_epi8(b, zero), 6)}};
}

// Each pixel's alpha (in 1/64 levels) as a fraction in all four of its channels.
inline __m256i alphaFractions(__m256i channels64) {
  const __m256i spread = _mm256_set_epi8(15, 14, 15, 14, 15, 14, 15, 14, 7, 6, 7, 6, 7, 6, 7, 6, 15,
                                         14, 15, 14, 15, 14, 15, 14, 7, 6, 7, 6, 7, 6, 7, 6);
  const __m256i alpha = _mm256_srli_epi16(_mm256_shuffle_epi8(channels64, spread), 6);
  return _mm256_add_epi16(_mm256_slli_epi16(alpha, 7), _mm256_srli_epi16(alpha, 1));
}

inline __m256i over(__m256i source, __m256i alpha, __m256i below) {
  const __m256i rest = _mm256_sub_epi16(_mm256_set1_epi16(kOne), alpha);
  return _mm256_add_epi16(source, _mm256_mulhrs_epi16(below, rest));
}

// A mask for the first `count` of eight pixels.
inline __m256i firstPixels(std::size_t count) {
  alignas(32) static constexpr std::int32_t bits[16] = {-1, -1, -1, -1, -1, -1, -1, -1};
  return load(bits + 8 - (count < 8 ? count : 8));
}

// A mask for the first `count` of sixteen 16-bit lanes.
inline __m256i firstLanes(std::size_t count) {
  alignas(32) static constexpr std::int16_t bits[32] = {-1, -1, -1, -1, -1, -1, -1, -1,
                                                        -1, -1, -1, -1, -1, -1, -1, -1};
  return load(bits + 16 - (count < 16 ? count : 16));
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
  PixelPair loadBytes(const std::uint8_t* rgba) const {
    const auto* from = reinterpret_cast<const int*>(rgba);
    return {_mm256_maskload_epi32(from, first), _mm256_maskload_epi32(from + 8, second)};
  }
  void storePixels(std::uint8_t* rgba, const Quads& c) const { storeBytes(rgba, packed(c)); }
  void storeBytes(std::uint8_t* rgba, const PixelPair& pixels) const {
    auto* to = reinterpret_cast<int*>(rgba);
    _mm256_maskstore_epi32(to, first, pixels.low);
    _mm256_maskstore_epi32(to + 8, second, pixels.high);
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
  PixelPair loadBytes(const std::uint8_t* rgba) const { return {load(rgba), load(rgba + 32)}; }
  void storePixels(std::uint8_t* rgba, const Quads& c) const { storeBytes(rgba, packed(c)); }
  void storeBytes(std::uint8_t* rgba, const PixelPair& pixels) const {
    store(rgba, pixels.low);
    store(rgba + 32, pixels.high);
  }
  __m256i loadCoverage(const std::uint16_t* coverage) const { return load(coverage); }
};

// Runs `step(stretch, at)` over a row, sixteen pixels at a time.
template <typename Step>
inline void inStretches(std::size_t count, Step step) {
  std::size_t at = 0;
  for (; at + kBlock <= count; at += kBlock) step(Stretch{}, at);
  if (at < count) step(RowEnd(count - at), at);
}

// The same for a step that puts whole pixels down, whatever is there: the last sixteen may then be
// done twice, which is faster than a part of them.
template <typename Step>
inline void inWholeStretches(std::size_t count, Step step) {
  if (count < kBlock) return step(RowEnd(count), std::size_t{0});
  std::size_t at = 0;
  for (; at + kBlock <= count; at += kBlock) step(Stretch{}, at);
  if (at < count) step(Stretch{}, count - kBlock);
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

  __m256i channels;
  __m256i alpha;
  bool isOpaque;
};

inline bool isZero(__m256i v) {
  return _mm256_testz_si256(v, v) != 0;
}

}  // namespace glyphwright::raster::avx2
