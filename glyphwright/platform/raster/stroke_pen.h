#pragma once

#include <glyphwright/platform/geometry.h>
#include <glyphwright/platform/raster/stroke_geometry.h>
#include <glyphwright/platform/raster/stroke_outline.h>
#include <glyphwright/platform/stroke_style.h>

namespace glyphwright::raster {

/// A round pen that draws the corners of an outline: both sides of a point, joins, caps and discs.
class StrokePen {
 public:
  /// `width` (above 0) and `tolerance` are in the pen's space, which `toDevice` maps to pixels.
  StrokePen(double width, const StrokeStyle& style, double tolerance,
            const CGAffineTransform& toDevice, StrokeOutline& out);

  double half() const { return half_; }
  StrokeOutline& outline() const { return out_; }
  CGLineCap capStyle() const { return style_.cap; }
  CGLineCap foldStyle() const;
  bool hasRoundJoins() const { return style_.join == CGLineJoin::round; }
  /// The joins without their roundings, for the loop that works them out.
  NodePen nodePen() const;

  /// Both sides of the line across the path at `at`, which runs in `direction`.
  void across(pen::Vector at, pen::Vector direction) const;
  /// Both sides of the node where one segment ends and the next one starts.
  void join(pen::Vector at, const pen::SegmentEnd& in, const pen::SegmentEnd& out) const;
  /// Both sides of a sample inside a curve that may bend more tightly than the pen.
  void bend(pen::Vector at, pen::Vector normal, const pen::Leg& in, const pen::Leg& out) const;
  /// What a cap adds to the end at `at`, seen along `forward`, as a contour of its own.
  void cap(pen::Vector at, pen::Vector forward, CGLineCap style) const;
  void disc(pen::Vector center) const;

 private:
  void put(OutlineSide& side, pen::Vector p) const;
  void bothSides(pen::Vector at, pen::Vector offset) const;
  void endRing(std::size_t begin) const;
  void arc(OutlineSide& side, pen::Vector center, pen::Vector from, pen::Vector to) const;
  void halved(OutlineSide& side, pen::Vector center, pen::Vector from, pen::Vector to,
              double radius, int halvings) const;
  void halfDisc(OutlineSide& side, pen::Vector center, pen::Vector from, pen::Vector forward) const;
  void outerJoin(OutlineSide& side, pen::Vector at, pen::Vector from, pen::Vector to,
                 pen::Vector forward) const;
  void innerJoin(OutlineSide& side, pen::Vector at, pen::Vector from, pen::Vector to,
                 double shorter) const;

  double half_;
  const StrokeStyle& style_;
  CGAffineTransform toOutline_;
  bool onDevice_;
  StrokeOutline& out_;
  double arcStepCosine_;
  double sameAngle_;      // directions that are nearer than this meet without a join
  double sameDirection_;  // and the cosine of that
};

}  // namespace glyphwright::raster
