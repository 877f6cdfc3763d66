#pragma once

#include <cstddef>
#include <cstdint>

#include <glyphwright/platform/raster/kernels/inks.h>

/// Rows of pixels and of coverage.
namespace glyphwright::raster::loops {
namespace {

template <typename L>
void writeSolid(std::uint8_t* rgba, const std::uint16_t* coverage, std::size_t count,
                const SolidColor& color) {
  const Channels<L> ink(color);
  inWholeBlocks<L>(count, [&](const auto& block, std::size_t at) {
    const auto covered = block.coverage(coverage + at);
    block.write(rgba + at * 4,
                woven<L>([&](std::size_t c) { return rounded(ink.alone(c, covered)); }));
  });
}

/// `blend(coverage, source, below)` gives eight pixels from their coverage, each twice. Where
/// nothing is covered, nothing happens.
template <typename L, typename Blend>
void blendBlocks(std::uint8_t* rgba, const std::uint16_t* coverage, std::size_t count,
                 const std::uint8_t* source, const Blend& blend) {
  inBlocks<L>(count, [&](const auto& block, std::size_t at) {
    const auto covered = block.coverage(coverage + at);
    if (isZero(covered)) return;
    const Woven<L> above = block.read(source + at * 4);
    const Woven<L> below = block.read(rgba + at * 4);
    block.write(rgba + at * 4, {blend(weaveLow(covered, covered), above.a, below.a),
                                blend(weaveHigh(covered, covered), above.b, below.b)});
  });
}

template <typename L>
void blendSolid(std::uint8_t* rgba, const std::uint16_t* coverage, std::size_t count,
                const SolidColor& color) {
  const Ink<L> ink(color, color);
  blendBlocks<L>(rgba, coverage, count, rgba,
                 [&](auto covered, auto /*same*/, auto below) { return ink.over(covered, below); });
}

template <typename L>
void writePixels(std::uint8_t* rgba, const std::uint16_t* coverage, std::size_t count,
                 const std::uint8_t* source) {
  inBlocks<L>(count, [&](const auto& block, std::size_t at) {
    const auto covered = block.coverage(coverage + at);
    const Woven<L> above = block.read(source + at * 4);
    block.write(rgba + at * 4,
                {Halves<L>::of(above.a).times(weaveLow(covered, covered)).pixels(),
                 Halves<L>::of(above.b).times(weaveHigh(covered, covered)).pixels()});
  });
}

template <typename L>
void blendPixels(std::uint8_t* rgba, const std::uint16_t* coverage, std::size_t count,
                 const std::uint8_t* source) {
  blendBlocks<L>(rgba, coverage, count, source, [](auto covered, auto above, auto below) {
    return laidOver<L>(above, covered, below);
  });
}

template <typename L>
void multiplyCoverage(std::uint16_t* coverage, const std::uint16_t* other, std::size_t count) {
  using Shorts = typename L::Shorts;
  std::size_t i = 0;
  for (; i + kBlock <= count; i += kBlock) {
    store(coverage + i, scaled(Shorts::load(coverage + i), Shorts::load(other + i)));
  }
  for (; i < count; ++i) coverage[i] = static_cast<std::uint16_t>(scaled(coverage[i], other[i]));
}

}  // namespace
}  // namespace glyphwright::raster::loops
