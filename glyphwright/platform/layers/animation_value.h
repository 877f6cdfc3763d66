#pragma once

#include <concepts>
#include <optional>
#include <string_view>
#include <type_traits>
#include <variant>
#include <vector>

#include <glyphwright/platform/color.h>
#include <glyphwright/platform/geometry.h>
#include <glyphwright/platform/path.h>

namespace glyphwright {

/// What an animation moves from one state to another: a number, a point, a size, a rectangle, a
/// transform, a colour, a list of colours or numbers, a path.
using AnimationKinds = std::variant<CGFloat, CGPoint, CGSize, CGRect, CGAffineTransform, CGColor,
                                    std::vector<CGColor>, std::vector<CGFloat>, CGPath>;
/// A value of any of those kinds. Made from any of them, from numbers of any arithmetic type and
/// from lists of such.
struct AnimationValue : AnimationKinds {
  using AnimationKinds::AnimationKinds;
  // What copies so many kinds is made once, and not again by every program that includes this.
  /// Copies are independent; what was moved from is of the same kind and may be assigned to.
  AnimationValue(const AnimationValue& other);
  AnimationValue(AnimationValue&& other) noexcept;
  AnimationValue& operator=(const AnimationValue& other);
  AnimationValue& operator=(AnimationValue&& other) noexcept;
  /// A number of any type.
  template <typename Number>
  requires(std::is_arithmetic_v<Number> && !std::is_convertible_v<Number, AnimationKinds>)
      AnimationValue(Number number)
      : AnimationKinds(static_cast<CGFloat>(number)) {}
  /// A list of numbers of any type.
  template <typename Number>
  requires(std::is_arithmetic_v<Number> && !std::same_as<Number, CGFloat>)
      AnimationValue(const std::vector<Number>& numbers)
      : AnimationKinds(std::vector<CGFloat>(numbers.begin(), numbers.end())) {}
};

/// The value at `progress` of the way from `from` (0) to `to` (1), beyond the ends for a progress
/// outside 0…1. Nothing for two kinds of values.
///
/// Transforms move by their parts: translation, rotation, scale and shear. Colours move by their
/// components, not premultiplied. Lists of one length move entry by entry and paths with the same
/// elements point by point; other lists and paths switch at half way.
std::optional<AnimationValue> interpolate(const AnimationValue& from, const AnimationValue& to,
                                          double progress);

/// `base` with `times` times `value` on top, `times` being whole, −1 to subtract. A transform is
/// applied before the base's own. Nothing for two kinds of values; lists and paths that do not
/// match stay `base`.
std::optional<AnimationValue> accumulate(const AnimationValue& base, const AnimationValue& value,
                                         double times);

/// Reads one part of a value: "x" and "y" of a point, "width" and "height" of a size, "origin" and
/// "size" of a rectangle and their parts ("size.width"); "rotation", "rotation.z" in radians,
/// "scale", "scale.x", "scale.y", "translation", "translation.x" and "translation.y" of a
/// transform. Nothing for any other part.
std::optional<AnimationValue> partOfValue(const AnimationValue& value, std::string_view part);
/// The value with one part replaced; nothing when there is no such part or `replacement` is of
/// another kind.
std::optional<AnimationValue> replacingPart(const AnimationValue& value, std::string_view part,
                                            const AnimationValue& replacement);

}  // namespace glyphwright
