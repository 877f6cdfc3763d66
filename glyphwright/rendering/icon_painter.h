#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include <glyphwright/bezier_path.h>
#include <glyphwright/platform/image.h>
#include <glyphwright/platform/shadow.h>

namespace glyphwright {
struct IconAttributes;
}

/// The one renderer behind both ways to ask for an icon's image, the attribute dictionary and the
/// attribute record.
namespace glyphwright::rendering {

/// A gradient fill along a line in unit coordinates of the inner box.
struct GradientFill {
  std::span<const UIColor> colors;
  /// One a colour; absent, all at 0 but the last at 1.
  std::optional<std::span<const CGFloat>> stops;
  CGPoint start{0.5, 0};
  CGPoint end{0.5, 1};
};

struct DropShadow {
  CGSize offset;
  CGFloat blur = 0;
  std::optional<UIColor> color;
};

/// A ring around the icon: the shape at full size in one colour, with the icon drawn smaller by
/// `width` on each side over it.
struct Border {
  std::int64_t width = 0;    // in whole points; below 1 there is no ring
  CGFloat outlineWidth = 0;  // of the full-size shape, in points
  UIColor color;
};

/// What to paint, in terms that both surfaces share. It refers to its maker's values and is meant
/// to live for one call.
struct IconPaint {
  enum class ShadowTime : std::uint8_t {
    /// Everything over the background casts the shadow, in the same pass.
    inPass,
    /// The finished image, background included, is drawn once more with the shadow.
    onFinishedImage,
  };

  CGSize size;                           // of the image, in points
  const UIColor* fill = nullptr;         // null: the context's own colour
  const UIColor* background = nullptr;   // null: none, and the image is not opaque
  const UIColor* strokeColor = nullptr;  // null: the context's own colour
  CGFloat strokeWidth = 0;               // 0: one pixel; negative or NaN: no outline
  Border border;
  std::optional<DropShadow> dropShadow;
  const NSShadow* insetShadow = nullptr;
  std::optional<GradientFill> gradient;
  ShadowTime shadowTime = ShadowTime::inPass;
};

/// Whether the path is moved to the origin before it is scaled.
enum class Placement : std::uint8_t { asItIs, fromOrigin };

/// What a record asks for.
IconPaint paintOf(const IconAttributes& attributes);

/// The path painted into an image at a scale in pixels per point (0: the screen scale), in the
/// memory of `reused` where that can be. The path is scaled to the box that the stroke and the drop
/// shadow leave, and centred. The screen is asked once: all that the image is made of has one
/// scale.
UIImage paintIcon(const UIBezierPath& path, Placement placement, const IconPaint& paint,
                  CGFloat scale = 0, UIImage&& reused = {});
/// The same in the caller's memory, at a scale in pixels per point (0: the screen scale). False,
/// and nothing written, unless the buffer is usable and as large as the image. The drop shadow must
/// be cast in the same pass.
bool paintIcon(const UIBezierPath& path, Placement placement, const IconPaint& paint, CGFloat scale,
               const PixelBuffer& into);

}  // namespace glyphwright::rendering
