#pragma once

#include <optional>

#include <glyphwright/platform/color.h>

namespace glyphwright {

/// The description of a shadow, shared by reference (hold it in a std::shared_ptr).
class NSShadow {
 public:
  /// Offset in points, +x right, +y down; (0, 0) when new.
  CGSize shadowOffset() const { return offset_; }
  void setShadowOffset(CGSize offset) { offset_ = offset; }
  /// Blur radius in points, twice the sigma of the Gaussian; 0 when new. Negative or NaN reads
  /// as 0.
  CGFloat shadowBlurRadius() const { return blur_; }
  void setShadowBlurRadius(CGFloat blur) { blur_ = blur > 0 ? blur : 0; }
  /// Black at alpha 1/3 when new; nothing means no shadow.
  const std::optional<UIColor>& shadowColor() const { return color_; }
  void setShadowColor(std::optional<UIColor> color) { color_ = color; }

 private:
  CGSize offset_;
  CGFloat blur_ = 0;
  std::optional<UIColor> color_ = UIColor::colorWithWhite(0, 1.0 / 3.0);
};

}  // namespace glyphwright
