#pragma once

#include <cstddef>
#include <cstring>

#include <glyphwright/platform/raster/stroke_kernels.h>

namespace glyphwright::raster {

/// A curve that bends more tightly than the pen. On the hollow side the pen reaches beyond the
/// centre of the bend, as a sector. With the turn T, that is 2·sin(T/2)·(half − radius) wide.
template <typename Sample>
struct Fold {
  Fold(const StrokeSegments& s, std::size_t i, const SidePen& pen) : s_(s), i_(i), pen_(pen) {
    const StrokeCubic& c = s.cubics[i];
    acrossX_ = 3.0F * (c.legX + c.bendX) + c.changeX;
    acrossY_ = 3.0F * (c.legY + c.bendY) + c.changeY;
    const float turnX = s.endAlongX[i] - s.startAlongX[i];
    const float turnY = s.endAlongY[i] - s.startAlongY[i];
    turnSquare_ = turnX * turnX + turnY * turnY;
    chordSquare_ = acrossX_ * acrossX_ + acrossY_ * acrossY_;
  }

  /// Of a curve that bends so tightly all along: true when the sector can be left out, because it
  /// is too small to be seen or lies within the neighbours' bands.
  bool isInside(const SegmentRange& range) const {
    return pen_.half * pen_.half * turnSquare_ <= chordSquare_ + pen_.spare * pen_.spare ||
           isCovered(range, wide());
  }

  /// Of one that bends now more and now less tightly: the same.
  bool isPartlyInside(const SegmentRange& range) const {
    return turnsOneWay() && isCovered(range, pen_.half * root(turnSquare_));
  }

  /// And true when the sector lies within both bands, so that it makes no difference that the side
  /// runs backwards there: twice covered less once.
  bool isInsideTwice(const SegmentRange& range) const {
    const auto [in, on] = bands(range);
    const float wide = 2.0F * pen_.half * root(turnSquare_);
    return wide <= in && wide <= on && turnsOneWay();
  }

  /// True when two chords are close enough to the sector's arc.
  bool isSmall() const { return wide() * root(turnSquare_) <= 8.0F * pen_.spare; }

  /// Leads the side through the curve's middle.
  void putMiddle(float* x, float* y) const {
    const auto middle = [](float start, float leg, float turn, float change) {
      return ((change * 0.5F + 3.0F * turn) * 0.5F + 3.0F * leg) * 0.5F + start;
    };
    const StrokeCubic& c = s_.cubics[i_];
    *x = middle(c.startX, c.legX, c.bendX, c.changeX);
    *y = middle(c.startY, c.legY, c.bendY, c.changeY);
  }

  /// Leads it over the centre, with the sector run through on its own: five corners.
  void putSector(bool isLeft, float* x, float* y) const {
    const float sign = isLeft ? 1.0F : -1.0F;
    const float firstX = sign * s_.startAlongY[i_], firstY = -sign * s_.startAlongX[i_];
    const float lastX = sign * s_.endAlongY[i_], lastY = -sign * s_.endAlongX[i_];
    const float startX = s_.cubics[i_].startX, startY = s_.cubics[i_].startY;
    const float radius = root(chordSquare_ / turnSquare_);
    const float middle = (pen_.half - radius) / root(4.0F - turnSquare_);
    x[0] = x[4] = startX + firstX * radius;
    y[0] = y[4] = startY + firstY * radius;
    x[1] = startX + acrossX_ + lastX * pen_.half;
    y[1] = startY + acrossY_ + lastY * pen_.half;
    x[2] = x[0] + (firstX + lastX) * middle;
    y[2] = y[0] + (firstY + lastY) * middle;
    x[3] = startX + firstX * pen_.half;
    y[3] = startY + firstY * pen_.half;
  }

 private:
  static float root(float v) { return __builtin_sqrtf(v); }
  float wide() const { return pen_.half * root(turnSquare_) - root(chordSquare_); }

  // Twice as far as the bands of the neighbours reach, if they run straight on.
  struct Bands {
    float in;
    float on;
  };
  Bands bands(const SegmentRange& range) const {
    const std::size_t before = i_ == range.first ? range.before : i_ - 1;
    const std::size_t after = i_ + 1 == range.end ? range.after : i_ + 1;
    const auto bandOf = [&](std::size_t one, std::size_t next, float reach) {
      const float cosine =
          s_.endAlongX[one] * s_.startAlongX[next] + s_.endAlongY[one] * s_.startAlongY[next];
      return one != next && cosine > 0.99F ? 4.0F * reach : 0.0F;
    };
    return {bandOf(before, i_, s_.endReach[before]), bandOf(i_, after, s_.startReach[after])};
  }

  // Half of the sector lies in each of both bands, or up to a quarter of a turn all of it in one.
  bool isCovered(const SegmentRange& range, float wide) const {
    if (wide <= pen_.spare) return true;
    const auto [in, on] = bands(range);
    return wide <= (in < on ? in : on) ||
           (turnSquare_ < 2.1F && wide <= 0.5F * (in < on ? on : in));
  }

  // By less than half a turn.
  bool turnsOneWay() const {
    const StrokeCubic& c = s_.cubics[i_];
    const float nextX = c.legX + c.bendX, nextY = c.legY + c.bendY;
    const float lastX = nextX + c.bendX + c.changeX, lastY = nextY + c.bendY + c.changeY;
    const float first = c.legX * nextY - c.legY * nextX;
    const float last = nextX * lastY - nextY * lastX;
    const float whole = c.legX * lastY - c.legY * lastX;
    return whole != 0 && first * whole >= 0 && last * whole >= 0;
  }

  const StrokeSegments& s_;
  std::size_t i_;
  const SidePen& pen_;
  float acrossX_, acrossY_;
  float turnSquare_;   // of 2·sin(T/2)
  float chordSquare_;  // of that times the radius
};

/// What putSides does in every instruction set, with its own `sample(cubic, half, chords, sides)`:
/// that puts down the corners of both sides at the chords' ends but the first, the last one not
/// exact, and tells how the curve bends. A side that folds may get anything.
template <typename Sample>
std::size_t putSidesWith(const Sample& sample, const StrokeSegments& s, const StrokeNode* nodes,
                         const SegmentRange& range, const SidePen& pen, SideEnds& sides) {
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
      const PenBend bend = sample(c, pen.half, count, to);
      int left = count - 1;
      int right = count - 1;
      // What is known of the start is known long before what the samples tell.
      if (chords < 0 || bend != PenBend::follows) {
        const Fold<Sample> fold(s, i, pen);
        const bool isLeft = bend == PenBend::foldsLeft;
        float* const x = isLeft ? to.leftX : to.rightX;
        float* const y = isLeft ? to.leftY : to.rightY;
        int& corners = isLeft ? left : right;
        if (!isLeft && bend != PenBend::foldsRight) {
          if (!fold.isInsideTwice(range)) break;
        } else if (fold.isInside(range)) {
          fold.putMiddle(x, y);
          corners = 1;
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
    if (nodes == nullptr) continue;
    putFour(nodes[i].left, to.leftX, to.leftY);
    putFour(nodes[i].right, to.rightX, to.rightY);
  }
  sides = to;
  return i;
}

}  // namespace glyphwright::raster
