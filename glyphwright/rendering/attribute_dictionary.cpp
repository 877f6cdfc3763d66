#include <glyphwright/rendering/attribute_dictionary.h>

#include <glyphwright/rendering/icon_attributes.h>

namespace glyphwright {
namespace {

template <typename Kind>
const Kind* read(const AttributeValue* value) {
  return value ? std::get_if<Kind>(value) : nullptr;
}

// A pair as it stands in braces, which tell nothing of what it is a pair of.
template <typename Pair>
std::optional<Pair> pairOf(const AttributeValue* value) {
  const auto* numbers = read<std::vector<NSNumber>>(value);
  if (!numbers || numbers->size() != 2) return std::nullopt;
  return Pair{(*numbers)[0].doubleValue(), (*numbers)[1].doubleValue()};
}

}  // namespace

AttributeValue::AttributeValue(std::initializer_list<NSNumber> numbers)
    : AttributeKinds(std::vector<NSNumber>(numbers)) {}
AttributeValue::AttributeValue(std::initializer_list<UIColor> colors)
    : AttributeKinds(std::vector<UIColor>(colors)) {}
AttributeValue::AttributeValue(const NSShadow& shadow)
    : AttributeKinds(std::make_shared<NSShadow>(shadow)) {}
AttributeValue::AttributeValue(const IconShadow& shadow) : AttributeKinds(shadow.shadow) {}

AttributeDictionary::AttributeDictionary(
    std::initializer_list<std::pair<VNTLGlyphwright, AttributeValue>> keysAndValues) {
  for (const auto& [key, value] : keysAndValues) setValue(key, value);
}

void AttributeDictionary::setValue(VNTLGlyphwright key, AttributeValue value) {
  values_.insert_or_assign(std::string(key.rawValue()), std::move(value));
}

void AttributeDictionary::removeValue(VNTLGlyphwright key) {
  if (const auto found = values_.find(key.rawValue()); found != values_.end()) {
    values_.erase(found);
  }
}

const AttributeValue* AttributeDictionary::value(VNTLGlyphwright key) const {
  const auto found = values_.find(key.rawValue());
  return found == values_.end() ? nullptr : &found->second;
}

const UIColor* AttributeDictionary::color(VNTLGlyphwright key) const {
  return read<UIColor>(value(key));
}

std::optional<CGSize> AttributeDictionary::size(VNTLGlyphwright key) const {
  const NSValue* box = read<NSValue>(value(key));
  if (!box || !box->holds<CGSize>()) return pairOf<CGSize>(value(key));
  return box->CGSizeValue();
}

std::optional<CGPoint> AttributeDictionary::point(VNTLGlyphwright key) const {
  const NSValue* box = read<NSValue>(value(key));
  if (!box || !box->holds<CGPoint>()) return pairOf<CGPoint>(value(key));
  return box->CGPointValue();
}

const NSNumber* AttributeDictionary::number(VNTLGlyphwright key) const {
  return read<NSNumber>(value(key));
}

const NSShadow* AttributeDictionary::shadow(VNTLGlyphwright key) const {
  const auto* held = read<std::shared_ptr<NSShadow>>(value(key));
  return held ? held->get() : nullptr;
}

const std::vector<UIColor>* AttributeDictionary::colors(VNTLGlyphwright key) const {
  return read<std::vector<UIColor>>(value(key));
}

const std::vector<NSNumber>* AttributeDictionary::numbers(VNTLGlyphwright key) const {
  return read<std::vector<NSNumber>>(value(key));
}

}  // namespace glyphwright
