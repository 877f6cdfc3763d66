#include "color_reduction.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <unordered_map>

namespace glyphwright::cli {
namespace {

constexpr std::size_t kMaxColors = 255;

struct Counted {
  std::array<std::uint8_t, 3> rgb;
  std::uint64_t count;
};

std::uint32_t keyOf(const std::array<std::uint8_t, 3>& rgb) {
  return static_cast<std::uint32_t>(rgb[0] << 16 | rgb[1] << 8 | rgb[2]);
}

std::array<std::uint8_t, 3> onWhite(const std::uint8_t* rgba) {
  const unsigned white = 255U - rgba[3];
  std::array<std::uint8_t, 3> rgb{};
  for (std::size_t c = 0; c < 3; ++c) {
    rgb[c] = static_cast<std::uint8_t>(std::min(rgba[c] + white, 255U));
  }
  return rgb;
}

/// A run of colours that share one entry.
struct Box {
  std::size_t from;
  std::size_t to;
  std::size_t channel = 0;   // the one that is spread most
  std::uint64_t weight = 0;  // spread times pixels
};

Box boxOf(const std::vector<Counted>& colors, std::size_t from, std::size_t to) {
  Box box{from, to};
  unsigned widest = 0;
  std::uint64_t pixels = 0;
  for (std::size_t c = 0; c < 3; ++c) {
    unsigned low = 255;
    unsigned high = 0;
    for (std::size_t i = from; i < to; ++i) {
      low = std::min<unsigned>(low, colors[i].rgb[c]);
      high = std::max<unsigned>(high, colors[i].rgb[c]);
    }
    if (high - low > widest) {
      widest = high - low;
      box.channel = c;
    }
  }
  for (std::size_t i = from; i < to; ++i) pixels += colors[i].count;
  box.weight = widest * pixels;
  return box;
}

// Cuts the heaviest box where half of its pixels lie on either side.
void cutHeaviest(std::vector<Counted>& colors, std::vector<Box>& boxes) {
  const auto heaviest = std::max_element(
      boxes.begin(), boxes.end(), [](const Box& a, const Box& b) { return a.weight < b.weight; });
  const Box box = *heaviest;
  const auto begin = colors.begin() + static_cast<std::ptrdiff_t>(box.from);
  const auto end = colors.begin() + static_cast<std::ptrdiff_t>(box.to);
  std::stable_sort(begin, end, [&](const Counted& a, const Counted& b) {
    return a.rgb[box.channel] < b.rgb[box.channel];
  });
  std::uint64_t pixels = 0;
  for (auto color = begin; color != end; ++color) pixels += color->count;
  std::uint64_t below = 0;
  std::size_t cut = box.from;
  while (cut + 1 < box.to && (below + colors[cut].count) * 2 <= pixels)
    below += colors[cut++].count;
  cut = std::max(cut, box.from + 1);
  *heaviest = boxOf(colors, box.from, cut);
  boxes.push_back(boxOf(colors, cut, box.to));
}

IndexedPixels::Color meanOf(const std::vector<Counted>& colors, const Box& box) {
  std::uint64_t sums[3] = {0, 0, 0};
  std::uint64_t pixels = 0;
  for (std::size_t i = box.from; i < box.to; ++i) {
    for (std::size_t c = 0; c < 3; ++c) sums[c] += colors[i].rgb[c] * colors[i].count;
    pixels += colors[i].count;
  }
  const auto mean = [&](std::size_t c) {
    return static_cast<std::uint8_t>((sums[c] + pixels / 2) / pixels);
  };
  return {mean(0), mean(1), mean(2)};
}

}  // namespace

IndexedPixels reducedColors(std::span<const std::uint8_t> premultiplied) {
  std::vector<Counted> colors;
  std::unordered_map<std::uint32_t, std::size_t> places;
  for (std::size_t i = 0; i + 3 < premultiplied.size(); i += 4) {
    if (premultiplied[i + 3] < 128) continue;
    const auto rgb = onWhite(&premultiplied[i]);
    const auto [place, isNew] = places.try_emplace(keyOf(rgb), colors.size());
    if (isNew) colors.push_back({rgb, 0});
    ++colors[place->second].count;
  }
  std::vector<Box> boxes;
  if (!colors.empty()) boxes.push_back(boxOf(colors, 0, colors.size()));
  while (!boxes.empty() && boxes.size() < std::min(kMaxColors, colors.size())) {
    cutHeaviest(colors, boxes);
  }

  IndexedPixels result;
  result.colors.push_back({0, 0, 0});
  for (const Box& box : boxes) {
    for (std::size_t i = box.from; i < box.to; ++i) {
      places[keyOf(colors[i].rgb)] = result.colors.size();
    }
    result.colors.push_back(meanOf(colors, box));
  }
  result.indices.reserve(premultiplied.size() / 4);
  for (std::size_t i = 0; i + 3 < premultiplied.size(); i += 4) {
    const bool isClear = premultiplied[i + 3] < 128;
    result.indices.push_back(
        isClear ? IndexedPixels::kTransparent
                : static_cast<std::uint8_t>(places[keyOf(onWhite(&premultiplied[i]))]));
  }
  return result;
}

}  // namespace glyphwright::cli
