#include <algorithm>
#include <charconv>
#include <cmath>

#include "numbers.h"

// Apart from what only writes numbers: not every library reads them from text yet.
namespace glyphwright::cli {

std::string tidyTextOf(double value, double frame) {
  constexpr int digitsOfFrame = 12;
  constexpr double largest = 1e15;
  if (!(std::fabs(value) < largest) || !(frame > 0) || !(frame < largest)) return textOf(value);
  const int decimals =
      std::clamp(digitsOfFrame - static_cast<int>(std::floor(std::log10(frame))), 0, 30);
  char buffer[64];
  const auto end =
      std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, decimals).ptr;
  double rounded = 0;
  std::from_chars(buffer, end, rounded);
  return textOf(rounded);
}

std::optional<double> numberOf(std::string_view text) {
  if (text.starts_with('+')) text.remove_prefix(1);
  double value = 0;
  const char* const end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, value);
  if (error != std::errc() || rest != end || !std::isfinite(value)) return std::nullopt;
  return value;
}

}  // namespace glyphwright::cli
