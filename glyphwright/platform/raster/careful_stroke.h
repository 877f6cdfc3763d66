#pragma once

#include <span>

#include <glyphwright/platform/path.h>
#include <glyphwright/platform/raster/stroke_pen.h>

namespace glyphwright::raster {

/// Draws one contour of any kind, a move and what follows it, segment by segment. Its points begin
/// with the move's. `tolerance` and points are in the pen's space.
void strokeCarefully(std::span<const PathVerb> verbs, const CGPoint* points, const StrokePen& pen,
                     double tolerance);

}  // namespace glyphwright::raster
