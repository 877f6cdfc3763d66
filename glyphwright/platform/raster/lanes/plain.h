#pragma once

#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

/// The words that loops are written in, as arrays and loops: for machines without a set of their
/// own, and to say what each word computes. Every other set gives the same, bit for bit.
///
/// A set has sixteen `Shorts`, eight `Ints` or `Floats` and four `Doubles`, all of 32 bytes, and
/// for the points of curves four `Floats4`. Thirty-two bytes have two halves, and what
/// moves from lane to lane stays in its half unless its name says otherwise. The first lane lies
/// first in memory, and the first byte of a lane is its lowest.
namespace glyphwright::raster::lanes::plain {

template <typename T, std::size_t n>
struct Array {
  using Lane = T;
  static constexpr std::size_t kLanes = n;
  static constexpr std::size_t kHalf = sizeof(T) * n == 32 ? n / 2 : n;

  /// From anywhere in memory.
  static Array load(const void* from) {
    Array a;
    std::memcpy(a.v.data(), from, sizeof(a.v));
    return a;
  }
  static Array every(T value) {
    Array a;
    a.v.fill(value);
    return a;
  }
  /// `f` of each lane's number.
  template <typename F>
  static Array from(F f) {
    Array a;
    for (std::size_t i = 0; i < n; ++i) a.v[i] = static_cast<T>(f(i));
    return a;
  }

