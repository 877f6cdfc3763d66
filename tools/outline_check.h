#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include <glyphwright/platform/path.h>

/// Facts about an outline that the rules of drawing speak of, measured on the geometry alone. Pure
/// functions; curves are flattened to chords within 1/20000 of the outline's longer side.
namespace glyphwright::outline_check {

/// One subpath that has at least one segment.
struct Contour {
  /// The flattened points without consecutive duplicates; the closing edge from the last to the
  /// first is implied. The last point differs from the first.
  std::vector<CGPoint> points;
  std::size_t lines = 0;
  std::size_t curves = 0;
  /// Ends with a close.
  bool isClosed = false;
  /// The last segment before the close comes back to the first point by itself.
  bool returnsExplicitly = false;
  /// In square points; positive when the contour runs clockwise on screen.
  double signedArea = 0;
  /// How many other contours lie around this one, if no two cross.
  std::size_t depth = 0;
};

/// Two edges that meet where they must not: of one contour (first == second) or of two.
struct Meeting {
  std::size_t first = 0;
  std::size_t second = 0;
  CGPoint point;
};

struct Report {
  /// The box around all points, control points included.
  CGRect frame;
  /// The box around the drawn curve itself.
  CGRect ink;
  /// 1/24 of the frame's longer side; in frames more than 2.5 times as long as wide, of the
  /// shorter.
  double unit = 0;
  std::size_t lines = 0;
  std::size_t curves = 0;
  std::vector<Contour> contours;
  std::vector<Meeting> meetings;
  /// The least distance between two contours, wall or gap, in units; nothing for fewer than two.
  std::optional<double> minimumGap;
  /// Coordinates that are not multiples of 1/100. Control points of contours of exactly four curves
  /// (discs and rounded boxes made by the primitives) do not count.
  std::size_t offGridCoordinates = 0;
  /// Segments whose end is their start.
  std::size_t emptyEdges = 0;

  std::size_t openContours() const;
  /// Closed contours that leave their last edge to the close.
  std::size_t impliedReturns() const;
  /// Contours that run against the rule: outer ones clockwise on screen, holes counter-clockwise,
  /// islands in them clockwise again.
  std::size_t wrongWindings() const;
  /// Whether the non-zero and the even-odd rule paint the same: as many turns round each place as
  /// the parity says, 0 or ±1. Only told for outlines without meetings.
  bool looksTheSameUnderBothRules() const;
};

/// All facts about `path`. An empty path, or one with a coordinate that is not finite, gives an
/// empty report.
Report check(const CGPath& path);

/// The contours of `path`, curves flattened to chords no further than `tolerance` points away;
/// moves without a segment give none. Depths are not filled in.
std::vector<Contour> flatten(const CGPath& path, double tolerance);

/// How often `contour` runs round `point`: positive clockwise on screen.
int windingNumber(const Contour& contour, CGPoint point);

}  // namespace glyphwright::outline_check
