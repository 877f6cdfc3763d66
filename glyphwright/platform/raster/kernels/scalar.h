#pragma once

#include <glyphwright/platform/raster/kernels.h>

/// The loops in plain words: the text that explains them.
namespace glyphwright::raster::scalar {

#include <glyphwright/platform/raster/kernels/loops.inc>

}  // namespace glyphwright::raster::scalar
