#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace glyphwright::cli {

/// Pixels as places in a list of at most 256 colours.
struct IndexedPixels {
  struct Color {
    std::uint8_t red, green, blue;
  };
  std::vector<Color> colors;  // the first stands for what is transparent
  std::vector<std::uint8_t> indices;

  static constexpr std::uint8_t kTransparent = 0;
};

/// Premultiplied red, green, blue, alpha on white, as up to 255 colours: all of them when there are
/// no more, otherwise the means of boxes that are cut in half, the most spread one first. Pixels
/// less than half opaque are transparent.
IndexedPixels reducedColors(std::span<const std::uint8_t> premultiplied);

}  // namespace glyphwright::cli
