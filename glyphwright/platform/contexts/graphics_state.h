#pragma once

#include <optional>

#include <glyphwright/platform/drawing/target.h>

namespace glyphwright::contexts {

/// What save and restore keep.
struct GraphicsState {
  CGAffineTransform transform;
  drawing::Clip clip;
  CGColor fillColor = UIColor::blackColor();
  CGColor strokeColor = UIColor::blackColor();
  CGFloat alpha = 1;
  std::optional<drawing::Shadow> shadow;
};

}  // namespace glyphwright::contexts
