#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include <glyphwright/platform/gradient.h>
#include <glyphwright/platform/raster/kernels.h>

namespace glyphwright::raster {

/// The colours of a gradient at any place, premultiplied and rounded once. Before the first stop
/// and at no number (NaN) it is the first colour, from the last stop on the last one; where the
/// ends do not run on, nothing is there before place 0 and past place 1.
class GradientRamp {
 public:
  /// As many places as `readEach` takes at once.
  static constexpr std::size_t kAtOnce = 64;

  GradientRamp(const CGGradient& gradient, CGGradientDrawingOptions options,
               const Kernels& kernels);

  /// Prepares for rows of places this far apart.
  void setStep(double step);
  /// Pixels of the colours at the places origin + step × i for i from `index` on.
  void read(double origin, int index, std::size_t count, std::uint8_t* rgba);
  /// The same at places in any order.
  void readEach(const double (&places)[kAtOnce], std::size_t count, std::uint8_t* rgba);

  /// The colours in single precision, which no level tells from double; none where some stops are
  /// so near to each other, or so far out, that one could.
  std::vector<ColorRun> runs() const;

 private:
  // The colours between two stops, or beyond the ends.
  struct Stretch {
    double from;
    double until;  // where the next one begins
    double origin;
    double perUnit;
    ColorStretch colors;

    bool holds(double place) const { return place >= from && place < until; }
    double partAt(double place) const { return (place - origin) * perUnit; }
  };
  const ColorSteps& stepsOf(std::size_t stretch);
  // The stretch of a place, looked for from one on. No number lies before all.
  std::size_t stretchAt(double place, std::size_t from) const {
    while (from > 0 && !(place >= stretches_[from].from)) --from;
    while (from + 1 < stretches_.size() && place >= stretches_[from].until) ++from;
    return from;
  }

  std::vector<Stretch> stretches_;
  const Kernels& kernels_;
  // Steps along two stretches: those that a row leads through by turns are mostly neighbours.
  ColorSteps prepared_[2];
  std::size_t preparedOf_[2] = {};
  double step_ = 0;
  double perStep_ = 0;
  // Where the last row began, near to where the next one will.
  std::size_t first_ = 0;
};

}  // namespace glyphwright::raster
