#include <glyphwright/platform/image.h>

#include <algorithm>

namespace glyphwright {

CGImage::CGImage(std::size_t pixelWidth, std::size_t pixelHeight,
                 std::span<const std::uint8_t> rgba) {
  const std::size_t bytes = pixelWidth * pixelHeight * 4;
  if (pixelWidth == 0 || pixelHeight == 0 || rgba.size() / 4 / pixelWidth < pixelHeight) return;
  auto copy = std::make_shared_for_overwrite<std::uint8_t[]>(bytes);
  std::copy_n(rgba.data(), bytes, copy.get());
  pixels_ = std::move(copy);
  width_ = pixelWidth;
  height_ = pixelHeight;
}

bool CGImage::copyPixels(const PixelBuffer& to) const {
  if (!*this || !to.isUsable() || to.width != width_ || to.height != height_) return false;
  const std::size_t row = width_ * 4;
  for (std::size_t y = 0; y < height_; ++y) {
    convertPixels(to.pixels + y * to.stride(), pixels_.get() + y * row, width_, to.format);
  }
  return true;
}

std::vector<std::uint8_t> CGImage::pixels(PixelFormat format) const {
  std::vector<std::uint8_t> copy(rgba().size());
  copyPixels({copy.data(), width_, height_, 0, format});
  return copy;
}

}  // namespace glyphwright
