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
  /// How far corners may reach into it where it starts and ends: along the hollow side of its first
  /// and its last chord, or half of that when this is one. Two corners never meet on one side then.
  float* startReach;
  float* endReach;
  /// How wide the sector is that the pen sweeps behind the centre of its bend, if it bends more
  /// tightly than the pen all along.
  float* sector;
  /// How many chords it takes; less than 0, and as many, when it bends more tightly than the pen
  /// where it starts; 0 when chords of even steps would not do: it may have no direction at an end,
  /// bend away from its middle leg by more than a quarter of a turn, or bend more tightly than the
  /// pen in a small part of it.
  std::int32_t* chords;
};

/// Where a curve turns faster than this many times its turn a step, its steps are not even.
inline constexpr float kUnevenTurn = 8;

/// What the sides of curves are made for: half the pen's width, and how wide a piece of a stroke
/// may be missing.
struct SidePen {
  float half;
  float spare;
};

/// Segments `first` to `end` of a contour, and those whose ends come before and after all of them:
/// `first` itself and the last one where there are none. Their nodes are drawn with them or not.
struct SegmentRange {
  std::size_t first;
  std::size_t end;
  std::size_t before;
  std::size_t after;
  bool withNodes;
};

/// How the sides of neighbouring segments are joined.
struct NodePen {
  float half;  // of the pen's width
  /// Directions whose sine has less than this square meet without a join.
  float sameSquare;
  /// Half the square of the miter limit; 0 for joins without miters.
  float halfMiterSquare;
  /// Corners may overrun what they may reach into of a curve by this much: curves that are to run
  /// on from their neighbours seldom do so quite.
  float slack;
  /// And of lines by this part of `half`: directions that are the same differ by the noise of
  /// floats.
  static constexpr float kNoise = 1.0F / 65536;
  /// Segments that turn back by less than this hide the crossing of their inner sides far away.
  static constexpr float kLeastCosine = -0.99F;
  /// And those that turn by less than this run on from one another.
  static constexpr float kBandCosine = 0.99F;
};

/// The corners of one side of a node between two segments: one to three. Where these run on from
/// one another, also twice as far as the band of the one before it (left) or after it (right)
/// reaches from there; 0 elsewhere.
struct NodeSide {
  float x[3];
  std::int32_t count;
  float y[3];
  float band;
};
struct StrokeNode {
  NodeSide left;
  NodeSide right;
};

/// How a curve bends under a pen: less tightly than that; so tightly everywhere that its left or
/// its right side would run backwards all along; or now so and now so.
enum class PenBend : std::uint8_t { follows, foldsLeft, foldsRight, mixed };
inline constexpr float kFoldTurn = 0.8F;  // half the width times the curvature

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

}  // namespace glyphwright::raster
