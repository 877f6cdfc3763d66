#pragma once

#include <memory>
#include <optional>

#include <glyphwright/platform/color.h>
#include <glyphwright/platform/fill_rule.h>
#include <glyphwright/platform/gradient.h>
#include <glyphwright/platform/image.h>
#include <glyphwright/platform/path.h>
#include <glyphwright/platform/stroke_style.h>

/// Bitmap contexts: a canvas with a graphics state. Every function does nothing on a null context.
/// Coordinates are points through the current transform (CTM); the base transform holds the scale.
namespace glyphwright {

/// What is behind a context; only pointers to it are handed out.
class CGContext;
/// A context as functions take it; null draws nothing.
using CGContextRef = CGContext*;

// State

/// Saves transform, clip, colours, alpha and shadow; the pending path is not part of the state.
void CGContextSaveGState(CGContextRef context);
/// Back to the last save; with nothing saved, nothing happens.
void CGContextRestoreGState(CGContextRef context);
/// Each acts in the current user space: after translate then rotate, a point is rotated first.
void CGContextTranslateCTM(CGContextRef context, CGFloat tx, CGFloat ty);
void CGContextScaleCTM(CGContextRef context, CGFloat sx, CGFloat sy);
void CGContextRotateCTM(CGContextRef context, CGFloat angle);
void CGContextConcatCTM(CGContextRef context, const CGAffineTransform& transform);
/// User space to device pixels; the identity for a null context.
CGAffineTransform CGContextGetCTM(CGContextRef context);
/// The device pixels per point that the context was opened with; 1 for a null context.
CGFloat CGContextGetBaseScale(CGContextRef context);
/// The box around the clip, in user space; null when the clip is empty.
CGRect CGContextGetClipBoundingBox(CGContextRef context);
void CGContextSetFillColor(CGContextRef context, const CGColor& color);
void CGContextSetStrokeColor(CGContextRef context, const CGColor& color);
/// Multiplies everything drawn from now on; clamped to 0…1, NaN counts as 0.
void CGContextSetAlpha(CGContextRef context, CGFloat alpha);
/// Shadow of every later drawing: offset and blur in points of the base space (+y down, untouched
/// by the CTM), sigma = blur / 2. No colour, a clear colour, or no offset and no blur: none. A
/// negative or non-finite blur counts as 0, one beyond kMaxBlurPixels on the device as that; a
/// non-finite offset turns the shadow off.
void CGContextSetShadowWithColor(CGContextRef context, CGSize offset, CGFloat blur,
                                 const std::optional<CGColor>& color);

// The pending path: transformed when added, consumed by the next fill or clip

/// Adds to the pending path.
void CGContextAddPath(CGContextRef context, const CGPath& path);
/// Fills the pending path with the fill colour, by the non-zero or the even-odd rule.
void CGContextFillPath(CGContextRef context);
void CGContextEOFillPath(CGContextRef context);
/// Intersects the clip with the pending path, by the non-zero or the even-odd rule.
void CGContextClip(CGContextRef context);
void CGContextEOClip(CGContextRef context);

// Painting

/// Fills the rectangle with the fill colour and drops the pending path.
void CGContextFillRect(CGContextRef context, const CGRect& rect);
/// Intersects the clip with a rectangle.
void CGContextClipToRect(CGContextRef context, const CGRect& rect);
/// Fills, strokes or clips with a path given at once; the pending path is dropped. Stroking takes
/// its style from `style`, not from the context.
void CGContextFillPath(CGContextRef context, const CGPath& path, FillRule rule);
void CGContextStrokePath(CGContextRef context, const CGPath& path, const StrokeStyle& style);
void CGContextClipToPath(CGContextRef context, const CGPath& path, FillRule rule);
/// Paints the clip with bands perpendicular to start → end. Between them only, unless the options
/// let the end colours run on. Equal or non-finite points paint nothing.
void CGContextDrawLinearGradient(CGContextRef context, const CGGradient& gradient, CGPoint start,
                                 CGPoint end, CGGradientDrawingOptions options);
/// Paints the clip with circles about `center`, location 1 at `radius` and run on beyond; the CTM
/// may make ellipses of them. A radius that is not above 0 or not finite paints nothing.
void CGContextDrawRadialGradient(CGContextRef context, const CGGradient& gradient, CGPoint center,
                                 CGFloat radius);
/// Paints the clip with rays from `center`, location 0 at `angle` radians, clockwise on screen.
void CGContextDrawConicGradient(CGContextRef context, const CGGradient& gradient, CGPoint center,
                                CGFloat angle);
/// The image scaled to the rectangle: bilinear when enlarging, area average when shrinking, an
/// exact copy at 1:1 on whole pixels. Alpha multiplies and is clamped to 0…1.
void CGContextDrawImage(CGContextRef context, const CGRect& rect, const UIImage& image,
                        CGFloat alpha = 1);

/// A group: drawing until the matching end goes to a transparent buffer of its own (alpha 1, no
/// shadow), which is then composed once with the alpha, shadow and clip that held at the begin.
/// Clip and transform changes inside end with it.
void CGContextBeginTransparencyLayer(CGContextRef context);
/// Without an open group, nothing happens.
void CGContextEndTransparencyLayer(CGContextRef context);

// The stack of current contexts, one a thread

/// Opens a bitmap context and makes it current. `scale` 0 is the main screen's. Pixel size is
/// size × scale rounded up. A side that is not above 0 or not finite, or more pixels than
/// kMaxPixelSide a side or kMaxPixels in all, opens a null entry: no current context until it is
/// ended. An opaque context starts black and gives an opaque image.
void UIGraphicsBeginImageContextWithOptions(CGSize size, bool opaque, CGFloat scale);
/// The same, not opaque, scale 1.
void UIGraphicsBeginImageContext(CGSize size);
/// A snapshot; nothing when no image context is on top.
std::optional<UIImage> UIGraphicsGetImageFromCurrentImageContext();
/// Closes the top context if a Begin call opened it, otherwise does nothing.
void UIGraphicsEndImageContext();
/// The context on top of this thread's stack, or null.
CGContextRef UIGraphicsGetCurrentContext();

/// Whole pixels.
struct PixelSize {
  std::size_t width = 0;   ///< 0 where nothing can be drawn.
  std::size_t height = 0;  ///< 0 where nothing can be drawn.

  friend constexpr bool operator==(PixelSize, PixelSize) = default;
};
/// The pixels that an image of `size` points takes at a scale (0: the main screen's), as
/// UIGraphicsBeginImageContextWithOptions opens it; none when it cannot be drawn.
PixelSize pixelSize(CGSize size, CGFloat scale);

inline constexpr CGFloat kMaxPixelSide = 16384;  ///< The longest side of an image.
inline constexpr CGFloat kMaxPixels = 67108864;  ///< The most pixels of an image.
inline constexpr CGFloat kMaxBlurPixels = 1024;  ///< Wider blurs are cut to this.

}  // namespace glyphwright
