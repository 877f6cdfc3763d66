#pragma once

#include <cmath>

#include <glyphwright/platform/raster/stroke_kernels.h>

namespace glyphwright::raster::scalar {

/// A cubic at a parameter.
struct CubicSample {
  CubicSample(const StrokeCubic& c, float t) {
    bendX = c.changeX * t + c.bendX;
    bendY = c.changeY * t + c.bendY;
    const float alongX = (bendX + c.bendX) * t + c.legX;
    const float alongY = (bendY + c.bendY) * t + c.legY;
    x = (alongX + c.legX + (c.bendX * t + c.legX)) * t + c.startX;
    y = (alongY + c.legY + (c.bendY * t + c.legY)) * t + c.startY;
    inverse = 1.0F / std::sqrt(alongX * alongX + alongY * alongY);
    normalX = alongY * inverse;
    normalY = -(alongX * inverse);
  }

  float x;
  float y;
  float bendX;  // a sixth of p''
  float bendY;
  float inverse;  // 3 over the length of p'
  float normalX;  // of length one, to the left
  float normalY;
};

}  // namespace glyphwright::raster::scalar
