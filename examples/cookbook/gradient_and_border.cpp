#include <glyphwright/glyphwright.h>

#include "png.h"

using namespace glyphwright;

int main() {
  IconAttributes look{.fillColor = UIColor::whiteColor(),
                      .backgroundColor = UIColor::clearColor(),
                      .stroke = IconStroke(UIColor::clearColor(), 0),
                      .size = {96, 96}};
  look.gradient = IconGradient({UIColor(1, 0.75, 0.2, 1), UIColor(0.95, 0.2, 0.45, 1)}, {},
                               IconGradient::Direction::topLeftToBottomRight);
  look.border = IconBorder(UIColor(0.35, 0.1, 0.3, 1), 4);  // a ring of four points
  const UIImage icon = UIBezierPath::newImage(Icons::flame, look);
  return cookbook::writePng("gradient_and_border.png", icon.cgImage()) ? 0 : 1;
}
