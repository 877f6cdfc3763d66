#pragma once

#include <cstddef>
#include <cstring>

#include <glyphwright/platform/raster/kernels/folds.h>
#include <glyphwright/platform/raster/kernels/rows.h>

/// Both sides of the segments of strokes, eight samples at a time.
namespace glyphwright::raster::loops {
namespace {

/// Puts down the corners of both sides at the chords' ends but the first, the last one not exact,
/// and tells how the curve bends.
///
/// A side of the stroke is q = p + s·n, where n is the unit normal to the left and s half the pen's
/// width or its negative. With k = p''·n and the curvature κ = k/|p'|², q runs along the curve at
/// |p'|·(1 − s·κ) and bends by q''·n = k·(1 − s·κ). Where s·κ passes one, the side runs backwards.
///
/// Chords of a curve lose area to its hollow side; as in filling, samples move out of the hollow by
/// h²·q''/12, so that the area is kept. Along the curve that makes no difference, so only s
/// changes.
template <typename L>
PenBend sampleSides(const StrokeCubic& c, float halfWidth, int chords, const SideEnds& out) {
  using Floats = typename L::Floats;
  const auto every = [](float v) { return Floats::every(v); };
  const float step = 1.0F / static_cast<float>(chords);
  const Floats h = every(step);
  // Of a·t + u, which is a sixth of p''; and over the square of a third of p'.
  const Floats lift = every(step * step * 0.5F), pen = every(halfWidth * (2.0F / 3.0F));
  const Floats half = every(halfWidth), one = every(1), foldTurn = every(kFoldTurn);
  const Floats changeX = every(c.changeX), changeY = every(c.changeY);
  const Floats bendX = every(c.bendX), bendY = every(c.bendY);
  const Floats legX = every(c.legX), legY = every(c.legY);
  const Floats startX = every(c.startX), startY = every(c.startY);
  Floats number = numbers<Floats>() + one;
  unsigned follows = 0xFF;
  unsigned foldsLeft = 0xFF;
  unsigned foldsRight = 0xFF;
  for (int k = 0; k < chords; k += 8) {
    const Floats t = number * h;
    const Floats atX = changeX * t + bendX, atY = changeY * t + bendY;
    const Floats alongX = (atX + bendX) * t + legX, alongY = (atY + bendY) * t + legY;
    const Floats x = (alongX + legX + (bendX * t + legX)) * t + startX;
    const Floats y = (alongY + legY + (bendY * t + legY)) * t + startY;
    const Floats inverse = one / sqrt(alongX * alongX + alongY * alongY);
    const Floats normalX = alongY * inverse, normalY = -(alongX * inverse);
    const Floats bend = atX * normalX + atY * normalY;
    // Half the width times the curvature.
    const Floats turn = pen * bend * (inverse * inverse);
    const unsigned beyond = chords - k < 8 ? 0xFFU << (chords - k) : 0;
    follows &= bits(abs(turn) <= one) | beyond;
    foldsLeft &= bits(turn >= foldTurn) | beyond;
    foldsRight &= bits(-turn >= foldTurn) | beyond;
    const Floats out1 = bend * lift;
    const Floats out2 = out1 * turn;
    const Floats left = half - out1 + out2, right = half + out1 + out2;
    store(out.leftX + k, x + normalX * left);
    store(out.leftY + k, y + normalY * left);
    store(out.rightX + k, x - normalX * right);
    store(out.rightY + k, y - normalY * right);
    number = number + every(8);
  }
  if (follows == 0xFF) return PenBend::follows;
  if (foldsLeft == 0xFF) return PenBend::foldsLeft;
  return foldsRight == 0xFF ? PenBend::foldsRight : PenBend::mixed;
}

template <typename L>
std::size_t putSides(const StrokeSegments& s, const StrokeNode* nodes, const SegmentRange& range,
                     const SidePen& pen, SideEnds& sides) {
  // Locals stay in registers while floats are stored.
  SideEnds to = sides;
  const auto putFour = [](const NodeSide& corners, float*& x, float*& y) {
    // Whatever the fourth is.
    std::memcpy(x, &corners, 4 * sizeof(float));
    std::memcpy(y, corners.y, 4 * sizeof(float));
    x += corners.count;
    y += corners.count;
  };
  std::size_t i = range.first;
  for (; i < range.end; ++i) {
    const int chords = s.chords[i];
    if (chords == 0) break;
    if (chords != 1) {
      const StrokeCubic& c = s.cubics[i];
      const int count = chords < 0 ? -chords : chords;
      const PenBend bend = sampleSides<L>(c, pen.half, count, to);
      int left = count - 1;
      int right = count - 1;
      // What is known of the start is known long before what the samples tell.
      if (chords < 0 || bend != PenBend::follows) {
        const Fold fold(s, nodes, range, i, pen);
        const bool isMixed = bend != PenBend::foldsLeft && bend != PenBend::foldsRight;
        const bool isLeft = isMixed ? fold.turnsLeft() : bend == PenBend::foldsLeft;
        float* const x = isLeft ? to.leftX : to.rightX;
        float* const y = isLeft ? to.leftY : to.rightY;
        int& corners = isLeft ? left : right;
        if (isMixed ? fold.isShort(isLeft, x, y, count) : fold.isInside()) {
          fold.putMiddle(x, y);
          corners = 1;
        } else if (isMixed) {
          if (!fold.isInsideTwice()) break;
        } else if (fold.isSmall()) {
          fold.putSector(isLeft, x, y);
          corners = 5;
        } else {
          break;
        }
      }
      to.leftX += left;
      to.leftY += left;
      to.rightX += right;
      to.rightY += right;
    }
    if (!range.withNodes) continue;
    putFour(nodes[i].left, to.leftX, to.leftY);
    putFour(nodes[i].right, to.rightX, to.rightY);
  }
  sides = to;
  return i;
}

}  // namespace
}  // namespace glyphwright::raster::loops
