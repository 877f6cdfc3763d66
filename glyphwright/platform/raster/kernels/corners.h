#pragma once

#include <cstddef>
#include <cstdint>

#include <glyphwright/platform/raster/kernels/edge_lanes.h>

/// From points to edges.
namespace glyphwright::raster::loops {
namespace {

/// The count of chords (chords.h) goes with the root of the bend, and so with the fourth root of
/// its square. Up to eight, which is nearly always, comparing is faster than roots.
template <typename L>
std::uint32_t chordCount(float chords4) {
  using Floats = typename L::Floats;
  static constexpr float kFourthPowers[] = {1, 16, 81, 256, 625, 1296, 2401, 4096};
  const unsigned reached = bits(Floats::every(chords4) >= Floats::load(kFourthPowers));
  const std::uint32_t count = 1 + static_cast<std::uint32_t>(__builtin_popcount(reached));
  if (count <= 8) return count;
  const float root = __builtin_sqrtf(__builtin_sqrtf(chords4));
  return root < kMaxChords - 1 ? static_cast<std::uint32_t>(root) + 1 : kMaxChords;
}

/// A cubic relative to the region, and its second differences; two points in each.
template <typename L>
struct Cubic {
  using Doubles = typename L::Doubles;
  using Floats4 = typename L::Floats4;
  Cubic(const double* points, Doubles corner) {
    p01 = narrowed(Doubles::load(points) - corner);
    const Floats4 p23 = narrowed(Doubles::load(points + 4) - corner);
    p12 = upperAndLower(p01, p23);
    uv = p01 - Floats4::every(2) * p12 + p23;
  }
  static Doubles cornerOf(const CurveFrame& frame) {
    const double corner[] = {frame.left, frame.top};
    return L::template loadHalves<Doubles>(corner, corner);
  }

  Floats4 p01;
  Floats4 p12;
  Floats4 uv;
};

template <typename L>
void countChords(Curve* curves, std::size_t count, const double* points, const CurveFrame& frame) {
  const auto corner = Cubic<L>::cornerOf(frame);
  for (std::size_t i = 0; i < count; ++i) {
    const Cubic<L> cubic(points + std::size_t{2} * curves[i].point, corner);
    const auto squares = cubic.uv * cubic.uv;
    float bendSquares[4];
    store(bendSquares, squares + swapped(squares));
    const float larger = bendSquares[0] > bendSquares[2] ? bendSquares[0] : bendSquares[2];
    curves[i].chords = chordCount<L>(larger * frame.chordFactor);
  }
}

/// Inner points moved out of the hollow as chords.h has it, eight samples at a time; the last eight
/// may run past the curve's end.
template <typename L>
void sampleCurves(const Curve* curves, std::size_t count, const double* points,
                  const CurveFrame& frame, float* xs, std::int32_t* ys) {
  using Floats = typename L::Floats;
  using Floats4 = typename L::Floats4;
  using Ints = typename L::Ints;
  static constexpr float kParts[] = {0,        1,        1.0F / 2, 1.0F / 3, 1.0F / 4,
                                     1.0F / 5, 1.0F / 6, 1.0F / 7, 1.0F / 8};
  const auto corner = Cubic<L>::cornerOf(frame);
  const Floats width = Floats::every(frame.width);
  const Ints height = Ints::every(frame.height);
  const auto at = [](Floats t, Floats c3, Floats c2, Floats c1, Floats c0) {
    return ((c3 * t + c2) * t + c1) * t + c0;
  };
  for (const Curve* curve = curves; curve < curves + count; ++curve) {
    const Cubic<L> cubic(points + std::size_t{2} * curve->point, corner);
    const std::uint32_t chords = curve->chords;
    const float h = chords <= 8 ? kParts[chords] : 1.0F / static_cast<float>(chords);
    const Floats4 lift = Floats4::every(h * h * 0.5F);
    const Floats4 three = Floats4::every(3);
    const Floats4 a = upperAndLower(cubic.uv, cubic.uv) - cubic.uv;
    const Floats4 b = three * cubic.uv;
    const Floats4 c = three * (cubic.p12 - cubic.p01) - a * lift;
    const Floats4 start = cubic.p01 - cubic.uv * lift;
    const Floats ax = everyOf<0>(a), bx = everyOf<0>(b), cx = everyOf<0>(c);
    const Floats ay = everyOf<1>(a), by = everyOf<1>(b), cy = everyOf<1>(c);
    const Floats sx = everyOf<0>(start), sy = everyOf<1>(start);
    float* x = xs + curve->corner;
    std::int32_t* y = ys + curve->corner;
    Floats number = numbers<Floats>() + Floats::every(1);
    for (std::uint32_t k = 0; k < chords; k += 8) {
      const Floats t = number * Floats::every(h);
      number = number + Floats::every(8);
      // A sample that was moved out of a hollow may pass the region's side by a hair.
      const Floats across = at(t, ax, bx, cx, sx);
      const Floats down = at(t, ay, by, cy, sy) * Floats::every(kUnitsPerPixel);
      const Ints units = truncated(down + Floats::every(0.5F));
      store(x + k, min(max(across, Floats::every(0)), width));
      store(y + k, min(max(units, Ints::every(0)), height));
    }
  }
}

template <typename L>
void placeEnds(const Segment* segments, std::size_t count, const double* points,
               const CurveFrame& frame, float* xs, std::int32_t* ys) {
  // Of its own: stores of corners might change the caller's, as far as a compiler can tell.
  const double left = frame.left;
  const double top = frame.top;
  const float width = frame.width;
  const int height = frame.height;
  for (const Segment* segment = segments; segment < segments + count; ++segment) {
    const double* p = points + std::size_t{2} * segment->point;
    const auto x = static_cast<float>(p[0] - left);
    const float atLeast = x > 0 ? x : 0;
    const int units = static_cast<int>((p[1] - top) * kUnitsPerPixel + 0.5);
    const int below = units > 0 ? units : 0;
    xs[segment->corner] = atLeast < width ? atLeast : width;
    ys[segment->corner] = below < height ? below : height;
  }
}

template <typename L>
int joinCorners(const float* x, const std::int32_t* y, std::size_t count, Edge* edges) {
  using Floats = typename L::Floats;
  using Ints = typename L::Ints;
  DownRuns runs;
  for (std::size_t i = 0; i + 1 < count; i += 8) {
    const Ints y0 = Ints::load(y + i);
    const Ints y1 = Ints::load(y + i + 1);
    EdgeEight<L>{Floats::load(x + i), Floats::load(x + i + 1), y0, y1}.put(edges + i);
    runs.add(bits(y1 > y0), count - 1 - i);
  }
  return runs.count();
}

}  // namespace
}  // namespace glyphwright::raster::loops
