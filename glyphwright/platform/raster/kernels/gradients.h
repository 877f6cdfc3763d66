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

/// Rounds numbers within ±2⁵¹: integers stand in the lower halves of what 1.5 × 2⁵² was added to.
/// Only their last 32 bits count.
template <typename Doubles>
void layIntegers(Doubles exact, std::int32_t (&words)[8]) {
  store(words, exact + Doubles::every(6755399441055744.0));
}

template <typename L>
void prepareSteps(ColorSteps& steps) {
  using Doubles = typename L::Doubles;
  if (steps.colors.bends) return;
  const auto units = [](const double* levels) {
    return Doubles::load(levels) * Doubles::every(1 << 23);
  };
  const Doubles change = units(steps.colors.change);
  const Doubles perPixel = Doubles::every(steps.step) * change;
  store(steps.start, units(steps.colors.start));
  store(steps.change, change);
  store(steps.perPixel, perPixel);
  std::int32_t one[8];
  std::int32_t eight[8];
  layIntegers(perPixel, one);
  layIntegers(perPixel * Doubles::every(8), eight);
  for (int c = 0; c < 4; ++c) {
    store(steps.ahead[c], L::Ints::every(one[2 * c]) * numbers<typename L::Ints>());
    steps.eight[c] = eight[2 * c];
  }
}

/// Eight pixels further on is one addition for each channel. Every 32 pixels the levels are worked
/// out afresh, so that what rounding adds up to does not depend on where a row begins.
template <typename L, bool isOpaque>
void mixStraight(const ColorSteps& steps, double from, std::size_t count, std::uint8_t* rgba) {
  using Doubles = typename L::Doubles;
  using Ints = typename L::Ints;
  constexpr int kChannels = isOpaque ? 3 : 4;
  const Doubles start =
      Doubles::load(steps.start) + Doubles::every(from) * Doubles::load(steps.change);
  const Doubles perPixel = Doubles::load(steps.perPixel);
  Ints eight[kChannels];
  for (int c = 0; c < kChannels; ++c) eight[c] = Ints::every(steps.eight[c]);
  const Ints byte = Ints::every(0xFF);
  const auto levelsAt = [&](std::size_t first, Ints(&at)[kChannels]) {
    std::int32_t words[8];
    layIntegers(start + perPixel * Doubles::every(static_cast<double>(first)), words);
    for (int c = 0; c < kChannels; ++c) {
      at[c] = Ints::every(words[2 * c]) + Ints::load(steps.ahead[c]);
    }
  };
  const auto next = [&](Ints(&at)[kChannels]) {
    const auto level = [&](int c) {
      return shiftRight<23>(isOpaque ? at[c] : min(at[c], at[kChannels - 1]));
    };
    const Ints alpha = isOpaque ? byte : shiftRight<23>(at[kChannels - 1]);
    const Ints pixels = interleaved(level(0), level(1), level(2), alpha);
    for (int c = 0; c < kChannels; ++c) at[c] = at[c] + eight[c];
    return pixels;
  };
  Ints at[kChannels];
  std::size_t i = 0;
  for (; i + 32 <= count; i += 32) {
    levelsAt(i, at);
    store(rgba + i * 4, next(at));
    store(rgba + i * 4 + 32, next(at));
    store(rgba + i * 4 + 64, next(at));
    store(rgba + i * 4 + 96, next(at));
  }
  if (i == count) return;
  levelsAt(i, at);
  for (; i < count; i += 8) storeFirst(rgba + i * 4, next(at), count - i);
}

template <typename L>
void mixAlong(const ColorSteps& steps, double from, std::size_t count, std::uint8_t* rgba) {
  const ColorStretch& colors = steps.colors;
  if (colors.bends) {
    mixBent<L>(colors, from, steps.step, count, rgba);
  } else if (colors.start[3] >= 255.5 && colors.change[3] == 0) {
    mixStraight<L, true>(steps, from, count, rgba);
  } else {
    mixStraight<L, false>(steps, from, count, rgba);
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
