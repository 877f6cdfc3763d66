#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include <glyphwright/platform/selector.h>

namespace glyphwright {

/// The names of all icon methods of UIBezierPath, in declaration order. Names only: to read them
/// links no artwork.
inline constexpr std::string_view iconMethodNames[] = {
#define GLYPHWRIGHT_ICON(name) #name,
#include <glyphwright/paths/icon_names.inc>
#undef GLYPHWRIGHT_ICON
};

inline constexpr std::size_t iconMethodCount = std::size(iconMethodNames);

/// Positions in iconMethodNames by name.
inline constexpr SelectorIndex<iconMethodCount> iconMethodIndex{iconMethodNames};

/// Whether UIBezierPath has an icon method of exactly this name.
constexpr bool isIconMethod(std::string_view name) {
  return iconMethodIndex.find(name).has_value();
}

}  // namespace glyphwright
