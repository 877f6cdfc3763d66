// Goes through what is harder from outside: lookups, rendering, classes with virtual functions,
// exceptions.

#include <glyphwright/glyphwright.h>

#include <cmath>
#include <cstdio>
#include <stdexcept>

using namespace glyphwright;

int main() {
  const UIImage heart = UIBezierPath::newImage(Recs::Gamepad::Hearts::heart,
                                               {.fillColor = UIColor(1, 0, 0, 1),
                                                .backgroundColor = UIColor::whiteColor(),
                                                .size = {24, 24}});
  const bool painted = heart.cgImage().pixelWidth() == 48;

  const std::shared_ptr<CALayer> layer =
      UIBezierPath::boltPath().vntl_gradientShapeLayerWithSize({24, 24});
  const bool isGradient = dynamic_cast<VNTLGradientShapeLayer*>(layer.get()) != nullptr;

  bool refused = false;
  try {
    layer->setPosition({std::nan(""), 0});
  } catch (const std::invalid_argument&) {
    refused = true;
  }
  std::printf("painted %d, gradient %d, refused %d\n", painted, isGradient, refused);
  return painted && isGradient && refused ? 0 : 1;
}
