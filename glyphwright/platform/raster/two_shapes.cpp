#include <glyphwright/platform/raster/two_shapes.h>

#include <algorithm>

#include <glyphwright/platform/raster/cell_bands.h>

namespace glyphwright::raster {
namespace {

bool isNarrow(const SolidShape& shape) {
  return shape.edges.verticalRuns / 2 <= kNarrowWindingLimit && shape.edges.sums.empty();
}

// Cells right of a region that cuts its shape hold nothing of use.
bool endsIn(const PixelRect& area, const SolidShape& shape) {
  const PixelRect& region = shape.edges.region;
  return region.x1 == area.x1 || contains(region, shape.box);
}

}  // namespace

bool paintTogether(Canvas& canvas, const SolidShape& below, const SolidShape& above) {
  const PixelRect area = united(below.edges.region, above.edges.region);
  if (!canvas.isUntouched() || above.rule != FillRule::nonZero || !isNarrow(below) ||
      !isNarrow(above) || !endsIn(area, below) || !endsIn(area, above)) {
    return false;
  }
  Canvas::FreshRows pixels(canvas, area);
  CellBands<std::int16_t> lower(below.edges, area, below.scratch);
  CellBands<std::int16_t> upper(above.edges, area, above.scratch);
  for (int row = 0; row < area.height();) {
    if (row == lower.end()) lower.openNext();
    if (row == upper.end()) upper.openNext();
    const int rows = pixels.rowsAtOnce(std::min(lower.end(), upper.end()) - row);
    const auto cellsOf = [&](const CellBands<std::int16_t>& bands, FillRule rule) {
      return CellRows{bands.cells(row),
                      bands.stride(),
                      bands.touched(row),
                      static_cast<std::size_t>(rows),
                      static_cast<std::size_t>(area.width()),
                      rule,
                      bands.before()};
    };
    std::uint8_t* rgba = pixels.at(area.y0 + row, rows);
    below.scratch.kernels->writeTwoCells(rgba, pixels.rowBytes(), cellsOf(lower, below.rule),
                                         cellsOf(upper, above.rule), below.color, above.color);
    lower.takeBack(row, rows);
    upper.takeBack(row, rows);
    row += rows;
  }
  pixels.finish();
  return true;
}

}  // namespace glyphwright::raster
