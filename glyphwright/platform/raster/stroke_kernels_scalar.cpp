#include <cmath>

#include <glyphwright/platform/raster/stroke_kernels_scalar.h>

namespace glyphwright::raster::scalar {

// A side of the stroke is q = p + s·n, where n is the unit normal to the left and s half the pen's
// width or its negative. With k = p''·n and the curvature κ = k/|p'|², q runs along the curve at
// |p'|·(1 − s·κ) and bends by q''·n = k·(1 − s·κ). Where s·κ passes one, the side runs backwards.
//
// Chords of a curve lose area to its hollow side; as in filling, samples move out of the hollow by
// h²·q''/12, so that the area is kept. Along the curve that makes no difference, so only s changes.
bool strokeCurve(const StrokeCurve& c, const StrokeCorners& out) {
  const float h = 1.0F / static_cast<float>(c.count);
  const float lift = h * h * 0.5F;           // of a·t + u, which is a sixth of p''
  const float pen = c.half * (2.0F / 3.0F);  // likewise, over the square of a third of p'
  bool follows = true;
  for (int k = 0; k < c.count; ++k) {
    const float number = static_cast<float>(k + 1);
    const float t = number * h;
    const float atX = c.changeX * t;
    const float atY = c.changeY * t;
    const float x = ((atX + 3.0F * c.bendX) * t + 3.0F * c.legX) * t + c.startX;
    const float y = ((atY + 3.0F * c.bendY) * t + 3.0F * c.legY) * t + c.startY;
    const float alongX = (atX + 2.0F * c.bendX) * t + c.legX;
    const float alongY = (atY + 2.0F * c.bendY) * t + c.legY;
    const float inverse = 1.0F / std::sqrt(alongX * alongX + alongY * alongY);
    const float normalX = alongY * inverse;
    const float normalY = -(alongX * inverse);
    const float bend = (atX + c.bendX) * normalX + (atY + c.bendY) * normalY;
    const float turn = pen * bend * (inverse * inverse);  // half the width times the curvature
    follows = follows && (std::fabs(turn) <= 1.0F);
    const float out1 = bend * lift;
    const float out2 = out1 * turn;
    const float left = c.half - out1 + out2;
    const float right = c.half + out1 + out2;
    out.leftX[k] = x + normalX * left;
    out.leftY[k] = y + normalY * left;
    out.rightX[k] = x - normalX * right;
    out.rightY[k] = y - normalY * right;
  }
  return follows;
}

}  // namespace glyphwright::raster::scalar
