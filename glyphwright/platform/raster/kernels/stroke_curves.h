#pragma once

#include <cstddef>

#include <glyphwright/platform/raster/kernels.h>

/// What is to be known of curves before they are stroked, eight at a time.
namespace glyphwright::raster::loops {
namespace {

/// A point or a way of each.
template <typename L>
struct Ways {
  using Floats = typename L::Floats;
  friend Ways operator+(Ways a, Ways b) { return {a.x + b.x, a.y + b.y}; }
  friend Ways operator-(Ways a, Ways b) { return {a.x - b.x, a.y - b.y}; }
  friend Ways operator*(Ways a, Floats k) { return {a.x * k, a.y * k}; }
  friend Floats dot(Ways a, Ways b) { return a.x * b.x + a.y * b.y; }
  friend Floats magnitudeOfCross(Ways a, Ways b) { return abs(a.x * b.y - a.y * b.x); }

  Floats x;
  Floats y;
};

/// Rows become columns. They are to stay in registers, which takes a word to some compilers.
template <typename Floats>
[[gnu::always_inline]] inline void transpose(Floats* r) {
  Floats pairs[8];
  for (int k = 0; k < 8; k += 2) {
    pairs[k] = weaveLow(r[k], r[k + 1]);
    pairs[k + 1] = weaveHigh(r[k], r[k + 1]);
  }
  Floats fours[8];
  for (int k = 0; k < 8; k += 4) {
    fours[k] = weavePairsLow(pairs[k], pairs[k + 2]);
    fours[k + 1] = weavePairsHigh(pairs[k], pairs[k + 2]);
    fours[k + 2] = weavePairsLow(pairs[k + 1], pairs[k + 3]);
    fours[k + 3] = weavePairsHigh(pairs[k + 1], pairs[k + 3]);
  }
  for (int k = 0; k < 4; ++k) {
    r[k] = firstHalves(fours[k], fours[k + 4]);
    r[k + 4] = secondHalves(fours[k], fours[k + 4]);
  }
}

/// A curve's start and its three legs.
template <typename L>
typename L::Floats startAndLegs(const double* points, typename L::Doubles origin) {
  using Doubles = typename L::Doubles;
  const Doubles p01 = Doubles::load(points);
  const Doubles p12 = Doubles::load(points + 2);
  const Doubles p23 = Doubles::load(points + 4);
  return joined(weavePairsLow(narrowed(p01 - origin), narrowed(p12 - p01)), narrowed(p23 - p12));
}

/// The side of a curve that bends by p'' strays from a chord over the parameter step h by
/// h²/8 · (|p''| + half·θ'²), where θ is the direction and |p''| is about six times the bend. The
/// legs' turns stand for θ; the square of their sum is at most twice the sum of their squares, and
/// the square of a small angle is twice what its cosine lacks to one.
///
/// The legs also bound how fast the direction turns: p'×p'' is 18 times a mixture of l0×l1, l0×l2/2
/// and l1×l2, and p' has three times the least of their parts along l1 at least.
template <typename L>
void prepareSegments(const double* const* curves, std::size_t count, const SegmentPen& pen,
                     const StrokeSegments& out) {
  using Floats = typename L::Floats;
  using Ints = typename L::Ints;
  const auto every = [](float v) { return Floats::every(v); };
  const double originParts[] = {pen.originX, pen.originY};
  const auto origin = L::template loadHalves<typename L::Doubles>(originParts, originParts);
  const Floats zero = every(0), half = every(pen.half);
  const Floats penFactor = every(pen.half * (2.0F / 3.0F)), bendFactor = every(pen.bendFactor);
  const Floats turnFactor = every(pen.turnFactor);
  for (std::size_t i = 0; i < count; i += 8) {
    Floats r[8];
    for (std::size_t k = 0; k < 8; ++k) r[k] = startAndLegs<L>(curves[i + k], origin);
    transpose(r);
    Ways<L> l0{r[2], r[3]}, l1{r[4], r[5]}, l2{r[6], r[7]};
    // A nudge, or none where the leg is longer than that.
    const auto nudgeFor = [&](Ways<L> leg, Ways<L> way) {
      const Ways<L> nudge = way * every(kNudge);
      const Ints isNear = dot(leg, leg) < dot(nudge, nudge);
      return Ways<L>{nudge.x & isNear, nudge.y & isNear};
    };
    const Ways<L> atStart = nudgeFor(l0, l1), atEnd = nudgeFor(l2, l1);
    l0 = l0 + atStart;
    l2 = l2 + atEnd;
    l1 = l1 - atStart - atEnd;
    const Floats dot01 = dot(l0, l1), dot12 = dot(l1, l2);
    const Floats square0 = dot(l0, l0), square1 = dot(l1, l1), square2 = dot(l2, l2);
    const Floats length0 = sqrt(square0), length1 = sqrt(square1), length2 = sqrt(square2);
    const Floats length01 = length0 * length1, length12 = length1 * length2;
    // All of the curve's directions within half a turn about the middle leg: it has no cusp.
    const Ints keepsOn =
        (dot01 > zero) & (dot12 > zero) & (min(square0, min(square1, square2)) > every(kLeastLeg));
    const Floats inverse = every(1) / (length01 * length2);
    const Ways<L> e0 = l0 * (length12 * inverse), e2 = l2 * (length01 * inverse);
    const Ways<L> u = l1 - l0, v = l2 - l1, a = v - u;
    const Floats turnAtStart = penFactor * magnitudeOfCross(u, e0);
    const Floats turnAtEnd = penFactor * magnitudeOfCross(v, e2);
    const Ints isTight = ~(turnAtStart <= square0);

    const Floats bend = sqrt(every(0.5F) * (dot(u, u) + dot(v, v)));
    const Floats lacking = ((length01 - dot01) * length2 + (length12 - dot12) * length0) * inverse;
    const Floats turnSquare = every(4) * max(lacking, zero);
    const Floats wanted = sqrt(bend * bendFactor + turnSquare * turnFactor);
    const Ints number =
        truncated(min(wanted, every(static_cast<float>(kMaxChords - 1)))) + Ints::every(1);
    const Floats mostTurned = max(max(magnitudeOfCross(l0, l1), magnitudeOfCross(l1, l2)),
                                  every(0.5F) * magnitudeOfCross(l0, l2));
    const Floats slowest = min(square1, min(dot01, dot12)) * (length0 * length2 * inverse);
    const Floats slowSquare = slowest * slowest;
    const Floats unevenTurn =
        slowSquare * slowSquare * every(kUnevenTurn * kUnevenTurn / 4) * turnSquare;
    const Ints isEven =
        (penFactor * mostTurned <= slowSquare * slowest) | (mostTurned * mostTurned <= unevenTurn);
    store(out.chords + i, withSign(number & (keepsOn & isEven), isTight | Ints::every(1)));

    // A single chord may be reached into from either end.
    const Floats step = min(every(3) / floats(number), every(1.5F));
    const Ways<L> across = (l0 + u) * every(3) + a, turn = e2 - e0;
    store(out.startX + i, r[0]);
    store(out.startY + i, r[1]);
    store(out.startAlongX + i, e0.x);
    store(out.startAlongY + i, e0.y);
    store(out.endAlongX + i, e2.x);
    store(out.endAlongY + i, e2.y);
    store(out.startReach + i, max(square0 - turnAtStart, zero) * (length12 * inverse) * step);
    store(out.endReach + i, max(square2 - turnAtEnd, zero) * (length01 * inverse) * step);
    store(out.sector + i, half * sqrt(dot(turn, turn)) - sqrt(dot(across, across)));
    Floats cubics[8] = {r[0], r[1], l0.x, l0.y, u.x, u.y, a.x, a.y};
    transpose(cubics);
    static_assert(sizeof(StrokeCubic) == sizeof(Floats));
    for (std::size_t k = 0; k < 8; ++k) store(out.cubics + i + k, cubics[k]);
  }
}

}  // namespace
}  // namespace glyphwright::raster::loops
