#include <cmath>

#include <glyphwright/platform/raster/kernels.h>
#include <glyphwright/platform/raster/kernels/scalar.h>

// What is to be known of a curve before it is stroked.
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
float cross(Pair a, Pair b) {
  return a.x * b.y - a.y * b.x;
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
//
// The legs also bound how fast the direction turns: p'×p'' is 18 times a mixture of l0×l1, l0×l2/2
// and l1×l2, and p' has three times the least of their parts along l1 at least.
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
    const float penFactor = pen.half * (2.0F / 3.0F);
    const float turnAtStart = std::fabs(penFactor * cross(u, e0));
    const float turnAtEnd = std::fabs(penFactor * cross(v, e2));
    const bool isTight = !(turnAtStart <= square0);

    const float bend = std::sqrt(0.5F * (dot(u, u) + dot(v, v)));
    // The square of a small angle is twice what its cosine lacks to one.
    const float lacking = ((length01 - dot01) * length2 + (length12 - dot12) * length0) * inverse;
    const float turnSquare = 4.0F * larger(lacking, 0.0F);
    const float wanted = std::sqrt(bend * pen.bendFactor + turnSquare * pen.turnFactor);
    const float mostTurned = larger(larger(std::fabs(cross(l0, l1)), std::fabs(cross(l1, l2))),
                                    0.5F * std::fabs(cross(l0, l2)));
    const float slowest = smaller(square1, smaller(dot01, dot12)) * (length0 * length2 * inverse);
    const float slowSquare = slowest * slowest;
    const float unevenTurn = slowSquare * slowSquare * (kUnevenTurn * kUnevenTurn / 4) * turnSquare;
    const bool isEven =
        penFactor * mostTurned <= slowSquare * slowest || mostTurned * mostTurned <= unevenTurn;
    const int number = static_cast<int>(smaller(wanted, kMaxChords - 1)) + 1;
    // A single chord may be reached into from either end.
    const float step = smaller(3.0F / static_cast<float>(number), 1.5F);
    out.cubics[i] = {start.x, start.y, l0.x, l0.y, u.x, u.y, a.x, a.y};
    out.startX[i] = start.x;
    out.startY[i] = start.y;
    out.startAlongX[i] = e0.x;
    out.startAlongY[i] = e0.y;
    out.endAlongX[i] = e2.x;
    out.endAlongY[i] = e2.y;
    out.startReach[i] = larger(square0 - turnAtStart, 0) * (length12 * inverse) * step;
    out.endReach[i] = larger(square2 - turnAtEnd, 0) * (length01 * inverse) * step;
    out.chords[i] = !(keepsOn && isEven) ? 0 : (isTight ? -number : number);
  }
}

}  // namespace glyphwright::raster::scalar
