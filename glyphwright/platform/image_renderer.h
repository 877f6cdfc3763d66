#pragma once

#include <functional>

#include <glyphwright/platform/context.h>

namespace glyphwright {

/// How a renderer's canvas is made.
class UIGraphicsImageRendererFormat {
 public:
  /// The main screen's scale, not opaque.
  static UIGraphicsImageRendererFormat defaultFormat();

  CGFloat scale = 0;    ///< Pixels per point; 0 is the main screen's
  bool opaque = false;  ///< Whether images begin black, not clear.
};

/// What a renderer hands to the drawing actions.
class UIGraphicsImageRendererContext {
 public:
  /// Not owned: good until the actions return.
  explicit UIGraphicsImageRendererContext(CGContextRef context) : context_(context) {}
  /// The canvas, also the current context; ignores drawing when the size cannot be drawn.
  CGContextRef cgContext() const { return context_; }

 private:
  CGContextRef context_;
};

/// Draws images of one size.
class UIGraphicsImageRenderer {
 public:
  /// What draws; called once, before `image` or `draw` returns.
  using Actions = std::function<void(const UIGraphicsImageRendererContext&)>;

  /// `initWithSize:` and `initWithSize:format:` a size in points; without a format, the default one
  /// as it is now. Any size is taken, see `image`.
  explicit UIGraphicsImageRenderer(CGSize size)
      : UIGraphicsImageRenderer(size, UIGraphicsImageRendererFormat::defaultFormat()) {}
  UIGraphicsImageRenderer(CGSize size, UIGraphicsImageRendererFormat format)
      : size_(size), format_(format) {}

  /// `imageWithActions:` runs the actions at once with a fresh canvas as the current context and
  /// gives the image. Changes that the actions leave open do not leak. A size that cannot be drawn
  /// runs them on a context that ignores drawing and gives an image without pixels (negative or
  /// NaN sides read as 0).
  UIImage image(const Actions& actions) const;
  /// The same in the memory of an image that is no longer needed, as long as nobody else holds a
  /// copy of it, the library drew it and it has at least as many pixels; otherwise in new memory.
  /// Fresh memory costs more than most drawings: a loop that draws one picture after the other of
  /// the same size gives each the one before.
  UIImage image(UIImage&& reused, const Actions& actions) const;
  /// The same in the caller's memory. False, and nothing run or written, unless the buffer is
  /// usable and has as many pixels as the size takes at the format's scale: width × scale and
  /// height × scale, rounded up.
  bool draw(const PixelBuffer& into, const Actions& actions) const;

 private:
  CGSize size_;
  UIGraphicsImageRendererFormat format_;
};

}  // namespace glyphwright
