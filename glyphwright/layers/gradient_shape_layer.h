#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <glyphwright/platform/layers/gradient_layer.h>
#include <glyphwright/platform/layers/shape_layer.h>

namespace glyphwright {

/// A shape filled with a gradient, with an outline on demand; to its users one layer that has a
/// path, colours, a size and animations.
///
///     auto layer = UIBezierPath::heartPath().vntl_gradientShapeLayerWithSize({48, 48});
///     layer->setColors({pink, orange});
///     layer->strokeLayer()->setStrokeColor(UIColor::whiteColor());
///
/// It is put together from a gradient layer masked by a shape layer and, above it once it has been
/// asked for, a second shape layer for the outline. Set path and size before asking for the stroke
/// layer: it takes them over when it is made and is kept in step from then on.
class VNTLGradientShapeLayer : public CALayer {
 public:
  /// A new layer without path, colours and size.
  static std::shared_ptr<VNTLGradientShapeLayer> layer();
  /// `initWithLayer:` by hand: a copy of the layer's own properties (no tree), then
  /// `copyCustomPropertiesFromLayer:`. From a layer of another class it has no inner layers.
  /// Null of null.
  static std::shared_ptr<VNTLGradientShapeLayer> initWithLayer(Borrowed<CALayer> layer);

  /// `init` makes the mask and gradient layers.
  VNTLGradientShapeLayer();
  VNTLGradientShapeLayer(PresentationPass& pass, CALayer& layer);
  VNTLGradientShapeLayer(const VNTLGradientShapeLayer&) = delete;
  VNTLGradientShapeLayer& operator=(const VNTLGradientShapeLayer&) = delete;
  ~VNTLGradientShapeLayer() override;

  /// Takes over the presentation versions of the source's mask and gradient layers, and its stroke
  /// layer itself (null when it never made one). Does nothing for none and for one of another
  /// class.
  void copyCustomPropertiesFromLayer(Borrowed<CALayer> layer);

  // Inner layers

  /// The shape, opaque black: the gradient shows exactly inside its path. It is the gradient
  /// layer's mask. Made when there is none.
  std::shared_ptr<CAShapeLayer> maskLayer();
  /// Stores the reference; nothing else changes, here and in the next three.
  void setMaskLayer(std::shared_ptr<CAShapeLayer> layer) { maskLayer_ = std::move(layer); }
  /// Paints the gradient; the first sublayer. Made, with its mask, when there is none.
  std::shared_ptr<CAGradientLayer> gradientLayer();
  void setGradientLayer(std::shared_ptr<CAGradientLayer> layer) {
    gradientLayer_ = std::move(layer);
  }
  /// The outline, above the gradient. The first call makes it, with a clear fill, the mask's path
  /// and the mask's frame; line colour and width are the caller's to set.
  std::shared_ptr<CAShapeLayer> strokeLayer();
  void setStrokeLayer(std::shared_ptr<CAShapeLayer> layer) { strokeLayer_ = std::move(layer); }
  /// The mask layer and the gradient layer.
  const std::optional<std::vector<std::shared_ptr<CALayer>>>& gradientSubLayers() const {
    return gradientSubLayers_;
  }
  void setGradientSubLayers(std::optional<std::vector<std::shared_ptr<CALayer>>> layers) {
    gradientSubLayers_ = std::move(layers);
  }
  /// The layers that geometry and animations are handed on to: the gradient sublayers and, once it
  /// has been made, the stroke layer. Never makes one. Those that are of this class hand on to
  /// theirs, however long the chain; a layer that is reached twice is given things once.
  std::vector<std::shared_ptr<CALayer>> animatableSublayers() const;

  // Forwarded properties

  /// The mask layer's, nothing without one; reading makes none.
  std::optional<CGPath> path() const { return maskLayer_ ? maskLayer_->path() : std::nullopt; }
  /// Also sets the stroke layer's once there is one.
  void setPath(std::optional<CGPath> path);
  /// The gradient layer's, here and in what follows; without one, what a new layer has.
  std::optional<std::vector<CGColor>> colors() const { return gradientOrNew()->colors(); }
  void setColors(std::optional<std::vector<CGColor>> colors);
  /// In braces.
  template <std::size_t count>
  void setColors(const CGColor (&colors)[count]) {
    gradientLayer()->setColors(colors);
  }
  std::optional<std::vector<CGFloat>> locations() const { return gradientOrNew()->locations(); }
  void setLocations(std::optional<std::vector<CGFloat>> locations);
  /// In braces.
  template <std::size_t count>
  void setLocations(const CGFloat (&locations)[count]) {
    gradientLayer()->setLocations(locations);
  }
  CGPoint startPoint() const { return gradientOrNew()->startPoint(); }
  void setStartPoint(CGPoint point) { gradientLayer()->setStartPoint(point); }
  CGPoint endPoint() const { return gradientOrNew()->endPoint(); }
  void setEndPoint(CGPoint point) { gradientLayer()->setEndPoint(point); }
  std::string type() const { return gradientOrNew()->type(); }
  void setType(std::string type) { gradientLayer()->setType(std::move(type)); }

  // Geometry

  /// Hands the same rectangle on as the inner layers' frame.
  void setBounds(const CGRect& bounds) override;
  /// Hands a zero-origin rectangle of the same size on as the inner layers' bounds; their positions
  /// are left to setBounds, which this goes through.
  void setFrame(const CGRect& frame) override;

  // Animations

  /// Adds the animation here; one of "bounds", "startPoint", "endPoint", "locations", "colors" or
  /// "path" also goes to every inner layer under the same key, whichever of them has the property.
  void addAnimation(const std::shared_ptr<CAAnimation>& animation,
                    const std::optional<std::string>& forKey = std::nullopt) override;
  /// This layer's own, otherwise the first of an inner layer.
  std::shared_ptr<const CAAnimation> animationForKey(std::string_view key) const override;
  void removeAllAnimations() override;
  void removeAnimationForKey(std::string_view key) override;
  /// The inner layers' keys, each once, and then this layer's: one that was handed on is listed
  /// twice. Empty without animations, never nothing.
  std::optional<std::vector<std::string>> animationKeys() const override;

  std::shared_ptr<CALayer> newWithLayer(PresentationPass& pass, CALayer& layer) const override;

 private:
  std::shared_ptr<const CAGradientLayer> gradientOrNew() const {
    return gradientLayer_ ? gradientLayer_ : CAGradientLayer::layer();
  }
  template <typename Change>
  void changeAllOrNone(const Change& change);
  void setupLayers();
  void copyCustomProperties(PresentationPass& pass, CALayer& layer);
  template <typename Action>
  void forEachInnerLayer(Action action) const;

  // Members go in reverse: the gradient sublayers are released first, the gradient layer last.
  std::shared_ptr<CAGradientLayer> gradientLayer_;
  std::shared_ptr<CAShapeLayer> maskLayer_;
  std::shared_ptr<CAShapeLayer> strokeLayer_;
  std::optional<std::vector<std::shared_ptr<CALayer>>> gradientSubLayers_;
  // Set while something is being handed on: inner layers that lead back here are not followed.
  mutable bool forwarding_ = false;
};

}  // namespace glyphwright
