#pragma once

#include <glyphwright/platform/drawing/shapes.h>
#include <glyphwright/platform/drawing/target.h>

namespace glyphwright::drawing {

/// A shape of one colour, its edges within a region, and the box around it.
struct SolidShape {
  raster::ShapeMemory& shape;
  const raster::DeviceBox& box;
  FillRule rule;
  const raster::Paint& paint;
};

/// Whether the cells of two shapes hold all that a pass over both asks of them: those right of a
/// region that cuts its shape hold nothing of use.
bool areUncut(const SolidShape& below, const SolidShape& above);

/// Paints one shape and another one over it, the same as one after the other. In one pass over the
/// pixels: they must be untouched, the clip have no paths, and the shapes be narrow and uncut.
void paintStrokeWithFill(const Target& target, const SolidShape& below, const SolidShape& above);
/// The same over anything: a few rows of the one below, and then of the one above while they are
/// at hand.
void paintStrokeRowsByTurns(const Target& target, const SolidShape& below, const SolidShape& above);

}  // namespace glyphwright::drawing
