#include <glyphwright/paths/outline.h>

namespace glyphwright {

using namespace paths;

// An airliner from above, nose up.
UIBezierPath UIBezierPath::airplanePath() {
  static constexpr Step steps[] = {
      move(12, 0),
      curve(13.7, 3.55, 13.05, 0, 13.7, 1.83),
      line(13.7, 8.06),
      curve(14.01, 8.59, 13.7, 8.28, 13.82, 8.48),
      line(23.39, 13.95),
      curve(24, 15.01, 23.77, 14.16, 24, 14.57),
      line(24, 15.51),
      curve(23.2, 16.32, 24, 15.95, 23.64, 16.32),
      curve(23.02, 16.3, 23.14, 16.32, 23.08, 16.31),
      line(14.37, 14.25),
      curve(14.23, 14.24, 14.32, 14.24, 14.28, 14.24),
      curve(13.63, 14.79, 13.92, 14.24, 13.66, 14.47),
      line(13.23, 19.07),
      curve(13.44, 19.54, 13.21, 19.25, 13.29, 19.43),
      line(16.16, 21.46),
      curve(16.5, 22.12, 16.37, 21.61, 16.5, 21.86),
      line(16.5, 22.5),
      curve(15.7, 23.2, 16.5, 22.93, 16.12, 23.26),
      line(13.49, 22.86),
      curve(13.02, 23.04, 13.31, 22.83, 13.13, 22.9),
      line(12.43, 23.79),
      curve(12, 24, 12.33, 23.92, 12.17, 24),
      curve(11.57, 23.79, 11.83, 24, 11.67, 23.92),
      line(10.98, 23.04),
      curve(10.51, 22.86, 10.87, 22.9, 10.69, 22.83),
      line(8.3, 23.2),
      curve(7.5, 22.5, 7.88, 23.26, 7.5, 22.93),
      line(7.5, 22.12),
      curve(7.84, 21.46, 7.5, 21.86, 7.63, 21.61),
      line(10.56, 19.54),
      curve(10.77, 19.07, 10.71, 19.43, 10.79, 19.25),
      line(10.37, 14.79),
      curve(9.77, 14.24, 10.34, 14.47, 10.08, 14.24),
      curve(9.63, 14.25, 9.72, 14.24, 9.68, 14.24),
      line(0.98, 16.3),
      curve(0.8, 16.32, 0.92, 16.31, 0.86, 16.32),
      curve(0, 15.51, 0.36, 16.32, 0, 15.95),
      line(0, 15.01),
      curve(0.61, 13.95, 0, 14.57, 0.23, 14.16),
      line(9.99, 8.59),
      curve(10.3, 8.06, 10.18, 8.48, 10.3, 8.28),
      line(10.3, 3.55),
      curve(12, 0, 10.3, 1.83, 10.95, 0),
      close(),
  };
  return outline(steps);
}

// Nose to the upper right.
UIBezierPath UIBezierPath::angledAirplanePath() {
  UIBezierPath path = airplanePath();
  path.applyTransform(CGAffineTransformMakeRotation(0.7853981633974483));
  return path;
}

}  // namespace glyphwright
