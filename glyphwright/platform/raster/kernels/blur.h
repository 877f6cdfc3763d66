#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>

#include <glyphwright/platform/raster/kernels.h>

/// Filters of rows of coverage, up to four blocks of sixteen values side by side while all taps go
/// over them.
namespace glyphwright::raster::loops {
namespace {

/// Where the values stand that one tap weighs together.
struct TapPair {
  const std::uint16_t* before;
  const std::uint16_t* after;
};

/// Filters the blocks of the sequence with the taps from `first` on. `pairAt(k)` gives the values k
/// away from the first block's; the mean of both is taken first, so that a pair costs one product.
template <typename L, typename PairAt, std::size_t... block>
void filterBlocks(std::uint16_t* out, const std::uint16_t* middle, const PairAt& pairAt,
                  const std::int16_t* taps, std::size_t first, std::size_t reach,
                  std::index_sequence<block...> /*blocks*/) {
  using Shorts = typename L::Shorts;
  const Shorts most = Shorts::every(first == 0 ? taps[0] : std::int16_t{0});
  Shorts sums[] = {scaled(Shorts::load(middle + block * kBlock), most)...};
  for (std::size_t k = first == 0 ? 1 : first; k <= reach; ++k) {
    const Shorts weight = Shorts::every(taps[k]);
    const TapPair pair = pairAt(k);
    const auto weighed = [&](std::size_t at) {
      return scaled(mean(Shorts::load(pair.before + at), Shorts::load(pair.after + at)), weight);
    };
    ((sums[block] = sumHeld(sums[block], weighed(block * kBlock))), ...);
  }
  (store(out + block * kBlock, sums[block]), ...);
}

/// Runs `step(at, blocks)` over a row, four blocks at a time and then those that are left.
template <typename Step>
void inBlocks(std::size_t count, const Step& step) {
  std::size_t at = 0;
  for (; at + 4 * kBlock <= count; at += 4 * kBlock) step(at, std::make_index_sequence<4>());
  const std::size_t left = (count - at) / kBlock;
  if (left == 1) step(at, std::make_index_sequence<1>());
  if (left == 2) step(at, std::make_index_sequence<2>());
  if (left == 3) step(at, std::make_index_sequence<3>());
}

template <typename L>
void filterDown(const FilterRows& rows, const std::uint16_t* const* middle,
                const std::int16_t* taps, std::size_t first, std::size_t reach) {
  for (std::size_t row = 0; row < rows.rows; ++row, ++middle) {
    std::uint16_t* out = rows.out + row * rows.outStride;
    inBlocks(rows.count, [&](std::size_t at, auto blocks) {
      const auto pairAt = [&](std::size_t k) {
        return TapPair{*(middle - k) + at, middle[k] + at};
      };
      filterBlocks<L>(out + at, *middle + at, pairAt, taps, first, reach, blocks);
    });
  }
}

template <typename L>
void filterAlong(const FilterRows& rows, const std::uint16_t* in, std::size_t inStride,
                 const std::int16_t* taps, std::size_t reach) {
  for (std::size_t row = 0; row < rows.rows; ++row, in += inStride) {
    std::uint16_t* out = rows.out + row * rows.outStride;
    inBlocks(rows.count, [&](std::size_t at, auto blocks) {
      const std::uint16_t* middle = in + reach + at;
      const auto pairAt = [&](std::size_t k) { return TapPair{middle - k, middle + k}; };
      filterBlocks<L>(out + at, middle, pairAt, taps, 0, reach, blocks);
    });
  }
}

}  // namespace
}  // namespace glyphwright::raster::loops
