#pragma once

#include <glyphwright/platform/color.h>
#include <glyphwright/platform/path.h>
#include <glyphwright/platform/raster/canvas.h>
#include <glyphwright/platform/raster/stroke.h>
#include <glyphwright/platform/stroke_style.h>

/// What is drawn of paths.
namespace glyphwright::drawing {

/// A colour, its alpha times `alpha`, as the raster takes it.
raster::SolidColor solidColor(const CGColor& color, CGFloat alpha);
raster::Paint solidPaint(const CGColor& color, CGFloat alpha);

/// A path to be filled under a transform to device pixels.
struct Fill {
  const CGPath& path;
  CGAffineTransform toDevice;
  FillRule rule;
};

/// A path to be stroked, its points and the pen under a transform to device pixels.
struct Stroke {
  const CGPath& path;
  const StrokeStyle& style;
  CGAffineTransform toDevice;
  raster::PixelRect bitmap;
  raster::PixelRect reach;  // as far as it can matter

  /// Under a turn, a mirror or one scale for both axes the pen stays a circle on the device.
  bool staysRound() const;
};

/// An area with edges, in memory that is lent to it.
class Shape {
 public:
  /// One that fills a path.
  Shape(const Fill& fill, raster::Scratch& scratch, raster::For what = raster::For::shape);
  /// The area of a stroke. `filled` is null, or the same path filled, whose points then serve for
  /// both: the pen must stay round and the transforms of the path be the same.
  Shape(const Stroke& stroke, raster::Scratch& scratch, raster::For what = raster::For::shape,
        const Shape* filled = nullptr);

  const raster::DeviceBox& box() const { return box_; }
  FillRule rule() const { return rule_; }
  /// Works out the edges inside a region and gives the memory that they are in.
  raster::ShapeMemory& edgesWithin(const raster::PixelRect& region);
  /// The same, and hands their coverage to a sink.
  void sweep(const raster::PixelRect& region, raster::RowSink& sink);

 private:
  const CGPath& path_;
  raster::Lease<raster::ShapeMemory> memory_;
  const raster::Kernels& kernels_;
  /// None: the path is filled.
  std::optional<raster::Stroke> stroke_;
  std::vector<CGPoint>* points_;
  bool isWhole_ =
      true;  // or the outline is too long to be kept, and worked out again for its edges
  raster::DeviceBox box_;
  FillRule rule_ = FillRule::nonZero;
};

}  // namespace glyphwright::drawing
