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
  GradientRamp(const CGGradient& gradient, double devicePixels);

  std::uint32_t size() const { return size_; }
  /// The entry of a location in units of entries; beyond the ends, exactly the first and the last
  /// colour. NaN gives the first. Four bytes in memory order.
  std::uint32_t at(double location);
  /// Works out all entries into `memory`, which stays in use: the first colour, those of at(), the
  /// last one.
  Ramp table(std::vector<std::uint32_t>& memory);

 private:
  // The colours between two stops, or beyond the ends.
  struct Stretch {
    double until = 0;  // the location where the next one begins
    double from = 0;
    double perUnit = 0;  // 1 over its length
    double start[4] = {};
    double change[4] = {};  // over its length
  };
  std::uint32_t entry(std::size_t index);
  void enter(std::size_t stretch);

  std::span<const CGGradient::Stop> stops_;
  std::uint32_t size_;
  std::uint32_t first_;
  std::uint32_t last_;
  std::size_t next_ = 0;  // the stop that ends the stretch: entries mostly come in order
  Stretch stretch_;
};

}  // namespace glyphwright::raster
