#pragma once

#include <cstddef>

#include <glyphwright/platform/contexts/graphics_context.h>

namespace glyphwright::contexts {

/// Memory of images for contexts to draw into.
struct ImageMemory {
  /// What the image leaves when nobody else holds its pixels, a context drew them, and there are as
  /// many bytes; otherwise nothing, and the context takes memory of its own.
  static raster::PixelMemory leftBy(UIImage&& image, CGSize size, CGFloat scale);
  static CGImage drawn(const raster::PixelRect& bounds, std::shared_ptr<const std::uint8_t[]> rgba);
};

/// A context that is current for the length of a scope, whatever the code in between leaves open.
class Scope {
 public:
  /// Opens a context as UIGraphicsBeginImageContextWithOptions does. `endable` says whether
  /// UIGraphicsEndImageContext may pop it. A size that cannot be drawn gives a context that
  /// ignores drawing.
  Scope(CGSize size, bool opaque, CGFloat scale, bool endable,
        const raster::PixelMemory& memory = {});
  /// In the caller's memory, which must be usable; not drawable either unless the size takes as
  /// many pixels as the buffer has.
  Scope(CGSize size, bool opaque, CGFloat scale, bool endable, const PixelBuffer& into);
  Scope(const Scope&) = delete;
  Scope& operator=(const Scope&) = delete;
  /// Pops this context and everything above it.
  ~Scope();

  /// Never null.
  CGContextRef context() { return &context_; }
  bool isDrawable() const { return context_.isDrawable(); }
  /// What has been drawn so far; an image of the asked size without pixels (negative or NaN sides
  /// read as 0) when it is not drawable.
  UIImage image();
  /// Leaves what has been drawn in the caller's memory, in its format. Nothing is drawn after that.
  void finish(const PixelBuffer& into);

 private:
  CGContext context_;
  std::size_t depth_;
};

}  // namespace glyphwright::contexts
