#pragma once

#include <glyphwright/platform/graphics_context.h>
#include <glyphwright/platform/raster/stroke.h>

/// What contexts paint of paths.
namespace glyphwright {

/// A colour, its alpha times `alpha`, as the raster takes it.
raster::SolidColor solidColor(const CGColor& color, CGFloat alpha);
raster::Paint solidPaint(const CGColor& color, CGFloat alpha);

/// A path filled in device pixels. Its points stand in the scratch, mapped.
class FilledShape final : public CGContext::Shape {
 public:
  FilledShape(const CGPath& path, const CGAffineTransform& toDevice, raster::FillRule fillRule,
              raster::Scratch& scratch);
  void edges(const raster::PixelRect& region, raster::Scratch& scratch) const override;

 private:
  const CGPath& path_;
};

/// The area of a stroke, as an outline in the scratch, or, where it is too long to be kept, worked
/// out again for its edges.
class StrokedShape final : public CGContext::Shape {
 public:
  /// The bitmap, and as far around it as a stroke can matter.
  struct Shown {
    raster::PixelRect bitmap;
    raster::PixelRect reach;
  };
  /// `mapped` is null, or the box around the path's points, which then stand in the scratch, mapped
  /// by the CTM.
  StrokedShape(const CGPath& path, const StrokeStyle& style, const CGAffineTransform& ctm,
               const Shown& shown, raster::Scratch& scratch,
               const raster::DeviceBox* mapped = nullptr);
  void edges(const raster::PixelRect& region, raster::Scratch& scratch) const override;

 private:
  const CGPath& path_;
  raster::Stroke stroke_;
  bool isWhole_ = true;
};

}  // namespace glyphwright
