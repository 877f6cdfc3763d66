#include <glyphwright/paths/outline.h>

namespace glyphwright {

using namespace paths;

// The plain tick: two bars at 45°, the short one half as long as the long one.
UIBezierPath UIBezierPath::checkmarkPath() {
  static constexpr Step steps[] = {
      move(7.4, 15), line(0, 7.6),  line(2.4, 5.2), line(7.4, 10.2),
      line(17.6, 0), line(20, 2.4), line(7.4, 15),  close(),
  };
  return outline(steps);
}

}  // namespace glyphwright
