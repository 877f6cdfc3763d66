#include <glyphwright/platform/layers/layer.h>

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace glyphwright {
namespace {

// The levels from the layer down to its deepest sublayer or mask.
int levelsBelow(const CALayer& layer) {
  int below = layer.mask() ? levelsBelow(*layer.mask()) : 0;
  if (const auto sublayers = layer.sublayers()) {
    for (const auto& sublayer : *sublayers) below = std::max(below, levelsBelow(*sublayer));
  }
  return below + 1;
}

// Everything that walks a tree relies on its having neither circles nor endless depth; both are
// refused here, before anything has changed.
void requireTree(const CALayer& parent, const CALayer& child) {
  int levels = 0;
  for (const CALayer* above = &parent; above; above = above->superlayer()) {
    if (above == &child) throw std::invalid_argument("layer would be part of a circle in its tree");
    ++levels;
  }
  if (levels + levelsBelow(child) > kMaxLayerLevels) {
    throw std::invalid_argument("layer tree would be too deep");
  }
}

}  // namespace

CALayer::~CALayer() {
  for (const auto& sublayer : sublayers_) sublayer->superlayer_ = nullptr;
  if (mask_) mask_->superlayer_ = nullptr;
}

std::optional<std::span<const std::shared_ptr<CALayer>>> CALayer::sublayers() const {
  if (!hadSublayers_) return std::nullopt;
  return std::span(sublayers_);
}

void CALayer::addSublayer(std::shared_ptr<CALayer> layer) {
  if (!layer) return;
  requireTree(*this, *layer);
  layer->removeFromSuperlayer();
  sublayers_.push_back(std::move(layer));
  hadSublayers_ = true;
  sublayers_.back()->superlayer_ = this;
}

void CALayer::removeFromSuperlayer() {
  CALayer* parent = std::exchange(superlayer_, nullptr);
  if (!parent) return;
  // The parent may hold the last reference: it is let go of as the very last thing.
  std::shared_ptr<CALayer> self;
  if (parent->mask_.get() == this) {
    self = std::exchange(parent->mask_, nullptr);
    return;
  }
  self = parent->sublayers_.take([this](const auto& sibling) { return sibling.get() == this; });
}

void CALayer::setMask(std::shared_ptr<CALayer> mask) {
  if (mask == mask_) return;
  if (mask) {
    requireTree(*this, *mask);
    mask->removeFromSuperlayer();
    mask->superlayer_ = this;
  }
  if (mask_) mask_->superlayer_ = nullptr;
  mask_ = std::move(mask);
}

}  // namespace glyphwright
