#pragma once

#include <initializer_list>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include <glyphwright/platform/color.h>
#include <glyphwright/platform/geometry.h>
#include <glyphwright/platform/shadow.h>
#include <glyphwright/platform/value.h>

namespace glyphwright {

struct IconShadow;

/// A key of an attribute dictionary: a string with a type of its own. The characters are not
/// copied and have to outlive the key.
class VNTLGlyphwright {
 public:
  /// Any characters; keys of the same characters are the same key.
  explicit constexpr VNTLGlyphwright(std::string_view rawValue) : rawValue_(rawValue) {}
  /// The characters, as they were given.
  constexpr std::string_view rawValue() const { return rawValue_; }

  friend constexpr bool operator==(const VNTLGlyphwright&, const VNTLGlyphwright&) = default;

 private:
  std::string_view rawValue_;
};

/// A boxed size: of the image, in points. Absent, it reads as (0, 0).
inline constexpr VNTLGlyphwright VNTLGlyphwrightSize{"size"};
/// A colour: the flat fill. Absent, the context's own (black).
inline constexpr VNTLGlyphwright VNTLGlyphwrightFillColor{"fillColor"};
/// A colour: fills the whole image first; with alpha 1 the image is opaque.
inline constexpr VNTLGlyphwright VNTLGlyphwrightBackgroundColor{"backgroundColor"};
/// A colour: of the outline. Absent, the context's own (black).
inline constexpr VNTLGlyphwright VNTLGlyphwrightStrokeColor{"strokeColor"};
/// A number: the outline's width in points. Absent, 0: a line one pixel wide.
inline constexpr VNTLGlyphwright VNTLGlyphwrightStrokeWidth{"strokeWidth"};
/// A number, read as an integer: the width of the border ring in points; below 1 there is none.
inline constexpr VNTLGlyphwright VNTLGlyphwrightBorderWidth{"borderWidth"};
/// A colour: of the border ring. Absent, white.
inline constexpr VNTLGlyphwright VNTLGlyphwrightBorderColor{"borderColor"};
/// A shadow: cast outside by the finished image.
inline constexpr VNTLGlyphwright VNTLGlyphwrightDropShadow{"dropShadow"};
/// A shadow: drawn inside the shape.
inline constexpr VNTLGlyphwright VNTLGlyphwrightInsetShadow{"insetShadow"};
/// A list of colours: the gradient that replaces the flat fill. An empty list fills nothing.
inline constexpr VNTLGlyphwright VNTLGlyphwrightGradientColors{"gradientColors"};
/// A list of numbers: the colours' stops, 0 to 1. Absent, all 0 but the last, which is 1.
inline constexpr VNTLGlyphwright VNTLGlyphwrightGradientLocations{"gradientLocations"};
/// A boxed point in unit coordinates: where the gradient starts. Absent, (0.5, 0).
inline constexpr VNTLGlyphwright VNTLGlyphwrightGradientStartPoint{"gradientStartPoint"};
/// A boxed point in unit coordinates: where the gradient ends. Absent, (0.5, 1).
inline constexpr VNTLGlyphwright VNTLGlyphwrightGradientEndPoint{"gradientEndPoint"};

/// What a value of an attribute dictionary may be.
using AttributeKinds = std::variant<NSNumber, NSValue, UIColor, std::shared_ptr<NSShadow>,
                                    std::vector<UIColor>, std::vector<NSNumber>>;
/// A value of an attribute dictionary. CGSize, CGPoint, shadows, arithmetic values and lists of
/// those box themselves; numbers and colours may stand in braces, and two numbers are a size or a
/// point where the key is of one.
struct AttributeValue : AttributeKinds {
  using AttributeKinds::AttributeKinds;
  /// In braces.
  AttributeValue(std::initializer_list<NSNumber> numbers);
  AttributeValue(std::initializer_list<UIColor> colors);
  /// A shadow of its own, as it is now.
  AttributeValue(const NSShadow& shadow);
  /// The record's own shadow object.
  AttributeValue(const IconShadow& shadow);
  /// Numbers of any type.
  template <typename Number>
  requires std::is_arithmetic_v<Number> AttributeValue(const std::vector<Number>& numbers)
      : AttributeKinds(std::vector<NSNumber>(numbers.begin(), numbers.end())) {}
};

/// The keyed form of an icon's attributes:
///
///     AttributeDictionary{{VNTLGlyphwrightSize, {40, 40}},
///                         {VNTLGlyphwrightGradientColors, {pink, UIColor::whiteColor()}},
///                         {VNTLGlyphwrightGradientLocations, {0, 0.5}},
///                         {VNTLGlyphwrightStrokeWidth, 2}}
///
/// Keys that no renderer knows are kept and ignored. A value of another kind than its key expects
/// reads as absent.
class AttributeDictionary {
 public:
  AttributeDictionary() = default;
  /// Of equal keys the last one counts.
  AttributeDictionary(
      std::initializer_list<std::pair<VNTLGlyphwright, AttributeValue>> keysAndValues);

  /// Takes the place of the value under an equal key; the key's characters are copied.
  void setValue(VNTLGlyphwright key, AttributeValue value);
  /// Does nothing for an absent key.
  void removeValue(VNTLGlyphwright key);
  /// Null when the key is absent.
  const AttributeValue* value(VNTLGlyphwright key) const;
  /// How many keys there are, known to a renderer or not.
  std::size_t count() const { return values_.size(); }

  // Reading by kind: empty or null when the key is absent or holds another kind

  /// Valid until the value is replaced or removed, as all pointers here.
  const UIColor* color(VNTLGlyphwright key) const;
  /// A boxed one, or two numbers in a list; so is a point.
  std::optional<CGSize> size(VNTLGlyphwright key) const;
  std::optional<CGPoint> point(VNTLGlyphwright key) const;
  /// As they are stored: a number alone is no list, and a list of one is no number.
  const NSNumber* number(VNTLGlyphwright key) const;
  const NSShadow* shadow(VNTLGlyphwright key) const;
  const std::vector<UIColor>* colors(VNTLGlyphwright key) const;
  const std::vector<NSNumber>* numbers(VNTLGlyphwright key) const;

 private:
  std::map<std::string, AttributeValue, std::less<>> values_;
};

}  // namespace glyphwright
