#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include <glyphwright/platform/raster/kernels/gradients.h>

/// The colours of gradients that go round a centre.
namespace glyphwright::raster::loops {
namespace {

/// Eight pixels of a run's colours, at places that lie in it.
template <typename L>
typename L::Ints runPixels(const ColorRun& run, typename L::Floats places) {
  using Floats = typename L::Floats;
  using Ints = typename L::Ints;
  if (run.perUnit == 0) return Ints::every(static_cast<std::int32_t>(run.pixel));
  const Floats part = (places - Floats::every(run.from)) * Floats::every(run.perUnit);
  const auto along = [&](int c) {
    return Floats::every(run.start[c]) + part * Floats::every(run.change[c]);
  };
  if (run.isOpaque) {
    return interleaved(truncated(along(0)), truncated(along(1)), truncated(along(2)),
                       Ints::every(0xFF));
  }
  const Floats alpha = along(3);
  const auto level = [&](int c) {
    const Floats exact =
        run.bends ? Floats::every(run.start[c]) +
                        part * (Floats::every(run.change[c]) + part * Floats::every(run.bend[c]))
                  : along(c);
    return truncated(min(exact, alpha));
  };
  return interleaved(level(0), level(1), level(2), truncated(alpha));
}

/// Eight pixels at places of which some may lie in other runs. No number is before all.
template <typename L>
typename L::Ints pixelsOfRuns(std::span<const ColorRun> runs, typename L::Floats places,
                              std::size_t& current) {
  using Floats = typename L::Floats;
  constexpr unsigned kAll = 0xFF;
  const auto begun = [&](std::size_t run) { return places >= Floats::every(runs[run].from); };
  if (bits(begun(current) & (places < Floats::every(runs[current].until))) == kAll) {
    return runPixels<L>(runs[current], places);
  }
  if (bits(begun(current)) != kAll) current = 0;
  while (current + 1 < runs.size() && bits(begun(current + 1)) == kAll) ++current;
  const auto held = [&](const ColorRun& run) {
    return max(min(places, Floats::every(run.until)), Floats::every(run.from));
  };
  auto pixels = runPixels<L>(runs[current], held(runs[current]));
  for (std::size_t next = current + 1; next < runs.size(); ++next) {
    const auto there = begun(next);
    if (bits(there) == 0) break;
    pixels = select(there, runPixels<L>(runs[next], held(runs[next])), pixels);
  }
  return pixels;
}

/// Calls `place` for eight pixels at a time. They are placed in double: a centre may lie far from
/// the row's beginning, and what is near it takes all digits.
template <typename L, typename Place>
void mixAbout(std::span<const ColorRun> runs, const PixelPlaces& places, std::size_t count,
              std::uint8_t* rgba, const Place& place) {
  using Doubles = typename L::Doubles;
  Doubles low = Doubles::every(places.column) + numbers<Doubles>();
  Doubles high = low + Doubles::every(4);
  const auto placed = [&](double perColumn, double origin) {
    const auto four = [&](Doubles columns) {
      return narrowed(Doubles::every(perColumn) * columns + Doubles::every(origin));
    };
    return joined(four(low), four(high));
  };
  // Most rows run straight across, and their y stays.
  const bool isLevel = places.perColumnY == 0;
  auto y = placed(places.perColumnY, places.y);
  std::size_t current = 0;
  for (std::size_t i = 0; i < count; i += 8) {
    if (!isLevel) y = placed(places.perColumnY, places.y);
    const auto pixels =
        pixelsOfRuns<L>(runs, place(placed(places.perColumnX, places.x), y), current);
    storeFirst(rgba + i * 4, pixels, count - i);
    low = low + Doubles::every(8);
    high = high + Doubles::every(8);
  }
}

template <typename L>
void mixRings(std::span<const ColorRun> runs, const PixelPlaces& places, std::size_t count,
              std::uint8_t* rgba) {
  using Floats = typename L::Floats;
  mixAbout<L>(runs, places, count, rgba, [](Floats x, Floats y) { return sqrt(x * x + y * y); });
}

/// The angle of x, y in turns, from 0 to 1, and 0 at 0, 0: within 1e-7 of the exact one, and exact
/// along the axes and where x = ±y.
template <typename Floats>
Floats turns(Floats x, Floats y) {
  // atan t = t · p(t²) turns over 0…1. (p(u) − 1/8) / (1 − u) is interpolated at Chebyshev's nodes,
  // so that p(1) is an eighth; then the first three moved by a last place until it is so in floats.
  constexpr float kOdd[] = {0.159154892F,  -0.0530460216F,  0.0317321382F,  -0.0220317766F,
                            0.0150266588F, -0.00842206273F, 0.00313372444F, -0.000547557429F};
  const Floats zero = Floats::every(0);
  const Floats along = abs(x);
  const Floats across = abs(y);
  const Floats t = min(along, across) / max(max(along, across), Floats::every(1e-37F));
  const Floats square = t * t;
  Floats p = Floats::every(kOdd[7]);
  for (int i = 6; i >= 0; --i) p = p * square + Floats::every(kOdd[i]);
  Floats angle = p * t;
  angle = select(across > along, Floats::every(0.25F) - angle, angle);
  angle = select(x < zero, Floats::every(0.5F) - angle, angle);
  return select(y < zero, Floats::every(1) - angle, angle);
}

template <typename L>
void mixRays(std::span<const ColorRun> runs, const PixelPlaces& places, double origin,
             std::size_t count, std::uint8_t* rgba) {
  using Floats = typename L::Floats;
  const Floats first = Floats::every(static_cast<float>(origin));
  mixAbout<L>(runs, places, count, rgba, [&](Floats x, Floats y) {
    const Floats past = turns(x, y) - first;
    return select(past < Floats::every(0), past + Floats::every(1), past);
  });
}

}  // namespace
}  // namespace glyphwright::raster::loops
