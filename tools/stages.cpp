#include "stages.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <stdexcept>

#include <glyphwright/platform/context.h>
#include <glyphwright/platform/drawing/shapes.h>
#include <glyphwright/platform/raster/blur.h>
#include <glyphwright/platform/raster/cell_bands.h>
#include <glyphwright/platform/raster/mask_writer.h>
#include <glyphwright/rendering/bare_strokes.h>

// The only part of the program that looks behind the public headers.
namespace glyphwright::cli {
namespace {

using drawing::Shape;
using raster::Mask;
using raster::PixelRect;

/// The shadow, in pixels.
struct Cast {
  explicit Cast(std::size_t size)
      : down(static_cast<int>(size + 6) / 12), blur(static_cast<int>(size + 4) / 8) {}
  int down;
  int blur;
};

/// Puts the path and half of its pen inside a margin that the shadow needs.
void place(const UIBezierPath& icon, std::size_t size, const Cast& cast, Stages& stages) {
  stages.path = icon.cgPath();
  const bool isStroked = rendering::isBareStrokes(stages.path);
  const CGFloat pen = isStroked ? icon.lineWidth() : 0;
  const CGRect box = icon.bounds();
  const CGFloat side = std::max(box.size.width, box.size.height);
  if (!(side > 0) || !std::isfinite(side)) throw std::runtime_error("its path has no extent");
  const CGFloat scale = static_cast<CGFloat>(size) / (side + pen);
  if (isStroked) {
    stages.pen = {pen * scale, icon.lineCapStyle(), icon.lineJoinStyle(), icon.miterLimit()};
  }
  const int margin = cast.down + cast.blur;
  const auto pixels = [&](CGFloat extent) {
    return static_cast<std::size_t>(std::ceil((extent + pen) * scale - 1e-6) + 2 * margin);
  };
  stages.width = pixels(box.size.width);
  stages.height = pixels(box.size.height);
  const CGFloat inset = margin + pen * scale / 2;
  stages.path.applyTransform(
      {scale, 0, 0, scale, inset - CGRectGetMinX(box) * scale, inset - CGRectGetMinY(box) * scale});
}

Shape shapeOf(const Stages& stages, FillRule rule, const PixelRect& region,
              raster::Scratch& scratch) {
  if (!stages.pen) return {{stages.path, CGAffineTransformIdentity, rule}, scratch};
  return {{stages.path, *stages.pen, CGAffineTransformIdentity, region, region}, scratch};
}

std::vector<DeviceLine> linesOf(const raster::EdgeList& edges) {
  std::vector<DeviceLine> lines;
  lines.reserve(edges.count);
  const auto point = [](float x, std::int32_t y) {
    return CGPoint{x, static_cast<CGFloat>(y) / raster::kUnitsPerPixel};
  };
  for (const raster::Edge& edge : edges.edges()) {
    lines.push_back({point(edge.x0, edge.y0), point(edge.x1, edge.y1)});
  }
  return lines;
}

template <typename Cell>
std::vector<int> cellsOf(raster::ShapeMemory& shape, const raster::Kernels& kernels) {
  const PixelRect& region = shape.edges.region;
  raster::CellBands<Cell> bands(shape.edges, region, shape.cells, kernels);
  std::vector<int> cells;
  for (int row = 0; row < region.height(); ++row) {
    if (row == bands.end()) bands.openNext();
    Cell* const from = bands.cells(row);
    cells.insert(cells.end(), from, from + region.width());
    std::fill_n(from - bands.before(), bands.stride(), Cell{0});
    bands.takeBack(row, 1);
  }
  return cells;
}

std::vector<double> valuesOf(const Mask& mask) {
  std::vector<double> values;
  for (int y = mask.bounds.y0; y < mask.bounds.y1; ++y) {
    for (int x = 0; x < mask.bounds.width(); ++x) {
      values.push_back(static_cast<double>(mask.row(y)[x]) / raster::kOne);
    }
  }
  return values;
}

UIImage paint(const Stages& stages, FillRule rule, const Cast& cast) {
  UIGraphicsBeginImageContextWithOptions(
      {static_cast<CGFloat>(stages.width), static_cast<CGFloat>(stages.height)}, false, 1);
  CGContextRef context = UIGraphicsGetCurrentContext();
  CGContextSetShadowWithColor(context, {0, static_cast<CGFloat>(cast.down)}, cast.blur,
                              UIColor(0, 0, 0, 0.5));
  const UIColor ink(0.1, 0.45, 0.85, 1);
  CGContextSetFillColor(context, ink);
  CGContextSetStrokeColor(context, ink);
  if (stages.pen) {
    CGContextStrokePath(context, stages.path, *stages.pen);
  } else {
    CGContextFillPath(context, stages.path, rule);
  }
  std::optional<UIImage> image = UIGraphicsGetImageFromCurrentImageContext();
  UIGraphicsEndImageContext();
  if (!image) throw std::runtime_error("it is too large to be drawn");
  return *std::move(image);
}

}  // namespace

Stages stagesOf(const UIBezierPath& icon, std::size_t size) {
  Stages stages;
  const Cast cast(size);
  place(icon, size, cast, stages);
  stages.painted = paint(stages, icon.fillRule(), cast);

  const PixelRect all{0, 0, static_cast<int>(stages.width), static_cast<int>(stages.height)};
  raster::Scratch& scratch = raster::threadScratch();
  Shape shape = shapeOf(stages, icon.fillRule(), all, scratch);
  raster::ShapeMemory& memory = shape.edgesWithin(all);
  stages.chords = linesOf(memory.edges);
  stages.cells = raster::isNarrow(memory.edges) ? cellsOf<std::int16_t>(memory, *scratch.kernels)
                                                : cellsOf<std::int32_t>(memory, *scratch.kernels);
  Mask coverage(all);
  raster::MaskWriter covered(coverage, nullptr, *scratch.kernels);
  shape.sweep(all, covered);
  stages.coverage = valuesOf(coverage);
  Mask shadow(all);
  raster::MaskWriter shaded(shadow, nullptr, *scratch.kernels);
  raster::blurRows(coverage, 0, cast.blur, 0, cast.down, all, scratch, shaded);
  stages.shadow = valuesOf(shadow);
  return stages;
}

}  // namespace glyphwright::cli
