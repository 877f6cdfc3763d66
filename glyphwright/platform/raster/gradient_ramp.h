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

  /// Pixels of the colours at the places origin + step × i for i from `index` on.
  void read(double origin, double step, int index, std::size_t count, std::uint8_t* rgba);
  /// The same at places in any order.
  void readEach(const double (&places)[kAtOnce], std::size_t count, std::uint8_t* rgba);

 private:
  // The colours between two stops, or beyond the ends.
  struct Stretch {
    double from;
    double until;  // where the next one begins
    double origin = 0;
    double perUnit = 0;
    ColorStretch colors;

    bool holds(double place) const { return place >= from && place < until; }
    double partAt(double place) const { return (place - origin) * perUnit; }
  };
  const Stretch& stretchAt(double place);

  std::vector<Stretch> stretches_;
  const Kernels& kernels_;
  std::size_t current_ = 0;
};

}  // namespace glyphwright::raster
