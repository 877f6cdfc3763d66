#pragma once

#include <cstdint>

#include <glyphwright/platform/geometry.h>
#include <glyphwright/platform/raster/stroke_geometry.h>
#include <glyphwright/platform/raster/stroke_outline.h>
#include <glyphwright/platform/stroke_style.h>

namespace glyphwright::raster {

/// A round pen that draws the corners of an outline: both sides of a point, joins, caps and discs.
/// All that it draws is wound the same way.
class StrokePen {
 public:
  /// `width` (above 0) and `tolerance` are in the pen's space, in which `origin` is that of the
  /// outline's corners, and nothing outside `shown` shows.
  StrokePen(double width, const StrokeStyle& style, double tolerance, const CGPoint& origin,
            const DeviceBox& shown, StrokeOutline& out);

  double half() const { return half_; }
  StrokeOutline& outline() const { return out_; }
  CGLineCap capStyle() const { return style_.cap; }
  CGLineCap foldStyle() const;
  bool hasRoundJoins() const { return style_.join == CGLineJoin::round; }
  /// The joins without their roundings, for the loop that works them out.
  NodePen nodePen() const;
  /// By how much the chords of a curve may turn against each other, in radians.
  double bendTurn() const { return bendTurn_; }
  /// The cosine of the most that it may do in one step.
  double smoothCosine() const { return smoothCosine_; }

  /// Whether all between two places, and as far around them as `reach`, is beyond what shows on one
  /// side of it, so that a straight line between two corners may stand for those between them.
  bool isBeyond(pen::Vector from, pen::Vector to, double reach) const;

  /// Both sides of the line across the path at `at`, which runs in `direction`.
  void across(pen::Vector at, pen::Vector direction) const;
  /// A round join of a segment that ends in the direction `in` and one that starts in `out`, into
  /// both of which corners may reach as far as `reach`.
  void join(pen::Vector at, pen::Vector in, pen::Vector out, double reach) const;
  /// What becomes of the sectors that the pen sweeps behind the centres of bends: they are drawn,
  /// left out because a neighbour's band covers them, or left to run backwards because two do.
  enum class Hollow : std::uint8_t { drawn, leftOut, backwards };
  /// Where small steps along a curve that may bend more tightly than the pen have led to.
  struct Steps {
    pen::PenPlace from;
    Hollow hollow;
    bool isLeftOverCentre = false;  // without a corner on that side yet
    bool isRightOverCentre = false;
  };
  /// Both sides of the next step, without the corners where it begins, which stand already, and
  /// with those where it ends or without.
  void step(Steps& steps, const pen::PenPlace& to, bool withEnd) const;
  /// What a cap adds to the end at `at`, seen along `forward`, as a contour of its own.
  void cap(pen::Vector at, pen::Vector forward, CGLineCap style) const;
  void disc(pen::Vector center) const;

 private:
  void put(OutlineSide& side, pen::Vector p) const;
  // How the diameter across the path turns in a step: its normals to the left, and their sine.
  struct Swing {
    pen::Vector before;
    pen::Vector after;
    double turning = 0;
    double lift = 0;
    bool isSudden = false;
  };
  bool stepSide(OutlineSide& side, double sign, const Swing& swing, const Steps& steps,
                bool isOverCentre, const pen::PenPlace& to, bool withEnd) const;
  void endRing(std::size_t begin) const;
  void turn(OutlineSide& side, pen::Vector center, pen::Vector from, pen::Vector to,
            pen::Vector forward) const;
  void arc(OutlineSide& side, pen::Vector center, pen::Vector from, pen::Vector to) const;
  // Between two unit normals, to be halved some times, and whether it begins or ends a whole one.
  struct Arc {
    pen::Vector from;
    pen::Vector to;
    int halvings;
    bool isFirst;
    bool isLast;
  };
  void halved(OutlineSide& side, pen::Vector center, const Arc& arc, double radius) const;

  double half_;
  const StrokeStyle& style_;
  double tolerance_;
  CGPoint origin_;
  DeviceBox shown_;
  StrokeOutline& out_;
  double arcStepCosine_;
  double sameAngle_;  // directions that are nearer than this meet without a join
  double bendTurn_;
  double smoothCosine_;  // of the most that may do without an arc
};

}  // namespace glyphwright::raster
