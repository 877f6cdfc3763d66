#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include <glyphwright/platform/gradient.h>
#include <glyphwright/platform/raster/kernels.h>

namespace glyphwright::raster {

/// The colours of a gradient at any place, premultiplied and rounded once; four bytes in memory
/// order. Before the first stop and at no number (NaN) it is the first colour, from the last stop
/// on the last one.
class GradientRamp {
 public:
  /// As many places as `readEach` takes at once.
  static constexpr std::size_t kAtOnce = 64;

  GradientRamp(const CGGradient& gradient, const Kernels& kernels);

  /// The colours at the places origin + step × i for i from `index` on.
  void read(double origin, double step, int index, std::span<std::uint32_t> pixels);
  /// The colours at places in any order, which are overwritten.
  void readEach(double (&places)[kAtOnce], std::span<std::uint32_t> pixels);

 private:
  // The colours between two stops, or beyond the ends.
  struct Stretch {
    double from;
    double until;  // where the next one begins
    double perUnit = 0;
    ColorStretch colors;

    bool holds(double place) const { return place >= from && place < until; }
    double partAt(double place) const { return (place - from) * perUnit; }
  };
  const Stretch& stretchAt(double place);

  std::vector<Stretch> stretches_;
  const Kernels& kernels_;
  std::size_t current_ = 0;
};

}  // namespace glyphwright::raster
