#pragma once

#include <cstddef>

#include <glyphwright/platform/raster/kernels.h>

/// Where the sides of neighbouring segments meet, eight nodes at a time.
namespace glyphwright::raster::loops {
namespace {

/// Up to three corners in a row of each node, in one direction.
template <typename L>
struct Corners {
  typename L::Floats first;
  typename L::Floats middle;
  typename L::Floats last;
};

/// Which of them there are.
template <typename L>
struct ChosenCorners {
  using Floats = typename L::Floats;
  using Ints = typename L::Ints;

  Floats count() const { return as<Floats>(Ints::every(0) - (first + middle + last)); }
  Corners<L> pick(const Corners<L>& c) const {
    return {select(first, c.first, c.middle), select(first & middle, c.middle, c.last), c.last};
  }

  Ints first;
  Ints middle;
  Ints last;
};

/// Rows of four become four of each of eight nodes: those of nodes k and k + 4 together.
template <typename L>
void interleave(const Corners<L>& c, typename L::Floats fourth, typename L::Floats* nodes) {
  const auto low = weaveLow(c.first, c.middle), lowEnd = weaveLow(c.last, fourth);
  const auto high = weaveHigh(c.first, c.middle), highEnd = weaveHigh(c.last, fourth);
  nodes[0] = weavePairsLow(low, lowEnd);
  nodes[1] = weavePairsHigh(low, lowEnd);
  nodes[2] = weavePairsLow(high, highEnd);
  nodes[3] = weavePairsHigh(high, highEnd);
}

/// To stay in registers.
template <typename L>
[[gnu::always_inline]] inline void storeSides(NodeSide* side, const ChosenCorners<L>& chosen,
                                              const Corners<L>& x, const Corners<L>& y,
                                              typename L::Floats band) {
  using Floats = typename L::Floats;
  static_assert(sizeof(NodeSide) == sizeof(Floats));
  Floats xs[4];
  Floats ys[4];
  interleave<L>(chosen.pick(x), chosen.count(), xs);
  interleave<L>(chosen.pick(y), band, ys);
  // The other sides lie in between.
  for (std::size_t k = 0; k < 4; ++k) {
    store(side + 2 * k, firstHalves(xs[k], ys[k]));
    store(side + 2 * (k + 4), secondHalves(xs[k], ys[k]));
  }
}

/// With unit normals n0 and n1 and half the width h, the lines at a distance of h to both segments
/// meet at v = h·(n0 + n1)/(1 + n0·n1) from the node: the tip of a miter on the outer side, and at
/// −v where the inner sides cross. Where the segments run on nearly straight, this is all there is
/// to both sides. A miter's tip lies on the sides of both neighbours, so that what leads to a
/// neighbour of one chord needs no corner of its own, unless the tip is so far away that the little
/// by which that turns would be seen. Without a tip the outer side goes from side to
/// side. The inner sides cross when neither neighbour is too short; if one is, they are led through
/// the node, which keeps every piece wound the same way.
template <typename L>
void joinSegments(const StrokeSegments& s, std::size_t count, const NodePen& pen, StrokeNode* out) {
  using Floats = typename L::Floats;
  using Ints = typename L::Ints;
  const Floats zero = Floats::every(0), one = Floats::every(1), half = Floats::every(pen.half);
  const Floats noise = Floats::every(pen.half * NodePen::kNoise), slack = Floats::every(pen.slack);
  for (std::size_t i = 0; i < count; i += 8) {
    const Floats inX = Floats::load(s.endAlongX + i), inY = Floats::load(s.endAlongY + i);
    const Floats onX = Floats::load(s.startAlongX + i + 1);
    const Floats onY = Floats::load(s.startAlongY + i + 1);
    const Floats cosine = inX * onX + inY * onY;
    const Floats sine = inX * onY - inY * onX;
    const Ints runsOn = (cosine > zero) & (sine * sine < Floats::every(pen.sameSquare));
    const Floats factor = half / (one + cosine);
    const Floats inReach = Floats::load(s.endReach + i);
    const Floats onReach = Floats::load(s.startReach + i + 1);
    const Ints inIsLine = Ints::load(s.chords + i) == Ints::every(1);
    const Ints onIsLine = Ints::load(s.chords + i + 1) == Ints::every(1);
    const Floats least = select(inIsLine & onIsLine, noise, slack);
    const Floats alongSide = factor * abs(sine);
    const Ints crosses = (cosine > Floats::every(NodePen::kLeastCosine)) &
                         (alongSide <= max(min(inReach, onReach), least));
    const Ints hasTip = runsOn | ((one + cosine) * Floats::every(pen.halfMiterSquare) >= one);
    const auto isStraight = [&](Ints isLine, Floats fromX, Floats fromY, Floats toX, Floats toY) {
      return isLine & (abs(fromX * toY - fromY * toX) * alongSide <= slack);
    };
    const Ints inIsStraight = isStraight(inIsLine, Floats::load(s.startAlongX + i),
                                         Floats::load(s.startAlongY + i), inX, inY);
    const Ints onIsStraight = isStraight(onIsLine, onX, onY, Floats::load(s.endAlongX + i + 1),
                                         Floats::load(s.endAlongY + i + 1));
    const Ints outerFirst = ~(runsOn | (hasTip & inIsStraight));
    const Ints outerLast = ~(runsOn | (hasTip & onIsStraight));
    // To the left, in halves of the width.
    const Floats fromX = inY * half, fromY = -inX * half;
    const Floats toX = onY * half, toY = -onX * half;
    const Floats tipX = (inY + onY) * factor, tipY = -(inX + onX) * factor;
    const Floats atX = Floats::load(s.startX + i + 1), atY = Floats::load(s.startY + i + 1);
    const Ints leftIsOuter = sine >= zero;
    const auto chosen = [&](Ints isOuter) {
      return ChosenCorners<L>{select(isOuter, outerFirst, ~crosses), ~isOuter | hasTip,
                              select(isOuter, outerLast, ~crosses)};
    };
    const Ints tipLeft = select(leftIsOuter, hasTip, crosses);
    const Ints tipRight = select(leftIsOuter, crosses, hasTip);
    const Ints keepsOn = cosine > Floats::every(NodePen::kBandCosine);
    storeSides<L>(
        &out[i].left, chosen(leftIsOuter), {atX + fromX, atX + (tipX & tipLeft), atX + toX},
        {atY + fromY, atY + (tipY & tipLeft), atY + toY}, Floats::every(4) * inReach & keepsOn);
    storeSides<L>(
        &out[i].right, chosen(~leftIsOuter), {atX - fromX, atX - (tipX & tipRight), atX - toX},
        {atY - fromY, atY - (tipY & tipRight), atY - toY}, Floats::every(4) * onReach & keepsOn);
  }
}

}  // namespace
}  // namespace glyphwright::raster::loops
