#pragma once

#include <optional>

#include <glyphwright/platform/raster/canvas.h>

namespace glyphwright::drawing {

/// The pixels that drawing goes to: a bitmap's, or a group's, which are made when something is
/// painted.
class Surface {
 public:
  /// A bitmap.
  Surface(const raster::PixelRect& bounds, const raster::SolidColor& ground,
          const raster::PixelMemory& memory)
      : shown_(bounds), reach_(bounds) {
    canvas_.emplace(bounds, ground, memory);
  }
  /// A group, of which `shown` is seen, and `reach` casts a shadow into that.
  Surface(const raster::PixelRect& shown, const raster::PixelRect& reach)
      : shown_(shown), reach_(reach) {}

  /// The canvas, which has all of a region within the reach.
  raster::Canvas& canvasFor(const raster::PixelRect& region);
  /// Null for a group in which nothing has been painted.
  raster::Canvas* canvas() { return canvas_ ? &*canvas_ : nullptr; }
  /// Nothing has been painted, over nothing.
  bool isUntouched() const { return !canvas_ || canvas_->isUntouched(); }
  void clear() { canvas_.reset(); }

 private:
  std::optional<raster::Canvas> canvas_;
  raster::PixelRect shown_;
  raster::PixelRect reach_;
};

}  // namespace glyphwright::drawing
