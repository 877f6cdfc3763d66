#pragma once

#include <memory>
#include <optional>

#include <glyphwright/platform/fill_rule.h>
#include <glyphwright/platform/layers/layer.h>

namespace glyphwright {

/// The rule of a fill under the layer's name for it.
using CAShapeLayerFillRule = FillRule;

/// A layer that fills and strokes a path in its own coordinates, above its contents. The path is
/// not cut off at the bounds.
class CAShapeLayer : public CALayer {
 public:
  /// A new layer without a path.
  static std::shared_ptr<CAShapeLayer> layer();

  CAShapeLayer() = default;
  /// `initWithLayer:` see CALayer; from a layer of another class, the shape is a new layer's.
  CAShapeLayer(PresentationPass& pass, CALayer& layer);

  /// Nothing when new: nothing is drawn.
  const std::optional<CGPath>& path() const { return appearance_.path; }
  void setPath(std::optional<CGPath> path);
  /// Opaque black when new; none fills nothing.
  const std::optional<CGColor>& fillColor() const { return appearance_.fillColor; }
  void setFillColor(std::optional<CGColor> color) { appearance_.fillColor = color; }
  /// Non-zero when new, whatever rule the path was made for.
  CAShapeLayerFillRule fillRule() const { return appearance_.fillRule; }
  void setFillRule(CAShapeLayerFillRule rule) { appearance_.fillRule = rule; }
  /// None when new: no stroke.
  const std::optional<CGColor>& strokeColor() const { return appearance_.strokeColor; }
  void setStrokeColor(std::optional<CGColor> color) { appearance_.strokeColor = color; }
  /// In points, 1 when new; 0 is one device pixel, negative or NaN strokes nothing.
  CGFloat lineWidth() const { return appearance_.style.width; }
  void setLineWidth(CGFloat width) { appearance_.style.width = width; }
  /// How open ends look; butt when new.
  CGLineCap lineCap() const { return appearance_.style.cap; }
  void setLineCap(CGLineCap cap) { appearance_.style.cap = cap; }
  /// How corners look; miter when new.
  CGLineJoin lineJoin() const { return appearance_.style.join; }
  void setLineJoin(CGLineJoin join) { appearance_.style.join = join; }
  /// Above this ratio of miter length to line width a miter join becomes a bevel; 10 when new.
  CGFloat miterLimit() const { return appearance_.style.miterLimit; }
  void setMiterLimit(CGFloat limit) { appearance_.style.miterLimit = limit; }
  /// Where along the whole length of the path the stroke starts and ends, 0 to 1; 0 and 1 when new.
  /// Clamped when drawn, NaN counts as 0. A start that is not below the end strokes nothing.
  CGFloat strokeStart() const { return appearance_.strokeStart; }
  void setStrokeStart(CGFloat start) { appearance_.strokeStart = start; }
  CGFloat strokeEnd() const { return appearance_.strokeEnd; }
  void setStrokeEnd(CGFloat end) { appearance_.strokeEnd = end; }

  std::shared_ptr<CALayer> newWithLayer(PresentationPass& pass, CALayer& layer) const override;

 protected:
  LayerParts visibleParts() const override;
  void drawPart(LayerPart part, CGContextRef context, CGFloat alpha) const override;
  std::optional<AnimationValue> valueForKey(std::string_view key) const override;
  void setAnimatedValueForKey(const AnimationValue& value, std::string_view key) override;

 private:
  struct Appearance {
    std::optional<CGPath> path;
    std::optional<CGColor> fillColor = CGColor::blackColor();
    std::optional<CGColor> strokeColor;
    StrokeStyle style;
    CGFloat strokeStart = 0;
    CGFloat strokeEnd = 1;
    CAShapeLayerFillRule fillRule = CAShapeLayerFillRule::nonZero;
  };
  template <typename Fields, typename Visit>
  static bool visitAnimatable(Fields& shape, std::string_view key, Visit visit);

  Appearance appearance_;
};

}  // namespace glyphwright
