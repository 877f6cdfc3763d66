#include <glyphwright/layers/gradient_shape_layer.h>

#include <algorithm>
#include <array>
#include <utility>

#include <glyphwright/platform/layers/flat_release.h>
#include <glyphwright/platform/layers/presentation.h>

namespace glyphwright {
namespace {

using InnerLayers = std::vector<std::shared_ptr<CALayer>>;

constexpr std::array<std::string_view, 6> kForwardedKeyPaths = {
    "bounds", "startPoint", "endPoint", "locations", "colors", "path"};

bool isForwarded(const CAAnimation* animation) {
  const auto* property = dynamic_cast<const CAPropertyAnimation*>(animation);
  if (!property || !property->keyPath()) return false;
  return std::ranges::find(kForwardedKeyPaths, *property->keyPath()) != kForwardedKeyPaths.end();
}

}  // namespace

VNTLGradientShapeLayer::VNTLGradientShapeLayer() {
  setupLayers();
}

VNTLGradientShapeLayer::~VNTLGradientShapeLayer() {
  if (!gradientSubLayers_) return;
  releaseFlat(std::move(*gradientSubLayers_), [](CALayer& layer) -> InnerLayers* {
    auto* further = dynamic_cast<VNTLGradientShapeLayer*>(&layer);
    return further && further->gradientSubLayers_ ? &*further->gradientSubLayers_ : nullptr;
  });
}

VNTLGradientShapeLayer::VNTLGradientShapeLayer(PresentationPass& pass, CALayer& layer)
    : CALayer(pass, layer) {
  copyCustomProperties(pass, layer);
}

std::shared_ptr<VNTLGradientShapeLayer> VNTLGradientShapeLayer::layer() {
  return std::make_shared<VNTLGradientShapeLayer>();
}

std::shared_ptr<VNTLGradientShapeLayer> VNTLGradientShapeLayer::initWithLayer(
    Borrowed<CALayer> layer) {
  PresentationPass pass;
  return layer ? std::make_shared<VNTLGradientShapeLayer>(pass, *layer) : nullptr;
}

std::shared_ptr<CALayer> VNTLGradientShapeLayer::newWithLayer(PresentationPass& pass,
                                                              CALayer& layer) const {
  return std::make_shared<VNTLGradientShapeLayer>(pass, layer);
}

void VNTLGradientShapeLayer::copyCustomPropertiesFromLayer(Borrowed<CALayer> layer) {
  PresentationPass pass;
  if (layer) copyCustomProperties(pass, *layer);
}

void VNTLGradientShapeLayer::copyCustomProperties(PresentationPass& pass, CALayer& layer) {
  auto* source = dynamic_cast<VNTLGradientShapeLayer*>(&layer);
  if (!source) return;
  // What the source has not made yet is not made here either: a copy leaves it alone.
  maskLayer_ = pass.presentationOf(source->maskLayer_);
  gradientLayer_ = pass.presentationOf(source->gradientLayer_);
  // The outline is shared, not presented: asking for it here would make one.
  strokeLayer_ = source->strokeLayer_;
  gradientSubLayers_ = InnerLayers{maskLayer_, gradientLayer_};
}

void VNTLGradientShapeLayer::setupLayers() {
  const std::shared_ptr<CAShapeLayer> mask = maskLayer();
  gradientSubLayers_ = InnerLayers{mask, gradientLayer()};
}

std::shared_ptr<CAShapeLayer> VNTLGradientShapeLayer::maskLayer() {
  if (!maskLayer_) {
    maskLayer_ = CAShapeLayer::layer();
    maskLayer_->setFillColor(UIColor::blackColor());
  }
  return maskLayer_;
}

std::shared_ptr<CAGradientLayer> VNTLGradientShapeLayer::gradientLayer() {
  if (!gradientLayer_) {
    gradientLayer_ = CAGradientLayer::layer();
    gradientLayer_->setMask(maskLayer());
    addSublayer(gradientLayer_);
  }
  return gradientLayer_;
}

std::shared_ptr<CAShapeLayer> VNTLGradientShapeLayer::strokeLayer() {
  if (!strokeLayer_) {
    const std::shared_ptr<CAShapeLayer> mask = maskLayer();
    auto stroke = CAShapeLayer::layer();
    stroke->setFillColor(UIColor::clearColor());
    stroke->setPath(mask->path());
    stroke->setFrame(mask->frame());
    strokeLayer_ = std::move(stroke);
    addSublayer(strokeLayer_);
  }
  return strokeLayer_;
}

std::vector<std::shared_ptr<CALayer>> VNTLGradientShapeLayer::animatableSublayers() const {
  std::vector<std::shared_ptr<CALayer>> layers;
  if (gradientSubLayers_) layers = *gradientSubLayers_;
  if (strokeLayer_) layers.push_back(strokeLayer_);
  std::erase(layers, nullptr);
  return layers;
}

template <typename Action>
void VNTLGradientShapeLayer::forEachInnerLayer(Action action) const {
  if (forwarding_) return;
  // Inner layers may have inner layers of their own, to any depth and back again: each such layer
  // is listed once, and marked, so that it does not hand on by itself what it is given here.
  struct Chain {
    Chain() = default;
    Chain(const Chain&) = delete;
    Chain& operator=(const Chain&) = delete;
    ~Chain() {
      for (const auto* layer : layers) layer->forwarding_ = false;
    }
    void add(const VNTLGradientShapeLayer& layer) {
      layers.push_back(&layer);
      layer.forwarding_ = true;
    }
    std::vector<const VNTLGradientShapeLayer*> layers;
    InnerLayers kept;  // an action may take a layer out of the chain
  } chain;
  chain.add(*this);
  for (std::size_t i = 0; i < chain.layers.size(); ++i) {
    const VNTLGradientShapeLayer& outer = *chain.layers[i];
    for (const auto& inner : outer.animatableSublayers()) {
      const auto* further = dynamic_cast<const VNTLGradientShapeLayer*>(inner.get());
      if (further && further->forwarding_) continue;
      if (further) {
        chain.kept.push_back(inner);
        chain.add(*further);
      }
      action(outer, *inner);
    }
  }
}

// Inner layers may refuse what this one takes, such as the middle of bounds without end: then all
// of them are as they were.
template <typename Change>
void VNTLGradientShapeLayer::changeAllOrNone(const Change& change) {
  struct Geometry {
    CALayer* layer;
    CGRect bounds;
    CGPoint position;
  };
  std::vector<Geometry> before{{this, bounds(), position()}};
  forEachInnerLayer([&](const CALayer& /*outer*/, CALayer& layer) {
    before.push_back({&layer, layer.bounds(), layer.position()});
  });
  try {
    change();
  } catch (...) {
    for (const Geometry& was : before) {
      was.layer->CALayer::setBounds(was.bounds);
      was.layer->CALayer::setPosition(was.position);
    }
    throw;
  }
}

void VNTLGradientShapeLayer::setPath(std::optional<CGPath> path) {
  if (strokeLayer_) strokeLayer_->setPath(path);
  maskLayer()->setPath(std::move(path));
}

void VNTLGradientShapeLayer::setColors(std::optional<std::vector<CGColor>> colors) {
  gradientLayer()->setColors(std::move(colors));
}

void VNTLGradientShapeLayer::setLocations(std::optional<std::vector<CGFloat>> locations) {
  gradientLayer()->setLocations(std::move(locations));
}

void VNTLGradientShapeLayer::setBounds(const CGRect& bounds) {
  changeAllOrNone([&] {
    CALayer::setBounds(bounds);
    forEachInnerLayer([&](const CALayer& outer, CALayer& layer) {
      layer.setFrame(&outer == this ? bounds : outer.bounds());
    });
  });
}

void VNTLGradientShapeLayer::setFrame(const CGRect& frame) {
  changeAllOrNone([&] {
    CALayer::setFrame(frame);
    forEachInnerLayer([&](const CALayer& outer, CALayer& layer) {
      const CGRect box = &outer == this ? frame : outer.frame();
      layer.setBounds({0, 0, CGRectGetWidth(box), CGRectGetHeight(box)});
    });
  });
}

void VNTLGradientShapeLayer::addAnimation(const std::shared_ptr<CAAnimation>& animation,
                                          const std::optional<std::string>& forKey) {
  CALayer::addAnimation(animation, forKey);
  if (!isForwarded(animation.get())) return;
  forEachInnerLayer(
      [&](const CALayer& /*outer*/, CALayer& layer) { layer.addAnimation(animation, forKey); });
}

std::shared_ptr<const CAAnimation> VNTLGradientShapeLayer::animationForKey(
    std::string_view key) const {
  std::shared_ptr<const CAAnimation> found = CALayer::animationForKey(key);
  if (found) return found;
  forEachInnerLayer([&](const CALayer& /*outer*/, const CALayer& layer) {
    if (!found) found = layer.animationForKey(key);
  });
  return found;
}

void VNTLGradientShapeLayer::removeAllAnimations() {
  CALayer::removeAllAnimations();
  forEachInnerLayer([](const CALayer& /*outer*/, CALayer& layer) { layer.removeAllAnimations(); });
}

void VNTLGradientShapeLayer::removeAnimationForKey(std::string_view key) {
  // The key may be a view into an animation that goes away.
  const std::string kept(key);
  CALayer::removeAnimationForKey(kept);
  forEachInnerLayer(
      [&](const CALayer& /*outer*/, CALayer& layer) { layer.removeAnimationForKey(kept); });
}

std::optional<std::vector<std::string>> VNTLGradientShapeLayer::animationKeys() const {
  std::vector<std::string> keys;
  forEachInnerLayer([&](const CALayer& /*outer*/, const CALayer& layer) {
    for (std::string& key : layer.animationKeys().value_or(std::vector<std::string>{})) {
      if (std::ranges::find(keys, key) == keys.end()) keys.push_back(std::move(key));
    }
  });
  if (const auto own = CALayer::animationKeys()) keys.insert(keys.end(), own->begin(), own->end());
  return keys;
}

}  // namespace glyphwright
