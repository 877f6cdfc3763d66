#pragma once

#include <cstdint>
#include <vector>

#include <glyphwright/platform/geometry.h>
#include <glyphwright/platform/gradient.h>
#include <glyphwright/platform/raster/canvas.h>
#include <glyphwright/platform/raster/gradient_ramp.h>

/// Gradients as sources of pixels: each pixel has the colour at its centre.
namespace glyphwright::raster {

/// Bands across a line; `start` and `end` in user space, which `toDevice` maps to pixels.
class LinearGradientSource final : public PixelSource {
 public:
  LinearGradientSource(const CGGradient& gradient, CGPoint start, CGPoint end,
                       CGGradientDrawingOptions options, const CGAffineTransform& toDevice,
                       const Kernels& kernels);
  /// False when the points or the transform give no direction; then nothing is to be painted.
  bool isDrawable() const { return drawable_; }
  void pixels(int x, int y, std::size_t count, std::uint8_t* rgba) const override;
  /// A gradient that runs straight down has rows of one colour, one that runs straight across has
  /// the same row everywhere.
  Rows rows() const override;
  void rowColors(int y, std::span<std::uint32_t> pixels) const override;

 private:
  mutable GradientRamp ramp_;  // it remembers where it was last asked
  bool drawable_ = false;
  // The place at a pixel's centre is base + x·perColumn + y·perRow: 0 at the start, 1 at the end.
  double base_ = 0;
  double perColumn_ = 0;
  double perRow_ = 0;
};

/// Circles about `center`, the last colour at `radius` and beyond.
class RadialGradientSource final : public PixelSource {
 public:
  RadialGradientSource(const CGGradient& gradient, CGPoint center, CGFloat radius,
                       const CGAffineTransform& toDevice, const Kernels& kernels);
  bool isDrawable() const { return drawable_; }
  void pixels(int x, int y, std::size_t count, std::uint8_t* rgba) const override;

 private:
  mutable GradientRamp ramp_;
  std::vector<ColorRun> runs_;
  const Kernels& kernels_;
  CGAffineTransform toUnit_;  // device pixels to a space where the radius is 1
  bool drawable_ = false;
};

/// Rays from `center`, the first colour at `angle` and on clockwise.
class ConicGradientSource final : public PixelSource {
 public:
  ConicGradientSource(const CGGradient& gradient, CGPoint center, CGFloat angle,
                      const CGAffineTransform& toDevice, const Kernels& kernels);
  bool isDrawable() const { return drawable_; }
  void pixels(int x, int y, std::size_t count, std::uint8_t* rgba) const override;

 private:
  mutable GradientRamp ramp_;
  std::vector<ColorRun> runs_;
  const Kernels& kernels_;
  CGAffineTransform toCentered_;  // of any scale
  double origin_ = 0;             // where the first colour is, in turns from 0 to 1
  bool drawable_ = false;
};

}  // namespace glyphwright::raster
