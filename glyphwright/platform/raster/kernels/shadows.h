#pragma once

#include <cstddef>
#include <cstdint>

#include <glyphwright/platform/raster/kernels/inks.h>

/// Rows of shadows and of what casts them in one pass over the pixels.
namespace glyphwright::raster::loops {
namespace {

/// 1/64 levels, rounded to whole ones as bytes are.
template <typename Shorts>
Shorts wholeLevels(Shorts channels64) {
  return (channels64 + Shorts::every(32)) & Shorts::every(-64);
}

/// Down the rows, sixteen pixels at a time: where the upper colour shows is the same in all of
/// them. A black lower colour has nothing but alpha.
template <typename L, bool isBlack>
void writeOver(std::uint8_t* rgba, std::size_t rowBytes, const TwoCoverages& coverages,
               const SolidColor& belowColor, const SolidColor& aboveColor) {
  using Shorts = typename L::Shorts;
  const TwoCoverages& c = coverages;
  const Channels<L> lower(belowColor);
  const Channels<L> upper(aboveColor);
  inWholeBlocks<L>(c.count, [&](const auto& block, std::size_t at) {
    std::uint8_t* to = rgba + at * 4;
    const std::uint16_t* below = c.below + at;
    const Shorts nothing = Shorts::every(0);
    if (at + kBlock <= c.from || at >= c.until) {
      for (std::size_t row = 0; row < c.rows; ++row, below += c.belowStride, to += rowBytes) {
        const Shorts covered = block.coverage(below);
        block.write(to, woven<L>([&](std::size_t k) {
                      return isBlack && k < 3 ? nothing : rounded(lower.alone(k, covered));
                    }));
      }
      return;
    }
    const Shorts shows =
        firstLanes<Shorts>(c.until - at) & ~firstLanes<Shorts>(at < c.from ? c.from - at : 0);
    const std::uint16_t* above =
        c.above + (static_cast<std::ptrdiff_t>(at) - static_cast<std::ptrdiff_t>(c.from));
    for (std::size_t row = 0; row < c.rows; ++row) {
      const Shorts covered = block.coverage(below);
      const Shorts seen = Shorts::load(above) & shows;
      const Shorts rest = upper.rest(seen);
      block.write(to, woven<L>([&](std::size_t k) {
                    if (isBlack && k < 3) return rounded(upper.alone(k, seen));
                    return upper.over(k, seen, wholeLevels(lower.alone(k, covered)), rest);
                  }));
      below += c.belowStride;
      above += c.aboveStride;
      to += rowBytes;
    }
  });
}

/// Most shadows are black.
template <typename L>
void writeTwoSolids(std::uint8_t* rgba, std::size_t rowBytes, const TwoCoverages& coverages,
                    const SolidColor& belowColor, const SolidColor& aboveColor) {
  const std::int16_t* channels = belowColor.channels;
  const bool isBlack = channels[0] == 0 && channels[1] == 0 && channels[2] == 0;
  const auto write = isBlack ? writeOver<L, true> : writeOver<L, false>;
  write(rgba, rowBytes, coverages, belowColor, aboveColor);
}

template <typename L>
void writeInset(std::uint8_t* rgba, const InsetRow& row, std::size_t count, const SolidColor& color,
                const SolidColor& shade) {
  using Shorts = typename L::Shorts;
  Shorts filled[4];  // in 1/32 levels
  for (std::size_t c = 0; c < 4; ++c) {
    filled[c] = Shorts::every(static_cast<std::int16_t>(color.channels[c] >> 1));
  }
  const Channels<L> upper(shade);
  inWholeBlocks<L>(count, [&](const auto& block, std::size_t at) {
    const Shorts around = block.coverage(row.around + at);
    // Before it was a fraction.
    const Shorts units = Shorts::every(kUnitsPerPixel) - shiftRight<5>(around + Shorts::every(1));
    const Shorts shaded = scaled(block.coverage(row.cast + at), block.coverage(row.inside + at));
    const Shorts rest = upper.rest(shaded);
    block.write(rgba + at * 4, woven<L>([&](std::size_t c) {
                  return upper.over(c, shaded, shiftLeft<6>(scaled(filled[c], units)), rest);
                }));
  });
}

}  // namespace
}  // namespace glyphwright::raster::loops
