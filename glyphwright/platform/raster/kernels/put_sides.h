#pragma once

#include <cstddef>
#include <cstring>

#include <glyphwright/platform/raster/stroke_kernels.h>

namespace glyphwright::raster {

/// What putSides does in every instruction set, with its own `sample(cubic, half, chords, sides)`:
/// that puts down the corners of both sides at the chords' ends but the first, the last one not
/// exact, and tells how the curve bends. A side that folds may get anything.
template <typename Sample>
std::size_t putSidesWith(const Sample& sample, const StrokeSegments& s, const StrokeNode* nodes,
                         std::size_t first, std::size_t end, float half, SideEnds& sides) {
  // Locals stay in registers while floats are stored.
  SideEnds to = sides;
  const auto putFour = [](const NodeSide& corners, float*& x, float*& y) {
    // Whatever the fourth is.
    std::memcpy(x, &corners, 4 * sizeof(float));
    std::memcpy(y, corners.y, 4 * sizeof(float));
    x += corners.count;
    y += corners.count;
  };
  std::size_t i = first;
  for (; i < end; ++i) {
    const int chords = s.chords[i];
    if (chords != 1) {
      const StrokeCubic& c = s.cubics[i];
      const int count = chords < 0 ? -chords : chords;
      const PenBend bend = sample(c, half, count, to);
      int left = count - 1;
      int right = count - 1;
      // What is known of the start is known long before what the samples tell.
      if (chords < 0 || bend != PenBend::follows) {
        if (bend != PenBend::foldsLeft && bend != PenBend::foldsRight) break;
        const bool isLeft = bend == PenBend::foldsLeft;
        const auto middle = [](float start, float leg, float turn, float change) {
          return ((change * 0.5F + 3.0F * turn) * 0.5F + 3.0F * leg) * 0.5F + start;
        };
        *(isLeft ? to.leftX : to.rightX) = middle(c.startX, c.legX, c.bendX, c.changeX);
        *(isLeft ? to.leftY : to.rightY) = middle(c.startY, c.legY, c.bendY, c.changeY);
        (isLeft ? left : right) = 1;
      }
      to.leftX += left;
      to.leftY += left;
      to.rightX += right;
      to.rightY += right;
    }
    if (nodes == nullptr) continue;
    putFour(nodes[i].left, to.leftX, to.leftY);
    putFour(nodes[i].right, to.rightX, to.rightY);
  }
  sides = to;
  return i;
}

}  // namespace glyphwright::raster
