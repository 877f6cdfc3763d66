#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include <glyphwright/platform/color.h>
#include <glyphwright/platform/image.h>

namespace glyphwright::cli {

/// Premultiplied pixels to put images and labels on. Positions are in pixels from the upper left;
/// what falls outside is cut off.
class PixelSheet {
 public:
  PixelSheet(std::size_t width, std::size_t height, const UIColor& ground);

  std::size_t width() const { return width_; }
  std::size_t height() const { return height_; }
  std::span<const std::uint8_t> rgba() const { return pixels_; }

  /// The image over what is there.
  void draw(const CGImage& image, std::size_t x, std::size_t y);
  /// A line of text in the label font, every font pixel a square of `magnification` pixels.
  void write(std::string_view text, std::size_t x, std::size_t y, std::size_t magnification,
             const UIColor& color);

 private:
  void blend(std::size_t x, std::size_t y, std::span<const std::uint8_t, 4> source);

  std::size_t width_;
  std::size_t height_;
  std::vector<std::uint8_t> pixels_;
};

/// The width of a line of text in font pixels.
std::size_t labelWidth(std::string_view text);

}  // namespace glyphwright::cli
