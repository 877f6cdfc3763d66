#pragma once

#include <memory>
#include <vector>

#include <glyphwright/platform/path.h>
#include <glyphwright/platform/raster/canvas.h>

namespace glyphwright::drawing {

/// A path that the clip was intersected with, in device pixels.
class ClipNode {
 public:
  ClipNode(CGPath devicePath, FillRule rule, const raster::PixelRect& bounds,
           std::shared_ptr<const ClipNode> parent)
      : path_(std::move(devicePath)), rule_(rule), bounds_(bounds), parent_(std::move(parent)) {}
  ClipNode(const ClipNode&) = delete;
  ClipNode& operator=(const ClipNode&) = delete;
  /// Ends with its parents one after the other, however many there are.
  ~ClipNode();

  const CGPath& path() const { return path_; }
  FillRule rule() const { return rule_; }
  const raster::PixelRect& bounds() const { return bounds_; }
  bool isSingle() const { return parent_ == nullptr; }

 private:
  friend class ClipMasks;

  CGPath path_;
  FillRule rule_;
  raster::PixelRect bounds_;
  mutable std::shared_ptr<const ClipNode> parent_;
  mutable std::unique_ptr<raster::Mask> mask_;
};

/// Where drawing shows: whole device pixels, and paths beyond that.
struct Clip {
  raster::PixelRect bounds;
  std::shared_ptr<const ClipNode> node;

  void intersect(const raster::PixelRect& area);
  void intersect(CGPath devicePath, FillRule rule);
};

/// Makes the masks of clips when a drawing first needs one, which a gradient painted straight
/// through a single clip never does, and keeps the last few.
class ClipMasks {
 public:
  /// The product of a path's coverage and its parents', over its bounds; it stays for as long as no
  /// other one is asked for. Null for a clip without paths.
  const raster::Mask* maskOf(const Clip& clip, raster::Scratch& scratch);

 private:
  static constexpr std::size_t kKeptBytes = std::size_t{16} << 20;
  static constexpr std::size_t kMostKept = 256;
  void keep(const std::shared_ptr<const ClipNode>& node, std::unique_ptr<raster::Mask> mask);

  std::vector<std::weak_ptr<const ClipNode>> kept_;  // the last one last
  std::size_t keptBytes_ = 0;                        // at most; some may have gone
};

}  // namespace glyphwright::drawing
