#pragma once

#include <memory>
#include <optional>

#include <glyphwright/platform/color.h>
#include <glyphwright/platform/path.h>
#include <glyphwright/platform/raster/canvas.h>

namespace glyphwright {

/// A path that the clip was intersected with, in device pixels. Its mask is made when a drawing
/// first needs one: a gradient painted straight through a single clip never does.
class ClipNode {
 public:
  ClipNode(CGPath devicePath, raster::FillRule rule, const raster::PixelRect& bounds,
           std::shared_ptr<const ClipNode> parent)
      : path_(std::move(devicePath)), rule_(rule), bounds_(bounds), parent_(std::move(parent)) {}

  const CGPath& path() const { return path_; }
  raster::FillRule rule() const { return rule_; }
  const raster::PixelRect& bounds() const { return bounds_; }
  bool isSingle() const { return parent_ == nullptr; }
  /// The product of this path's coverage and its parents', over bounds().
  const raster::Mask& mask(raster::Scratch& scratch) const;

 private:
  CGPath path_;
  raster::FillRule rule_;
  raster::PixelRect bounds_;
  std::shared_ptr<const ClipNode> parent_;
  mutable std::unique_ptr<raster::Mask> mask_;
};

/// Where drawing shows: whole device pixels, and paths beyond that.
struct Clip {
  raster::PixelRect bounds;
  std::shared_ptr<const ClipNode> node;
};

/// A shadow in device terms.
struct ShadowState {
  int dx = 0;
  int dy = 0;
  double blurPixels = 0;
  CGColor color;
};

/// What save and restore keep.
struct GraphicsState {
  CGAffineTransform ctm;
  Clip clip;
  CGColor fillColor = UIColor::blackColor();
  CGColor strokeColor = UIColor::blackColor();
  CGFloat alpha = 1;
  std::optional<ShadowState> shadow;
};

}  // namespace glyphwright
