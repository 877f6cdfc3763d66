#include "pixel_sheet.h"

#include <algorithm>
#include <array>

#include "label_font.h"

namespace glyphwright::cli {
namespace {

constexpr std::size_t labelAdvance = labelGlyphWidth + 1;

std::uint8_t byteOf(CGFloat component) {
  return static_cast<std::uint8_t>(std::clamp(component, 0.0, 1.0) * 255 + 0.5);
}

std::array<std::uint8_t, 4> premultiplied(const UIColor& color) {
  const CGFloat alpha = color.alpha();
  return {byteOf(color.red() * alpha), byteOf(color.green() * alpha), byteOf(color.blue() * alpha),
          byteOf(alpha)};
}

}  // namespace

PixelSheet::PixelSheet(std::size_t width, std::size_t height, const UIColor& ground)
    : width_(width), height_(height), pixels_(width * height * 4) {
  const auto pixel = premultiplied(ground);
  for (std::size_t i = 0; i < pixels_.size(); ++i) pixels_[i] = pixel[i % 4];
}

void PixelSheet::blend(std::size_t x, std::size_t y, std::span<const std::uint8_t, 4> source) {
  if (x >= width_ || y >= height_) return;
  const std::span target = std::span(pixels_).subspan((y * width_ + x) * 4).first<4>();
  for (std::size_t c = 0; c < 4; ++c) {
    const unsigned behind = target[c] * (255U - source[3]);
    target[c] = static_cast<std::uint8_t>(std::min(255U, source[c] + (behind + 127) / 255));
  }
}

void PixelSheet::draw(const CGImage& image, std::size_t x, std::size_t y) {
  const std::span<const std::uint8_t> rgba = image.rgba();
  for (std::size_t row = 0; row < image.pixelHeight(); ++row) {
    for (std::size_t column = 0; column < image.pixelWidth(); ++column) {
      const std::size_t at = (row * image.pixelWidth() + column) * 4;
      blend(x + column, y + row, rgba.subspan(at).first<4>());
    }
  }
}

void PixelSheet::write(std::string_view text, std::size_t x, std::size_t y,
                       std::size_t magnification, const UIColor& color) {
  const auto pixel = premultiplied(color);
  const std::size_t rows = labelGlyphHeight * magnification;
  const std::size_t columns = labelGlyphWidth * magnification;
  for (const char character : text) {
    for (std::size_t row = 0; row < rows; ++row) {
      for (std::size_t column = 0; column < columns; ++column) {
        if (labelPixel(character, column / magnification, row / magnification)) {
          blend(x + column, y + row, pixel);
        }
      }
    }
    x += labelAdvance * magnification;
  }
}

std::size_t labelWidth(std::string_view text) {
  return text.empty() ? 0 : text.size() * labelAdvance - 1;
}

}  // namespace glyphwright::cli
