#include <glyphwright/glyphwright.h>

#include <string>

#include "png.h"

using namespace glyphwright;

int main() {
  const auto heart = UIBezierPath::heartPath().vntl_gradientShapeLayerWithSize({72, 72});
  heart->setColors({UIColor(1, 0.2, 0.45, 1), UIColor(1, 0.65, 0.2, 1)});
  auto beat = CAKeyframeAnimation::animationWithKeyPath("transform.scale");
  beat->setValues({0.7, 1.0, 0.7});
  beat->setDuration(1);
  heart->gradientLayer()->addAnimation(beat, "beat");

  // There is no clock: a program asks for the layer as it stands at a time.
  const UIGraphicsImageRenderer renderer({72, 72});
  UIImage frame;
  for (int i = 0; i < 6; ++i) {
    const auto shown = heart->presentationLayerAtTime(i / 6.0);
    frame = renderer.image(std::move(frame), [&](const UIGraphicsImageRendererContext& context) {
      shown->renderInContext(context.cgContext());
    });
    const std::string file = "animated_frames-" + std::to_string(i) + ".png";
    if (!cookbook::writePng(file, frame.cgImage())) return 1;
  }
}
