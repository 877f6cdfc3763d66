#pragma once

#include <algorithm>
#include <cmath>

#include <glyphwright/platform/raster/kernels.h>

/// The law by which curves become chords, for those that take them one by one and for the loops
/// that take many, filled or stroked.
///
/// The bend of a cubic is the longer of p0 − 2·p1 + p2 and p1 − 2·p2 + p3. |p''| ≤ 6·bend, and a
/// chord over a parameter step h strays by at most h²·|p''|/8, so that a curve takes
/// √(bend × 6/8 ÷ tolerance) even steps.
///
/// Chords of a curve lose area to its hollow side. Moving the inner points by −h²·p''/12 gives it
/// back. With p(t) = a·t³ + b·t² + c·t + p0 that folds into the two lower coefficients, because
/// p'' = 6a·t + 2b is linear in t.
namespace glyphwright::raster {

/// The square of how many chords a curve takes, over its bend.
constexpr double squaredChordsOverBend(double tolerance) {
  return 6.0 / 8.0 / tolerance;
}

/// How many chords a bend takes before that becomes a whole number.
inline double chordsOf(double bend, double tolerance) {
  return std::sqrt(bend * (6.0 / 8.0) / tolerance);
}

/// At least one, at most kMaxChords.
constexpr int wholeChords(double chords) {
  return chords < kMaxChords ? static_cast<int>(chords) + 1 : kMaxChords;
}

/// The chords of a cubic from end to end, as forward differences: adding them up gives the next
/// sample with nothing but additions.
class ChordSteps {
 public:
  ChordSteps(CGPoint p0, CGPoint p1, CGPoint p2, CGPoint p3, double tolerance) {
    const double ux = p0.x - 2 * p1.x + p2.x;
    const double uy = p0.y - 2 * p1.y + p2.y;
    const double vx = p1.x - 2 * p2.x + p3.x;
    const double vy = p1.y - 2 * p2.y + p3.y;
    count_ =
        wholeChords(chordsOf(std::sqrt(std::max(ux * ux + uy * uy, vx * vx + vy * vy)), tolerance));
    const double h = 1.0 / count_;
    x_ = Steps(p0.x, ux, vx - ux, 3 * (p1.x - p0.x), h);
    y_ = Steps(p0.y, uy, vy - uy, 3 * (p1.y - p0.y), h);
  }
  int count() const { return count_; }
  /// The end of the next chord; that of the last one is not exact.
  CGPoint next() { return {x_.next(), y_.next()}; }

 private:
  struct Steps {
    Steps() = default;
    // `u` is a third of b.
    Steps(double start, double u, double a, double leg, double h) {
      const double h2 = h * h;
      const double h3 = h2 * h;
      const double b = 3 * u;
      const double c = leg - a * (h2 / 2);
      value = start - b * (h2 / 6);
      step = a * h3 + b * h2 + c * h;
      second = 6 * a * h3 + 2 * b * h2;
      third = 6 * a * h3;
    }
    double next() {
      value += step;
      step += second;
      second += third;
      return value;
    }
    double value = 0;
    double step = 0;
    double second = 0;
    double third = 0;
  };

  int count_;
  Steps x_;
  Steps y_;
};

}  // namespace glyphwright::raster
