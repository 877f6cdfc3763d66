#include <glyphwright/platform/layers/presentation.h>

#include <cmath>
#include <utility>

#include <glyphwright/platform/layers/animatable_fields.h>

namespace glyphwright {
namespace {

// Layers that hold other layers outside the tree can lead a pass deeper than the tree is.
constexpr int kMaxPassLevels = 2 * kMaxLayerLevels;

CFTimeInterval localTimeOf(const CALayer& layer, CFTimeInterval hostTime) {
  const CALayer* above = layer.superlayer();
  return layer.localTime(above ? localTimeOf(*above, hostTime) : hostTime);
}

}  // namespace

PresentationPass::PresentationPass(CFTimeInterval time) {
  if (!std::isnan(time)) time_ = time;
}

std::shared_ptr<CALayer> PresentationPass::copyOf(CALayer& layer) {
  const auto [entry, isNew] = copies_.try_emplace(&layer);
  if (!isNew) return entry->second;
  if (levels_ == kMaxPassLevels) return nullptr;
  ++levels_;
  std::shared_ptr<CALayer> copy = layer.newWithLayer(*this, layer);
  if (copy) {
    applyAnimations(layer, *copy);
    copyTree(layer, *copy);
  }
  --levels_;
  copies_[&layer] = copy;
  return copy;
}

void PresentationPass::applyAnimations(const CALayer& layer, CALayer& copy) const {
  if (!time_ || layer.animations_.empty()) return;
  const CFTimeInterval time = localTimeOf(layer, *time_);
  for (const auto& stored : layer.animations_) {
    stored.animation->applyAtTime(time, AnimationEnd::excluded, copy);
  }
}

void PresentationPass::copyTree(const CALayer& layer, CALayer& copy) {
  copy.sublayers_.reserve(layer.sublayers_.size());
  // By index: what a subclass makes while it is copied may grow the list.
  for (std::size_t i = 0; i < layer.sublayers_.size(); ++i) {
    const std::shared_ptr<CALayer> sublayer = layer.sublayers_[i];
    if (std::shared_ptr<CALayer> child = copyOf(*sublayer)) {
      child->superlayer_ = &copy;
      copy.sublayers_.push_back(std::move(child));
    }
  }
  copy.hadSublayers_ = layer.hadSublayers_;
  if (layer.mask_) copy.mask_ = copyOf(*layer.mask_);
  if (copy.mask_) copy.mask_->superlayer_ = &copy;
}

CALayer::CALayer(PresentationPass& /*pass*/, CALayer& layer)
    : CAMediaTiming(layer), model_(layer.model_) {}

std::shared_ptr<CALayer> CALayer::newWithLayer(PresentationPass& pass, CALayer& layer) const {
  return std::make_shared<CALayer>(pass, layer);
}

std::shared_ptr<CALayer> CALayer::presentationLayer() {
  PresentationPass pass;
  return pass.copyOf(*this);
}

std::shared_ptr<CALayer> CALayer::presentationLayerAtTime(CFTimeInterval time) {
  PresentationPass pass(time);
  return pass.copyOf(*this);
}

template <typename Fields, typename Visit>
void CALayer::visitAnimatable(Fields& model, std::string_view key, Visit visit) {
  if (key == "bounds") return visit(model.bounds);
  if (key == "position") return visit(model.position);
  if (key == "anchorPoint") return visit(model.anchorPoint);
  if (key == "transform") return visit(model.transform);
  if (key == "zPosition") return visit(model.zPosition);
  if (key == "opacity") return visit(model.opacity);
  if (key == "cornerRadius") return visit(model.cornerRadius);
  if (key == "borderWidth") return visit(model.borderWidth);
  if (key == "borderColor") return visit(model.borderColor);
  if (key == "backgroundColor") return visit(model.backgroundColor);
}

std::optional<AnimationValue> CALayer::valueForKey(std::string_view key) const {
  std::optional<AnimationValue> value;
  visitAnimatable(model_, key, [&](const auto& field) { animatable::read(field, value); });
  return value;
}

void CALayer::setAnimatedValueForKey(const AnimationValue& value, std::string_view key) {
  visitAnimatable(model_, key, [&](auto& field) { animatable::write(field, value); });
  model_.bounds = CGRectStandardize(model_.bounds);
}

std::optional<AnimationValue> CALayer::valueForKeyPath(std::string_view keyPath) const {
  const std::size_t dot = keyPath.find('.');
  std::optional<AnimationValue> whole = valueForKey(keyPath.substr(0, dot));
  if (!whole || dot == std::string_view::npos) return whole;
  return partOfValue(*whole, keyPath.substr(dot + 1));
}

void CALayer::setAnimatedValue(const AnimationValue& value, std::string_view keyPath) {
  const std::size_t dot = keyPath.find('.');
  if (dot == std::string_view::npos) return setAnimatedValueForKey(value, keyPath);
  const std::string_view key = keyPath.substr(0, dot);
  const std::optional<AnimationValue> whole = valueForKey(key);
  if (!whole) return;
  if (const auto replaced = replacingPart(*whole, keyPath.substr(dot + 1), value)) {
    setAnimatedValueForKey(*replaced, key);
  }
}

}  // namespace glyphwright
