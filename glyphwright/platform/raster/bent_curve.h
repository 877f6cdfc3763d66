#pragma once

#include <span>

#include <glyphwright/platform/geometry.h>
#include <glyphwright/platform/raster/stroke_pen.h>

namespace glyphwright::raster {

/// Finds the way along cubics of any kind: those that bend more tightly than the pen, turn back
/// within themselves or have a cusp. They are cut into even pieces, and those that turn by too much
/// in halves until each of them is straight enough.
class BentCurve {
 public:
  /// What is known of a curve: its unit directions at both ends, and how far its neighbours'
  /// corners reach into it.
  struct Known {
    pen::Vector first;
    pen::Vector last;
    double firstReach;
    double lastReach;
  };

  BentCurve(const StrokePen& pen, double tolerance);

  /// Where the pen is to step on its way, both ends of the curve included; they are kept until the
  /// next curve. The four points may not all be one.
  std::span<const PieceEnd> places(const CGPoint* points, const Known& known) const;

 private:
  struct Piece;

  bool isBeyond(const Piece& piece) const;
  void cutEvenly(const Piece& whole, pen::Vector direction) const;
  void halve(const Piece& piece, int depth) const;
  void endPiece(const Piece& piece) const;

  const StrokePen& pen_;
  double tolerance_;
  double mostTurn_;  // of a piece
};

}  // namespace glyphwright::raster
