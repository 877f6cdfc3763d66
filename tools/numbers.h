#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace glyphwright::cli {

/// The shortest decimal text that reads back to the same double, as JSON has it: NaN and the
/// infinities are "null", minus zero is "-0.0".
std::string textOf(double value);

/// The number when the whole text is one, in decimal or exponent form and finite.
std::optional<double> numberOf(std::string_view text);

}  // namespace glyphwright::cli
