#pragma once

#include <algorithm>
#include <cmath>

#include <glyphwright/platform/geometry.h>

namespace glyphwright::raster {

/// A rectangle of whole device pixels, from x0, y0 up to but not including x1, y1.
struct PixelRect {
  int x0 = 0;
  int y0 = 0;
  int x1 = 0;
  int y1 = 0;

  constexpr int width() const { return x1 - x0; }
  constexpr int height() const { return y1 - y0; }
  constexpr bool isEmpty() const { return x0 >= x1 || y0 >= y1; }
  constexpr bool covers(const PixelRect& other) const {
    return x0 <= other.x0 && y0 <= other.y0 && x1 >= other.x1 && y1 >= other.y1;
  }

  friend constexpr bool operator==(const PixelRect&, const PixelRect&) = default;
};

constexpr PixelRect intersection(const PixelRect& a, const PixelRect& b) {
  return {std::max(a.x0, b.x0), std::max(a.y0, b.y0), std::min(a.x1, b.x1), std::min(a.y1, b.y1)};
}

/// The smallest rectangle around both; neither may be empty.
constexpr PixelRect united(const PixelRect& a, const PixelRect& b) {
  return {std::min(a.x0, b.x0), std::min(a.y0, b.y0), std::max(a.x1, b.x1), std::max(a.y1, b.y1)};
}

constexpr PixelRect grown(const PixelRect& r, int left, int top, int right, int bottom) {
  return {r.x0 - left, r.y0 - top, r.x1 + right, r.y1 + bottom};
}

/// A box in device pixels with fractional edges.
struct DeviceBox {
  double minX = 0;
  double minY = 0;
  double maxX = 0;
  double maxY = 0;
};

/// True when the box lies inside the pixels but for the noise of a path that was scaled to fit
/// them.
inline bool contains(const PixelRect& r, const DeviceBox& box) {
  constexpr double kNoise = 1e-6;  // pixels
  return box.minX >= r.x0 - kNoise && box.minY >= r.y0 - kNoise && box.maxX <= r.x1 + kNoise &&
         box.maxY <= r.y1 + kNoise;
}

/// The pixels that `box` touches, no further out than `limit`. Empty for a box with NaN.
inline PixelRect pixelsTouched(const DeviceBox& box, const PixelRect& limit) {
  if (!(box.maxX >= box.minX) || !(box.maxY >= box.minY)) return {};
  const auto low = [](double v, int from, int to) {
    return v <= from ? from : (v >= to ? to : static_cast<int>(std::floor(v)));
  };
  const auto high = [](double v, int from, int to) {
    return v <= from ? from : (v >= to ? to : static_cast<int>(std::ceil(v)));
  };
  return {low(box.minX, limit.x0, limit.x1), low(box.minY, limit.y0, limit.y1),
          high(box.maxX, limit.x0, limit.x1), high(box.maxY, limit.y0, limit.y1)};
}

}  // namespace glyphwright::raster
