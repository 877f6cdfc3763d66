#pragma once

#include <cstdint>

namespace glyphwright {

/// Which places a path winds round are inside: those that it winds round at all, or an odd number
/// of times.
enum class FillRule : std::uint8_t { nonZero, evenOdd };

}  // namespace glyphwright
