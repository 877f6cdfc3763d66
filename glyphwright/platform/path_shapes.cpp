#include <glyphwright/platform/path_shapes.h>

#include <algorithm>
#include <cmath>

#include <glyphwright/platform/raster/coverage.h>
#include <glyphwright/platform/raster/stroke_edges.h>
#include <glyphwright/platform/raster/two_shapes.h>

namespace glyphwright {

using raster::DeviceBox;
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

FilledShape::FilledShape(const CGPath& path, const CGAffineTransform& toDevice,
                         raster::FillRule fillRule, Scratch& scratch)
    : path_(path) {
  box = raster::mapPoints(path, toDevice, scratch.devicePoints);
  rule = fillRule;
}

void FilledShape::edges(const PixelRect& region, Scratch& scratch) const {
  raster::edgesOfPath(path_, scratch.devicePoints, box, region, raster::kFillTolerance,
                      *scratch.kernels, scratch.edges);
}

namespace {

DeviceBox boxUnder(const DeviceBox& box, const CGAffineTransform& ctm) {
  const CGRect to = CGRectApplyAffineTransform(
      {box.minX, box.minY, box.maxX - box.minX, box.maxY - box.minY}, ctm);
  return {CGRectGetMinX(to), CGRectGetMinY(to), CGRectGetMaxX(to), CGRectGetMaxY(to)};
}

// Under a turn, a mirror or one scale for both axes the pen stays a circle on the device.
bool staysRound(const StrokeStyle& style, const CGAffineTransform& ctm) {
  const double scaleSquare = ctm.a * ctm.a + ctm.b * ctm.b;
  const double skew = ctm.a * ctm.c + ctm.b * ctm.d;
  const double other = ctm.c * ctm.c + ctm.d * ctm.d;
  return style.width == 0 || (std::fabs(skew) <= 1e-9 * scaleSquare &&
                              std::fabs(scaleSquare - other) <= 1e-9 * scaleSquare);
}

// Around what shows, so that nothing that is left out could change how a stroke is cut.
constexpr double kBeyond = 64;

}  // namespace

StrokedShape::StrokedShape(const CGPath& path, const StrokeStyle& style,
                           const CGAffineTransform& ctm, const Shown& shown, Scratch& scratch,
                           const DeviceBox* mapped)
    : path_(path), stroke_{0, style, 0, CGAffineTransformIdentity, {}} {
  box.minX = NAN;
  if (!(style.width >= 0) || !std::isfinite(style.width)) return;
  const bool onDevice = staysRound(style, ctm);
  const DeviceBox points = onDevice && mapped != nullptr
                               ? *mapped
                               : raster::mapPoints(path, onDevice ? ctm : CGAffineTransformIdentity,
                                                   scratch.devicePoints);
  const double scaleSquare = ctm.a * ctm.a + ctm.b * ctm.b;
  const double other = ctm.c * ctm.c + ctm.d * ctm.d;
  stroke_.width = style.width == 0 ? 1 : style.width * (onDevice ? std::sqrt(scaleSquare) : 1);
  if (!(points.maxX >= points.minX) || !(stroke_.width > 0) || !std::isfinite(stroke_.width))
    return;
  const double stretch = onDevice ? 1 : std::sqrt(std::max(scaleSquare, other));
  if (!(stretch > 0)) return;
  stroke_.tolerance = raster::kStrokeTolerance / stretch;
  const auto& [x0, y0, x1, y1] = shown.reach;
  stroke_.shown = {x0 - kBeyond, y0 - kBeyond, x1 + kBeyond, y1 + kBeyond};
  if (!onDevice) {
    stroke_.toDevice = ctm;
    stroke_.shown = boxUnder(stroke_.shown, CGAffineTransformInvert(ctm));
  }
  raster::setOrigin(scratch.outline, onDevice ? points : boxUnder(points, ctm), shown.bitmap);
  raster::PiecesBox pieces(*scratch.kernels);
  isWhole_ = raster::strokeOutline(path, scratch.devicePoints, stroke_, *scratch.kernels,
                                   scratch.outline, pieces);
  box = isWhole_ ? raster::boxOf(scratch.outline, *scratch.kernels) : pieces.box();
}

void StrokedShape::edges(const PixelRect& region, Scratch& scratch) const {
  raster::OutlineEdges edges(scratch.edges, box, region, scratch.outline, *scratch.kernels);
  if (isWhole_) {
    edges.take(scratch.outline);
  } else {
    raster::strokeOutline(path_, scratch.devicePoints, stroke_, *scratch.kernels, scratch.outline,
                          edges);
  }
  edges.finish();
}

namespace contexts {

void fillAndStroke(CGContext& context, const CGPath& path, const CGAffineTransform& placing,
                   bool evenOdd, const StrokeStyle& style) {
  const GraphicsState& state = context.state;
  const raster::Paint fill = solidPaint(state.fillColor, state.alpha);
  const raster::Paint stroke = solidPaint(state.strokeColor, state.alpha);
  // Shadows and clips take each shape as a whole, and other pens want the path in their own space.
  if (!staysRound(style, state.ctm) || fill.isClear() || stroke.isClear() || path.isEmpty() ||
      state.clip.bounds.isEmpty() || state.clip.node != nullptr || state.shadow) {
    CGPath placed = path;
    placed.applyTransform(placing);
    CGContextFillPath(&context, placed, evenOdd);
    CGContextStrokePath(&context, placed, style);
    return;
  }
  context.pendingPath = {};
  Scratch& scratch = raster::threadScratch();
  Scratch& above = scratch.above();
  const FilledShape filled(path, CGAffineTransformConcat(placing, state.ctm),
                           evenOdd ? raster::FillRule::evenOdd : raster::FillRule::nonZero,
                           scratch);
  const PixelRect filledRegion = pixelsTouched(filled.box, state.clip.bounds);
  if (!filledRegion.isEmpty()) filled.edges(filledRegion, scratch);
  above.devicePoints.swap(scratch.devicePoints);
  const StrokedShape stroked(path, style, state.ctm, {context.bounds, context.reach()}, above,
                             &filled.box);
  const PixelRect strokedRegion = pixelsTouched(stroked.box, state.clip.bounds);
  if (!strokedRegion.isEmpty()) stroked.edges(strokedRegion, above);

  if (filledRegion.isEmpty() && strokedRegion.isEmpty()) return;
  raster::Canvas& canvas =
      context.canvasFor(filledRegion.isEmpty()    ? strokedRegion
                        : strokedRegion.isEmpty() ? filledRegion
                                                  : united(filledRegion, strokedRegion));
  if (!filledRegion.isEmpty() && !strokedRegion.isEmpty() &&
      raster::paintTogether(canvas, {scratch.edges, filled.box, filled.rule, fill.color, scratch},
                            {above.edges, stroked.box, stroked.rule, stroke.color, above})) {
    return;
  }
  std::optional<raster::Canvas::Painter> below;
  if (!filledRegion.isEmpty()) {
    below.emplace(canvas, filledRegion, fill, nullptr, scratch);
    below->finish();
    if (strokedRegion.isEmpty()) raster::sweep(scratch.edges, filled.rule, scratch, *below);
  }
  if (strokedRegion.isEmpty()) return;
  raster::Canvas::Painter on(canvas, strokedRegion, stroke, nullptr, above);
  if (below) {
    raster::sweepByTurns({scratch.edges, filled.rule, scratch, *below},
                         {above.edges, stroked.rule, above, on});
  } else {
    raster::sweep(above.edges, stroked.rule, above, on);
  }
  on.finish();
}

}  // namespace contexts
}  // namespace glyphwright
