#include <cmath>

#include <glyphwright/platform/raster/kernels.h>
#include <glyphwright/platform/raster/kernels/scalar.h>
#include <glyphwright/platform/raster/kernels/scalar_cubic.h>

// What is to be known of a curve before it is stroked, and curves that bend more tightly than the
// pen.
namespace glyphwright::raster::scalar {
namespace {

struct Pair {
  float x;
  float y;
};
Pair operator-(Pair a, Pair b) {
  return {a.x - b.x, a.y - b.y};
}
Pair operator+(Pair a, Pair b) {
  return {a.x + b.x, a.y + b.y};
}
Pair operator*(Pair a, float k) {
  return {a.x * k, a.y * k};
}
float dot(Pair a, Pair b) {
  return a.x * b.x + a.y * b.y;
}
float larger(float a, float b) {
  return a > b ? a : b;
}
float smaller(float a, float b) {
  return a < b ? a : b;
}

}  // namespace

// The side of a curve that bends by p'' strays from a chord over the parameter step h by h²/8 ·
// (|p''| + half·θ'²), where θ is the direction and |p''| is about six times the bend. The legs'
// turns stand for θ; the square of their sum is at most twice the sum of their squares.
void prepareSegments(const double* const* curves, std::size_t curveCount, const SegmentPen& pen,
                     const StrokeSegments& out) {
  for (std::size_t i = 0; i < curveCount; ++i) {
    const double* p = curves[i];
    const auto leg = [&](int k) {
      return Pair{static_cast<float>(p[k + 2] - p[k]), static_cast<float>(p[k + 3] - p[k + 1])};
    };
    const Pair start{static_cast<float>(p[0] - pen.originX),
                     static_cast<float>(p[1] - pen.originY)};
    Pair l0 = leg(0);
    Pair l1 = leg(2);
    Pair l2 = leg(4);
    const auto nudgeFor = [](Pair ofLeg, Pair way) {
      const Pair nudge = way * kNudge;
      return dot(ofLeg, ofLeg) < dot(nudge, nudge) ? nudge : Pair{};
    };
    const Pair atStart = nudgeFor(l0, l1);
    const Pair atEnd = nudgeFor(l2, l1);
    l0 = l0 + atStart;
    l2 = l2 + atEnd;
    l1 = l1 - atStart - atEnd;
    const float dot01 = dot(l0, l1);
    const float dot12 = dot(l1, l2);
    const float square0 = dot(l0, l0);
    const float square1 = dot(l1, l1);
    const float square2 = dot(l2, l2);
    const float length0 = std::sqrt(square0);
    const float length1 = std::sqrt(square1);
    const float length2 = std::sqrt(square2);
    const float length01 = length0 * length1;
    const float length12 = length1 * length2;
    // All of the curve's directions within half a turn about the middle leg: it has no cusp.
    const bool keepsOn =
        dot01 > 0 && dot12 > 0 && smaller(square0, smaller(square1, square2)) > kLeastLeg;
    const float inverse = 1.0F / (length01 * length2);
    const Pair e0 = l0 * (length12 * inverse);
    const Pair e2 = l2 * (length01 * inverse);
    const Pair u = l1 - l0;
    const Pair v = l2 - l1;
    const Pair a = v - u;
    const float turnAtStart = pen.half * (2.0F / 3.0F) * (u.x * e0.y - u.y * e0.x);
    const bool isTight = !(std::fabs(turnAtStart) <= square0);

    const float bend = std::sqrt(0.5F * (dot(u, u) + dot(v, v)));
    // The square of a small angle is twice what its cosine lacks to one.
    const float lacking = ((length01 - dot01) * length2 + (length12 - dot12) * length0) * inverse;
    const float turnSquare = 4.0F * larger(lacking, 0.0F);
    const float wanted = std::sqrt(bend * pen.bendFactor + turnSquare * pen.turnFactor);
    const int number = static_cast<int>(smaller(wanted, kMaxChords - 1)) + 1;
    const float step = 3.0F / static_cast<float>(number);
    out.cubics[i] = {start.x, start.y, l0.x, l0.y, u.x, u.y, a.x, a.y};
    out.startX[i] = start.x;
    out.startY[i] = start.y;
    out.startAlongX[i] = e0.x;
    out.startAlongY[i] = e0.y;
    out.endAlongX[i] = e2.x;
    out.endAlongY[i] = e2.y;
    out.startLength[i] = length0 * step;
    out.endLength[i] = length2 * step;
    out.chords[i] = !keepsOn ? 0 : (isTight ? -number : number);
  }
}

// Each inner sample has a corner on either side. On the hollow side of a bend tighter than the pen,
// the side would run backwards; there each chord keeps its own rectangle, whose corners stand on
// the chord's normals, with the sample between them. Samples move out of the hollow by h²·p''/12,
// as in filling, so that the area stays, and the corners likewise, by the square of the turn a
// step.
void bendCurve(const StrokeCubic& c, float half, int chords, BentCurve& out) {
  const float h = 1.0F / static_cast<float>(chords);
  const float lift = h * h * 0.5F;
  for (int k = 0; k <= chords; ++k) {
    const float t = static_cast<float>(k) * h;
    const float move = k > 0 && k < chords ? lift : 0.0F;
    const CubicSample at(c, t);
    out.x[k] = at.x - at.bendX * move;
    out.y[k] = at.y - at.bendY * move;
    out.normalX[k] = at.normalX;
    out.normalY[k] = at.normalY;
  }
  std::size_t left = 0;
  std::size_t right = 0;
  for (int k = 1; k < chords; ++k) {
    const Pair at{out.x[k], out.y[k]};
    const Pair chordIn = at - Pair{out.x[k - 1], out.y[k - 1]};
    const Pair chordOut = Pair{out.x[k + 1], out.y[k + 1]} - at;
    const float lengthIn = std::sqrt(dot(chordIn, chordIn));
    const float lengthOut = std::sqrt(dot(chordOut, chordOut));
    const float shorter = smaller(lengthIn, lengthOut);
    // Chords without a length do not turn.
    const bool turns = shorter > 0;
    const Pair in = chordIn * (1.0F / lengthIn);
    const Pair on = chordOut * (1.0F / lengthOut);
    const Pair turn = on - in;
    const float turnSquare = dot(turn, turn);
    const bool isTight = turns && turnSquare * (half * half) > shorter * shorter;
    const float side = in.x * on.y - in.y * on.x;
    const bool tightLeft = isTight && side < 0;
    const bool tightRight = isTight && side > 0;
    const float raised = turns ? smaller(turnSquare * (1.0F / 12.0F), 0.05F) : 0.0F;
    const Pair offset = Pair{out.normalX[k], out.normalY[k]} * (half + half * raised);
    const Pair before = Pair{in.y, -in.x} * half;
    const Pair after = Pair{on.y, -on.x} * half;
    const auto put = [&](float* toX, float* toY, std::size_t& count, bool tight, Pair one,
                         Pair first, Pair last) {
      toX[count] = tight ? first.x : one.x;
      toY[count] = tight ? first.y : one.y;
      toX[count + 1] = at.x;
      toY[count + 1] = at.y;
      toX[count + 2] = last.x;
      toY[count + 2] = last.y;
      count += tight ? 3 : 1;
    };
    put(out.leftX, out.leftY, left, tightLeft, at + offset, at + before, at + after);
    put(out.rightX, out.rightY, right, tightRight, at - offset, at - before, at - after);
  }
  out.leftCount = left;
  out.rightCount = right;
}

}  // namespace glyphwright::raster::scalar
