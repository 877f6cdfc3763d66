#include "numbers.h"

#include <charconv>
#include <cmath>

namespace glyphwright::cli {

std::string textOf(double value) {
  if (!std::isfinite(value)) return "null";
  // A plain "-0" reads back as the integer 0.
  if (value == 0) return std::signbit(value) ? "-0.0" : "0";
  char buffer[32];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, value).ptr;
  return {buffer, end};
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
