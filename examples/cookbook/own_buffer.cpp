#include <glyphwright/glyphwright.h>

#include <cstdio>
#include <vector>

#include "png.h"

using namespace glyphwright;

int main() {
  // A picture of the program's own, 256 × 128 pixels, blue, green, red, alpha: a window's, say.
  constexpr std::size_t width = 256;
  constexpr std::size_t height = 128;
  std::vector<std::uint8_t> picture(width * height * 4);

  // Two icons go straight into parts of it, 96 × 96 pixels each.
  const IconAttributes look{.fillColor = UIColor(0.45, 0.2, 0.8, 1),
                            .backgroundColor = UIColor(0.95, 0.93, 1, 1),
                            .stroke = IconStroke(UIColor::clearColor(), 0),
                            .size = {48, 48}};
  std::size_t left = 24;
  for (const Icons icon : {Icons::chatBubble, Icons::magnifyingGlass}) {
    const PixelBuffer part{.pixels = &picture[(16 * width + left) * 4],
                           .width = 96,
                           .height = 96,
                           .rowBytes = width * 4,
                           .format = PixelFormat::premultipliedBGRA};
    if (!icon.path().drawImage(look, 2, part)) {
      std::fprintf(stderr, "48 points at scale 2 are not 96 pixels\n");
      return 1;
    }
    left += 112;
  }

  // Back to the library's order, for the file.
  for (std::size_t i = 0; i < picture.size(); i += 4) std::swap(picture[i], picture[i + 2]);
  return cookbook::writePng("own_buffer.png", CGImage(width, height, picture)) ? 0 : 1;
}
