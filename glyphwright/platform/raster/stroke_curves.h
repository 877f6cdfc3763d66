#pragma once

#include <glyphwright/platform/raster/kernels.h>
#include <glyphwright/platform/raster/stroke_pen.h>

namespace glyphwright::raster {

/// Draws both sides of cubics: nearly all with the loops, eight samples at a time; those that turn
/// by more than a third or have no direction at an end, with care. The corners between `start` and
/// the end are put down, without both of these.
class StrokeCurves {
 public:
  /// `tolerance` is in the pen's space. Without kernels, all curves are drawn with care; the loops
  /// want the pen's space to be device pixels.
  StrokeCurves(const StrokePen& pen, double tolerance, const Kernels* kernels);

  /// Prepares the curves whose points the outline lists.
  void prepare();
  /// Takes the listed curve number `index` on: false when it has no length, and nothing is to be
  /// drawn.
  bool begin(std::size_t index);
  const pen::SegmentEnd& start() const { return start_; }
  /// Draws it.
  void draw();
  /// The end of the curve that was drawn last.
  const pen::SegmentEnd& end() const { return end_; }

 private:
  bool drawFast();
  void prepareBent();
  void drawBent();
  bool prepareCareful();
  void drawCareful();
  int carefulCount() const;
  pen::Vector point(int i) const { return {points_[2 * i], points_[2 * i + 1]}; }

  enum class Way : std::uint8_t { fast, bent, careful };

  const StrokePen& pen_;
  const Kernels* kernels_;
  double tolerance_;
  const double* points_ = nullptr;  // of the curve at hand
  const PreparedCurve* prepared_ = nullptr;
  BentCurve bent_{};
  Way way_ = Way::careful;
  pen::SegmentEnd start_;
  pen::SegmentEnd end_;
};

}  // namespace glyphwright::raster
