#pragma once

#include <cstddef>
#include <cstdint>

#include <glyphwright/platform/raster/kernels.h>
#include <glyphwright/platform/raster/kernels/rows.h>

/// Colours and what becomes of them over pixels.
namespace glyphwright::raster::loops {
namespace {

/// From 1/64 levels to bytes: (v + 32) >> 6.
template <typename Shorts>
Shorts rounded(Shorts channels64) {
  return scaled(channels64, Shorts::every(1 << 9));
}

/// What is left of a pixel under something of this alpha.
template <typename Shorts>
Shorts remainder(Shorts alpha) {
  return Shorts::every(kOne) - alpha;
}

/// From 1/1024 to 15-bit fractions: × 32, less one at the very top.
template <typename Shorts>
Shorts fractions(Shorts units) {
  return shiftLeft<5>(units) - shiftRight<10>(units);
}

/// A colour, one channel in each.
template <typename L>
struct Channels {
  using Shorts = typename L::Shorts;
  explicit Channels(const SolidColor& color) : alpha(Shorts::every(color.alpha)) {
    for (std::size_t c = 0; c < 4; ++c) channel[c] = Shorts::every(color.channels[c]);
  }
  /// Over nothing, in 1/64 levels.
  Shorts alone(std::size_t c, Shorts coverage) const { return scaled(channel[c], coverage); }
  /// Over 1/64 levels, as bytes; `rest` is what is left of them.
  Shorts over(std::size_t c, Shorts coverage, Shorts below, Shorts rest) const {
    return rounded(alone(c, coverage) + scaled(below, rest));
  }
  Shorts rest(Shorts coverage) const { return remainder(scaled(alpha, coverage)); }

  Shorts channel[4];
  Shorts alpha;
};

/// Eight pixels as they lie in memory: of each its even bytes, red and blue, in one pair of lanes,
/// and its odd ones, green and alpha, in another, so that nothing needs to be woven. In 1/64
/// levels.
template <typename L>
struct Halves {
  using Shorts = typename L::Shorts;
  static Halves of(typename L::Ints pixels) {
    const auto bytes = as<Shorts>(pixels);
    return {shiftRight<2>(shiftLeft<8>(bytes)), shiftLeft<6>(shiftRight<8>(bytes))};
  }
  Halves times(Shorts fraction) const { return {scaled(even, fraction), scaled(odd, fraction)}; }
  Halves plus(const Halves& other) const { return {even + other.even, odd + other.odd}; }
  typename L::Ints pixels() const {
    return as<typename L::Ints>(rounded(even) | shiftLeft<8>(rounded(odd)));
  }
  /// Each pixel's alpha as a fraction, twice: 255 → 32767, alpha × 128 plus the two top places
  /// repeated.
  Shorts alpha() const {
    using Ints = typename L::Ints;
    const auto greenAlpha = as<Ints>(shiftRight<6>(odd));
    const auto both = as<Shorts>(shiftRight<16>(greenAlpha) | (greenAlpha & Ints::every(~0xFFFF)));
    return shiftLeft<7>(both) + shiftRight<1>(both);
  }

  Shorts even;
  Shorts odd;
};

/// Eight pixels over others, each with its coverage twice.
template <typename L>
typename L::Ints laidOver(typename L::Ints above, typename L::Shorts coverage,
                          typename L::Ints below) {
  const Halves<L> color = Halves<L>::of(above);
  const auto rest = remainder(scaled(color.alpha(), coverage));
  return color.times(coverage).plus(Halves<L>::of(below).times(rest)).pixels();
}

/// A colour to be laid over pixels.
template <typename L>
class Ink {
 public:
  using Shorts = typename L::Shorts;
  using Ints = typename L::Ints;
  /// Pixels in the first half take the first colour.
  Ink(const SolidColor& first, const SolidColor& second)
      : color_{pairs(first, second, 0), pairs(first, second, 1)},
        alpha_(inHalves(first.alpha, second.alpha)) {}

  /// Eight pixels, each with its coverage twice.
  Ints over(Shorts coverage, Ints below) const {
    const Shorts rest = remainder(scaled(alpha_, coverage));
    return color_.times(coverage).plus(Halves<L>::of(below).times(rest)).pixels();
  }

 private:
  static Shorts inHalves(std::int16_t first, std::int16_t second) {
    return L::template inHalves<Shorts>(first, second);
  }
  // Channels `from` and `from` + 2 in turn.
  static Shorts pairs(const SolidColor& first, const SolidColor& second, int from) {
    const auto pair = [from](const SolidColor& color) {
      return color.channels[from] | color.channels[from + 2] << 16;
    };
    return as<Shorts>(L::template inHalves<Ints>(pair(first), pair(second)));
  }

  Halves<L> color_;
  Shorts alpha_;
};

}  // namespace
}  // namespace glyphwright::raster::loops
