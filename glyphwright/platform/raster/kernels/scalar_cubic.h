#pragma once

#include <cmath>

#include <glyphwright/platform/raster/stroke_kernels.h>

namespace glyphwright::raster::scalar {

/// A cubic at a parameter.
struct CubicSample {
  CubicSample(const StrokeCubic& c, float t) {
    const float atX = c.changeX * t;
    const float atY = c.changeY * t;
    x = ((atX + 3.0F * c.bendX) * t + 3.0F * c.legX) * t + c.startX;
    y = ((atY + 3.0F * c.bendY) * t + 3.0F * c.legY) * t + c.startY;
    bendX = atX + c.bendX;
    bendY = atY + c.bendY;
    const float alongX = (atX + 2.0F * c.bendX) * t + c.legX;
    const float alongY = (atY + 2.0F * c.bendY) * t + c.legY;
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
