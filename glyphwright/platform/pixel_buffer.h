#pragma once

#include <cstddef>
#include <cstdint>

namespace glyphwright {

/// The four bytes of a pixel, first to last in memory. Premultiplied: red, green and blue are
/// multiplied by alpha, as everything is while it is drawn. Straight: they are not, as PNG files
/// have them; what is clear all through is black then.
enum class PixelFormat : std::uint8_t {
  premultipliedRGBA,
  premultipliedBGRA,
  straightRGBA,
  straightBGRA,
};

/// Memory of the caller's for the pixels of a picture, rows top to bottom. It only points there:
/// the memory must stay for as long as it is used.
///
/// What it held before does not matter, and nothing but the width × 4 bytes of each row is touched:
/// it may be a part of a larger picture, which other threads write to at the same time.
struct PixelBuffer {
  /// The first byte of the upper left pixel; it need not be aligned.
  std::uint8_t* pixels = nullptr;
  /// In pixels.
  std::size_t width = 0;
  std::size_t height = 0;
  /// Bytes from a row's start to the next one's; 0: rows without padding.
  std::size_t rowBytes = 0;
  PixelFormat format = PixelFormat::premultipliedRGBA;

  /// Bytes from row to row, with the 0 resolved.
  constexpr std::size_t stride() const { return rowBytes == 0 ? width * 4 : rowBytes; }
  /// Whether there are pixels and rows do not overlap.
  constexpr bool isUsable() const {
    return pixels != nullptr && width > 0 && height > 0 && stride() / 4 >= width;
  }
};

/// Writes `count` premultiplied RGBA pixels in another format. Straight colour is rounded to the
/// nearest; `to` may be `from`, and otherwise they must not overlap.
void convertPixels(std::uint8_t* to, const std::uint8_t* from, std::size_t count,
                   PixelFormat format);

}  // namespace glyphwright
