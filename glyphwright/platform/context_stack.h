#pragma once

#include <cstddef>

#include <glyphwright/platform/graphics_context.h>

namespace glyphwright::contexts {

/// A context that is current for the length of a scope, whatever the code in between leaves open.
class Scope {
 public:
  /// Opens a context as UIGraphicsBeginImageContextWithOptions does. `endable` says whether
  /// UIGraphicsEndImageContext may pop it. A size that cannot be drawn gives a context that
  /// ignores drawing.
  Scope(CGSize size, bool opaque, CGFloat scale, bool endable);
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

 private:
  CGContext context_;
  std::size_t depth_;
};

}  // namespace glyphwright::contexts
