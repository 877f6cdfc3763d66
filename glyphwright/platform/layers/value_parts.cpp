#include <glyphwright/platform/layers/animation_value.h>
#include <glyphwright/platform/layers/transform_parts.h>

namespace glyphwright {

AnimationValue::AnimationValue(const AnimationValue& other) = default;
AnimationValue::AnimationValue(AnimationValue&& other) noexcept = default;
AnimationValue& AnimationValue::operator=(const AnimationValue& other) = default;
AnimationValue& AnimationValue::operator=(AnimationValue&& other) noexcept = default;

namespace {

// The first name of a key path and what follows its dot.
struct SplitPath {
  std::string_view head;
  std::string_view tail;
};

SplitPath split(std::string_view path) {
  const std::size_t dot = path.find('.');
  if (dot == std::string_view::npos) return {path, {}};
  return {path.substr(0, dot), path.substr(dot + 1)};
}

CGFloat* numberOf(CGPoint& point, std::string_view part) {
  return part == "x" ? &point.x : part == "y" ? &point.y : nullptr;
}

CGFloat* numberOf(CGSize& size, std::string_view part) {
  return part == "width" ? &size.width : part == "height" ? &size.height : nullptr;
}

CGFloat* numberOf(CGRect& rect, std::string_view part) {
  const auto [head, tail] = split(part);
  if (head == "origin") return numberOf(rect.origin, tail);
  if (head == "size") return numberOf(rect.size, tail);
  return nullptr;
}

CGFloat* numberOf(TransformParts& parts, std::string_view part) {
  if (part == "rotation" || part == "rotation.z") return &parts.rotation;
  if (part == "scale.x") return &parts.scaleX;
  if (part == "scale.y") return &parts.scaleY;
  if (part == "translation.x") return &parts.translation.width;
  if (part == "translation.y") return &parts.translation.height;
  return nullptr;
}

template <typename Whole>
std::optional<AnimationValue> numberIn(Whole whole, std::string_view part) {
  const CGFloat* number = numberOf(whole, part);
  return number ? std::optional<AnimationValue>(*number) : std::nullopt;
}

template <typename Whole>
bool replaceNumber(Whole& whole, std::string_view part, const AnimationValue& replacement) {
  CGFloat* number = numberOf(whole, part);
  const CGFloat* value = std::get_if<CGFloat>(&replacement);
  if (!number || !value) return false;
  *number = *value;
  return true;
}

template <typename Field>
bool replaceField(Field& field, const AnimationValue& replacement) {
  const Field* value = std::get_if<Field>(&replacement);
  if (value) field = *value;
  return value != nullptr;
}

bool replace(CGPoint& point, std::string_view part, const AnimationValue& replacement) {
  return replaceNumber(point, part, replacement);
}

bool replace(CGSize& size, std::string_view part, const AnimationValue& replacement) {
  return replaceNumber(size, part, replacement);
}

bool replace(CGRect& rect, std::string_view part, const AnimationValue& replacement) {
  if (part == "origin") return replaceField(rect.origin, replacement);
  if (part == "size") return replaceField(rect.size, replacement);
  return replaceNumber(rect, part, replacement);
}

bool replace(CGAffineTransform& transform, std::string_view part,
             const AnimationValue& replacement) {
  TransformParts parts = takeApart(transform);
  bool done = false;
  if (part == "scale") {
    done = replaceField(parts.scaleX, replacement) && replaceField(parts.scaleY, replacement);
  } else if (part == "translation") {
    done = replaceField(parts.translation, replacement);
  } else {
    done = replaceNumber(parts, part, replacement);
  }
  if (done) transform = putTogether(parts);
  return done;
}

template <typename Other>
bool replace(Other&, std::string_view, const AnimationValue&) {
  return false;
}

}  // namespace

std::optional<AnimationValue> partOfValue(const AnimationValue& value, std::string_view part) {
  if (const auto* point = std::get_if<CGPoint>(&value)) return numberIn(*point, part);
  if (const auto* size = std::get_if<CGSize>(&value)) return numberIn(*size, part);
  if (const auto* rect = std::get_if<CGRect>(&value)) {
    if (part == "origin") return rect->origin;
    if (part == "size") return rect->size;
    return numberIn(*rect, part);
  }
  if (const auto* transform = std::get_if<CGAffineTransform>(&value)) {
    const TransformParts parts = takeApart(*transform);
    if (part == "scale") return (parts.scaleX + parts.scaleY) * 0.5;
    if (part == "translation") return parts.translation;
    return numberIn(parts, part);
  }
  return std::nullopt;
}

std::optional<AnimationValue> replacingPart(const AnimationValue& value, std::string_view part,
                                            const AnimationValue& replacement) {
  AnimationValue result = value;
  const bool done =
      std::visit([&](auto& whole) { return replace(whole, part, replacement); }, result);
  return done ? std::optional(result) : std::nullopt;
}

}  // namespace glyphwright
