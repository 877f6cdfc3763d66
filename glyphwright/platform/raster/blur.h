#pragma once

#include <glyphwright/platform/raster/canvas.h>

namespace glyphwright::raster {

/// How far beyond a shape its shadow reaches, in whole pixels, for a blur radius in pixels.
int blurReach(double blurPixels);

/// The mask blurred by a Gaussian of sigma = blur / 2, cut off at `blur` pixels and normalised,
/// moved by (dx, dy) whole pixels, inside `area`. Outside its bounds the mask counts as empty.
///
/// Small blurs filter the mask itself; from kDirectSigma on, the mask is halved until the sigma
/// falls below it and the result is interpolated, which changes it by less than a level.
Mask blurred(const Mask& mask, double blurPixels, int dx, int dy, const PixelRect& area);

inline constexpr double kDirectSigma = 16;

}  // namespace glyphwright::raster
