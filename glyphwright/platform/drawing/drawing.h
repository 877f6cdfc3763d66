#pragma once

#include <glyphwright/platform/drawing/shapes.h>
#include <glyphwright/platform/drawing/target.h>

/// From what is asked for to passes over the pixels: every drawing comes through here, or through
/// inset_shadow.h, where its way is chosen (plan.h), and each pass stands in a file of its own.
namespace glyphwright::drawing {

/// Fills or strokes a path with the target's shadow, through its clip.
void paintFill(const Target& target, const Fill& fill, const raster::Paint& paint);
void paintStroke(const Target& target, const Stroke& stroke, const raster::Paint& paint);
/// A path mapped through `placing` and then filled, and stroked over that; the pen is not mapped.
struct FillAndStroke {
  const CGPath& path;
  CGAffineTransform placing;
  FillRule rule;
  raster::Paint fill;
  const StrokeStyle& style;
  raster::Paint stroke;
  CGAffineTransform toDevice;
  raster::PixelRect bitmap;
  raster::PixelRect reach;  // as far as the stroke can matter
};
void paintFillAndStroke(const Target& target, const FillAndStroke& both);
/// Fills a rectangle under a transform to the device.
void paintRect(const Target& target, const CGRect& rect, const CGAffineTransform& toDevice,
               const raster::Paint& paint);
/// Paints a source over whole pixels, through the clip.
void paintArea(const Target& target, const raster::PixelRect& area, const raster::Paint& paint);
/// The same, and the shadow that the source's alpha casts below it.
void paintAreaWithShadow(const Target& target, const raster::PixelRect& area,
                         const raster::Paint& paint);

/// The whole pixels that a rectangle covers exactly; nothing when it cuts through one.
std::optional<raster::PixelRect> wholePixels(const CGRect& rect, const CGAffineTransform& toDevice,
                                             const raster::PixelRect& limit);

}  // namespace glyphwright::drawing
