#pragma once

#include <glyphwright/platform/raster/kernels.h>
#include <glyphwright/platform/raster/stroke_pen.h>

namespace glyphwright::raster {

/// Draws both sides of cubics: nearly all with the loops, eight samples at a time; those that bend
/// more tightly than the pen, turn by a right angle or more, or have no direction at an end, with
/// care. The corners between `start` and the end are put down, without both of these.
class StrokeCurves {
 public:
  /// `tolerance` is in the pen's space. Without kernels, all curves are drawn with care; the loops
  /// want the pen's space to be device pixels.
  StrokeCurves(const StrokePen& pen, double tolerance, const Kernels* kernels);

  /// Takes the curve on: false when it has no length, and nothing is to be drawn.
  bool begin(pen::Vector p0, pen::Vector p1, pen::Vector p2, pen::Vector p3);
  const pen::SegmentEnd& start() const { return start_; }
  /// Draws it.
  void draw();
  /// The end of the curve that was drawn last.
  const pen::SegmentEnd& end() const { return end_; }

 private:
  bool prepareFast();
  bool drawFast();
  bool prepareCareful();
  void drawCareful();
  int carefulCount() const;

  const StrokePen& pen_;
  const Kernels* kernels_;
  double tolerance_;
  float bendFactor_;
  float turnFactor_;
  pen::Vector p_[4];
  StrokeCurve curve_{};
  bool isFast_ = false;
  pen::SegmentEnd start_;
  pen::SegmentEnd end_;
};

}  // namespace glyphwright::raster
