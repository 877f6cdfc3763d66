#pragma once

#include <glyphwright/platform/raster/canvas.h>

namespace glyphwright::raster {

/// What an inset shadow is made of, over the region of a shape's edges.
struct InsetMasks {
  /// From the shape's edges. `rule` says what is inside, and `clip`, where not null, cuts that.
  InsetMasks(ShapeMemory& shape, FillRule rule, const Mask* clip, Scratch& scratch);

  Lease<MaskMemory> aroundMemory;
  Lease<MaskMemory> insideMemory;
  Mask around;  // what the even-odd rule leaves free, which casts the shadow
  Mask inside;  // where it shows
};

}  // namespace glyphwright::raster
