#pragma once

#include <functional>

#include <glyphwright/platform/context.h>

namespace glyphwright {

/// How a renderer's canvas is made.
class UIGraphicsImageRendererFormat {
 public:
  /// The main screen's scale, not opaque.
  static UIGraphicsImageRendererFormat defaultFormat();

  CGFloat scale = 0;  // pixels per point; 0 is the main screen's
  bool opaque = false;
};

/// What a renderer hands to the drawing actions.
class UIGraphicsImageRendererContext {
 public:
  explicit UIGraphicsImageRendererContext(CGContextRef context) : context_(context) {}
  CGContextRef cgContext() const { return context_; }

 private:
  CGContextRef context_;
};

/// Draws images of one size.
class UIGraphicsImageRenderer {
 public:
  using Actions = std::function<void(const UIGraphicsImageRendererContext&)>;

  explicit UIGraphicsImageRenderer(CGSize size)
      : UIGraphicsImageRenderer(size, UIGraphicsImageRendererFormat::defaultFormat()) {}
  UIGraphicsImageRenderer(CGSize size, UIGraphicsImageRendererFormat format)
      : size_(size), format_(format) {}

  /// `imageWithActions:` runs the actions at once with a fresh canvas as the current context and
  /// gives the image. Changes that the actions leave open do not leak. A size that cannot be drawn
  /// runs them on a context that ignores drawing and gives an image without pixels (negative or
  /// NaN sides read as 0).
  UIImage image(const Actions& actions) const;

 private:
  CGSize size_;
  UIGraphicsImageRendererFormat format_;
};

}  // namespace glyphwright