  std::array<T, n> v;
};

static_assert(std::endian::native == std::endian::little, "pixels are woven from their low bytes");

template <typename T>
using IntOf = std::conditional_t<sizeof(T) == 8, std::int64_t,
                                 std::conditional_t<sizeof(T) == 4, std::int32_t, std::int16_t>>;
/// What a comparison gives: lanes with all bits set, or none.
template <typename T, std::size_t n>
using MaskOf = Array<IntOf<T>, n>;

template <typename T, std::size_t n>
void store(void* to, const Array<T, n>& a) {
  std::memcpy(to, a.v.data(), sizeof(a.v));
}
/// The same bits as other lanes.
template <typename To, typename T, std::size_t n>
To as(const Array<T, n>& a) {
  return std::bit_cast<To>(a);
}

/// + − × wrap where lanes are integers; floating point is rounded to nearest, and never fused.
template <typename F, typename T, std::size_t n>
Array<T, n> apply(const Array<T, n>& a, const Array<T, n>& b, F f) {
  // 32-bit sums may pass the ends of an int.
  using Wide = std::conditional_t<std::is_same_v<T, std::int32_t>, std::uint32_t, T>;
  return Array<T, n>::from(
      [&](std::size_t i) { return f(static_cast<Wide>(a.v[i]), static_cast<Wide>(b.v[i])); });
}
template <typename T, std::size_t n>
Array<T, n> operator+(const Array<T, n>& a, const Array<T, n>& b) {
  return apply(a, b, [](auto x, auto y) { return x + y; });
}
template <typename T, std::size_t n>
Array<T, n> operator-(const Array<T, n>& a, const Array<T, n>& b) {
  return apply(a, b, [](auto x, auto y) { return x - y; });
}
template <typename T, std::size_t n>
Array<T, n> operator*(const Array<T, n>& a, const Array<T, n>& b) {
  return apply(a, b, [](auto x, auto y) { return x * y; });
}
template <typename T, std::size_t n>
Array<T, n> operator/(const Array<T, n>& a, const Array<T, n>& b) {
  return apply(a, b, [](auto x, auto y) { return x / y; });
}
template <typename T, std::size_t n>
Array<T, n> operator|(const Array<T, n>& a, const Array<T, n>& b) {
  return apply(a, b, [](auto x, auto y) { return x | y; });
}
/// Lanes where the mask has bits, zeros (+0) elsewhere.
template <typename T, std::size_t n>
Array<T, n> operator&(const Array<T, n>& a, const MaskOf<T, n>& mask) {
  return Array<T, n>::from([&](std::size_t i) {
    return std::bit_cast<T>(static_cast<IntOf<T>>(std::bit_cast<IntOf<T>>(a.v[i]) & mask.v[i]));
  });
}
template <typename T, std::size_t n>
Array<T, n> operator~(const Array<T, n>& a) {
  return Array<T, n>::from([&](std::size_t i) { return ~a.v[i]; });
}
/// Flips the sign, also that of zero and NaN.
template <std::size_t n>
Array<float, n> operator-(const Array<float, n>& a) {
  return Array<float, n>::from([&](std::size_t i) { return -a.v[i]; });
}

/// Nothing is less than, equal to or greater than NaN.
template <typename F, typename T, std::size_t n>
MaskOf<T, n> compared(const Array<T, n>& a, const Array<T, n>& b, F f) {
  return MaskOf<T, n>::from([&](std::size_t i) { return f(a.v[i], b.v[i]) ? -1 : 0; });
}
template <typename T, std::size_t n>
MaskOf<T, n> operator<(const Array<T, n>& a, const Array<T, n>& b) {
  return compared(a, b, [](T x, T y) { return x < y; });
}
template <typename T, std::size_t n>
MaskOf<T, n> operator>(const Array<T, n>& a, const Array<T, n>& b) {
  return b < a;
}
template <typename T, std::size_t n>
MaskOf<T, n> operator<=(const Array<T, n>& a, const Array<T, n>& b) {
  return compared(a, b, [](T x, T y) { return x <= y; });
}
template <typename T, std::size_t n>
MaskOf<T, n> operator>=(const Array<T, n>& a, const Array<T, n>& b) {
  return b <= a;
}
template <typename T, std::size_t n>
MaskOf<T, n> operator==(const Array<T, n>& a, const Array<T, n>& b) {
  return compared(a, b, [](T x, T y) { return x == y; });
}

/// `a` where the mask has all bits, `b` where it has none.
template <typename T, std::size_t n>
Array<T, n> select(const MaskOf<T, n>& mask, const Array<T, n>& a, const Array<T, n>& b) {
  return Array<T, n>::from([&](std::size_t i) { return mask.v[i] != 0 ? a.v[i] : b.v[i]; });
}
/// a < b ? a : b, and so `b` when one of them is NaN or both are zero.
template <typename T, std::size_t n>
Array<T, n> min(const Array<T, n>& a, const Array<T, n>& b) {
  return select(a < b, a, b);
}
/// a > b ? a : b, likewise.
template <typename T, std::size_t n>
Array<T, n> max(const Array<T, n>& a, const Array<T, n>& b) {
  return select(a > b, a, b);
}
/// Without its sign; the least integer stays as it is.
template <typename T, std::size_t n>
Array<T, n> abs(const Array<T, n>& a) {
  if constexpr (std::is_same_v<T, float>) {
    return Array<T, n>::from([&](std::size_t i) { return std::fabs(a.v[i]); });
  } else {
    return max(a, Array<T, n>::every(0) - a);
  }
}
template <typename T, std::size_t n>
Array<T, n> sqrt(const Array<T, n>& a) {
  return Array<T, n>::from([&](std::size_t i) { return std::sqrt(a.v[i]); });
}

template <int by, typename T, std::size_t n>
Array<T, n> shiftLeft(const Array<T, n>& a) {
  return Array<T, n>::from([&](std::size_t i) { return a.v[i] << by; });
}
/// Of Shorts zeros come in from the left, of Ints copies of the sign.
template <int by, typename T, std::size_t n>
Array<T, n> shiftRight(const Array<T, n>& a) {
  using Shifted = std::conditional_t<sizeof(T) == 2, std::uint16_t, T>;
  return Array<T, n>::from([&](std::size_t i) { return static_cast<Shifted>(a.v[i]) >> by; });
}

/// Of each half the lanes from the first (Low) or from its middle on (High), of `a` and `b` by
/// turns.
template <std::size_t from, typename T, std::size_t n>
Array<T, n> woven(const Array<T, n>& a, const Array<T, n>& b) {
  constexpr std::size_t half = Array<T, n>::kHalf;
  return Array<T, n>::from([&](std::size_t i) {
    const std::size_t at = i / half * half + from * half / 2 + i % half / 2;
    return i % 2 == 0 ? a.v[at] : b.v[at];
  });
}
template <typename T, std::size_t n>
Array<T, n> weaveLow(const Array<T, n>& a, const Array<T, n>& b) {
  return woven<0>(a, b);
}
template <typename T, std::size_t n>
Array<T, n> weaveHigh(const Array<T, n>& a, const Array<T, n>& b) {
  return woven<1>(a, b);
}
/// The same with pairs of 32-bit lanes.
template <typename T, std::size_t n>
Array<T, n> weavePairsLow(const Array<T, n>& a, const Array<T, n>& b) {
  using Pairs = Array<std::int64_t, n / 2>;
  return as<Array<T, n>>(weaveLow(as<Pairs>(a), as<Pairs>(b)));
}
template <typename T, std::size_t n>
Array<T, n> weavePairsHigh(const Array<T, n>& a, const Array<T, n>& b) {
  using Pairs = Array<std::int64_t, n / 2>;
  return as<Array<T, n>>(weaveHigh(as<Pairs>(a), as<Pairs>(b)));
}
/// The first half of `a` and the first one of `b`; and the second ones.
template <typename T, std::size_t n>
Array<T, n> firstHalves(const Array<T, n>& a, const Array<T, n>& b) {
  return Array<T, n>::from([&](std::size_t i) { return i < n / 2 ? a.v[i] : b.v[i - n / 2]; });
}
template <typename T, std::size_t n>
Array<T, n> secondHalves(const Array<T, n>& a, const Array<T, n>& b) {
  return Array<T, n>::from([&](std::size_t i) { return i < n / 2 ? a.v[i + n / 2] : b.v[i]; });
}
/// Each half to a place of its own.
template <typename T, std::size_t n>
void storeHalves(void* first, void* second, const Array<T, n>& a) {
  std::memcpy(first, a.v.data(), 16);
  std::memcpy(second, a.v.data() + n / 2, 16);
}
/// The first `count` of eight lanes, or all if there are not as many; nothing else is written.
template <typename T>
void storeFirst(void* to, const Array<T, 8>& a, std::size_t count) {
  std::memcpy(to, a.v.data(), 4 * (count < 8 ? count : 8));
}

using Shorts = Array<std::int16_t, 16>;
using Ints = Array<std::int32_t, 8>;

/// (a·b + 2¹⁴) / 2¹⁵, rounded down: the product of 15-bit fractions. Not both may be −2¹⁵.
inline Shorts scaled(const Shorts& a, const Shorts& b) {
  return Shorts::from([&](std::size_t i) { return (a.v[i] * b.v[i] + 0x4000) >> 15; });
}
/// The mean of unsigned lanes, rounded up.
inline Shorts mean(const Shorts& a, const Shorts& b) {
  const auto at = [](std::int16_t v) { return static_cast<std::uint16_t>(v); };
  return Shorts::from([&](std::size_t i) { return (at(a.v[i]) + at(b.v[i]) + 1) >> 1; });
}
/// The sum, held within −2¹⁵ and 2¹⁵ − 1.
inline Shorts sumHeld(const Shorts& a, const Shorts& b) {
  return Shorts::from([&](std::size_t i) {
    const int sum = a.v[i] + b.v[i];
    return sum < -32768 ? -32768 : sum > 32767 ? 32767 : sum;
  });
}
/// Lanes move up by so many in each half, and zeros follow.
template <std::size_t by>
Shorts upBy(const Shorts& a) {
  return Shorts::from([&](std::size_t i) { return i % 8 < by ? 0 : a.v[i - by]; });
}
/// Each half's last lane in all of its lanes.
inline Shorts lastOfHalves(const Shorts& a) {
  return Shorts::from([&](std::size_t i) { return a.v[i / 8 * 8 + 7]; });
}
template <typename T, std::size_t n>
bool isZero(const Array<T, n>& a) {
  constexpr std::array<T, n> zeros{};
  return std::memcmp(a.v.data(), zeros.data(), sizeof(zeros)) == 0;
}
/// A bit for each lane of a mask.
template <std::size_t n>
unsigned bits(const Array<std::int32_t, n>& mask) {
  unsigned set = 0;
  for (std::size_t i = 0; i < n; ++i) set |= (mask.v[i] < 0 ? 1U : 0U) << i;
  return set;
}
/// a, −a or 0, as `sign` is above, below or 0.
inline Ints withSign(const Ints& a, const Ints& sign) {
  const Ints zero = Ints::every(0);
  return select(sign < zero, zero - a, a & ~(sign == zero));
}
/// Puts down the lanes that `set` has bits for, one after another, and then anything: eight in all.
template <typename T>
void storeChosen(void* to, const Array<T, 8>& a, unsigned set) {
  T chosen[8] = {};
  std::size_t count = 0;
  for (std::size_t i = 0; i < 8; ++i) {
    chosen[count] = a.v[i];
    count += set >> i & 1;
  }
  std::memcpy(to, chosen, sizeof(chosen));
}
/// Rounded towards zero; anything may come out for what an int cannot hold.
template <typename T, std::size_t n>
Array<std::int32_t, n> truncated(const Array<T, n>& a) {
  return Array<std::int32_t, n>::from([&](std::size_t i) {
    return a.v[i] > -2147483648.0F && a.v[i] < 2147483648.0F ? static_cast<std::int32_t>(a.v[i])
                                                             : INT32_MIN;
  });
}
inline Array<float, 8> floats(const Ints& a) {
  return Array<float, 8>::from([&](std::size_t i) { return a.v[i]; });
}
/// Rounded to nearest.
inline Array<float, 4> narrowed(const Array<double, 4>& a) {
  return Array<float, 4>::from([&](std::size_t i) { return a.v[i]; });
}
/// Four lanes and four more.
inline Array<float, 8> joined(const Array<float, 4>& a, const Array<float, 4>& b) {
  return Array<float, 8>::from([&](std::size_t i) { return i < 4 ? a.v[i] : b.v[i - 4]; });
}
/// First and second of each pair exchanged.
template <typename T>
Array<T, 4> swapped(const Array<T, 4>& a) {
  return Array<T, 4>::from([&](std::size_t i) { return a.v[i ^ 1]; });
}
/// The upper two of `a`, then the lower two of `b`.
inline Array<float, 4> upperAndLower(const Array<float, 4>& a, const Array<float, 4>& b) {
  return {a.v[2], a.v[3], b.v[0], b.v[1]};
}
/// One lane in all of eight.
template <std::size_t lane>
Array<float, 8> everyOf(const Array<float, 4>& a) {
  return Array<float, 8>::every(a.v[lane]);
}

struct Set {
  using Shorts = plain::Shorts;
  using Ints = plain::Ints;
  using Floats = Array<float, 8>;
  using Doubles = Array<double, 4>;
  using Floats4 = Array<float, 4>;
  using Shorts4 = Array<std::int16_t, 4>;

