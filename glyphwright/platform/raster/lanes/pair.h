#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#include <glyphwright/platform/raster/lanes/register.h>

/// Two registers of 16 bytes as the 32 bytes that plain.h speaks of: each is a half, and so nearly
/// every word is the same word twice.
namespace glyphwright::raster::lanes {

template <typename Set, typename T>
struct Pair {
  using Lane = T;
  using Half = Register<Set, T, 16 / sizeof(T)>;
  static constexpr std::size_t kLanes = 2 * Half::kLanes;
  using Mask = Pair<Set, IntLike<T>>;

  static Pair load(const void* from) {
    return {Half::load(from), Half::load(static_cast<const char*>(from) + 16)};
  }
  static Pair every(T value) { return {Half::every(value), Half::every(value)}; }

  friend void store(void* to, Pair a) { storeHalves(to, static_cast<char*>(to) + 16, a); }
  friend void storeHalves(void* to, void* toSecond, Pair a) {
    store(to, a.first);
    store(toSecond, a.second);
  }
  friend Pair operator+(Pair a, Pair b) { return {a.first + b.first, a.second + b.second}; }
  friend Pair operator-(Pair a, Pair b) { return {a.first - b.first, a.second - b.second}; }
  friend Pair operator*(Pair a, Pair b) { return {a.first * b.first, a.second * b.second}; }
  friend Pair operator/(Pair a, Pair b) { return {a.first / b.first, a.second / b.second}; }
  friend Pair operator|(Pair a, Pair b) { return {a.first | b.first, a.second | b.second}; }
  friend Pair operator&(Pair a, Mask b) { return {a.first & b.first, a.second & b.second}; }
  friend Pair operator-(Pair a) { return {-a.first, -a.second}; }
  friend Pair operator~(Pair a) { return {~a.first, ~a.second}; }
  friend Mask operator<(Pair a, Pair b) { return {a.first < b.first, a.second < b.second}; }
  friend Mask operator>(Pair a, Pair b) { return {a.first > b.first, a.second > b.second}; }
  friend Mask operator<=(Pair a, Pair b) { return {a.first <= b.first, a.second <= b.second}; }
  friend Mask operator>=(Pair a, Pair b) { return {a.first >= b.first, a.second >= b.second}; }
  friend Mask operator==(Pair a, Pair b) { return {a.first == b.first, a.second == b.second}; }
  friend Pair select(Mask mask, Pair a, Pair b) {
    return {select(mask.first, a.first, b.first), select(mask.second, a.second, b.second)};
  }
  friend Pair min(Pair a, Pair b) { return {min(a.first, b.first), min(a.second, b.second)}; }
  friend Pair max(Pair a, Pair b) { return {max(a.first, b.first), max(a.second, b.second)}; }
  friend Pair abs(Pair a) { return {abs(a.first), abs(a.second)}; }
  friend Pair sqrt(Pair a) { return {sqrt(a.first), sqrt(a.second)}; }
  friend Pair scaled(Pair a, Pair b) {
    return {scaled(a.first, b.first), scaled(a.second, b.second)};
  }
  friend Pair mean(Pair a, Pair b) { return {mean(a.first, b.first), mean(a.second, b.second)}; }
  friend Pair sumHeld(Pair a, Pair b) {
    return {sumHeld(a.first, b.first), sumHeld(a.second, b.second)};
  }
  friend Pair withSign(Pair a, Pair sign) {
    return {withSign(a.first, sign.first), withSign(a.second, sign.second)};
  }
  friend Pair weaveLow(Pair a, Pair b) {
    return {weaveLow(a.first, b.first), weaveLow(a.second, b.second)};
  }
  friend Pair weaveHigh(Pair a, Pair b) {
    return {weaveHigh(a.first, b.first), weaveHigh(a.second, b.second)};
  }
  friend Pair weavePairsLow(Pair a, Pair b) {
    return {weavePairsLow(a.first, b.first), weavePairsLow(a.second, b.second)};
  }
  friend Pair weavePairsHigh(Pair a, Pair b) {
    return {weavePairsHigh(a.first, b.first), weavePairsHigh(a.second, b.second)};
  }
  friend Pair firstHalves(Pair a, Pair b) { return {a.first, b.first}; }
  friend Pair secondHalves(Pair a, Pair b) { return {a.second, b.second}; }
  friend Pair lastOfHalves(Pair a) { return {lastOfHalves(a.first), lastOfHalves(a.second)}; }
  friend Pair swapped(Pair a) { return {swapped(a.first), swapped(a.second)}; }
  friend bool isZero(Pair a) { return isZero(a.first | a.second); }

