#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// How names and questions are compared: word by word, in lower case, letters and digits of ASCII.
namespace glyphwright {

std::string lowered(std::string_view text);

/// The words of a camel-case name or a phrase, in lower case.
std::vector<std::string> splitWords(std::string_view text);

/// Letters put in, left out, changed or swapped with their neighbour.
std::size_t editDistance(std::string_view a, std::string_view b);

}  // namespace glyphwright
