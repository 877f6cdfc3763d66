#pragma once

#include <array>
#include <cstdint>

namespace glyphwright::raster::lanes {

/// For each choice of eight lanes, their numbers one after another, a byte each.
inline constexpr std::array<std::uint64_t, 256> kChosen = [] {
  std::array<std::uint64_t, 256> table{};
  for (unsigned set = 0; set < 256; ++set) {
    int at = 0;
    for (unsigned lane = 0; lane < 8; ++lane) {
      if ((set >> lane & 1) != 0) table[set] |= std::uint64_t{lane} << 8 * at++;
    }
  }
  return table;
}();

}  // namespace glyphwright::raster::lanes
