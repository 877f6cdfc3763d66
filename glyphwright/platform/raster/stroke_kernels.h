#pragma once

#include <cstddef>
#include <cstdint>

namespace glyphwright::raster {

/// A cubic under a round pen, in pixels from the outline's origin. With the legs l0, l1, l2 between
/// its four points, u = l1 − l0 and a = (l2 − l1) − u:
///   p(t)   = ((a·t + 3u)·t + 3·l0)·t + p0
///   p'(t)  = 3·((a·t + 2u)·t + l0)
///   p''(t) = 6·(a·t + u)
struct StrokeCurve {
  float startX, startY;    // p0
  float legX, legY;        // l0
  float bendX, bendY;      // u
  float changeX, changeY;  // a
  float half;              // of the pen's width
  int count;               // of chords
};

/// Where the corners of both sides go.
struct StrokeCorners {
  float* leftX;
  float* leftY;
  float* rightX;
  float* rightY;
};

/// The box around corners; minima at +∞ and maxima at −∞ when there are none.
struct CornerBox {
  float minX;
  float minY;
  float maxX;
  float maxY;
  bool hasNaN;
};

/// Where corners come to lie: moved by `shift`, inside a region or not.
struct CornerFrame {
  float shiftX, shiftY;
  float width;  // of the region, which begins at 0
  float bottom;
  float top = 0;
};

/// Corners with x in pixels and y in units from the region's corner; both mean nothing outside.
struct PlacedCorners {
  float* x;
  std::int32_t* y;
  std::uint8_t* outside;  // a bit a corner, the lowest first
};

}  // namespace glyphwright::raster
