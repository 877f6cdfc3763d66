#pragma once

#include <optional>

#include <glyphwright/platform/color.h>
#include <glyphwright/platform/drawing/clip.h>
#include <glyphwright/platform/drawing/plan.h>
#include <glyphwright/platform/drawing/surface.h>

namespace glyphwright::drawing {

/// A shadow in device terms.
struct Shadow {
  int dx = 0;
  int dy = 0;
  double blurPixels = 0;
  CGColor color;
};

/// What a drawing meets: pixels, what cuts it, the shadow that it casts, and the ways that it may
/// take.
struct Target {
  Surface& surface;
  const Clip& clip;
  const std::optional<Shadow>& shadow;
  ClipMasks& masks;
  raster::Scratch& scratch;
  Plans plans;

  /// The same through another clip and with another shadow.
  Target through(const Clip& other, const std::optional<Shadow>& cast) const {
    return {surface, other, cast, masks, scratch, plans};
  }
  const raster::Mask* clipMask() const { return masks.maskOf(clip, scratch); }
  /// Whether a fact holds that is the same for every drawing.
  bool holds(Fact fact) const {
    switch (fact) {
      case Fact::unshadowed:
        return !shadow;
      case Fact::unclipped:
        return clip.node == nullptr;
      case Fact::untouched:
        return surface.isUntouched();
      default:
        return false;
    }
  }
};

}  // namespace glyphwright::drawing
