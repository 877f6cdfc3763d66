#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>
#include <utility>

/// What the compilers' own vectors can say, for any machine that has them: the words of plain.h
/// that are nothing but sums, comparisons and moves. A set's own header has the others.
namespace glyphwright::raster::lanes {

/// The signed integer of a lane's size.
template <typename T>
using IntLike = std::conditional_t<sizeof(T) == 8, std::int64_t,
                                   std::conditional_t<sizeof(T) == 4, std::int32_t, std::int16_t>>;

/// Lanes of one register. The set is a part of the type, so that what is compiled for one machine
/// is never taken for what is compiled for another.
template <typename Set, typename T, std::size_t n>
struct Register {
  using Lane = T;
  static constexpr std::size_t kLanes = n;
  using Vector [[gnu::vector_size(n * sizeof(T))]] = T;
  using Wrapping = typename std::conditional_t<std::is_floating_point_v<T>, std::type_identity<T>,
                                               std::make_unsigned<IntLike<T>>>::type;
  using WrappingVector [[gnu::vector_size(n * sizeof(T))]] = Wrapping;
  using Bits [[gnu::vector_size(n * sizeof(T))]] = IntLike<T>;
  using Mask = Register<Set, IntLike<T>, n>;

  static Register load(const void* from) {
    Register a;
    __builtin_memcpy(&a.v, from, sizeof(a.v));
    return a;
  }
  static Register every(T value) { return {value - Vector{}}; }

  friend void store(void* to, Register a) { __builtin_memcpy(to, &a.v, sizeof(a.v)); }
  friend Register operator+(Register a, Register b) {
    return {(Vector)((WrappingVector)a.v + (WrappingVector)b.v)};
  }
  friend Register operator-(Register a, Register b) {
    return {(Vector)((WrappingVector)a.v - (WrappingVector)b.v)};
  }
  friend Register operator*(Register a, Register b) {
    return {(Vector)((WrappingVector)a.v * (WrappingVector)b.v)};
  }
  friend Register operator/(Register a, Register b) { return {a.v / b.v}; }
  friend Register operator-(Register a) { return {-a.v}; }
  friend Register operator|(Register a, Register b) { return {(Vector)((Bits)a.v | (Bits)b.v)}; }
  friend Register operator&(Register a, Mask mask) { return {(Vector)((Bits)a.v & (Bits)mask.v)}; }
  friend Register operator~(Register a) { return {(Vector) ~(Bits)a.v}; }
  friend Mask operator<(Register a, Register b) { return {(typename Mask::Vector)(a.v < b.v)}; }
  friend Mask operator>(Register a, Register b) { return {(typename Mask::Vector)(a.v > b.v)}; }
  friend Mask operator<=(Register a, Register b) { return {(typename Mask::Vector)(a.v <= b.v)}; }
  friend Mask operator>=(Register a, Register b) { return {(typename Mask::Vector)(a.v >= b.v)}; }
  friend Mask operator==(Register a, Register b) { return {(typename Mask::Vector)(a.v == b.v)}; }

  Vector v;
};

template <typename To, typename Set, typename T, std::size_t n>
To as(Register<Set, T, n> a) {
  return {(typename To::Vector)a.v};
}

/// Lanes of `a` and then of `b`, counted through, from where `place` has each lane come from.
template <auto place, typename R>
R picked(R a, R b) {
  return [&]<std::size_t... lane>(std::index_sequence<lane...>) {
    return R{__builtin_shufflevector(a.v, b.v, static_cast<int>(place(lane))...)};
  }
  (std::make_index_sequence<R::kLanes>());
}
template <typename R>
inline constexpr std::size_t kHalf = 16 / sizeof(typename R::Lane);  // lanes

template <typename Set, typename T, std::size_t n, typename R = Register<Set, T, n>>
R weaveLow(Register<Set, T, n> a, Register<Set, T, n> b) {
  return picked<[](std::size_t i) { return i - i % kHalf<R> + i % kHalf<R> / 2 + i % 2 * n; }>(a,
                                                                                               b);
}
template <typename Set, typename T, std::size_t n, typename R = Register<Set, T, n>>
R weaveHigh(Register<Set, T, n> a, Register<Set, T, n> b) {
  return picked<[](std::size_t i) {
    return i - i % kHalf<R> + (kHalf<R> + i % kHalf<R>) / 2 + i % 2 * n;
  }>(a, b);
}
template <typename Set, typename T, std::size_t n>
Register<Set, T, n> weavePairsLow(Register<Set, T, n> a, Register<Set, T, n> b) {
  using Pairs = Register<Set, double, n / 2>;
  return as<Register<Set, T, n>>(weaveLow(as<Pairs>(a), as<Pairs>(b)));
}
template <typename Set, typename T, std::size_t n>
Register<Set, T, n> weavePairsHigh(Register<Set, T, n> a, Register<Set, T, n> b) {
  using Pairs = Register<Set, double, n / 2>;
  return as<Register<Set, T, n>>(weaveHigh(as<Pairs>(a), as<Pairs>(b)));
}
template <typename Set, typename T, std::size_t n>
Register<Set, T, n> firstHalves(Register<Set, T, n> a, Register<Set, T, n> b) {
  return picked<[](std::size_t i) { return i < n / 2 ? i : i + n / 2; }>(a, b);
}
template <typename Set, typename T, std::size_t n>
Register<Set, T, n> secondHalves(Register<Set, T, n> a, Register<Set, T, n> b) {
  return picked<[](std::size_t i) { return i < n / 2 ? i + n / 2 : i + n; }>(a, b);
}
template <typename Set, std::size_t n>
Register<Set, std::int16_t, n> lastOfHalves(Register<Set, std::int16_t, n> a) {
  return picked<[](std::size_t i) { return i | 7; }>(a, a);
}
template <typename Set, typename T, std::size_t n>
Register<Set, T, n> swapped(Register<Set, T, n> a) {
  return picked<[](std::size_t i) { return i ^ 1; }>(a, a);
}
template <typename Set>
Register<Set, float, 4> upperAndLower(Register<Set, float, 4> a, Register<Set, float, 4> b) {
  return picked<[](std::size_t i) { return i + 2; }>(a, b);
}

template <int by, typename Set, typename T, std::size_t n>
Register<Set, T, n> shiftLeft(Register<Set, T, n> a) {
  using R = Register<Set, T, n>;
  return {(typename R::Vector)((typename R::WrappingVector)a.v << by)};
}
template <int by, typename Set, std::size_t n>
Register<Set, std::int16_t, n> shiftRight(Register<Set, std::int16_t, n> a) {
  using R = Register<Set, std::int16_t, n>;
  return {(typename R::Vector)((typename R::WrappingVector)a.v >> by)};
}
template <int by, typename Set, std::size_t n>
Register<Set, std::int32_t, n> shiftRight(Register<Set, std::int32_t, n> a) {
  return {a.v >> by};
}
template <typename Set, std::size_t n>
Register<Set, float, n> floats(Register<Set, std::int32_t, n> a) {
  return {__builtin_convertvector(a.v, typename Register<Set, float, n>::Vector)};
}

}  // namespace glyphwright::raster::lanes
