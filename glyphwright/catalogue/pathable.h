#pragma once

#include <glyphwright/catalogue/enumeration.h>

namespace glyphwright {

/// A case of any catalogue enumeration, whichever it is: what renderers and lists hold. A value of
/// two words; made implicitly from a case.
///
/// Cases of different enumerations are never equal, even when the same method draws them.
class Pathable {
 public:
  /// Refers to the record of the enumeration, which is there as long as the program runs.
  template <CatalogueEnumeration E>
  constexpr Pathable(E value)
      : enumeration_(&E::enumeration), index_(static_cast<std::uint8_t>(value.index())) {}

  /// The name of the UIBezierPath method that draws the case.
  constexpr std::string_view rawValue() const { return record().rawValue; }
  /// The title of the case's enumeration.
  constexpr std::string_view title() const { return enumeration_->title; }
  /// The case's own name.
  constexpr std::string_view name() const { return record().name; }
  /// The dotted name of the case's enumeration, such as "App.Shapes.Checks".
  constexpr std::string_view enumerationName() const { return enumeration_->name; }

  /// Whether a method draws it; `path()` of one without ends the program. There are two.
  constexpr bool hasDrawing() const { return detail::hasDrawing(rawValue()); }
  /// A newly built path, by the method that the raw value names; the caller may change it freely. A
  /// raw value that no method has ends the process, see performSelector.
  UIBezierPath path() const;

  /// Whether both are the same case of the same enumeration.
  friend constexpr bool operator==(const Pathable& a, const Pathable& b) {
    // Two shared libraries may each hold the record, so an address alone does not decide.
    return a.index_ == b.index_ &&
           (a.enumeration_ == b.enumeration_ || a.enumeration_->name == b.enumeration_->name);
  }

 private:
  constexpr const CaseRecord& record() const { return enumeration_->cases[index_]; }

  const EnumerationRecord* enumeration_;
  std::uint8_t index_;
};

/// Writes the qualified name of the case, such as "App.Shapes.Checks.checkmark".
std::ostream& operator<<(std::ostream& stream, const Pathable& value);

}  // namespace glyphwright

template <>
struct std::hash<glyphwright::Pathable> {
  /// From the names, so that equal cases of two shared libraries have one hash.
  std::size_t operator()(const glyphwright::Pathable& value) const noexcept {
    const std::hash<std::string_view> text;
    return text(value.enumerationName()) * 31 + text(value.name());
  }
};
