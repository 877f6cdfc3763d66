#include <glyphwright/platform/layers/timing_function.h>

namespace glyphwright {
namespace {

// One coordinate of the cubic from 0 to 1 with the handles c1 and c2.
double coordinate(double s, double c1, double c2) {
  const double r = 1 - s;
  return 3 * r * r * s * c1 + 3 * r * s * s * c2 + s * s * s;
}

}  // namespace

double CAMediaTimingFunction::valueAt(double time) const {
  if (!(time > 0)) return 0;
  if (time >= 1) return 1;
  if (c1_.x == c1_.y && c2_.x == c2_.y) return time;
  // x never falls with s, so halving always closes in: 53 steps reach the last place of a double,
  // the same on every machine.
  double low = 0;
  double high = 1;
  for (int step = 0; step < 53; ++step) {
    const double middle = (low + high) * 0.5;
    (coordinate(middle, c1_.x, c2_.x) < time ? low : high) = middle;
  }
  return coordinate((low + high) * 0.5, c1_.y, c2_.y);
}

}  // namespace glyphwright
