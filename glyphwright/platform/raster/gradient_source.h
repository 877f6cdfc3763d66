#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include <glyphwright/platform/geometry.h>
#include <glyphwright/platform/gradient.h>
#include <glyphwright/platform/raster/canvas.h>

namespace glyphwright::raster {

/// The colours of a gradient at evenly spaced places, premultiplied and rounded once. It refers to
/// the gradient.
class GradientRamp {
 public:
  /// `devicePixels` is the gradient's length on the device; the ramp is twice as fine, within
  /// 32…4096 entries, so that a hard edge lies within a quarter pixel.
  GradientRamp(const CGGradient& gradient, double devicePixels);

  /// Works out all entries, for at(); entryAt() needs none.
  void fill();
  std::uint32_t size() const { return size_; }
  /// The entry of a location in units of entries; beyond the ends, exactly the first and the last
  /// colour. NaN gives the first. Four bytes in memory order.
  std::uint32_t at(double location) const {
    if (!(location >= 0)) return first_;
    return location >= static_cast<double>(size_) ? last_
                                                  : entries_[static_cast<std::size_t>(location)];
  }
  /// The same, worked out on the spot.
  std::uint32_t entryAt(double location) const;

 private:
  std::uint32_t entry(std::size_t index, std::size_t next) const;
  std::size_t stopBeyond(std::size_t index, std::size_t from) const;
  double place(std::size_t index) const {
    return (static_cast<double>(index) + 0.5) / static_cast<double>(size_);
  }

  std::span<const CGGradient::Stop> stops_;
  std::uint32_t size_;
  std::uint32_t first_;
  std::uint32_t last_;
  std::vector<std::uint32_t> entries_;
};

/// Bands across a line; `start` and `end` in user space, which `toDevice` maps to pixels.
class LinearGradientSource final : public PixelSource {
 public:
  LinearGradientSource(const CGGradient& gradient, CGPoint start, CGPoint end,
                       CGGradientDrawingOptions options, const CGAffineTransform& toDevice);
  /// False when the points or the transform give no direction; then nothing is to be painted.
  bool isDrawable() const { return drawable_; }
  void pixels(int x, int y, std::size_t count, std::uint8_t* rgba) const override;
  /// A gradient that runs straight down has rows of one colour.
  std::optional<SolidColor> rowColor(int y) const override;

 private:
  bool isOutside(double entry) const {
    return (entry < 0 && !before_) || (entry > static_cast<double>(ramp_.size()) && !after_);
  }

  GradientRamp ramp_;
  bool drawable_ = false;
  bool before_ = false;
  bool after_ = false;
  // The ramp entry at a pixel's centre is base + x·perColumn + y·perRow.
  double base_ = 0;
  double perColumn_ = 0;
  double perRow_ = 0;
};

/// Circles about `center`, the last colour at `radius` and beyond.
class RadialGradientSource final : public PixelSource {
 public:
  RadialGradientSource(const CGGradient& gradient, CGPoint center, CGFloat radius,
                       const CGAffineTransform& toDevice);
  bool isDrawable() const { return drawable_; }
  void pixels(int x, int y, std::size_t count, std::uint8_t* rgba) const override;

 private:
  GradientRamp ramp_;
  CGAffineTransform toUnit_;  // device pixels to a space where the radius is the ramp's size
  bool drawable_ = false;
};

/// Rays from `center`, the first colour at `angle` and on clockwise.
class ConicGradientSource final : public PixelSource {
 public:
  ConicGradientSource(const CGGradient& gradient, CGPoint center, CGFloat angle,
                      const CGAffineTransform& toDevice);
  bool isDrawable() const { return drawable_; }
  void pixels(int x, int y, std::size_t count, std::uint8_t* rgba) const override;

 private:
  GradientRamp ramp_;
  CGAffineTransform toCentered_;
  double angle_;
  bool drawable_ = false;
};

}  // namespace glyphwright::raster
