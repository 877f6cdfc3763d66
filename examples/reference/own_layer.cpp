// A class of layers of the program's own: dots that count, animated by a property that it adds.

#include <glyphwright/glyphwright.h>
#include <glyphwright/layers/gradient_shape_layer.h>

#include "../cookbook/png.h"

using namespace glyphwright;

namespace {

class Dots : public CALayer {
 public:
  static std::shared_ptr<Dots> layer() { return std::make_shared<Dots>(); }
  Dots() = default;
  Dots(PresentationPass& pass, CALayer& layer) : CALayer(pass, layer) {
    if (const auto* dots = dynamic_cast<const Dots*>(&layer)) count_ = dots->count_;
  }
  std::shared_ptr<CALayer> newWithLayer(PresentationPass& pass, CALayer& layer) const override {
    return std::make_shared<Dots>(pass, layer);
  }

 protected:
  LayerParts visibleParts() const override {
    LayerParts parts = CALayer::visibleParts();
    if (count_ >= 1) parts.add(LayerPart::fill);
    return parts;
  }
  void drawPart(LayerPart part, CGContextRef context, CGFloat alpha) const override {
    if (part != LayerPart::fill) return CALayer::drawPart(part, context, alpha);
    CGContextSetFillColor(context, UIColor(0.9, 0.3, 0.3, alpha));
    CGPath path;
    for (int i = 0; i < int(count_); ++i) {
      path.addPath(UIBezierPath::bezierPathWithOvalInRect({8 + i * 12.0, 12, 8, 8}).cgPath());
    }
    CGContextFillPath(context, path, FillRule::nonZero);
  }
  std::optional<AnimationValue> valueForKey(std::string_view key) const override {
    return key == "count" ? AnimationValue(count_) : CALayer::valueForKey(key);
  }
  void setAnimatedValueForKey(const AnimationValue& value, std::string_view key) override {
    const CGFloat* const count = std::get_if<CGFloat>(&value);
    if (key != "count" || count == nullptr) return CALayer::setAnimatedValueForKey(value, key);
    count_ = *count;
  }

 private:
  CGFloat count_ = 1;
};

}  // namespace

int main() {
  const auto dots = Dots::layer();
  dots->setBounds({0, 0, 64, 32});
  const auto count = CABasicAnimation::animationWithKeyPath("count");
  count->setToValue(5);
  count->setDuration(1);
  dots->addAnimation(count);

  const UIGraphicsImageRenderer renderer({64, 4 * 32});
  const UIImage film = renderer.image([&](const UIGraphicsImageRendererContext& canvas) {
    for (const double time : {0.0, 0.3, 0.6, 0.9}) {
      dots->presentationLayerAtTime(time)->renderInContext(canvas.cgContext());
      CGContextTranslateCTM(canvas.cgContext(), 0, 32);
    }
  });
  return cookbook::writePng("own_layer.png", film.cgImage()) ? 0 : 1;
}
