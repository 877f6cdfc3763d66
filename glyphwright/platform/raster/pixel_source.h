#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace glyphwright::raster {

/// A source of premultiplied pixels for any place on the device.
class PixelSource {
 public:
  /// Fills `rgba` with the pixels from (x, y) to (x + count, y).
  virtual void pixels(int x, int y, std::size_t count, std::uint8_t* rgba) const = 0;
  /// What is known of the rows: each of one colour, all alike, or nothing.
  enum class Rows : std::uint8_t { even, same, vary };
  virtual Rows rows() const { return Rows::vary; }
  /// The premultiplied pixels of the rows from `y` on where each has one colour.
  virtual void rowColors(int y, std::span<std::uint32_t> pixels) const {
    static_cast<void>(y);
    static_cast<void>(pixels);
  }

 protected:
  ~PixelSource() = default;
};

}  // namespace glyphwright::raster
