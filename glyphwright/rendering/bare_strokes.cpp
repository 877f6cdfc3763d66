#include <glyphwright/rendering/bare_strokes.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <span>

namespace glyphwright::rendering {

bool isBareStrokes(const CGPath& path) {
  // Twice the area within each outline's control polygon, without regard to its direction.
  double area = 0;
  double outline = 0;
  CGPoint start;
  CGPoint last;
  std::span<const CGPoint> points = path.points();
  for (const PathVerb verb : path.verbs()) {
    if (verb == PathVerb::move) {
      area += std::fabs(outline);
      outline = 0;
      start = last = points[0];
    } else {
      for (const CGPoint& point : points.first(pointCount(verb))) {
        outline +=
            (last.x - start.x) * (point.y - start.y) - (point.x - start.x) * (last.y - start.y);
        last = point;
      }
    }
    points = points.subspan(pointCount(verb));
  }
  area += std::fabs(outline);
  return !path.isEmpty() && area < 1e-9;
}

CGFloat ownPenWidth(const UIBezierPath& path, CGSize room) {
  // The pen is as wide as `lineWidth` in the path's units, so what has to fit is the box and, half
  // on either side, the pen.
  const CGFloat pen = path.lineWidth();
  const CGSize box = path.bounds().size;
  CGFloat scale = std::numeric_limits<CGFloat>::infinity();
  if (box.width > 0) scale = std::min(scale, room.width / (box.width + pen));
  if (box.height > 0) scale = std::min(scale, room.height / (box.height + pen));
  return std::isfinite(scale) ? std::max(0.0, pen * scale) : 0;
}

bool hasNoStroke(const IconAttributes& attributes) {
  const auto& stroke = attributes.stroke;
  return stroke && stroke->color.alpha() == 0 && stroke->width == 0;
}

}  // namespace glyphwright::rendering
