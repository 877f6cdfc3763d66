#pragma once

#include <glyphwright/platform/drawing/shapes.h>
#include <glyphwright/platform/drawing/target.h>

namespace glyphwright::drawing {

/// Where something can lie that casts a shadow into the clip's bounds.
raster::PixelRect casterArea(const Shadow& shadow, const raster::PixelRect& clip);

/// Something that casts the target's shadow.
struct Caster {
  /// `alpha` is that of what casts it.
  Caster(const Target& target, const raster::Mask& casterMask, double alpha);

  const raster::Mask& mask;
  raster::PixelRect area;  // of the shadow, within the clip's bounds
  raster::Paint paint;     // of the shadow

  bool shows() const { return !area.isEmpty() && !paint.isClear(); }
};

/// Gives the rows of a caster's shadow over an area to a sink.
void shadowRows(const Target& target, const Caster& caster, const raster::PixelRect& area,
                raster::RowSink& sink);
/// Paints the shadow without what casts it.
void castShadow(const Target& target, const Caster& caster);

/// Paints a shadow and what casts it: its mask holds all of `region`, where it shows. The same as
/// casting the shadow and painting the shape then. In one pass over the pixels; they must be
/// untouched and the clip have no paths, and the shadow shows.
void paintShadowWithCaster(const Target& target, const Caster& caster,
                           const raster::PixelRect& region, const raster::Paint& paint);
/// The same anywhere: each row of the shadow is followed by the caster's while it is at hand.
void paintShadowRowsByTurns(const Target& target, const Caster& caster,
                            const raster::PixelRect& region, const raster::Paint& paint);

}  // namespace glyphwright::drawing