  /// Whether loops gain by two rows in the two halves, and whether they are to become one function.
  static constexpr bool kPairsRows = false;
  static constexpr bool kFlattens = false;

  /// A bit for each of 32 bytes in memory, set for those that are not zero.
  static std::uint32_t marks(const std::uint8_t* bytes) {
    std::uint32_t set = 0;
    for (std::uint32_t i = 0; i < 32; ++i) set |= (bytes[i] != 0 ? 1U : 0U) << i;
    return set;
  }
  /// Each half from a place of its own.
  template <typename To>
  static To loadHalves(const void* first, const void* second) {
    To a;
    std::memcpy(a.v.data(), first, 16);
    std::memcpy(a.v.data() + To::kLanes / 2, second, 16);
    return a;
  }
  /// One value in all of the first half, and another in the second one.
  template <typename To>
  static To inHalves(typename To::Lane first, typename To::Lane second) {
    return To::from([&](std::size_t i) { return i < To::kLanes / 2 ? first : second; });
  }
  /// The first `count` of eight lanes, or all if there are not as many; nothing else is read, and
  /// zeros take its place.
  static Ints loadFirst(const void* from, std::size_t count) {
    Ints a = Ints::every(0);
    std::memcpy(a.v.data(), from, 4 * (count < 8 ? count : 8));
    return a;
  }
  /// What storeChosen takes for a set of lanes.
  static unsigned choice(unsigned set) { return set; }
};

}  // namespace glyphwright::raster::lanes::plain
