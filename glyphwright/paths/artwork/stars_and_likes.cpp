#include <glyphwright/paths/outline.h>

namespace glyphwright {

using namespace paths;

// The ideal points of the star are the control points of its five small tip curves.
UIBezierPath UIBezierPath::pointyStarPath() {
  static constexpr Step steps[] = {
      move(12.46, 1.11),
      curve(13.54, 1.11, 13, -0.29, 13, -0.29),
      line(16.44, 8.57),
      line(24.43, 9.01),
      curve(24.77, 10.05, 25.93, 9.1, 25.93, 9.1),
      line(18.56, 15.11),
      line(20.61, 22.91),
      curve(19.74, 23.54, 20.99, 24.36, 20.99, 24.36),
      line(13, 19.15),
      line(6.26, 23.54),
      curve(5.39, 22.91, 5.01, 24.36, 5.01, 24.36),
      line(7.44, 15.11),
      line(1.23, 10.05),
      curve(1.57, 9.01, 0.07, 9.1, 0.07, 9.1),
      line(9.56, 8.57),
      line(12.46, 1.11),
      close(),
  };
  return outline(steps);
}

UIBezierPath UIBezierPath::starPath() {
  return pointyStarPath();
}

UIBezierPath UIBezierPath::stellonStarPath() {
  return pointyStarPath();
}

UIBezierPath UIBezierPath::stellonStarOnlyPath() {
  return pointyStarPath();
}

UIBezierPath UIBezierPath::heartPath() {
  static constexpr Step steps[] = {
      move(12, 4.6),
      curve(17.7, 0, 12.95, 1.85, 15.05, 0),
      curve(24, 6.6, 21.2, 0, 24, 3.2),
      curve(12.73, 21.68, 24, 9.5, 21.05, 12.76),
      curve(12, 22, 12.54, 21.88, 12.28, 22),
      curve(11.27, 21.68, 11.72, 22, 11.46, 21.88),
      curve(0, 6.6, 2.95, 12.76, 0, 9.5),
      curve(6.3, 0, 0, 3.2, 2.8, 0),
      curve(12, 4.6, 8.95, 0, 11.05, 1.85),
      close(),
  };
  return outline(steps);
}

}  // namespace glyphwright
