#pragma once

#include <cstdint>

#include <glyphwright/platform/geometry.h>
#include <glyphwright/platform/gradient.h>
#include <glyphwright/platform/raster/canvas.h>
#include <glyphwright/platform/raster/gradient_ramp.h>

/// Gradients as sources of pixels. Their tables of colours stand in the thread's scratch: there is
/// one such source at a time.
namespace glyphwright::raster {

/// Bands across a line; `start` and `end` in user space, which `toDevice` maps to pixels.
class LinearGradientSource final : public PixelSource {
 public:
  LinearGradientSource(const CGGradient& gradient, CGPoint start, CGPoint end,
                       CGGradientDrawingOptions options, const CGAffineTransform& toDevice,
                       Scratch& scratch);
  /// False when the points or the transform give no direction; then nothing is to be painted.
  bool isDrawable() const { return drawable_; }
  void pixels(int x, int y, std::size_t count, std::uint8_t* rgba) const override;
  /// A gradient that runs straight down has rows of one colour, one that runs straight across has
  /// the same row everywhere.
  Rows rows() const override;
  void rowColors(int y, std::span<std::uint32_t> pixels) const override;

 private:
  bool isOutside(double entry) const {
    return (entry < 0 && !before_) || (entry > static_cast<double>(ramp_.size()) && !after_);
  }

  void clearOutside(double first, std::size_t count, std::uint8_t* rgba) const;

  mutable GradientRamp ramp_;  // it remembers where it was last asked
  Ramp table_{};               // unless all rows are of one colour
  const Kernels& kernels_;
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
                       const CGAffineTransform& toDevice, Scratch& scratch);
  bool isDrawable() const { return drawable_; }
  void pixels(int x, int y, std::size_t count, std::uint8_t* rgba) const override;

 private:
  Ramp table_{};
  CGAffineTransform toUnit_;  // device pixels to a space where the radius is the table's size
  bool drawable_ = false;
};

/// Rays from `center`, the first colour at `angle` and on clockwise.
class ConicGradientSource final : public PixelSource {
 public:
  ConicGradientSource(const CGGradient& gradient, CGPoint center, CGFloat angle,
                      const CGAffineTransform& toDevice, Scratch& scratch);
  bool isDrawable() const { return drawable_; }
  void pixels(int x, int y, std::size_t count, std::uint8_t* rgba) const override;

 private:
  Ramp table_{};
  CGAffineTransform toCentered_;
  double angle_;
  bool drawable_ = false;
};

}  // namespace glyphwright::raster
