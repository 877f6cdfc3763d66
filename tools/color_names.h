#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace glyphwright::cli {

/// The colour that style sheets call by this name, as 0xRRGGBB; upper and lower case are the same.
std::optional<std::uint32_t> colorNamed(std::string_view name);

}  // namespace glyphwright::cli
