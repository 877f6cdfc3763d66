// A tree of layers that moves: six moments of two seconds, side by side.

#include <glyphwright/glyphwright.h>
#include <glyphwright/layers/gradient_shape_layer.h>

#include <numbers>

#include "../cookbook/png.h"

using namespace glyphwright;

namespace {

std::shared_ptr<CAAnimationGroup> swingAndFade() {
  const auto swing = CAKeyframeAnimation::animationWithKeyPath("transform.rotation");
  swing->setValues({0, std::numbers::pi / 6, 0, -std::numbers::pi / 6, 0});
  swing->setTimingFunctions({CAMediaTimingFunction::functionWithControlPoints(0.4, 0, 0.6, 1)});
  const auto fade = CABasicAnimation::animationWithKeyPath("opacity");
  fade->setFromValue(AnimationValue(1.0));
  fade->setToValue(0.3);
  const auto both = CAAnimationGroup::animation();
  both->setAnimations({swing, fade});
  both->setDuration(2);
  both->setTimingFunction(
      CAMediaTimingFunction::functionWithName(CAMediaTimingFunctionName::easeInEaseOut));
  both->setFillMode(CAMediaTimingFillMode::both);
  return both;
}

}  // namespace

int main() {
  const auto root = CALayer::layer();
  root->setBounds({0, 0, 64, 64});
  root->setContentsGravity(CALayerContentsGravity::center);

  const auto ground = CAGradientLayer::layer();
  ground->setFrame({4, 4, 56, 56});
  ground->setCornerRadius(12);
  ground->setColors({UIColor(0.95, 0.9, 1, 1), UIColor(0.8, 0.9, 1, 1)});
  root->addSublayer(ground);

  const std::shared_ptr<CAShapeLayer> gear = UIBezierPath::shapeLayerWithIcon(1, {36, 36});
  gear->setFillColor(UIColor(0.3, 0.2, 0.7, 1));
  gear->setPosition({32, 32});
  gear->addAnimation(swingAndFade(), "swing");
  // Kept and handed back; it changes nothing that is shown.
  gear->addAnimation(CATransition::animation());
  root->addSublayer(gear);

  const std::shared_ptr<VNTLGradientShapeLayer> heart =
      UIBezierPath::heartPath().vntl_gradientShapeLayerWithSize({16, 16});
  heart->setColors({{UIColor(1, 0.2, 0.4, 1), UIColor(1, 0.6, 0.2, 1)}});
  heart->setPosition({50, 16});
  root->addSublayer(heart);
  // Back to front, as the layer keeps them in its SublayerList.
  if (root->sublayers()->size() != 3 || root->sublayers()->back() != heart) return 1;

  // The two base classes are what code for any animation or any timing asks: CAAnimation and
  // CAPropertyAnimation, CAMediaTiming.
  const std::shared_ptr<const CAAnimation> stored = gear->animationForKey("swing");
  const auto phase = phaseAtTime(*stored, 0.5, AnimationEnd::excluded);
  if (!phase || *phase != AnimationPhase{.progress = 0.25, .cycle = 0}) return 1;

  const UIGraphicsImageRenderer renderer({6 * 64, 64});
  const UIImage film = renderer.image([&](const UIGraphicsImageRendererContext& canvas) {
    for (int frame = 0; frame < 6; ++frame) {
      const std::shared_ptr<CALayer> shown = root->presentationLayerAtTime(frame * 0.4);
      shown->renderInContext(canvas.cgContext());
      CGContextTranslateCTM(canvas.cgContext(), 64, 0);
    }
  });
  return cookbook::writePng("layers.png", film.cgImage()) ? 0 : 1;
}
