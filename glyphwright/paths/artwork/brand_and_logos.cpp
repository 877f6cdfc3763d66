#include <glyphwright/paths/outline.h>

namespace glyphwright {

using namespace paths;

// A disc with a lower-case letter opening through its foot.
UIBezierPath UIBezierPath::facebookLogo() {
  static constexpr Step steps[] = {
      move(18, 9.05),
      curve(9, 0, 18, 4.05, 13.97, 0),
      curve(0, 9.05, 4.03, 0, 0, 4.05),
      curve(7.59, 18, 0, 13.57, 3.29, 17.32),
      line(7.59, 11.67),
      line(5.31, 11.67),
      line(5.31, 9.05),
      line(7.59, 9.05),
      line(7.59, 7.06),
      curve(10.99, 3.54, 7.59, 4.79, 8.94, 3.54),
      curve(13.01, 3.71, 11.98, 3.54, 13.01, 3.71),
      line(13.01, 5.94),
      line(11.87, 5.94),
      curve(10.41, 7.35, 10.75, 5.94, 10.41, 6.64),
      line(10.41, 9.05),
      line(12.9, 9.05),
      line(12.5, 11.67),
      line(10.41, 11.67),
      line(10.41, 18),
      curve(18, 9.05, 14.71, 17.32, 18, 13.57),
      close(),
  };
  return evenOddOutline(steps);
}

}  // namespace glyphwright
