#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace glyphwright::cli {

/// Pixels with straight alpha, rows top to bottom, four bytes a pixel.
struct StraightPixels {
  std::size_t width = 0;
  std::size_t height = 0;
  std::vector<std::uint8_t> rgba;
};

/// Any PNG file as 8-bit pixels. Throws std::runtime_error with the file's name.
StraightPixels readPngFile(const std::string& file);

}  // namespace glyphwright::cli
