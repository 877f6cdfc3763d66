#include <glyphwright/platform/color.h>

#include <cmath>

namespace glyphwright {

bool UIColor::getRed(CGFloat* red, CGFloat* green, CGFloat* blue, CGFloat* alpha) const {
  if (!std::isfinite(red_) || !std::isfinite(green_) || !std::isfinite(blue_)) return false;
  if (red) *red = red_;
  if (green) *green = green_;
  if (blue) *blue = blue_;
  if (alpha) *alpha = alpha_;
  return true;
}

}  // namespace glyphwright
