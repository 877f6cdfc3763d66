#include <glyphwright/paths/outline.h>

namespace glyphwright {

using namespace paths;

UIBezierPath UIBezierPath::playPath() {
  static constexpr Step steps[] = {
      move(3.06, 0.3),
      line(19.06, 10.3),
      curve(20, 12, 19.64, 10.67, 20, 11.31),
      curve(19.06, 13.7, 20, 12.69, 19.64, 13.33),
      line(3.06, 23.7),
      curve(2, 24, 2.74, 23.89, 2.37, 24),
      curve(0, 22, 0.9, 24, 0, 23.1),
      line(0, 2),
      curve(2, 0, 0, 0.9, 0.9, 0),
      curve(3.06, 0.3, 2.37, 0, 2.74, 0.11),
      close(),
  };
  return outline(steps);
}

UIBezierPath UIBezierPath::stopPath() {
  return bezierPathWithRoundedRect({0, 0, 20, 20}, 3);
}

}  // namespace glyphwright
