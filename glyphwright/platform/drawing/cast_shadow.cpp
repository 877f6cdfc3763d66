#include <glyphwright/platform/drawing/cast_shadow.h>

#include <glyphwright/platform/raster/blur.h>

namespace glyphwright::drawing {

using raster::Mask;
using raster::Paint;
using raster::PixelRect;

namespace {

PixelRect moved(const PixelRect& r, int dx, int dy) {
  return {r.x0 + dx, r.y0 + dy, r.x1 + dx, r.y1 + dy};
}

PixelRect blurred(const PixelRect& r, const Shadow& shadow) {
  const int reach = raster::blurReach(shadow.blurPixels);
  return grown(r, reach, reach, reach, reach);
}

}  // namespace

PixelRect casterArea(const Shadow& shadow, const PixelRect& clip) {
  return blurred(moved(clip, -shadow.dx, -shadow.dy), shadow);
}

Caster::Caster(const Target& target, const Mask& casterMask, double alpha)
    : mask(casterMask),
      area(intersection(
          blurred(moved(mask.bounds, target.shadow->dx, target.shadow->dy), *target.shadow),
          target.clip.bounds)),
      paint(solidPaint(target.shadow->color, alpha)) {}

void shadowRows(const Target& target, const Caster& caster, const PixelRect& area,
                raster::RowSink& sink) {
  const Shadow& shadow = *target.shadow;
  raster::blurRows(caster.mask, 0, shadow.blurPixels, shadow.dx, shadow.dy, area, target.scratch,
                   sink);
}

void castShadow(const Target& target, const Caster& caster) {
  if (!caster.shows()) return;
  raster::Canvas::Painter painter(target.surface.canvasFor(caster.area), caster.area, caster.paint,
                                  target.clipMask(), target.scratch);
  shadowRows(target, caster, caster.area, painter);
  painter.finish();
}

}  // namespace glyphwright::drawing
