#pragma once

#include <cmath>
#include <optional>
#include <type_traits>

#include <glyphwright/platform/layers/animation_value.h>

/// Between the typed fields of layers and the values that animations carry.
namespace glyphwright::animatable {

/// Reads a field into `value`; one that is not set leaves it empty.
template <typename Field>
void read(const Field& field, std::optional<AnimationValue>& value) {
  value.emplace(field);
}

template <typename Field>
void read(const std::optional<Field>& field, std::optional<AnimationValue>& value) {
  if (field) value.emplace(*field);
}

inline bool isNumber(CGFloat value) {
  return !std::isnan(value);
}
inline bool isNumber(CGPoint point) {
  return isNumber(point.x) && isNumber(point.y);
}
inline bool isNumber(const CGRect& rect) {
  return isNumber(rect.origin) && isNumber(rect.size.width) && isNumber(rect.size.height);
}
inline bool isNumber(const CGAffineTransform& t) {
  return isNumber(t.a) && isNumber(t.b) && isNumber(t.c) && isNumber(t.d) && isNumber(t.tx) &&
         isNumber(t.ty);
}
/// Colours, lists and paths are as they are: what cannot be drawn draws nothing.
template <typename Other>
bool isNumber(const Other&) {
  return true;
}

/// Stores a value of the field's own kind; another kind or NaN changes nothing.
template <typename Field>
void write(Field& field, const AnimationValue& value) {
  const Field* typed = std::get_if<Field>(&value);
  if (typed && isNumber(*typed)) field = *typed;
}

template <typename Field>
void write(std::optional<Field>& field, const AnimationValue& value) {
  if (const Field* typed = std::get_if<Field>(&value)) field = *typed;
}

}  // namespace glyphwright::animatable
