#pragma once

#include <arm_neon.h>

#include <cstddef>
#include <cstdint>

#include <glyphwright/platform/raster/lanes/pair.h>

/// Words for 64-bit Arm, in pairs of registers; plain.h says what they compute.
namespace glyphwright::raster::lanes::neon {

struct Set;
using Shorts8 = Register<Set, std::int16_t, 8>;
using Ints4 = Register<Set, std::int32_t, 4>;
using Floats4 = Register<Set, float, 4>;
using Doubles2 = Register<Set, double, 2>;

template <typename R>
R from(uint8x16_t v) {
  return {(typename R::Vector)v};
}
inline int16x8_t raw(Shorts8 a) {
  return (int16x8_t)a.v;
}
inline int32x4_t raw(Ints4 a) {
  return (int32x4_t)a.v;
}
inline float32x4_t raw(Floats4 a) {
  return (float32x4_t)a.v;
}
inline float64x2_t raw(Doubles2 a) {
  return (float64x2_t)a.v;
}
inline Shorts8 shorts(int16x8_t v) {
  return {(Shorts8::Vector)v};
}
inline Ints4 ints(int32x4_t v) {
  return {(Ints4::Vector)v};
}

inline Shorts8 scaled(Shorts8 a, Shorts8 b) {
  return shorts(vqrdmulhq_s16(raw(a), raw(b)));
}
inline Shorts8 mean(Shorts8 a, Shorts8 b) {
  return {(Shorts8::Vector)vrhaddq_u16((uint16x8_t)a.v, (uint16x8_t)b.v)};
}
inline Shorts8 sumHeld(Shorts8 a, Shorts8 b) {
  return shorts(vqaddq_s16(raw(a), raw(b)));
}
inline Shorts8 min(Shorts8 a, Shorts8 b) {
  return shorts(vminq_s16(raw(a), raw(b)));
}
inline Shorts8 abs(Shorts8 a) {
  return shorts(vabsq_s16(raw(a)));
}
template <std::size_t by>
Shorts8 upBy(Shorts8 a) {
  return shorts(vextq_s16(vdupq_n_s16(0), raw(a), 8 - by));
}

inline Ints4 min(Ints4 a, Ints4 b) {
  return ints(vminq_s32(raw(a), raw(b)));
}
inline Ints4 max(Ints4 a, Ints4 b) {
  return ints(vmaxq_s32(raw(a), raw(b)));
}
inline Ints4 abs(Ints4 a) {
  return ints(vabsq_s32(raw(a)));
}
template <typename T, std::size_t n>
Register<Set, T, n> select(typename Register<Set, T, n>::Mask mask, Register<Set, T, n> a,
                           Register<Set, T, n> b) {
  return from<Register<Set, T, n>>(vbslq_u8((uint8x16_t)mask.v, (uint8x16_t)a.v, (uint8x16_t)b.v));
}
/// This machine's own least and greatest have NaN win.
inline Floats4 min(Floats4 a, Floats4 b) {
  return select(a < b, a, b);
}
inline Floats4 max(Floats4 a, Floats4 b) {
  return select(a > b, a, b);
}
inline Doubles2 min(Doubles2 a, Doubles2 b) {
  return select(a < b, a, b);
}
inline Doubles2 max(Doubles2 a, Doubles2 b) {
  return select(a > b, a, b);
}
inline Floats4 abs(Floats4 a) {
  return {(Floats4::Vector)vabsq_f32(raw(a))};
}
inline Floats4 sqrt(Floats4 a) {
  return {(Floats4::Vector)vsqrtq_f32(raw(a))};
}
inline Ints4 withSign(Ints4 a, Ints4 sign) {
  const Ints4 zero = Ints4::every(0);
  return select(sign < zero, zero - a, a) & ~(sign == zero);
}

template <typename T, std::size_t n>
bool isZero(Register<Set, T, n> a) {
  return vmaxvq_u32((uint32x4_t)a.v) == 0;
}
inline unsigned bits(Pair<Set, std::int32_t> mask) {
  const Ints4 first = {Ints4::Vector{1, 2, 4, 8}};
  const Ints4 second = {Ints4::Vector{16, 32, 64, 128}};
  return vaddvq_u32((uint32x4_t)((first & mask.first) | (second & mask.second)).v);
}
/// The bytes at these numbers.
template <typename T, std::size_t n>
Register<Set, T, n> bytesAt(Register<Set, T, n> a, Ints4 numbers) {
  return from<Register<Set, T, n>>(vqtbl1q_u8((uint8x16_t)a.v, (uint8x16_t)numbers.v));
}

inline Ints4 truncated(Floats4 a) {
  return ints(vcvtq_s32_f32(raw(a)));
}
inline Floats4 narrowed(Pair<Set, double> a) {
  return {(Floats4::Vector)vcvt_high_f32_f64(vcvt_f32_f64(raw(a.first)), raw(a.second))};
}

struct Set : PairSet<Set> {
  static std::uint32_t marks(const std::uint8_t* bytes) {
    static constexpr std::uint8_t kBits[16] = {1, 2, 4, 8, 16, 32, 64, 128,
                                               1, 2, 4, 8, 16, 32, 64, 128};
    const uint8x16_t weights = vld1q_u8(kBits);
    const auto weighed = [&](const std::uint8_t* from) {
      const uint8x16_t v = vld1q_u8(from);
      return vandq_u8(vtstq_u8(v, v), weights);
    };
    uint8x16_t sums = vpaddq_u8(weighed(bytes), weighed(bytes + 16));
    sums = vpaddq_u8(sums, sums);
    sums = vpaddq_u8(sums, sums);
    return vgetq_lane_u32(vreinterpretq_u32_u8(sums), 0);
  }
};

}  // namespace glyphwright::raster::lanes::neon
