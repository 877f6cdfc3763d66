#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace glyphwright {

/// The icons by fixed number, 0 to 128, for callers that store or pass icons as numbers. Any other
/// 64-bit value can be held as well but is no icon type. See UIBezierPath::pathForIcon.
enum class VNTLIconType : std::int64_t {
#define GLYPHWRIGHT_ICON_TYPE(value, name, method) name = (value),
#include <glyphwright/catalogue/icon_types.inc>
#undef GLYPHWRIGHT_ICON_TYPE
};

/// One row of the table of integer icon types.
struct IconTypeRecord {
  VNTLIconType type;      ///< The number.
  std::string_view name;  ///< Of the case.
  /// The method of UIBezierPath that draws it.
  std::string_view method;
};

/// All icon types, each at the index of its number.
inline constexpr std::array iconTypes = std::to_array<IconTypeRecord>({
#define GLYPHWRIGHT_ICON_TYPE(value, name, method) {VNTLIconType::name, #name, #method},
#include <glyphwright/catalogue/icon_types.inc>
#undef GLYPHWRIGHT_ICON_TYPE
});

/// Whether the value is one of 0 to 128.
constexpr bool isIconType(VNTLIconType type) {
  return static_cast<std::uint64_t>(type) < iconTypes.size();
}

}  // namespace glyphwright
