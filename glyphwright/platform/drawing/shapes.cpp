#include <glyphwright/platform/drawing/shapes.h>

#include <algorithm>
#include <cmath>

#include <glyphwright/platform/raster/coverage.h>
#include <glyphwright/platform/raster/stroke_edges.h>

namespace glyphwright::drawing {

using raster::DeviceBox;
using raster::For;
using raster::PixelRect;
using raster::Scratch;

raster::SolidColor solidColor(const CGColor& color, CGFloat alpha) {
  return raster::solidColor(color.red(), color.green(), color.blue(), color.alpha() * alpha);
}

raster::Paint solidPaint(const CGColor& color, CGFloat alpha) {
  raster::Paint paint;
  paint.color = solidColor(color, alpha);
  return paint;
}

namespace {

// The squared lengths that the axes' units become.
double acrossSquare(const CGAffineTransform& t) {
  return t.a * t.a + t.b * t.b;
}
double downSquare(const CGAffineTransform& t) {
  return t.c * t.c + t.d * t.d;
}

DeviceBox boxUnder(const DeviceBox& box, const CGAffineTransform& ctm) {
  const CGRect to = CGRectApplyAffineTransform(
      {box.minX, box.minY, box.maxX - box.minX, box.maxY - box.minY}, ctm);
  return {CGRectGetMinX(to), CGRectGetMinY(to), CGRectGetMaxX(to), CGRectGetMaxY(to)};
}

// Around what shows, so that nothing that is left out could change how a stroke is cut.
constexpr double kBeyond = 64;

}  // namespace

bool Stroke::staysRound() const {
  const double scaleSquare = acrossSquare(toDevice);
  const double skew = toDevice.a * toDevice.c + toDevice.b * toDevice.d;
  return style.width == 0 || (std::fabs(skew) <= 1e-9 * scaleSquare &&
                              std::fabs(scaleSquare - downSquare(toDevice)) <= 1e-9 * scaleSquare);
}

Shape::Shape(const Fill& fill, Scratch& scratch, For what)
    : path_(fill.path),
      memory_(scratch.lease<raster::ShapeMemory>(what)),
      kernels_(*scratch.kernels),
      points_(&memory_->points),
      box_(raster::mapPoints(fill.path, fill.toDevice, memory_->points)),
      rule_(fill.rule) {}

Shape::Shape(const Stroke& stroke, Scratch& scratch, For what, const Shape* filled)
    : path_(stroke.path),
      memory_(scratch.lease<raster::ShapeMemory>(what)),
      kernels_(*scratch.kernels),
      stroke_({0, stroke.style, 0, CGAffineTransformIdentity, {}}),
      points_(filled == nullptr ? &memory_->points : filled->points_) {
  box_.minX = NAN;
  const CGAffineTransform& ctm = stroke.toDevice;
  const StrokeStyle& style = stroke.style;
  if (!(style.width >= 0) || !std::isfinite(style.width)) return;
  const bool onDevice = stroke.staysRound();
  const DeviceBox mapped =
      filled != nullptr
          ? filled->box_
          : raster::mapPoints(stroke.path, onDevice ? ctm : CGAffineTransformIdentity, *points_);
  const double across = acrossSquare(ctm);
  stroke_->width = style.width == 0 ? 1 : style.width * (onDevice ? std::sqrt(across) : 1);
  if (!(mapped.maxX >= mapped.minX) || !(stroke_->width > 0) || !std::isfinite(stroke_->width)) {
    return;
  }
  const double stretch = onDevice ? 1 : std::sqrt(std::max(across, downSquare(ctm)));
  if (!(stretch > 0)) return;
  stroke_->tolerance = raster::kStrokeTolerance / stretch;
  const auto& [x0, y0, x1, y1] = stroke.reach;
  stroke_->shown = {x0 - kBeyond, y0 - kBeyond, x1 + kBeyond, y1 + kBeyond};
  if (!onDevice) {
    stroke_->toDevice = ctm;
    stroke_->shown = boxUnder(stroke_->shown, CGAffineTransformInvert(ctm));
  }
  raster::StrokeOutline& outline = memory_->outline;
  raster::setOrigin(outline, onDevice ? mapped : boxUnder(mapped, ctm), stroke.bitmap);
  raster::PiecesBox pieces(kernels_);
  isWhole_ = raster::strokeOutline(path_, *points_, *stroke_, kernels_, outline, pieces);
  box_ = isWhole_ ? raster::boxOf(outline, kernels_) : pieces.box();
}

raster::ShapeMemory& Shape::edgesWithin(const PixelRect& region) {
  if (!stroke_) {
    raster::edgesOfPath(path_, *points_, box_, region, raster::kFillTolerance, kernels_,
                        memory_->edges);
    return *memory_;
  }
  raster::OutlineEdges edges(memory_->edges, box_, region, memory_->outline, kernels_);
  if (isWhole_) {
    edges.take(memory_->outline);
  } else {
    raster::strokeOutline(path_, *points_, *stroke_, kernels_, memory_->outline, edges);
  }
  edges.finish();
  return *memory_;
}

void Shape::sweep(const PixelRect& region, raster::RowSink& sink) {
  raster::ShapeMemory& memory = edgesWithin(region);
  raster::sweep(memory.edges, rule_, memory.cells, kernels_, sink);
}

}  // namespace glyphwright::drawing
