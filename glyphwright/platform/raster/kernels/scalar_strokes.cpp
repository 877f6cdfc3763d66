#include <cmath>
#include <limits>

#include <glyphwright/platform/raster/kernels.h>
#include <glyphwright/platform/raster/kernels/put_sides.h>
#include <glyphwright/platform/raster/kernels/scalar.h>
#include <glyphwright/platform/raster/kernels/scalar_cubic.h>

namespace glyphwright::raster::scalar {

// A side of the stroke is q = p + s·n, where n is the unit normal to the left and s half the pen's
// width or its negative. With k = p''·n and the curvature κ = k/|p'|², q runs along the curve at
// |p'|·(1 − s·κ) and bends by q''·n = k·(1 − s·κ). Where s·κ passes one, the side runs backwards.
//
// Chords of a curve lose area to its hollow side; as in filling, samples move out of the hollow by
// h²·q''/12, so that the area is kept. Along the curve that makes no difference, so only s changes.
namespace {

PenBend sampleSides(const StrokeCubic& c, float half, int chords, const SideEnds& out) {
  const float h = 1.0F / static_cast<float>(chords);
  const float lift = h * h * 0.5F;         // of a·t + u, which is a sixth of p''
  const float pen = half * (2.0F / 3.0F);  // likewise, over the square of a third of p'
  bool follows = true;
  bool foldsLeft = true;
  bool foldsRight = true;
  for (int k = 0; k < chords; ++k) {
    const float number = static_cast<float>(k + 1);
    const CubicSample at(c, number * h);
    const float bend = at.bendX * at.normalX + at.bendY * at.normalY;
    // Half the width times the curvature.
    const float turn = pen * bend * (at.inverse * at.inverse);
    follows = follows && (std::fabs(turn) <= 1.0F);
    foldsLeft = foldsLeft && turn >= kFoldTurn;
    foldsRight = foldsRight && turn <= -kFoldTurn;
    const float out1 = bend * lift;
    const float out2 = out1 * turn;
    const float left = half - out1 + out2;
    const float right = half + out1 + out2;
    out.leftX[k] = at.x + at.normalX * left;
    out.leftY[k] = at.y + at.normalY * left;
    out.rightX[k] = at.x - at.normalX * right;
    out.rightY[k] = at.y - at.normalY * right;
  }
  if (follows) return PenBend::follows;
  if (foldsLeft) return PenBend::foldsLeft;
  return foldsRight ? PenBend::foldsRight : PenBend::mixed;
}

}  // namespace

std::size_t putSides(const StrokeSegments& segments, const StrokeNode* nodes,
                     const SegmentRange& range, const SidePen& pen, SideEnds& sides) {
  return putSidesWith(sampleSides, segments, nodes, range, pen, sides);
}

CornerBox boxCorners(const float* x, const float* y, std::size_t count) {
  constexpr float infinity = std::numeric_limits<float>::infinity();
  CornerBox box{infinity, infinity, -infinity, -infinity, false};
  for (std::size_t i = 0; i < count; ++i) {
    box.minX = x[i] < box.minX ? x[i] : box.minX;
    box.minY = y[i] < box.minY ? y[i] : box.minY;
    box.maxX = x[i] > box.maxX ? x[i] : box.maxX;
    box.maxY = y[i] > box.maxY ? y[i] : box.maxY;
    box.hasNaN = box.hasNaN || std::isnan(x[i]) || std::isnan(y[i]);
  }
  return box;
}

int joinRing(const float* x, const float* y, std::size_t count, const RingShift& shift,
             bool backwards, Edge* edges) {
  int runs = 0;
  bool wasDown = false;
  for (std::size_t i = 0; i + 1 < count; ++i) {
    const std::size_t from = backwards ? i + 1 : i;
    const std::size_t to = backwards ? i : i + 1;
    const auto units = [&](std::size_t k) {
      return static_cast<std::int32_t>((y[k] + shift.y) * kUnitsPerPixel + 0.5F);
    };
    edges[i] = {x[from] + shift.x, x[to] + shift.x, units(from), units(to)};
    const bool isDown = edges[i].y1 > edges[i].y0;
    runs += isDown && !wasDown ? 1 : 0;
    wasDown = isDown;
  }
  return runs;
}

void placeCorners(const float* x, const float* y, std::size_t count, bool backwards,
                  const CornerFrame& frame, const PlacedCorners& out) {
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t from = backwards ? count - 1 - i : i;
    const float atX = x[from] + frame.shiftX;
    const float atY = y[from] + frame.shiftY;
    const bool isInside = atX >= 0 && atX <= frame.width && atY >= 0 && atY <= frame.height;
    out.x[i] = isInside ? atX : 0;
    out.y[i] = isInside ? static_cast<std::int32_t>(atY * kUnitsPerPixel + 0.5F) : 0;
    if (i % 8 == 0) out.outside[i / 8] = 0;
    if (!isInside) out.outside[i / 8] |= static_cast<std::uint8_t>(1 << i % 8);
  }
}

}  // namespace glyphwright::raster::scalar
