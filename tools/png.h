#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace glyphwright::cli {

/// How much time a PNG file may take. Both hold the same pixels.
enum class Compression : std::uint8_t {
  quick,
  small,  // many times as long, for some tenths less
};

/// A PNG file of rows top to bottom, four bytes a pixel, premultiplied red, green, blue, alpha (the
/// file holds straight alpha). Width and height are in pixels, above 0, and match the pixels.
/// Throws std::runtime_error when the image is too large for the format.
std::vector<std::uint8_t> encodePng(std::size_t width, std::size_t height,
                                    std::span<const std::uint8_t> premultiplied,
                                    Compression compression = Compression::quick);

/// The pixels as files have them.
std::vector<std::uint8_t> straightAlpha(std::span<const std::uint8_t> premultiplied);

/// Big-endian, as the format has all numbers.
void appendNumber32(std::vector<std::uint8_t>& bytes, std::size_t value);

/// One chunk: its length, four letters, content and checksum.
void appendChunk(std::vector<std::uint8_t>& file, std::string_view name,
                 std::span<const std::uint8_t> content);

}  // namespace glyphwright::cli
