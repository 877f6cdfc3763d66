#include <glyphwright/platform/drawing/surface.h>

namespace glyphwright::drawing {

raster::Canvas& Surface::canvasFor(const raster::PixelRect& region) {
  // What casts a shadow from beyond the clip is rare, and needs more pixels than what shows.
  const raster::PixelRect& wanted = shown_.covers(region) ? shown_ : reach_;
  if (!canvas_) {
    canvas_.emplace(wanted, raster::SolidColor{});
  } else if (!canvas_->bounds().covers(region)) {
    canvas_->growTo(wanted);
  }
  return *canvas_;
}

}  // namespace glyphwright::drawing
