#pragma once

#include <cstddef>
#include <cstdint>

namespace glyphwright::raster {

/// A cubic in pixels from the outline's origin. With the legs l0, l1, l2 between
/// its four points, u = l1 − l0 and a = (l2 − l1) − u:
///   p''(t) = 6·b, b = a·t + u
///   p'(t)  = 3·d, d = (b + u)·t + l0
///   p(t)   = ((d + l0) + (u·t + l0))·t + p0
struct StrokeCubic {
  float startX, startY;    // p0
  float legX, legY;        // l0
  float bendX, bendY;      // u
  float changeX, changeY;  // a
};

/// A control point that is nearer to its end than this part of the middle leg tells no direction:
/// it is moved by as much towards the other one.
inline constexpr float kNudge = 1.0F / 1024;

/// Shorter legs, in pixels squared, are left to those who take care.
inline constexpr float kLeastLeg = 1e-12F;

/// What segments are prepared for.
struct SegmentPen {
  double originX, originY;  // of the outline
  float half;               // of the pen's width
  // What the chords' number grows with: the roots of a curve's bend in pixels and of the square of
  // its turn in radians, times these.
  float bendFactor;
  float turnFactor;
};

/// Lists of what is known of segments, a value for each. Lines are cubics that do not bend.
struct StrokeSegments {
  StrokeCubic* cubics;
  float* startX;  // from the outline's origin
  float* startY;
  float* startAlongX;  // unit vectors along the segment where it starts and ends
  float* startAlongY;
  float* endAlongX;
  float* endAlongY;
  float* startLength;  // of the first and the last of its chords, roughly
  float* endLength;
  /// How many chords it takes; less than 0, and as many, when it bends more tightly than the pen
  /// where it starts; 0 when it has no direction at one of its ends, or bends away from its middle
  /// leg by more than a quarter of a turn: then nothing else is set.
  std::int32_t* chords;
};

/// How the sides of neighbouring segments are joined.
struct NodePen {
  float half;  // of the pen's width
  /// Directions whose sine has less than this square meet without a join.
  float sameSquare;
  /// Half the square of the miter limit; 0 for joins without miters.
  float halfMiterSquare;
};

/// The corners of one side of a node between two segments: one to three.
struct NodeSide {
  float x[3];
  std::int32_t count;
  float y[3];
  float unused;
};
struct StrokeNode {
  NodeSide left;
  NodeSide right;
};

/// How a curve bends under a pen: less tightly than that; so tightly everywhere that its left or
/// its right side would run backwards all along; or now so and now so.
enum class PenBend : std::uint8_t { follows, foldsLeft, foldsRight, mixed };
inline constexpr float kFoldTurn = 0.8F;  // half the width times the curvature

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

/// Where the sides of a contour go on.
struct SideEnds {
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

/// From the outline's origin to a region's corner, in pixels.
struct RingShift {
  float x, y;
};

/// Where corners come to lie: moved by `shift`, inside a region, which begins at 0, or not.
struct CornerFrame {
  float shiftX, shiftY;
  float width;
  float height;
};

/// Corners with x in pixels and y in units from the region's corner; both mean nothing outside.
struct PlacedCorners {
  float* x;
  std::int32_t* y;
  std::uint8_t* outside;  // a bit a corner, the lowest first
};

}  // namespace glyphwright::raster
