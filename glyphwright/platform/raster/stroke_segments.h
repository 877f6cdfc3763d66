#pragma once

#include <array>
#include <cstddef>
#include <span>

#include <glyphwright/platform/path.h>
#include <glyphwright/platform/raster/stroke_outline.h>

/// The segments of a path that is stroked, all as cubics.
namespace glyphwright::raster {

/// Contours of a path: their verbs, and the first of their points.
struct PathStretch {
  std::span<const PathVerb> verbs;
  const CGPoint* points;

  /// Takes as many whole contours off the front as have no more than `most` verbs in all, or the
  /// first one when it has more.
  PathStretch takeContours(std::size_t most);
};

/// Lists the segments of whole contours; gives how many places are taken.
std::size_t listSegments(const PathStretch& contours, StrokeOutline& out);

/// Reads the segments of one contour, one by one.
class SegmentReader {
 public:
  explicit SegmentReader(const PathStretch& contour)
      : next_(contour.verbs.data() + 1),
        end_(contour.verbs.data() + contour.verbs.size()),
        point_(contour.points + 1),
        start_(*contour.points) {}

  /// The next one that leads anywhere; false at the end.
  bool read(CGPoint* cubic);

 private:
  const PathVerb* next_;
  const PathVerb* end_;
  const CGPoint* point_;
  CGPoint start_;
};

}  // namespace glyphwright::raster
