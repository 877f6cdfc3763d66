#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include <glyphwright/platform/gradient.h>
#include <glyphwright/platform/raster/kernels.h>

namespace glyphwright::raster {

/// The colours of a gradient at evenly spaced places, premultiplied and rounded once. It refers to
/// the gradient.
class GradientRamp {
 public:
  /// `devicePixels` is the gradient's length on the device; the ramp is twice as fine, within
  /// 32…4096 entries, so that a hard edge lies within a quarter pixel.
  GradientRamp(const CGGradient& gradient, double devicePixels, const Kernels& kernels);

  std::uint32_t size() const { return size_; }
  /// The entries of the locations origin + step × i for i from `index` on, in units of entries;
  /// beyond the ends, exactly the first and the last colour. NaN gives the first. Four bytes in
  /// memory order.
  void read(double origin, double step, int index, std::span<std::uint32_t> pixels);
  /// Works out all entries into `memory`, which stays in use: the first colour, all in order, the
  /// last one.
  Ramp table(std::vector<std::uint32_t>& memory);

 private:
  // The colours between two stops, or beyond the ends.
  struct Stretch : ColorStretch {
    double until = 0;  // the location where the next one begins

    bool holds(double place) const { return place >= from && place < until; }
  };
  void enter(std::size_t stretch);
  void enterAt(double place);

  std::span<const CGGradient::Stop> stops_;
  const Kernels& kernels_;
  std::uint32_t size_;
  std::uint32_t first_;
  std::uint32_t last_;
  std::size_t next_ = 0;  // the stop that ends the stretch
  Stretch stretch_;
};

}  // namespace glyphwright::raster
