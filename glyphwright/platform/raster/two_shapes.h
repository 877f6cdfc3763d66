#pragma once

#include <glyphwright/platform/raster/canvas.h>
#include <glyphwright/platform/raster/coverage.h>
#include <glyphwright/platform/raster/edges.h>
#include <glyphwright/platform/raster/scratch.h>

namespace glyphwright::raster {

/// A shape of one colour. The scratch's edges may be the shape's own.
struct SolidShape {
  const EdgeList& edges;
  const DeviceBox& box;
  FillRule rule;
  const SolidColor& color;
  Scratch& scratch;
};

/// Paints two shapes, neither with an empty region and each with a scratch of its own, one over the
/// other in one pass over the pixels. Gives false, and does nothing, where that is not possible:
/// when the canvas is not clear and new, a shape may wind too often for 16-bit cells, or one is cut
/// off where the other goes on.
bool paintTogether(Canvas& canvas, const SolidShape& below, const SolidShape& above);

}  // namespace glyphwright::raster
