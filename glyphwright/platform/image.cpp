#include <glyphwright/platform/image.h>

#include <algorithm>

#include <glyphwright/platform/context.h>

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

void UIImage::drawAtPoint(CGPoint point) const {
  drawInRect({point, size_});
}

void UIImage::drawInRect(const CGRect& rect, CGBlendMode blendMode, CGFloat alpha) const {
  switch (blendMode) {
    case CGBlendMode::normal:
      CGContextDrawImage(UIGraphicsGetCurrentContext(), rect, *this, alpha);
      break;
  }
}

}  // namespace glyphwright
