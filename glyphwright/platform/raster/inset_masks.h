#pragma once

#include <glyphwright/platform/raster/canvas.h>

namespace glyphwright::raster {

/// What an inset shadow is made of, over the region of a shape's edges. It stands in the scratch,
/// where there is one such pair at a time.
struct InsetMasks {
  /// From the scratch's edges. `rule` says what is inside, and `clip`, where not null, cuts that.
  InsetMasks(FillRule rule, const Mask* clip, Scratch& scratch);

  Mask around;  // what the even-odd rule leaves free, which casts the shadow
  Mask inside;  // where it shows
  /// `around` comes straight from the cells; it does not where the winding may be too much for
  /// narrow ones.
  bool isExact = true;
};

}  // namespace glyphwright::raster
