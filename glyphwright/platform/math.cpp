#include <glyphwright/platform/math.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace glyphwright::math {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

// π/2 in two parts, so that the reduction x − k·π/2 stays exact to the last places for k < 2^20.
constexpr double kHalfPiHigh = 1.5707963267341256;
constexpr double kHalfPiLow = 6.077100506506192e-11;

struct Reduced {
  double remainder;  // within −π/4…π/4
  int quadrant;      // 0…3
};

Reduced reduce(double x) {
  // Beyond this the spacing of doubles is coarser than any angle means; fold by fmod first, which
  // is exact.
  if (std::fabs(x) > 1e6) x = std::fmod(x, 2 * kPi);
  const double k = std::nearbyint(x * (2 / kPi));
  const double remainder = (x - k * kHalfPiHigh) - k * kHalfPiLow;
  return {remainder, static_cast<int>(static_cast<long long>(k) & 3)};
}

// Taylor series; on −π/4…π/4 the first dropped term is below 1e-17.
double sinSeries(double x) {
  const double z = x * x;
  double sum = -1.0 / 1307674368000.0;
  sum = sum * z + 1.0 / 6227020800.0;
  sum = sum * z - 1.0 / 39916800.0;
  sum = sum * z + 1.0 / 362880.0;
  sum = sum * z - 1.0 / 5040.0;
  sum = sum * z + 1.0 / 120.0;
  sum = sum * z - 1.0 / 6.0;
  return x + x * (z * sum);
}

double cosSeries(double x) {
  const double z = x * x;
  double sum = 1.0 / 20922789888000.0;
  sum = sum * z - 1.0 / 87178291200.0;
  sum = sum * z + 1.0 / 479001600.0;
  sum = sum * z - 1.0 / 3628800.0;
  sum = sum * z + 1.0 / 40320.0;
  sum = sum * z - 1.0 / 720.0;
  sum = sum * z + 1.0 / 24.0;
  return 1.0 - z * 0.5 + (z * z) * sum;
}

// Arc tangent for 0 ≤ t ≤ 1. Two half-angle steps bring t below 0.2, where the series is short:
// atan t = 2·atan(t / (1 + √(1 + t²))).
double atanUnit(double t) {
  for (int step = 0; step < 2; ++step) t = t / (1.0 + std::sqrt(1.0 + t * t));
  const double z = t * t;
  double sum = 0;
  for (int n = 23; n >= 3; n -= 2) sum = z * (1.0 / n - sum);
  return 4.0 * (t - t * sum);
}

}  // namespace

double sin(double radians) {
  if (!std::isfinite(radians)) return kNaN;
  const Reduced r = reduce(radians);
  const double value = (r.quadrant & 1) != 0 ? cosSeries(r.remainder) : sinSeries(r.remainder);
  return (r.quadrant & 2) != 0 ? -value : value;
}

double cos(double radians) {
  if (!std::isfinite(radians)) return kNaN;
  const Reduced r = reduce(radians);
  const double value = (r.quadrant & 1) != 0 ? sinSeries(r.remainder) : cosSeries(r.remainder);
  return r.quadrant == 1 || r.quadrant == 2 ? -value : value;
}

double atan2(double y, double x) {
  if (std::isnan(x) || std::isnan(y)) return kNaN;
  const double ax = std::fabs(x);
  const double ay = std::fabs(y);
  const double large = std::max(ax, ay);
  const double small = std::min(ax, ay);
  double ratio = 0;
  if (large > 0) ratio = std::isinf(small) ? 1.0 : small / large;
  double angle = atanUnit(ratio);
  if (ay > ax) angle = kPi / 2 - angle;
  if (x < 0) angle = kPi - angle;
  return std::copysign(angle, y);
}

double hypot(double x, double y) {
  if (std::isinf(x) || std::isinf(y)) return std::numeric_limits<double>::infinity();
  const double ax = std::fabs(x);
  const double ay = std::fabs(y);
  const double large = std::max(ax, ay);
  if (!(large > 0)) return ax + ay;
  if (large > 1e-140 && large < 1e140) return std::sqrt(ax * ax + ay * ay);
  const double u = ax / large;
  const double v = ay / large;
  return large * std::sqrt(u * u + v * v);
}

double expNegative(double x) {
  if (std::isnan(x)) return kNaN;
  if (x >= 0) return 1;
  if (x < -700) return 0;
  // Halve until the series is short, then square back.
  int halvings = 0;
  while (x < -0.25) {
    x *= 0.5;
    ++halvings;
  }
  double sum = 1;
  for (int n = 14; n >= 1; --n) sum = 1 + x * sum / n;
  for (; halvings > 0; --halvings) sum *= sum;
  return sum;
}

}  // namespace glyphwright::math
