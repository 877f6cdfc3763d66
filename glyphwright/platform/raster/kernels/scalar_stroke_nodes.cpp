#include <cmath>

#include <glyphwright/platform/raster/kernels.h>
#include <glyphwright/platform/raster/kernels/scalar.h>

// Where the sides of neighbouring segments meet.
namespace glyphwright::raster::scalar {
namespace {

// Up to three corners in a row.
struct Corners {
  bool hasFirst;
  bool hasMiddle;
  bool hasLast;
  float first, middle, last;
};

int putCorners(const Corners& c, float* to) {
  to[0] = c.hasFirst ? c.first : c.middle;
  to[1] = c.hasFirst && c.hasMiddle ? c.middle : c.last;
  to[2] = c.last;
  return (c.hasFirst ? 1 : 0) + (c.hasMiddle ? 1 : 0) + (c.hasLast ? 1 : 0);
}

}  // namespace

// With unit normals n0 and n1 and half the width h, the lines at a distance of h to both segments
// meet at v = h·(n0 + n1)/(1 + n0·n1) from the node: the tip of a miter on the outer side, and at
// −v where the inner sides cross. Where the segments run on nearly straight, this is all there is
// to both sides. A miter's tip lies on the sides of both neighbours, so that what leads to a
// neighbour of one chord needs no corner of its own, unless the tip is so far away that the little
// by which that turns would be seen. Without a tip the outer side goes from side to
// side. The inner sides cross when neither neighbour is too short; if one is, they are led through
// the node, which keeps every piece wound the same way.
void joinSegments(const StrokeSegments& s, std::size_t count, const NodePen& pen, StrokeNode* out) {
  const float noise = pen.half * NodePen::kNoise;
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t next = i + 1;
    const float inX = s.endAlongX[i];
    const float inY = s.endAlongY[i];
    const float onX = s.startAlongX[next];
    const float onY = s.startAlongY[next];
    const float cosine = inX * onX + inY * onY;
    const float sine = inX * onY - inY * onX;
    const bool runsOn = cosine > 0 && sine * sine < pen.sameSquare;
    const float factor = pen.half / (1.0F + cosine);
    const float reach = s.endReach[i] < s.startReach[next] ? s.endReach[i] : s.startReach[next];
    const float least = s.chords[i] == 1 && s.chords[next] == 1 ? noise : pen.slack;
    const bool crosses = cosine > NodePen::kLeastCosine &&
                         factor * std::fabs(sine) <= (reach > least ? reach : least);
    const bool hasTip = runsOn || (1.0F + cosine) * pen.halfMiterSquare >= 1.0F;
    const float alongSide = factor * std::fabs(sine);
    const auto isStraight = [&](std::size_t k) {
      const float turned = s.startAlongX[k] * s.endAlongY[k] - s.startAlongY[k] * s.endAlongX[k];
      return s.chords[k] == 1 && std::fabs(turned) * alongSide <= pen.slack;
    };
    const bool outerFirst = !runsOn && (!hasTip || !isStraight(i));
    const bool outerLast = !runsOn && (!hasTip || !isStraight(next));
    // To the left, in halves of the width.
    const float fromX = inY * pen.half;
    const float fromY = -inX * pen.half;
    const float toX = onY * pen.half;
    const float toY = -onX * pen.half;
    const float tipX = (inY + onY) * factor;
    const float tipY = -(inX + onX) * factor;
    const auto put = [&](bool isOuter, float sign, NodeSide& side) {
      const bool hasFirst = isOuter ? outerFirst : !crosses;
      const bool hasMiddle = !isOuter || hasTip;
      const bool hasLast = isOuter ? outerLast : !crosses;
      const bool isTip = isOuter ? hasTip : crosses;
      const auto corners = [&](float at, float from, float tip, float to) {
        return Corners{
            hasFirst,      hasMiddle, hasLast, at + sign * from, at + sign * (isTip ? tip : 0.0F),
            at + sign * to};
      };
      side.count = putCorners(corners(s.startX[next], fromX, tipX, toX), side.x);
      putCorners(corners(s.startY[next], fromY, tipY, toY), side.y);
      side.unused = 0;
    };
    put(sine >= 0, 1.0F, out[i].left);
    put(!(sine >= 0), -1.0F, out[i].right);
  }
}

}  // namespace glyphwright::raster::scalar
