#include <glyphwright/glyphwright.h>

#include <fstream>

using namespace glyphwright;

int main() {
  const IconAttributes look{.fillColor = UIColor(1, 0.2, 0.4, 1),
                            .backgroundColor = UIColor::clearColor(),
                            .stroke = IconStroke(UIColor::clearColor(), 0),
                            .dropShadow = IconShadow(UIColor(0, 0, 0, 0.4), {0, 2}, 4),
                            .size = {64, 64}};
  const UIImage heart = UIBezierPath::newImage(Recs::Gamepad::Hearts::heart, look);
  const auto pixels = heart.cgImage().rgba();  // 128 × 128, premultiplied
  std::ofstream("heart.rgba", std::ios::binary)
      .write(reinterpret_cast<const char*>(pixels.data()), std::streamsize(pixels.size()));
}
