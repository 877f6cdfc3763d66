#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <glyphwright/platform/layers/layer.h>

namespace glyphwright {

/// The kinds of gradients a layer draws.
inline constexpr std::string_view kCAGradientLayerAxial = "axial";
inline constexpr std::string_view kCAGradientLayerRadial = "radial";
inline constexpr std::string_view kCAGradientLayerConic = "conic";

/// A layer that paints its bounds with a gradient, above its background. Points are unit
/// coordinates of the bounds, (0, 0) upper left. Fewer than two colours, locations of another
/// number than the colours, and equal points draw nothing.
class CAGradientLayer : public CALayer {
 public:
  /// A new layer without colours.
  static std::shared_ptr<CAGradientLayer> layer();

  CAGradientLayer() = default;
  /// `initWithLayer:` see CALayer; from a layer of another class, the gradient is a new layer's.
  CAGradientLayer(PresentationPass& pass, CALayer& layer);

  /// From start to end; none when new. Fewer than two draw nothing.
  const std::optional<std::vector<CGColor>>& colors() const { return gradient_.colors; }
  void setColors(std::optional<std::vector<CGColor>> colors);
  /// In braces.
  template <std::size_t count>
  void setColors(const CGColor (&colors)[count]) {
    setColors(std::vector<CGColor>(colors, colors + count));
  }
  /// One for each colour, along 0 to 1; those outside are kept, so that a band can run in and out.
  /// None spreads the colours evenly.
  const std::optional<std::vector<CGFloat>>& locations() const { return gradient_.locations; }
  void setLocations(std::optional<std::vector<CGFloat>> locations);
  /// In braces.
  template <std::size_t count>
  void setLocations(const CGFloat (&locations)[count]) {
    setLocations(std::vector<CGFloat>(locations, locations + count));
  }
  /// Where the first colour is; the centre of a radial or conic gradient. (0.5, 0) when new.
  CGPoint startPoint() const { return gradient_.startPoint; }
  void setStartPoint(CGPoint point) { gradient_.startPoint = point; }
  /// Where the last colour is; the corner of the box around a radial one's last ellipse (nothing is
  /// drawn when it shares an axis with the start); the direction of a conic one's first colour.
  /// (0.5, 1) when new.
  CGPoint endPoint() const { return gradient_.endPoint; }
  void setEndPoint(CGPoint point) { gradient_.endPoint = point; }
  /// "axial" when new, "radial" or "conic"; anything else is kept and drawn as axial.
  const std::string& type() const { return gradient_.type; }
  void setType(std::string type) { gradient_.type = std::move(type); }

  std::shared_ptr<CALayer> newWithLayer(PresentationPass& pass, CALayer& layer) const override;

 protected:
  LayerParts visibleParts() const override;
  void drawPart(LayerPart part, CGContextRef context, CGFloat alpha) const override;
  std::optional<AnimationValue> valueForKey(std::string_view key) const override;
  void setAnimatedValueForKey(const AnimationValue& value, std::string_view key) override;

 private:
  struct Gradient {
    std::optional<std::vector<CGColor>> colors;
    std::optional<std::vector<CGFloat>> locations;
    CGPoint startPoint{0.5, 0};
    CGPoint endPoint{0.5, 1};
    std::string type{kCAGradientLayerAxial};
  };
  template <typename Fields, typename Visit>
  static bool visitAnimatable(Fields& gradient, std::string_view key, Visit visit);

  void drawGradient(CGContextRef context, const CGGradient& gradient) const;

  Gradient gradient_;
};

}  // namespace glyphwright
