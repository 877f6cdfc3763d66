#pragma once

#include <glyphwright/catalogue/enumeration.h>

namespace glyphwright {

/// Icons of all areas in one flat list, for callers that want one type for any icon. The order is
/// part of the interface. Like the catalogue's enumerations, but without title and sections; it is
/// no Pathable.
///
/// Its table is a file of its own, as it is too long for the macros of the others.
class Icons : public IconEnumeration<Icons> {
 public:
  /// The plain enumeration, for `switch`.
  enum class Case : std::uint8_t {
#define GLYPHWRIGHT_CASE(name, ...) name,
#include <glyphwright/catalogue/icons.inc>
#undef GLYPHWRIGHT_CASE
  };
  static constexpr CaseRecord cases[] = {
#define GLYPHWRIGHT_CASE(name, ...) CaseRecord(#name __VA_OPT__(, ) __VA_ARGS__),
#include <glyphwright/catalogue/icons.inc>
#undef GLYPHWRIGHT_CASE
  };
  static constexpr EnumerationRecord enumeration{"Icons", "", cases};
#define GLYPHWRIGHT_CASE(name, ...) static const Icons name;
#include <glyphwright/catalogue/icons.inc>
#undef GLYPHWRIGHT_CASE
  /// In declaration order.
  static const std::array<Icons, std::size(cases)> allCases;

  /// From the plain enumeration, and back.
  explicit constexpr Icons(Case value) : IconEnumeration(static_cast<std::uint8_t>(value)) {}
  constexpr operator Case() const {
    return static_cast<Case>(index());
  }
};

#define GLYPHWRIGHT_CASE(name, ...) inline constexpr Icons Icons::name{Icons::Case::name};
#include <glyphwright/catalogue/icons.inc>
#undef GLYPHWRIGHT_CASE
inline constexpr std::array<Icons, std::size(Icons::cases)> Icons::allCases{{
#define GLYPHWRIGHT_CASE(name, ...) Icons::name,
#include <glyphwright/catalogue/icons.inc>
#undef GLYPHWRIGHT_CASE
}};

}  // namespace glyphwright
