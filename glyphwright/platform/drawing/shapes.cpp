#include <glyphwright/platform/drawing/shapes.h>

#include <algorithm>
#include <cmath>

#include <glyphwright/platform/raster/coverage.h>
#include <glyphwright/platform/raster/stroke.h>

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

}  // namespace

bool Stroke::staysRound() const {
  const double scaleSquare = acrossSquare(toDevice);
  const double skew = toDevice.a * toDevice.c + toDevice.b * toDevice.d;
  return style.width == 0 || (std::fabs(skew) <= 1e-9 * scaleSquare &&
                              std::fabs(scaleSquare - downSquare(toDevice)) <= 1e-9 * scaleSquare);
}

Shape::Shape(const Fill& fill, Scratch& scratch, For what)
    : memory_(scratch.lease<raster::ShapeMemory>(what)),
      kernels_(*scratch.kernels),
      filled_(&fill.path),
      box_(raster::mapPoints(fill.path, fill.toDevice, memory_->points)),
      rule_(fill.rule) {}

Shape::Shape(const Stroke& stroke, Scratch& scratch, For what, const Shape* filled)
    : memory_(scratch.lease<raster::ShapeMemory>(what)), kernels_(*scratch.kernels) {
  box_.minX = NAN;
  const CGAffineTransform& ctm = stroke.toDevice;
  const StrokeStyle& style = stroke.style;
  if (!(style.width >= 0) || !std::isfinite(style.width)) return;
  const bool onDevice = stroke.staysRound();
  std::vector<CGPoint>& points = filled == nullptr ? memory_->points : filled->memory_->points;
  const DeviceBox mapped =
      filled != nullptr
          ? filled->box_
          : raster::mapPoints(stroke.path, onDevice ? ctm : CGAffineTransformIdentity, points);
  const double across = acrossSquare(ctm);
  const double width = style.width == 0 ? 1 : style.width * (onDevice ? std::sqrt(across) : 1);
  if (!(mapped.maxX >= mapped.minX) || !(width > 0) || !std::isfinite(width)) return;
  const double stretch = onDevice ? 1 : std::sqrt(std::max(across, downSquare(ctm)));
  if (!(stretch > 0)) return;
  raster::StrokeOutline& outline = memory_->outline;
  raster::setOrigin(outline, onDevice ? mapped : boxUnder(mapped, ctm), stroke.bitmap);
  raster::strokeOutline(stroke.path, points,
                        {width, style, raster::kStrokeTolerance / stretch,
                         onDevice ? CGAffineTransformIdentity : ctm},
                        kernels_, outline);
  box_ = raster::boxOf(outline, kernels_);
}

raster::ShapeMemory& Shape::edgesWithin(const PixelRect& region) {
  if (filled_ != nullptr) {
    raster::edgesOfPath(*filled_, memory_->points, box_, region, raster::kFillTolerance, kernels_,
                        memory_->edges);
  } else {
    raster::edgesOfOutline(memory_->outline, box_, region, kernels_, memory_->edges);
  }
  return *memory_;
}

void Shape::sweep(const PixelRect& region, raster::RowSink& sink) {
  raster::ShapeMemory& memory = edgesWithin(region);
  raster::sweep(memory.edges, rule_, memory.cells, kernels_, sink);
}

}  // namespace glyphwright::drawing
