#pragma once

#include <glyphwright/platform/geometry.h>
#include <glyphwright/platform/raster/stroke_pen.h>

namespace glyphwright::raster {

/// Draws both sides of cubics of any kind, sample by sample. The corners between `start` and the
/// end are put down, without both of these.
class CarefulCurve {
 public:
  /// `tolerance` is in the pen's space.
  CarefulCurve(const StrokePen& pen, double tolerance) : pen_(pen), tolerance_(tolerance) {}

  /// Takes a curve on: false when it has no length, and nothing is to be drawn.
  bool begin(const CGPoint& from, const CGPoint& control1, const CGPoint& control2,
             const CGPoint& to);
  const pen::SegmentEnd& start() const { return start_; }
  /// Draws it.
  void draw() const;
  /// The end of the curve.
  const pen::SegmentEnd& end() const { return end_; }

 private:
  const StrokePen& pen_;
  double tolerance_;
  pen::SegmentEnd start_;
  pen::SegmentEnd end_;
};

}  // namespace glyphwright::raster
