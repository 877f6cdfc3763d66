#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace glyphwright::cli {

/// How many names a message suggests.
inline constexpr std::size_t suggestionCount = 3;

/// "; did you mean a, b or c?", or nothing without names.
std::string didYouMean(const std::vector<std::string>& names);

}  // namespace glyphwright::cli
