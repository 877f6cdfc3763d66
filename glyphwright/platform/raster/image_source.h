#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include <glyphwright/platform/raster/canvas.h>

namespace glyphwright::raster {

/// Premultiplied pixels of an image, row by row without padding.
struct ImagePixels {
  const std::uint8_t* rgba = nullptr;
  int width = 0;
  int height = 0;
};

/// An image under a transform from its pixels to the device's: bilinear where it grows, an area
/// average where it shrinks, the pixels themselves where they meet one to one; clamped at its edge.
class ImageSource final : public PixelSource {
 public:
  ImageSource(const ImagePixels& image, const CGAffineTransform& toDevice, const PixelRect& region);
  bool isDrawable() const { return drawable_; }
  void pixels(int x, int y, std::size_t count, std::uint8_t* rgba) const override;

 private:
  /// The image pixels that make up one device column or row, with weights that sum to one.
  struct Reach {
    int first;
    std::vector<float> weights;
  };
  static Reach reachOf(double from, double to, int limit);

  void copied(int x, int y, std::size_t count, std::uint8_t* rgba) const;
  void upright(int x, int y, std::size_t count, std::uint8_t* rgba) const;
  void turned(int x, int y, std::size_t count, std::uint8_t* rgba) const;
  void addSample(double u, double v, float sums[4]) const;

  ImagePixels image_;
  CGAffineTransform toImage_;
  PixelRect region_;
  enum class Way { copied, upright, turned } way_ = Way::turned;
  bool drawable_ = false;
  int offsetX_ = 0;
  int offsetY_ = 0;
  int samples_ = 1;             // a side, for the turned way
  std::vector<Reach> columns_;  // for the upright way
};

}  // namespace glyphwright::raster
