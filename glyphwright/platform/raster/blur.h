#pragma once

#include <glyphwright/platform/raster/canvas.h>

namespace glyphwright::raster {

/// How far beyond a shape its shadow reaches, in whole pixels, for a blur radius in pixels.
int blurReach(double blurPixels);

/// Gives rows of the mask blurred by a Gaussian of sigma = blur / 2, cut off at `blur` pixels and
/// normalised, moved by (dx, dy) whole pixels: every row of `area` to the sink, top to bottom.
/// Outside its bounds the mask counts as covered by `around`; neither it nor the area may be empty.
///
/// Small blurs filter the mask itself; from kDirectSigma on, the mask is halved until the sigma
/// falls below it and the result is interpolated, which changes it by less than a level.
void blurRows(const Mask& mask, std::uint16_t around, double blurPixels, int dx, int dy,
              const PixelRect& area, Scratch& scratch, RowSink& sink);

inline constexpr double kDirectSigma = 16;
constexpr bool filtersDirectly(double blurPixels) {
  return blurPixels * 0.5 < kDirectSigma;
}

}  // namespace glyphwright::raster
