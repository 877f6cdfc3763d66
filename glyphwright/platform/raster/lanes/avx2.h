#pragma once

#include <immintrin.h>

#include <cstddef>
#include <cstdint>

#include <glyphwright/platform/raster/lanes/chosen.h>
#include <glyphwright/platform/raster/lanes/register.h>

/// Words for x86-64 with AVX2, in registers of 32 bytes; plain.h says what they compute.
namespace glyphwright::raster::lanes::avx2 {

struct Set;
using Shorts = Register<Set, std::int16_t, 16>;
using Ints = Register<Set, std::int32_t, 8>;
using Floats = Register<Set, float, 8>;
using Doubles = Register<Set, double, 4>;
using Floats4 = Register<Set, float, 4>;

inline __m256i raw(Shorts a) {
  return (__m256i)a.v;
}
inline __m256i raw(Ints a) {
  return (__m256i)a.v;
}
inline Shorts shorts(__m256i v) {
  return {(Shorts::Vector)v};
}
inline Ints ints(__m256i v) {
  return {(Ints::Vector)v};
}

inline Shorts scaled(Shorts a, Shorts b) {
  return shorts(_mm256_mulhrs_epi16(raw(a), raw(b)));
}
inline Shorts mean(Shorts a, Shorts b) {
  return shorts(_mm256_avg_epu16(raw(a), raw(b)));
}
inline Shorts sumHeld(Shorts a, Shorts b) {
  return shorts(_mm256_adds_epi16(raw(a), raw(b)));
}
inline Shorts min(Shorts a, Shorts b) {
  return shorts(_mm256_min_epi16(raw(a), raw(b)));
}
inline Shorts abs(Shorts a) {
  return shorts(_mm256_abs_epi16(raw(a)));
}
template <std::size_t by>
Shorts upBy(Shorts a) {
  return shorts(_mm256_slli_si256(raw(a), 2 * by));
}

inline Ints min(Ints a, Ints b) {
  return ints(_mm256_min_epi32(raw(a), raw(b)));
}
inline Ints max(Ints a, Ints b) {
  return ints(_mm256_max_epi32(raw(a), raw(b)));
}
inline Ints abs(Ints a) {
  return ints(_mm256_abs_epi32(raw(a)));
}
inline Ints withSign(Ints a, Ints sign) {
  return ints(_mm256_sign_epi32(raw(a), raw(sign)));
}
inline Shorts select(Shorts mask, Shorts a, Shorts b) {
  return shorts(_mm256_blendv_epi8(raw(b), raw(a), raw(mask)));
}
inline Ints select(Ints mask, Ints a, Ints b) {
  return ints(_mm256_blendv_epi8(raw(b), raw(a), raw(mask)));
}
inline Floats select(Ints mask, Floats a, Floats b) {
  return {_mm256_blendv_ps(b.v, a.v, (__m256)mask.v)};
}
inline Doubles select(Doubles::Mask mask, Doubles a, Doubles b) {
  return {_mm256_blendv_pd(b.v, a.v, (__m256d)mask.v)};
}
inline Floats min(Floats a, Floats b) {
  return {_mm256_min_ps(a.v, b.v)};
}
inline Floats max(Floats a, Floats b) {
  return {_mm256_max_ps(a.v, b.v)};
}
inline Doubles min(Doubles a, Doubles b) {
  return {_mm256_min_pd(a.v, b.v)};
}
inline Doubles max(Doubles a, Doubles b) {
  return {_mm256_max_pd(a.v, b.v)};
}
inline Floats abs(Floats a) {
  return {_mm256_andnot_ps(_mm256_set1_ps(-0.0F), a.v)};
}
inline Floats sqrt(Floats a) {
  return {_mm256_sqrt_ps(a.v)};
}

template <typename T, std::size_t n>
bool isZero(Register<Set, T, n> a) {
  const auto all = (__m256i)a.v;
  return _mm256_testz_si256(all, all) != 0;
}
inline unsigned bits(Ints mask) {
  return static_cast<unsigned>(_mm256_movemask_ps((__m256)mask.v));
}
template <typename T, std::size_t n>
void storeHalves(void* first, void* second, Register<Set, T, n> a) {
  // As doubles: only these does gcc store without a move of their own.
  _mm256_storeu2_m128d(static_cast<double*>(second), static_cast<double*>(first), (__m256d)a.v);
}

/// A mask for the first `count` of eight lanes.
inline __m256i firstLanes(std::size_t count) {
  alignas(32) static constexpr std::int32_t kLanes[16] = {-1, -1, -1, -1, -1, -1, -1, -1};
  return raw(Ints::load(kLanes + 8 - (count < 8 ? count : 8)));
}
inline void storeFirst(void* to, Ints a, std::size_t count) {
  if (count >= 8) return store(to, a);
  _mm256_maskstore_epi32(static_cast<int*>(to), firstLanes(count), raw(a));
}
template <typename T>
void storeChosen(void* to, Register<Set, T, 8> a, Ints choice) {
  store(to, ints(_mm256_permutevar8x32_epi32((__m256i)a.v, raw(choice))));
}

inline Ints truncated(Floats a) {
  return ints(_mm256_cvttps_epi32(a.v));
}
inline Floats4 narrowed(Doubles a) {
  return {_mm256_cvtpd_ps(a.v)};
}
inline Floats joined(Floats4 a, Floats4 b) {
  return {_mm256_setr_m128(a.v, b.v)};
}
template <std::size_t lane>
Floats everyOf(Floats4 a) {
  return {_mm256_broadcastss_ps(_mm_permute_ps(a.v, lane * 0x55))};
}

struct Set {
  using Shorts = avx2::Shorts;
  using Ints = avx2::Ints;
  using Floats = avx2::Floats;
  using Doubles = avx2::Doubles;
  using Floats4 = avx2::Floats4;
  using Shorts4 = Register<Set, std::int16_t, 4>;

  static constexpr bool kPairsRows = true;
  static constexpr bool kFlattens = true;

  static std::uint32_t marks(const std::uint8_t* bytes) {
    const __m256i none = _mm256_cmpeq_epi8(raw(Ints::load(bytes)), _mm256_setzero_si256());
    return ~static_cast<std::uint32_t>(_mm256_movemask_epi8(none));
  }
  template <typename To>
  static To loadHalves(const void* first, const void* second) {
    return {(typename To::Vector)_mm256_loadu2_m128i(static_cast<const __m128i*>(second),
                                                     static_cast<const __m128i*>(first))};
  }
  template <typename To>
  static To inHalves(typename To::Lane first, typename To::Lane second) {
    const auto all = [](auto value) { return (__m256i)To::every(value).v; };
    return {(typename To::Vector)_mm256_blend_epi32(all(first), all(second), 0xF0)};
  }
  static Ints loadFirst(const void* from, std::size_t count) {
    return ints(_mm256_maskload_epi32(static_cast<const int*>(from), firstLanes(count)));
  }
  static Ints choice(unsigned set) {
    return ints(_mm256_cvtepu8_epi32(_mm_cvtsi64_si128(static_cast<long long>(kChosen[set]))));
  }
};

}  // namespace glyphwright::raster::lanes::avx2
