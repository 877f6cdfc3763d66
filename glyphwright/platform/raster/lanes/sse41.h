#pragma once

#include <smmintrin.h>

#include <cstddef>
#include <cstdint>

#include <glyphwright/platform/raster/lanes/pair.h>

/// Words for x86-64 with SSE4.1, in pairs of registers; plain.h says what they compute.
namespace glyphwright::raster::lanes::sse41 {

struct Set;
using Shorts8 = Register<Set, std::int16_t, 8>;
using Ints4 = Register<Set, std::int32_t, 4>;
using Floats4 = Register<Set, float, 4>;
using Doubles2 = Register<Set, double, 2>;

inline __m128i raw(Shorts8 a) {
  return (__m128i)a.v;
}
inline __m128i raw(Ints4 a) {
  return (__m128i)a.v;
}
inline Shorts8 shorts(__m128i v) {
  return {(Shorts8::Vector)v};
}
inline Ints4 ints(__m128i v) {
  return {(Ints4::Vector)v};
}

inline Shorts8 scaled(Shorts8 a, Shorts8 b) {
  return shorts(_mm_mulhrs_epi16(raw(a), raw(b)));
}
inline Shorts8 mean(Shorts8 a, Shorts8 b) {
  return shorts(_mm_avg_epu16(raw(a), raw(b)));
}
inline Shorts8 sumHeld(Shorts8 a, Shorts8 b) {
  return shorts(_mm_adds_epi16(raw(a), raw(b)));
}
inline Shorts8 min(Shorts8 a, Shorts8 b) {
  return shorts(_mm_min_epi16(raw(a), raw(b)));
}
inline Shorts8 abs(Shorts8 a) {
  return shorts(_mm_abs_epi16(raw(a)));
}
template <std::size_t by>
Shorts8 upBy(Shorts8 a) {
  return shorts(_mm_slli_si128(raw(a), 2 * by));
}

inline Ints4 min(Ints4 a, Ints4 b) {
  return ints(_mm_min_epi32(raw(a), raw(b)));
}
inline Ints4 max(Ints4 a, Ints4 b) {
  return ints(_mm_max_epi32(raw(a), raw(b)));
}
inline Ints4 abs(Ints4 a) {
  return ints(_mm_abs_epi32(raw(a)));
}
inline Ints4 withSign(Ints4 a, Ints4 sign) {
  return ints(_mm_sign_epi32(raw(a), raw(sign)));
}
inline Floats4 min(Floats4 a, Floats4 b) {
  return {_mm_min_ps(a.v, b.v)};
}
inline Floats4 max(Floats4 a, Floats4 b) {
  return {_mm_max_ps(a.v, b.v)};
}
inline Doubles2 min(Doubles2 a, Doubles2 b) {
  return {_mm_min_pd(a.v, b.v)};
}
inline Doubles2 max(Doubles2 a, Doubles2 b) {
  return {_mm_max_pd(a.v, b.v)};
}
inline Floats4 abs(Floats4 a) {
  return {_mm_andnot_ps(_mm_set1_ps(-0.0F), a.v)};
}
inline Floats4 sqrt(Floats4 a) {
  return {_mm_sqrt_ps(a.v)};
}
template <typename T, std::size_t n>
Register<Set, T, n> select(typename Register<Set, T, n>::Mask mask, Register<Set, T, n> a,
                           Register<Set, T, n> b) {
  return {(typename Register<Set, T, n>::Vector)_mm_blendv_epi8((__m128i)b.v, (__m128i)a.v,
                                                                (__m128i)mask.v)};
}

template <typename T, std::size_t n>
bool isZero(Register<Set, T, n> a) {
  return _mm_testz_si128((__m128i)a.v, (__m128i)a.v) != 0;
}
inline unsigned bits(Pair<Set, std::int32_t> mask) {
  const auto four = [](Ints4 v) { return static_cast<unsigned>(_mm_movemask_ps((__m128)v.v)); };
  return four(mask.first) | four(mask.second) << 4;
}
/// The bytes at these numbers.
template <typename T, std::size_t n>
Register<Set, T, n> bytesAt(Register<Set, T, n> a, Ints4 numbers) {
  return {(typename Register<Set, T, n>::Vector)_mm_shuffle_epi8((__m128i)a.v, raw(numbers))};
}

inline Ints4 truncated(Floats4 a) {
  return ints(_mm_cvttps_epi32(a.v));
}
inline Floats4 narrowed(Pair<Set, double> a) {
  return {_mm_movelh_ps(_mm_cvtpd_ps(a.first.v), _mm_cvtpd_ps(a.second.v))};
}

struct Set : PairSet<Set> {
  static std::uint32_t marks(const std::uint8_t* bytes) {
    const auto none = [](const std::uint8_t* from) {
      const __m128i zeros = _mm_cmpeq_epi8(raw(Ints4::load(from)), _mm_setzero_si128());
      return static_cast<std::uint32_t>(_mm_movemask_epi8(zeros));
    };
    return ~(none(bytes) | none(bytes + 16) << 16);
  }
};

}  // namespace glyphwright::raster::lanes::sse41
