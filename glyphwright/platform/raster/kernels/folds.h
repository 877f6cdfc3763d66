#pragma once

#include <cstddef>

#include <glyphwright/platform/raster/stroke_kernels.h>

/// What the sides of strokes do where the pen is wider than the way bends.
namespace glyphwright::raster::loops {
namespace {

/// A curve that bends more tightly than the pen. On the hollow side the pen reaches beyond the
/// centre of the bend, as a sector. With the turn T, that is 2·sin(T/2)·(half − radius) wide.
class Fold {
 public:
  Fold(const StrokeSegments& s, const StrokeNode* nodes, const SegmentRange& range, std::size_t i,
       const SidePen& pen)
      : s_(s), i_(i), pen_(pen) {
    const std::size_t before = i == range.first ? range.before : i - 1;
    const std::size_t after = i + 1 == range.end ? range.after : i + 1;
    in_ = before == i ? 0 : nodes[before].left.band;
    on_ = after == i ? 0 : nodes[i].right.band;
  }

  /// Of a curve that bends so tightly all along: true when the sector can be left out, because it
  /// is too small to be seen or lies within the neighbours' bands.
  bool isInside() const {
    const float wide = s_.sector[i_];
    return isBetween(wide) || (wide <= 0.5F * farther() && turnSquare() < kQuarterTurn);
  }

  /// Of one that bends now more and now less tightly: the same.
  bool isPartlyInside() const {
    const float wide = pen_.half * root(turnSquare());
    return turnsOneWay() &&
           (isBetween(wide) || (wide <= 0.5F * farther() && turnSquare() < kQuarterTurn));
  }

  /// True when all of a side, whose corners are these, is too short to be seen.
  bool isShort(bool isLeft, const float* x, const float* y, int corners) const {
    if (!turnsOneWay()) return false;
    const float half = isLeft ? pen_.half : -pen_.half;
    float lastX = s_.cubics[i_].startX + s_.startAlongY[i_] * half;
    float lastY = s_.cubics[i_].startY - s_.startAlongX[i_] * half;
    float sum = 0;
    for (int k = 0; k < corners; ++k) {
      sum += __builtin_fabsf(x[k] - lastX) + __builtin_fabsf(y[k] - lastY);
      lastX = x[k];
      lastY = y[k];
    }
    return sum <= pen_.spare;
  }

  /// And true when the sector lies within both bands, so that it makes no difference that the side
  /// runs backwards there: twice covered less once.
  bool isInsideTwice() const {
    return 2.0F * pen_.half * root(turnSquare()) <= nearer() && turnsOneWay();
  }

  /// True when two chords are close enough to the sector's arc.
  bool isSmall() const { return s_.sector[i_] * root(turnSquare()) <= 8.0F * pen_.spare; }

  bool turnsLeft() const {
    return s_.startAlongX[i_] * s_.endAlongY[i_] < s_.startAlongY[i_] * s_.endAlongX[i_];
  }

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
    const StrokeCubic& c = s_.cubics[i_];
    const float sign = isLeft ? 1.0F : -1.0F;
    const float firstX = sign * s_.startAlongY[i_], firstY = -sign * s_.startAlongX[i_];
    const float lastX = sign * s_.endAlongY[i_], lastY = -sign * s_.endAlongX[i_];
    const float acrossX = 3.0F * (c.legX + c.bendX) + c.changeX;
    const float acrossY = 3.0F * (c.legY + c.bendY) + c.changeY;
    const float chordSquare = acrossX * acrossX + acrossY * acrossY;
    const float radius = root(chordSquare / turnSquare());
    const float middle = (pen_.half - radius) / root(4.0F - turnSquare());
    x[0] = x[4] = c.startX + firstX * radius;
    y[0] = y[4] = c.startY + firstY * radius;
    x[1] = c.startX + acrossX + lastX * pen_.half;
    y[1] = c.startY + acrossY + lastY * pen_.half;
    x[2] = x[0] + (firstX + lastX) * middle;
    y[2] = y[0] + (firstY + lastY) * middle;
    x[3] = c.startX + firstX * pen_.half;
    y[3] = c.startY + firstY * pen_.half;
  }

 private:
  static constexpr float kQuarterTurn = 2.1F;  // and a little more

  static float root(float v) { return __builtin_sqrtf(v); }
  // Of 2·sin(T/2).
  float turnSquare() const {
    const float turnX = s_.endAlongX[i_] - s_.startAlongX[i_];
    const float turnY = s_.endAlongY[i_] - s_.startAlongY[i_];
    return turnX * turnX + turnY * turnY;
  }
  float nearer() const { return in_ < on_ ? in_ : on_; }
  float farther() const { return in_ < on_ ? on_ : in_; }

  // Half of the sector lies in each of both bands; up to a quarter of a turn all of it may lie in
  // one.
  bool isBetween(float wide) const { return wide <= pen_.spare || wide <= nearer(); }

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
  float in_;
  float on_;
};

}  // namespace
}  // namespace glyphwright::raster::loops
