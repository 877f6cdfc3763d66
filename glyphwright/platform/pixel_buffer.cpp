#include <glyphwright/platform/pixel_buffer.h>

#include <algorithm>
#include <array>
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

// 2²⁴ ÷ alpha, rounded up. Products with it have the exact quotient in their upper byte as long as
// the dividend is below 2¹⁶ and the quotient below 256.
constexpr std::array<std::uint32_t, 256> kInverse = [] {
  std::array<std::uint32_t, 256> table{};
  for (std::uint32_t alpha = 1; alpha < 256; ++alpha) {
    table[alpha] = ((1U << 24) + alpha - 1) / alpha;
  }
  return table;
}();

void divideByAlpha(std::uint8_t* pixel) {
  const std::uint32_t alpha = pixel[3];
  for (int c = 0; c < 3; ++c) {
    const std::uint32_t held = std::min<std::uint32_t>(pixel[c], alpha);
    pixel[c] = static_cast<std::uint8_t>((held * 255 + alpha / 2) * kInverse[alpha] >> 24);
  }
}

// Most pixels are opaque or clear, mostly with their neighbours, and all of these stay what they
// are.
void makeStraight(std::uint8_t* to, const std::uint8_t* from, std::size_t count) {
  if (to != from) std::memcpy(to, from, count * 4);
  constexpr std::size_t kTogether = 8;
  constexpr auto kAlphas =
      std::bit_cast<std::uint64_t>(std::array<std::uint8_t, 8>{0, 0, 0, 255, 0, 0, 0, 255});
  for (std::size_t part = 0; count > 0; count -= part, to += part * 4) {
    part = std::min(count, kTogether);
    if (part == kTogether) {
      std::array<std::uint64_t, kTogether / 2> pairs;
      std::memcpy(pairs.data(), to, sizeof(pairs));
      const std::uint64_t any = pairs[0] | pairs[1] | pairs[2] | pairs[3];
      const std::uint64_t all = pairs[0] & pairs[1] & pairs[2] & pairs[3];
      if ((any & kAlphas) == 0 || (all & kAlphas) == kAlphas) continue;
    }
    for (std::size_t i = 0; i < part; ++i) {
      const std::uint8_t alpha = to[i * 4 + 3];
      if (alpha != 0 && alpha != 255) divideByAlpha(to + i * 4);
    }
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
      makeStraight(to, from, count);
      break;
    case PixelFormat::straightBGRA:
      makeStraight(to, from, count);
      exchangeRedAndBlue(to, to, count);
      break;
  }
}

}  // namespace glyphwright
