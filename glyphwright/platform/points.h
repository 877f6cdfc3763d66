#pragma once

#include <cstddef>
#include <span>

#include <glyphwright/platform/geometry.h>

/// Loops over the points of paths. All give the same bits on every processor.
namespace glyphwright {

/// The box around points. NaN counts for nothing in it but for the mark; of no points it is from
/// +infinity to −infinity.
struct PointBox {
  double minX;
  double minY;
  double maxX;
  double maxY;
  bool hasNaN;
};

PointBox boxPoints(std::span<const CGPoint> points);
/// Maps points to as many others, which may be the same ones, and gives the box around those.
PointBox mapPoints(std::span<const CGPoint> points, const CGAffineTransform& transform,
                   CGPoint* mapped);

}  // namespace glyphwright
