#pragma once

#include <vector>

#include <glyphwright/platform/geometry.h>
#include <glyphwright/platform/raster/stroke_pen.h>

namespace glyphwright::raster {

/// Draws both sides of cubics of any kind: those that bend more tightly than the pen, turn back
/// within themselves or have a cusp. They are cut into even pieces, and those that turn by too much
/// in halves until each of them is straight enough.
class BentCurve {
 public:
  /// What is known of a curve: its unit directions at both ends, how far its neighbours' corners
  /// reach into it, and what becomes of its hollow side.
  struct Known {
    pen::Vector first;
    pen::Vector last;
    double firstReach;
    double lastReach;
    StrokePen::Hollow hollow;
  };

  BentCurve(const StrokePen& pen, double tolerance);

  /// Puts down the corners of both sides, without those of the ends. The four points may not all
  /// be one.
  void draw(const CGPoint* points, const Known& known) const;

 private:
  struct Piece;

  void cutEvenly(const Piece& whole, pen::Vector direction) const;
  void halve(const Piece& piece, int depth) const;
  void endPiece(const Piece& piece) const;

  const StrokePen& pen_;
  double tolerance_;
  double mostTurn_;  // of a piece
};

}  // namespace glyphwright::raster
