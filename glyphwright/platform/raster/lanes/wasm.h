#pragma once

#include <wasm_simd128.h>

#include <cstddef>
#include <cstdint>

#include <glyphwright/platform/raster/lanes/pair.h>

/// Words for WebAssembly with 128-bit SIMD, in pairs of registers; plain.h says what they compute.
namespace glyphwright::raster::lanes::wasm {

struct Set;
using Shorts8 = Register<Set, std::int16_t, 8>;
using Ints4 = Register<Set, std::int32_t, 4>;
using Floats4 = Register<Set, float, 4>;
using Doubles2 = Register<Set, double, 2>;

template <typename T, std::size_t n>
v128_t raw(Register<Set, T, n> a) {
  return (v128_t)a.v;
}
template <typename R>
R as(v128_t v) {
  return {(typename R::Vector)v};
}

inline Shorts8 scaled(Shorts8 a, Shorts8 b) {
  return as<Shorts8>(wasm_i16x8_q15mulr_sat(raw(a), raw(b)));
}
inline Shorts8 mean(Shorts8 a, Shorts8 b) {
  return as<Shorts8>(wasm_u16x8_avgr(raw(a), raw(b)));
}
inline Shorts8 sumHeld(Shorts8 a, Shorts8 b) {
  return as<Shorts8>(wasm_i16x8_add_sat(raw(a), raw(b)));
}
inline Shorts8 min(Shorts8 a, Shorts8 b) {
  return as<Shorts8>(wasm_i16x8_min(raw(a), raw(b)));
}
inline Shorts8 abs(Shorts8 a) {
  return as<Shorts8>(wasm_i16x8_abs(raw(a)));
}
template <std::size_t by>
Shorts8 upBy(Shorts8 a) {
  return picked<[](std::size_t i) { return i < by ? 8 + i : i - by; }>(a, Shorts8{});
}

inline Ints4 min(Ints4 a, Ints4 b) {
  return as<Ints4>(wasm_i32x4_min(raw(a), raw(b)));
}
inline Ints4 max(Ints4 a, Ints4 b) {
  return as<Ints4>(wasm_i32x4_max(raw(a), raw(b)));
}
inline Ints4 abs(Ints4 a) {
  return as<Ints4>(wasm_i32x4_abs(raw(a)));
}
/// pmin(b, a) is a < b ? a : b.
inline Floats4 min(Floats4 a, Floats4 b) {
  return as<Floats4>(wasm_f32x4_pmin(raw(b), raw(a)));
}
inline Floats4 max(Floats4 a, Floats4 b) {
  return as<Floats4>(wasm_f32x4_pmax(raw(b), raw(a)));
}
inline Doubles2 min(Doubles2 a, Doubles2 b) {
  return as<Doubles2>(wasm_f64x2_pmin(raw(b), raw(a)));
}
inline Doubles2 max(Doubles2 a, Doubles2 b) {
  return as<Doubles2>(wasm_f64x2_pmax(raw(b), raw(a)));
}
inline Floats4 abs(Floats4 a) {
  return as<Floats4>(wasm_f32x4_abs(raw(a)));
}
inline Floats4 sqrt(Floats4 a) {
  return as<Floats4>(wasm_f32x4_sqrt(raw(a)));
}
template <typename T, std::size_t n>
Register<Set, T, n> select(typename Register<Set, T, n>::Mask mask, Register<Set, T, n> a,
                           Register<Set, T, n> b) {
  return as<Register<Set, T, n>>(wasm_v128_bitselect(raw(a), raw(b), raw(mask)));
}
inline Ints4 withSign(Ints4 a, Ints4 sign) {
  const Ints4 zero = Ints4::every(0);
  return select(sign < zero, zero - a, a) & ~(sign == zero);
}

template <typename T, std::size_t n>
bool isZero(Register<Set, T, n> a) {
  return !wasm_v128_any_true(raw(a));
}
inline unsigned bits(Pair<Set, std::int32_t> mask) {
  const auto four = [](Ints4 v) { return static_cast<unsigned>(wasm_i32x4_bitmask(raw(v))); };
  return four(mask.first) | four(mask.second) << 4;
}
/// The bytes at these numbers.
template <typename T, std::size_t n>
Register<Set, T, n> bytesAt(Register<Set, T, n> a, Ints4 numbers) {
  return as<Register<Set, T, n>>(wasm_i8x16_swizzle(raw(a), raw(numbers)));
}

inline Ints4 truncated(Floats4 a) {
  return as<Ints4>(wasm_i32x4_trunc_sat_f32x4(raw(a)));
}
inline Floats4 narrowed(Pair<Set, double> a) {
  const v128_t first = wasm_f32x4_demote_f64x2_zero(raw(a.first));
  const v128_t second = wasm_f32x4_demote_f64x2_zero(raw(a.second));
  return as<Floats4>(wasm_i32x4_shuffle(first, second, 0, 1, 4, 5));
}

struct Set : PairSet<Set> {
  static std::uint32_t marks(const std::uint8_t* bytes) {
    const auto marked = [](const std::uint8_t* from) {
      const v128_t none = wasm_i8x16_eq(wasm_v128_load(from), wasm_i8x16_const_splat(0));
      return static_cast<std::uint32_t>(wasm_i8x16_bitmask(none)) ^ 0xFFFFU;
    };
    return marked(bytes) | marked(bytes + 16) << 16;
  }
};

}  // namespace glyphwright::raster::lanes::wasm
