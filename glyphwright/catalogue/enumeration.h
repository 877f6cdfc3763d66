#pragma once

#include <glyphwright/version.h>

#include <array>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <optional>
#include <span>
#include <string_view>
#include <type_traits>
#include <utility>

#include <glyphwright/paths/perform_selector.h>

namespace glyphwright {

/// One row of an enumeration's table.
struct CaseRecord {
  std::string_view name;      ///< Of the case.
  std::string_view rawValue;  ///< The method of UIBezierPath that draws it.

  /// A case that is named like its method. The characters are not copied, here and in the next.
  explicit constexpr CaseRecord(std::string_view both) : CaseRecord(both, both) {}
  /// A case under a name of its own.
  constexpr CaseRecord(std::string_view caseName, std::string_view caseRawValue)
      : name(caseName), rawValue(caseRawValue) {}
};

/// What all cases of one enumeration share, for code that holds cases of any enumeration.
struct EnumerationRecord {
  /// Dotted, with its namespaces: "App.Shapes.Checks".
  std::string_view name;
  /// The display title; empty for an enumeration that has none.
  std::string_view title;
  std::span<const CaseRecord> cases;
};

namespace detail {

struct EnumerationTag {};

/// The raw values that no method has; the catalogue's checks hold the list to be all.
inline constexpr std::string_view kUndrawn[] = {"magicCatEasterEgg", "safetyCenterShield"};
constexpr bool hasDrawing(std::string_view rawValue) {
  bool drawn = true;
  for (const std::string_view undrawn : kUndrawn) drawn = drawn && rawValue != undrawn;
  return drawn;
}

/// Writes "App.Shapes.Checks.checkmark".
std::ostream& writeCase(std::ostream& stream, std::string_view enumeration, std::string_view name);

}  // namespace detail

template <class E>
concept RawValueEnumeration = std::is_base_of_v<detail::EnumerationTag, E>;

/// The common part of enumerations with string raw values. `E` is made by the macros of
/// case_table_begin.inc, which give it `Case` (the plain enumeration, for `switch`), `cases`,
/// `enumeration`, `allCases` (in declaration order) and one constant for each case. A value is its
/// case index, held in one byte.
template <class E>
class EnumerationValue : public detail::EnumerationTag {
 public:
  /// The position in declaration order, from 0.
  constexpr std::size_t index() const { return index_; }
  /// The case's own name.
  constexpr std::string_view name() const { return E::cases[index_].name; }
  /// For an icon, the name of the UIBezierPath method that draws it.
  constexpr std::string_view rawValue() const { return E::cases[index_].rawValue; }

  /// Whether a method draws it; `path()` of one without ends the program. There are two.
  constexpr bool hasDrawing() const { return detail::hasDrawing(rawValue()); }

  /// `init(rawValue:)` the case with exactly this raw value; nothing for any other text, among them
  /// case names that are not raw values.
  static constexpr std::optional<E> fromRawValue(std::string_view rawValue) {
    for (const E value : E::allCases) {
      if (value.rawValue() == rawValue) return value;
    }
    return std::nullopt;
  }

  /// Of one enumeration only: cases of two do not compare.
  friend constexpr bool operator==(E a, E b) { return a.index() == b.index(); }
  /// Declaration order.
  friend constexpr std::strong_ordering operator<=>(E a, E b) { return a.index() <=> b.index(); }

 protected:
  /// The case at a position below the number of cases, which is not checked.
  explicit constexpr EnumerationValue(std::uint8_t index) : index_(index) {}

 private:
  std::uint8_t index_;
};

/// An enumeration whose cases are icons.
template <class E>
class IconEnumeration : public EnumerationValue<E> {
 public:
  /// A newly built path, by the method that the raw value names; the caller may change it freely. A
  /// raw value that no method has ends the process, see performSelector.
  ///
  /// The result is a UIBezierPath; written as `auto` so that only callers have to know that class.
  auto path() const { return performSelector(this->rawValue()); }

 protected:
  using EnumerationValue<E>::EnumerationValue;
};

/// An enumeration of the catalogue: icons under a title.
template <class E>
concept CatalogueEnumeration = RawValueEnumeration<E> && requires {
  std::string_view(E::title);
};

/// Writes the qualified name of the case, such as "App.Shapes.Checks.checkmark".
template <RawValueEnumeration E>
std::ostream& operator<<(std::ostream& stream, E value) {
  return detail::writeCase(stream, E::enumeration.name, value.name());
}

}  // namespace glyphwright

template <glyphwright::RawValueEnumeration E>
struct std::hash<E> {
  /// The case index.
  constexpr std::size_t operator()(E value) const noexcept { return value.index(); }
};
