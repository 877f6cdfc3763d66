#pragma once

#include <cstddef>
#include <cstdint>

namespace glyphwright::cli {

inline constexpr std::size_t labelGlyphWidth = 5;
inline constexpr std::size_t labelGlyphHeight = 9;

/// A small bitmap letter for labels: whether the pixel is set. Capitals stand on the seventh row;
/// two more hold descenders. Letters, digits and the full stop; other characters are blank. The
/// column is below labelGlyphWidth, the row below labelGlyphHeight.
bool labelPixel(char character, std::size_t column, std::size_t row);

}  // namespace glyphwright::cli
