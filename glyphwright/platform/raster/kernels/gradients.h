#pragma once

#include <cstddef>
#include <cstdint>

#include <glyphwright/platform/raster/kernels/rows.h>

/// The colours of gradients.
namespace glyphwright::raster::loops {
namespace {

/// Eight pixels from one channel each, the level at the lowest place of every lane; no lane has
/// anything else.
template <typename Ints>
Ints interleaved(Ints red, Ints green, Ints blue, Ints alpha) {
  return (red | shiftLeft<8>(green)) | (shiftLeft<16>(blue) | shiftLeft<24>(alpha));
}

/// One channel of eight pixels in each. Parts come in double, so that each has the float next to it
/// from whichever end it was counted; the colour has digits to spare in single precision.
template <typename L>
class Mixer {
 public:
  using Doubles = typename L::Doubles;
  using Floats = typename L::Floats;
  explicit Mixer(const ColorStretch& stretch) {
    for (int c = 0; c < 4; ++c) {
      start_[c] = Floats::every(static_cast<float>(stretch.start[c]));
      change_[c] = Floats::every(static_cast<float>(stretch.change[c]));
      bend_[c] = Floats::every(static_cast<float>(stretch.bend[c]));
    }
  }

  void put(Doubles lowParts, Doubles highParts, std::uint8_t* rgba, std::size_t count) const {
    const Floats part = joined(narrowed(lowParts), narrowed(highParts));
    const Floats alpha = start_[3] + part * change_[3];
    const auto level = [&](int c) {
      const Floats exact = start_[c] + part * (change_[c] + part * bend_[c]);
      return truncated(min(exact, alpha));
    };
    storeFirst(rgba, interleaved(level(0), level(1), level(2), truncated(alpha)), count);
  }

 private:
  Floats start_[4];
  Floats change_[4];
  Floats bend_[4];
};

/// Each part is worked out afresh, since a sum that grows would stray from it.
template <typename L>
void mixBent(const ColorStretch& stretch, double from, double step, std::size_t count,
             std::uint8_t* rgba) {
  using Doubles = typename L::Doubles;
  const Mixer<L> mixer(stretch);
  const auto partsAt = [&](Doubles pixel) {
    return Doubles::every(from) + Doubles::every(step) * pixel;
  };
  const Doubles eight = Doubles::every(8);
  Doubles low = numbers<Doubles>();
  Doubles high = low + Doubles::every(4);
  for (std::size_t i = 0; i < count; i += 8) {
    mixer.put(partsAt(low), partsAt(high), rgba + i * 4, count - i);
    low = low + eight;
    high = high + eight;
  }
}

/// Levels that change evenly, in units of 2⁻²³ as integers: eight pixels further on is one addition
/// for each channel. Every 32 pixels they are worked out afresh, so that rounding stays within
/// 2⁻¹⁸ levels, wherever a row begins.
template <typename L, bool isOpaque>
void mixStraight(const ColorStretch& stretch, double from, double step, std::size_t count,
                 std::uint8_t* rgba) {
  using Doubles = typename L::Doubles;
  using Ints = typename L::Ints;
  constexpr int kChannels = isOpaque ? 3 : 4;
  const auto units = [](const double* levels) {
    return Doubles::load(levels) * Doubles::every(1 << 23);
  };
  const Doubles change = units(stretch.change);
  const Doubles start = units(stretch.start) + Doubles::every(from) * change;
  const Doubles perPixel = Doubles::every(step) * change;
  // Integers stand in the lower halves of what 1.5 × 2⁵² was added to.
  std::int32_t words[8];
  const auto lay = [&words](Doubles exact) {
    store(words, exact + Doubles::every(6755399441055744.0));
  };
  Ints ramp[kChannels];
  Ints eight[kChannels];
  lay(perPixel);
  for (int c = 0; c < kChannels; ++c) ramp[c] = Ints::every(words[2 * c]) * numbers<Ints>();
  lay(perPixel * Doubles::every(8));
  for (int c = 0; c < kChannels; ++c) eight[c] = Ints::every(words[2 * c]);
  const Ints byte = Ints::every(0xFF);
  Doubles pixel = Doubles::every(0);
  for (std::size_t i = 0; i < count;) {
    lay(start + perPixel * pixel);
    pixel = pixel + Doubles::every(32);
    Ints at[kChannels];
    for (int c = 0; c < kChannels; ++c) at[c] = Ints::every(words[2 * c]) + ramp[c];
    const std::size_t end = count < i + 32 ? count : i + 32;
    for (; i < end; i += 8) {
      const auto level = [&](int c) {
        if constexpr (isOpaque)
          return shiftRight<23>(at[c]);
        else
          return shiftRight<23>(min(at[c], at[kChannels - 1]));
      };
      const Ints alpha = isOpaque ? byte : shiftRight<23>(at[kChannels - 1]);
      storeFirst(rgba + i * 4, interleaved(level(0), level(1), level(2), alpha), count - i);
      for (int c = 0; c < kChannels; ++c) at[c] = at[c] + eight[c];
    }
  }
}

template <typename L>
void mixAlong(const ColorStretch& stretch, double from, double step, std::size_t count,
              std::uint8_t* rgba) {
  if (stretch.bends) {
    mixBent<L>(stretch, from, step, count, rgba);
  } else if (stretch.start[3] >= 255.5 && stretch.change[3] == 0) {
    mixStraight<L, true>(stretch, from, step, count, rgba);
  } else {
    mixStraight<L, false>(stretch, from, step, count, rgba);
  }
}

template <typename L>
void mixParts(const ColorStretch& stretch, const double* parts, std::size_t count,
              std::uint8_t* rgba) {
  using Doubles = typename L::Doubles;
  const Mixer<L> mixer(stretch);
  for (std::size_t i = 0; i < count; i += 8) {
    mixer.put(Doubles::load(parts + i), Doubles::load(parts + i + 4), rgba + i * 4, count - i);
  }
}

}  // namespace
}  // namespace glyphwright::raster::loops
