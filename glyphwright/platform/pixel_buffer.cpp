#include <glyphwright/platform/pixel_buffer.h>

#include <algorithm>
#include <bit>
#include <cstring>

namespace glyphwright {
namespace {

// Changes the places of a pixel's first and third byte. Plain operations on words, which compilers
// turn into vector ones.
void exchangeRedAndBlue(std::uint8_t* to, const std::uint8_t* from, std::size_t count) {
  constexpr std::uint32_t kept =
      std::endian::native == std::endian::little ? 0xFF00FF00 : 0x00FF00FF;
  for (std::size_t i = 0; i < count; ++i) {
    std::uint32_t pixel = 0;
    std::memcpy(&pixel, from + i * 4, sizeof(pixel));
    pixel = (pixel & kept) | std::rotl(pixel & ~kept, 16);
    std::memcpy(to + i * 4, &pixel, sizeof(pixel));
  }
}

// Most pixels are opaque or clear, and both stay what they are.
void divideByAlpha(std::uint8_t* to, const std::uint8_t* from, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i, to += 4, from += 4) {
    const unsigned alpha = from[3];
    if (alpha == 255 || alpha == 0) {
      std::memmove(to, from, 4);
      continue;
    }
    for (int c = 0; c < 3; ++c) {
      to[c] = static_cast<std::uint8_t>(std::min((from[c] * 255U + alpha / 2) / alpha, 255U));
    }
    to[3] = static_cast<std::uint8_t>(alpha);
  }
}

}  // namespace

void convertPixels(std::uint8_t* to, const std::uint8_t* from, std::size_t count,
                   PixelFormat format) {
  switch (format) {
    case PixelFormat::premultipliedRGBA:
      if (to != from) std::memcpy(to, from, count * 4);
      break;
    case PixelFormat::premultipliedBGRA:
      exchangeRedAndBlue(to, from, count);
      break;
    case PixelFormat::straightRGBA:
      divideByAlpha(to, from, count);
      break;
    case PixelFormat::straightBGRA:
      divideByAlpha(to, from, count);
      exchangeRedAndBlue(to, to, count);
      break;
  }
}

}  // namespace glyphwright
