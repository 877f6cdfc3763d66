#pragma once

#include <cstddef>
#include <cstdint>

#include <glyphwright/platform/raster/kernels/rows.h>

/// The colours of gradients.
namespace glyphwright::raster::loops {
namespace {

/// One channel of eight pixels in each. Parts come in double, so that each has the float next to it
/// from whichever end it was counted; the colour has digits to spare in single precision.
template <typename L>
class Mixer {
 public:
  using Doubles = typename L::Doubles;
  using Floats = typename L::Floats;
  explicit Mixer(const ColorStretch& stretch) {
    for (int c = 0; c < 4; ++c) {
      start_[c] = Floats::every(stretch.start[c]);
      change_[c] = Floats::every(stretch.change[c]);
    }
    for (int c = 0; c < 3; ++c) bend_[c] = Floats::every(stretch.bend[c]);
  }

  void put(Doubles lowParts, Doubles highParts, std::uint32_t* pixels, std::size_t count) const {
    const Floats part = joined(narrowed(lowParts), narrowed(highParts));
    const Floats alpha = start_[3] + part * change_[3];
    const auto level = [&](int c) {
      const Floats exact = start_[c] + part * (change_[c] + part * bend_[c]);
      return truncated(min(exact, alpha));
    };
    storeFirst(pixels,
               (level(0) | shiftLeft<8>(level(1))) |
                   (shiftLeft<16>(level(2)) | shiftLeft<24>(truncated(alpha))),
               count);
  }

 private:
  Floats start_[4];
  Floats change_[4];
  Floats bend_[3];
};

/// Each part is worked out afresh, since a sum that grows would stray from it.
template <typename L>
void mixAlong(const ColorStretch& stretch, double from, double step, std::size_t count,
              std::uint32_t* pixels) {
  using Doubles = typename L::Doubles;
  const Mixer<L> mixer(stretch);
  const auto partsAt = [&](Doubles pixel) {
    return Doubles::every(from) + Doubles::every(step) * pixel;
  };
  const Doubles eight = Doubles::every(8);
  Doubles low = numbers<Doubles>();
  Doubles high = low + Doubles::every(4);
  for (std::size_t i = 0; i < count; i += 8) {
    mixer.put(partsAt(low), partsAt(high), pixels + i, count - i);
    low = low + eight;
    high = high + eight;
  }
}

template <typename L>
void mixParts(const ColorStretch& stretch, const double* parts, std::size_t count,
              std::uint32_t* pixels) {
  using Doubles = typename L::Doubles;
  const Mixer<L> mixer(stretch);
  for (std::size_t i = 0; i < count; i += 8) {
    mixer.put(Doubles::load(parts + i), Doubles::load(parts + i + 4), pixels + i, count - i);
  }
}

}  // namespace
}  // namespace glyphwright::raster::loops
