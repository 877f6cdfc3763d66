#pragma once

#include <cstddef>
#include <cstdint>
#include <ostream>
#include <span>

#include <gtest/gtest.h>

#include <glyphwright/platform/context.h>
#include <glyphwright/platform/image.h>
#include <glyphwright/platform/vantel_kit.h>

/// Drawing small pictures, and looking at their pixels.
namespace glyphwright::pixels {

/// One premultiplied pixel.
struct Rgba {
  int red = 0;
  int green = 0;
  int blue = 0;
  int alpha = 0;

  friend bool operator==(const Rgba&, const Rgba&) = default;
};

inline std::ostream& operator<<(std::ostream& out, const Rgba& p) {
  return out << '(' << p.red << ' ' << p.green << ' ' << p.blue << ' ' << p.alpha << ')';
}

inline constexpr Rgba kNone{};
inline constexpr Rgba kBlack{0, 0, 0, 255};
inline constexpr Rgba kWhite{255, 255, 255, 255};
inline constexpr Rgba kRed{255, 0, 0, 255};
inline constexpr Rgba kGreen{0, 255, 0, 255};
inline constexpr Rgba kBlue{0, 0, 255, 255};

inline constexpr UIColor red(1, 0, 0, 1);
inline constexpr UIColor green(0, 1, 0, 1);
inline constexpr UIColor blue(0, 0, 1, 1);
inline constexpr UIColor clear(0, 0, 0, 0);

/// What `draw` leaves in a clear context, which it is given; at scale 0 at the screen's.
template <typename Draw>
UIImage drawn(CGSize size, CGFloat scale, Draw draw) {
  return UIImage::render(size, scale, [&](CGContext& context) { draw(&context); })
      .value_or(UIImage());
}

/// The pixel in a column and a row; none outside the image.
inline Rgba at(const UIImage& image, std::size_t column, std::size_t row) {
  const CGImage& pixels = image.cgImage();
  if (column >= pixels.pixelWidth() || row >= pixels.pixelHeight()) return {};
  const std::size_t first = (row * pixels.pixelWidth() + column) * 4;
  const std::span<const std::uint8_t> rgba = pixels.rgba();
  return {rgba[first], rgba[first + 1], rgba[first + 2], rgba[first + 3]};
}

/// A box of whole pixels; the maxima are excluded.
struct Box {
  std::size_t minX = 0;
  std::size_t minY = 0;
  std::size_t maxX = 0;
  std::size_t maxY = 0;

  friend bool operator==(const Box&, const Box&) = default;
};

inline std::ostream& operator<<(std::ostream& out, const Box& b) {
  return out << b.minX << ".." << b.maxX << " x " << b.minY << ".." << b.maxY;
}

/// The box around all pixels that `picks` accepts; all zero when there is none.
template <typename Picks>
Box boxAround(const UIImage& image, Picks picks) {
  Box box;
  bool any = false;
  for (std::size_t y = 0; y < image.cgImage().pixelHeight(); ++y) {
    for (std::size_t x = 0; x < image.cgImage().pixelWidth(); ++x) {
      if (!picks(at(image, x, y))) continue;
      if (!any) box = {x, y, x + 1, y + 1};
      any = true;
      if (x < box.minX) box.minX = x;
      if (x >= box.maxX) box.maxX = x + 1;
      if (y >= box.maxY) box.maxY = y + 1;
    }
  }
  return box;
}

inline Box paintedBox(const UIImage& image) {
  return boxAround(image, [](const Rgba& p) { return p.alpha > 0; });
}

/// The largest difference between the bytes of two images of the same pixel size; 256 otherwise.
inline int largestDifference(const UIImage& a, const UIImage& b) {
  if (a.cgImage().pixelWidth() != b.cgImage().pixelWidth() ||
      a.cgImage().pixelHeight() != b.cgImage().pixelHeight()) {
    return 256;
  }
  const std::span<const std::uint8_t> left = a.cgImage().rgba();
  const std::span<const std::uint8_t> right = b.cgImage().rgba();
  int largest = 0;
  for (std::size_t i = 0; i < left.size(); ++i) {
    const int difference = left[i] < right[i] ? right[i] - left[i] : left[i] - right[i];
    if (difference > largest) largest = difference;
  }
  return largest;
}

inline void expectSamePixels(const UIImage& a, const UIImage& b) {
  EXPECT_EQ(a.size(), b.size());
  EXPECT_EQ(a.scale(), b.scale());
  EXPECT_EQ(largestDifference(a, b), 0);
}

/// Sets the main screen's scale for one scope.
class ScreenScale {
 public:
  explicit ScreenScale(CGFloat scale) : before_(VantelKit::Screen::scale()) {
    VantelKit::Screen::setScale(scale);
  }
  ~ScreenScale() { VantelKit::Screen::setScale(before_); }
  ScreenScale(const ScreenScale&) = delete;
  ScreenScale& operator=(const ScreenScale&) = delete;

 private:
  CGFloat before_;
};

}  // namespace glyphwright::pixels
