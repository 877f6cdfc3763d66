#include <glyphwright/glyphwright.h>

#include <cstdio>

#include "png.h"

using namespace glyphwright;

int main() {
  const IconAttributes look{.fillColor = UIColor(0.15, 0.35, 0.85, 1),
                            .backgroundColor = UIColor::clearColor(),
                            .stroke = IconStroke(UIColor::clearColor(), 0),
                            .size = {96, 96}};
  const UIImage icon = UIBezierPath::heartPath().makeImage(look);
  if (!cookbook::writePng("png_to_disk.png", icon.cgImage())) {
    std::fprintf(stderr, "cannot write png_to_disk.png\n");
    return 1;
  }
}
