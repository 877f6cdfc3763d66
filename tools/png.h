#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace glyphwright::cli {

/// A PNG file of rows top to bottom, four bytes a pixel, premultiplied red, green, blue, alpha (the
/// file holds straight alpha). Width and height are in pixels, above 0, and match the pixels.
/// Throws std::runtime_error when the image is too large for the format.
std::vector<std::uint8_t> encodePng(std::size_t width, std::size_t height,
                                    std::span<const std::uint8_t> premultiplied);

}  // namespace glyphwright::cli
