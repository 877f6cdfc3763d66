#include <glyphwright/glyphwright.h>

#include <algorithm>
#include <atomic>
#include <thread>
#include <vector>

#include "png.h"

using namespace glyphwright;

int main() {
  // Any thread may draw anything at any time. Here each takes the next icon of the list and draws
  // it into its own part of one picture.
  constexpr std::size_t side = 32;
  constexpr std::size_t columns = 16;
  constexpr std::size_t width = columns * side;
  const std::size_t rows = (iconTypes.size() + columns - 1) / columns;
  std::vector<std::uint8_t> picture(width * rows * side * 4);
  std::atomic<std::size_t> next = 0;
  const auto work = [&] {
    for (std::size_t i = next++; i < iconTypes.size(); i = next++) {
      const IconAttributes look{.fillColor = UIColor(CGFloat(i) / 128, 0.3, 0.6, 1),
                                .backgroundColor = UIColor::clearColor(),
                                .stroke = IconStroke(UIColor::clearColor(), 0),
                                .dropShadow = IconShadow(UIColor(0, 0, 0, 0.3), {0, 1}, 2),
                                .size = {side, side}};
      const std::size_t at = i / columns * side * width + i % columns * side;
      UIBezierPath::pathForIcon(iconTypes[i].type)
          ->drawImage(look, 1, {&picture[at * 4], side, side, width * 4});
    }
  };
  std::vector<std::thread> threads(std::max(std::thread::hardware_concurrency(), 1U));
  for (std::thread& thread : threads) thread = std::thread(work);
  for (std::thread& thread : threads) thread.join();
  const CGImage sheet(width, rows * side, picture);
  return cookbook::writePng("many_threads.png", sheet) ? 0 : 1;
}
