#pragma once

#include <cstddef>
#include <limits>

#include <glyphwright/platform/raster/kernels/edge_lanes.h>

/// What becomes of the corners of strokes, eight at a time.
namespace glyphwright::raster::loops {
namespace {

template <typename L>
CornerBox boxCorners(const float* x, const float* y, std::size_t count) {
  using Floats = typename L::Floats;
  constexpr float infinity = std::numeric_limits<float>::infinity();
  Floats minX = Floats::every(infinity), maxX = Floats::every(-infinity);
  Floats minY = minX, maxY = maxX;
  auto isNumber = minX == minX;  // NOLINT(misc-redundant-expression): NaN is not
  const auto add = [&](Floats atX, Floats atY) {
    minX = min(minX, atX);
    minY = min(minY, atY);
    maxX = max(maxX, atX);
    maxY = max(maxY, atY);
    isNumber = isNumber & (atX == atX) & (atY == atY);  // NOLINT(misc-redundant-expression)
  };
  std::size_t i = 0;
  for (; i + 8 <= count; i += 8) add(Floats::load(x + i), Floats::load(y + i));
  if (i < count && count >= 8) {
    // Some of the last eight have been seen before, which does no harm.
    add(Floats::load(x + count - 8), Floats::load(y + count - 8));
  } else {
    for (; i < count; ++i) add(Floats::every(x[i]), Floats::every(y[i]));
  }
  const auto chosen = [](Floats all, auto isNearer) {
    float v[8];
    store(v, all);
    for (std::size_t step = 4; step > 0; step /= 2) {
      for (std::size_t k = 0; k < step; ++k)
        v[k] = isNearer(v[k], v[k + step]) ? v[k] : v[k + step];
    }
    return v[0];
  };
  const auto least = [&](Floats all) {
    return chosen(all, [](float a, float b) { return a < b; });
  };
  const auto most = [&](Floats all) { return chosen(all, [](float a, float b) { return a > b; }); };
  return {least(minX), least(minY), most(maxX), most(maxY), !isZero(~isNumber)};
}

template <typename L>
int joinRing(const float* xs, const float* ys, std::size_t count, const RingShift& shift,
             bool backwards, Edge* edges) {
  using Floats = typename L::Floats;
  using Ints = typename L::Ints;
  const Floats shiftX = Floats::every(shift.x), shiftY = Floats::every(shift.y);
  const auto place = [&](std::size_t i) { return Floats::load(xs + i) + shiftX; };
  const auto units = [&](std::size_t i) {
    const Floats y = (Floats::load(ys + i) + shiftY) * Floats::every(kUnitsPerPixel);
    return truncated(y + Floats::every(0.5F));
  };
  // Where edges begin and end, counted from each corner.
  const std::size_t begin = backwards ? 1 : 0;
  const std::size_t end = backwards ? 0 : 1;
  DownRuns runs;
  for (std::size_t i = 0; i + 1 < count; i += 8) {
    const Ints y0 = units(i + begin);
    const Ints y1 = units(i + end);
    EdgeEight<L>{place(i + begin), place(i + end), y0, y1}.put(edges + i);
    runs.add(bits(y1 > y0), count - 1 - i);
  }
  return runs.count();
}

}  // namespace
}  // namespace glyphwright::raster::loops
