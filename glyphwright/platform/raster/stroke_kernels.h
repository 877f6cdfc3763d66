#pragma once

#include <cstddef>
#include <cstdint>

namespace glyphwright::raster {

/// A cubic in pixels from the outline's origin. With the legs l0, l1, l2 between
/// its four points, u = l1 − l0 and a = (l2 − l1) − u:
///   p(t)   = ((a·t + 3u)·t + 3·l0)·t + p0
///   p'(t)  = 3·((a·t + 2u)·t + l0)
///   p''(t) = 6·(a·t + u)
struct StrokeCubic {
  float startX, startY;    // p0
  float legX, legY;        // l0
  float bendX, bendY;      // u
  float changeX, changeY;  // a
};

/// A cubic under a round pen.
struct StrokeCurve : StrokeCubic {
  float half;  // of the pen's width
  int count;   // of chords
};

/// What cubics are prepared for.
struct CurvePen {
  double originX, originY;  // of the outline
  float half;               // of the pen's width
  // What the chords' number grows with: the roots of its bend in pixels and of the square of its
  // turn in radians, times these.
  float bendFactor;
  float turnFactor;
};

/// A cubic ready to be stroked.
struct PreparedCurve : StrokeCubic {
  const StrokeCubic& cubic() const { return *this; }

  float startAlongX, startAlongY;  // unit vectors along the curve where it starts and ends
  float endAlongX, endAlongY;
  float startLength, endLength;  // of the first and the last of `count` chords, roughly
  /// Of chords; 0 when the curve bends more tightly than the pen from its start on.
  int count;
  /// As many as it takes where it does; 0 when it has no direction at one of its ends, or turns by
  /// more than a third: then nothing else is set.
  int tightCount;
};

/// Where a tightly bent curve goes: its samples with both ends, one more than it has chords, and
/// the corners of both sides, three for each inner sample at most. There is room for three corners
/// and for eight samples more than that.
struct BentCurve {
  float* x;
  float* y;
  float* normalX;
  float* normalY;
  float* leftX;
  float* leftY;
  float* rightX;
  float* rightY;
  std::size_t leftCount = 0;
  std::size_t rightCount = 0;
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
