#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace glyphwright::cli {

/// The shortest decimal text that reads back to the same double, as JSON has it: NaN and the
/// infinities are "null". Minus zero is "0", which compares equal.
std::string textOf(double value);

/// The value for a picture whose longer side is `frame`: rounded to a decimal some 12 digits below
/// the frame, so that no noise of binary fractions is left, and never minus zero.
std::string tidyTextOf(double value, double frame);

/// The number when the whole text is one, in decimal or exponent form and finite.
std::optional<double> numberOf(std::string_view text);

}  // namespace glyphwright::cli