  Half first;
  Half second;
};

template <typename To, typename Set, typename T>
To as(Pair<Set, T> a) {
  using Half = typename To::Half;
  return {as<Half>(a.first), as<Half>(a.second)};
}
template <int by, typename Set, typename T>
Pair<Set, T> shiftLeft(Pair<Set, T> a) {
  return {shiftLeft<by>(a.first), shiftLeft<by>(a.second)};
}
template <int by, typename Set, typename T>
Pair<Set, T> shiftRight(Pair<Set, T> a) {
  return {shiftRight<by>(a.first), shiftRight<by>(a.second)};
}
template <std::size_t by, typename Set, typename T>
Pair<Set, T> upBy(Pair<Set, T> a) {
  return {upBy<by>(a.first), upBy<by>(a.second)};
}
template <typename Set>
Pair<Set, float> floats(Pair<Set, std::int32_t> a) {
  return {floats(a.first), floats(a.second)};
}
template <typename Set>
Pair<Set, std::int32_t> truncated(Pair<Set, float> a) {
  return {truncated(a.first), truncated(a.second)};
}
template <typename Set>
Pair<Set, float> joined(Register<Set, float, 4> a, Register<Set, float, 4> b) {
  return {a, b};
}
template <std::size_t lane, typename Set>
Pair<Set, float> everyOf(Register<Set, float, 4> a) {
  const auto every = picked<[](std::size_t) { return lane; }>(a, a);
  return {every, every};
}
template <typename Set, typename T>
void storeFirst(void* to, Pair<Set, T> a, std::size_t count) {
  if (count >= a.kLanes) return store(to, a);
  T lanes[Pair<Set, T>::kLanes];
  store(lanes, a);
  std::memcpy(to, lanes, count * sizeof(T));
}

/// For each choice of four lanes, the bytes that bring them together.
inline constexpr auto kChosenBytes = [] {
  struct Table {
    alignas(16) std::uint8_t bytes[16][16];
  } table{};
  for (unsigned set = 0; set < 16; ++set) {
    std::size_t at = 0;
    for (unsigned lane = 0; lane < 4; ++lane) {
      if ((set >> lane & 1) == 0) continue;
      for (unsigned byte = 0; byte < 4; ++byte) {
        table.bytes[set][at++] = static_cast<std::uint8_t>(4 * lane + byte);
      }
    }
  }
  return table;
}();
/// Where lanes come from that are put down one after another, of each half.
template <typename Set>
struct PairChoice {
  Register<Set, std::int32_t, 4> first;
  Register<Set, std::int32_t, 4> second;
  std::size_t firstBytes;
};
template <typename Set, typename T>
void storeChosen(void* to, Pair<Set, T> a, const PairChoice<Set>& choice) {
  store(to, bytesAt(a.first, choice.first));
  store(static_cast<char*>(to) + choice.firstBytes, bytesAt(a.second, choice.second));
}

/// What sets with registers of 16 bytes share.
template <typename Set>
struct PairSet {
  using Shorts = Pair<Set, std::int16_t>;
  using Ints = Pair<Set, std::int32_t>;
  using Floats = Pair<Set, float>;
  using Doubles = Pair<Set, double>;
  using Ints4 = Register<Set, std::int32_t, 4>;
  using Floats4 = Register<Set, float, 4>;
  using Shorts4 = Register<Set, std::int16_t, 4>;

  static constexpr bool kPairsRows = false;
  static constexpr bool kFlattens = true;

  template <typename To>
  static To loadHalves(const void* first, const void* second) {
    return {To::Half::load(first), To::Half::load(second)};
  }
  template <typename To>
  static To inHalves(typename To::Lane first, typename To::Lane second) {
    return {To::Half::every(first), To::Half::every(second)};
  }
  static Ints loadFirst(const void* from, std::size_t count) {
    if (count >= Ints::kLanes) return Ints::load(from);
    std::int32_t lanes[Ints::kLanes] = {};
    std::memcpy(lanes, from, count * sizeof(lanes[0]));
    return Ints::load(lanes);
  }
  static PairChoice<Set> choice(unsigned set) {
    const unsigned first = set & 15;
    return {Ints4::load(kChosenBytes.bytes[first]), Ints4::load(kChosenBytes.bytes[set >> 4 & 15]),
            std::size_t{4} * static_cast<unsigned>(__builtin_popcount(first))};
  }
};

}  // namespace glyphwright::raster::lanes
