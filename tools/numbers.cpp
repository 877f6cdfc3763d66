#include "numbers.h"

#include <charconv>
#include <cmath>

namespace glyphwright::cli {

std::string textOf(double value) {
  if (!std::isfinite(value)) return "null";
  if (value == 0) return "0";
  char buffer[32];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, value).ptr;
  return {buffer, end};
}

}  // namespace glyphwright::cli
