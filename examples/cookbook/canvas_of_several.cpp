#include <glyphwright/glyphwright.h>

#include <vector>

#include "png.h"

using namespace glyphwright;

IconAttributes inColor(const UIColor& color) {
  // Drawn at 96 points and the screen scale of 2, so that a canvas of scale 1 shows them sharply.
  return {.fillColor = color,
          .backgroundColor = UIColor::clearColor(),
          .stroke = IconStroke(UIColor::clearColor(), 0),
          .size = {96, 96}};
}

int main() {
  const std::vector<Pathable> icons = {Recs::Gamepad::Nopes::gamepadNopeX,
                                       Recs::Gamepad::Stars::star, Recs::Gamepad::Hearts::heart};
  const std::vector<IconAttributes> looks = {inColor(UIColor(0.9, 0.25, 0.3, 1)),
                                             inColor(UIColor(0.2, 0.55, 0.95, 1)),
                                             inColor(UIColor(0.2, 0.75, 0.5, 1))};
  const std::vector<CGPoint> positions = {{16, 40}, {116, 16}, {264, 40}};
  const std::vector<CGSize> sizes = {{80, 80}, {128, 128}, {80, 80}};
  const UIImage canvas = UIBezierPath::newImage(icons, looks, positions, sizes, {360, 160});
  return cookbook::writePng("canvas_of_several.png", canvas.cgImage()) ? 0 : 1;
}
