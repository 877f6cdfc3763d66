#include <glyphwright/platform/drawing/stroke_with_fill.h>

#include <algorithm>

#include <glyphwright/platform/raster/cell_bands.h>

namespace glyphwright::drawing {

using raster::Canvas;
using raster::For;
using raster::PixelRect;
using NarrowBands = raster::CellBands<std::int16_t>;

namespace {

PixelRect areaOf(const SolidShape& below, const SolidShape& above) {
  return united(below.shape.edges.region, above.shape.edges.region);
}

}  // namespace

bool areUncut(const SolidShape& below, const SolidShape& above) {
  const auto endsIn = [right = areaOf(below, above).x1](const SolidShape& s) {
    const PixelRect& region = s.shape.edges.region;
    return region.x1 == right || raster::contains(region, s.box);
  };
  return endsIn(below) && endsIn(above);
}

void paintStrokeWithFill(const Target& target, const SolidShape& below, const SolidShape& above) {
  const raster::Kernels& kernels = *target.scratch.kernels;
  const PixelRect area = areaOf(below, above);
  Canvas::FreshRows pixels(target.surface.canvasFor(area), area);
  NarrowBands lower(below.shape.edges, area, below.shape.cells, kernels);
  NarrowBands upper(above.shape.edges, area, above.shape.cells, kernels);
  for (int row = 0; row < area.height();) {
    if (row == lower.end()) lower.openNext();
    if (row == upper.end()) upper.openNext();
    const int rows = pixels.rowsAtOnce(std::min(lower.end(), upper.end()) - row);
    const auto cellsOf = [&](const NarrowBands& bands, FillRule rule) {
      return raster::CellRows{bands.cells(row),
                              bands.stride(),
                              bands.touched(row),
                              static_cast<std::size_t>(rows),
                              static_cast<std::size_t>(area.width()),
                              rule,
                              bands.before()};
    };
    kernels.writeTwoCells(pixels.at(area.y0 + row, rows), pixels.rowBytes(),
                          cellsOf(lower, below.rule), cellsOf(upper, above.rule), below.paint.color,
                          above.paint.color);
    lower.takeBack(row, rows);
    upper.takeBack(row, rows);
    row += rows;
  }
  pixels.finish();
}

void paintStrokeRowsByTurns(const Target& target, const SolidShape& below,
                            const SolidShape& above) {
  const raster::Kernels& kernels = *target.scratch.kernels;
  Canvas& canvas = target.surface.canvasFor(areaOf(below, above));
  Canvas::Painter lower(canvas, below.shape.edges.region, below.paint, nullptr, target.scratch);
  lower.finish();
  Canvas::Painter upper(canvas, above.shape.edges.region, above.paint, nullptr, target.scratch,
                        For::shapeAbove);
  raster::sweepByTurns({below.shape.edges, below.rule, below.shape.cells, kernels, lower},
                       {above.shape.edges, above.rule, above.shape.cells, kernels, upper});
  upper.finish();
}

}  // namespace glyphwright::drawing
