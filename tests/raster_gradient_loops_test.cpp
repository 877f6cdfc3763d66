// The loops that work out colours of gradients: every set of them against the plain one, bit for
// bit.

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/platform/raster/kernels.h>

#include "raster_kernels.h"

namespace glyphwright::raster {
namespace {

TEST_P(RasterKernels, ColoursMixTheSame) {
  for (std::size_t round = 0; round < 2000; ++round) {
    // Levels from 0.5 to 255.5 at either end; where they bend, they stay within.
    ColorStretch stretch;
    for (int c = 0; c < 4; ++c) {
      const auto level = [&] { return upTo(2) == 0 ? 255 * upTo(1) : upTo(255); };
      stretch.start[c] = level() + 0.5;
      stretch.change[c] = level() + 0.5 - stretch.start[c];
      stretch.bends = round % 2 == 0;
      if (c < 3 && stretch.bends) {
        stretch.bend[c] = upTo(8) * stretch.change[c] / 8;
        stretch.change[c] -= stretch.bend[c];
      }
    }
    double parts[75] = {};
    for (double& part : parts) part = upTo(1000) / 1000.0;
    const std::size_t count = round % 67 + 1;
    expectSame([&](const Kernels& loops) {
      std::array<std::uint8_t, 136 * 4> pixels{};
      loops.mixParts(stretch, parts, count, &pixels[0]);
      ColorSteps steps;
      steps.colors = stretch;
      steps.step = (parts[1] - parts[0]) / static_cast<double>(count);
      loops.prepareSteps(steps);
      loops.mixAlong(steps, parts[0], count, &pixels[68 * 4]);
      return pixels;
    });
    // One colour, the way and the other colour, at any distance from the row; NaN among the places.
    std::vector<ColorRun> runs(3);
    for (ColorRun& run : runs) {
      std::ranges::copy(stretch.start, run.start);
      std::ranges::copy(stretch.change, run.change);
      std::ranges::copy(stretch.bend, run.bend);
      run.bends = stretch.bends;
      run.isOpaque = round % 5 == 0;
      run.pixel = static_cast<std::uint32_t>(upTo(1 << 30));
    }
    runs[0] = {.from = -1e30F, .until = 0.2F, .pixel = runs[0].pixel};
    runs[1].from = 0.2F;
    runs[1].until = runs[2].from = real(0.3F, 1.2F);
    runs[1].perUnit = 1 / (runs[1].until - runs[1].from);
    runs[2].until = 1e30F;
    runs[2].perUnit = 0;
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    const double slope = round % 3 == 0 ? 0.0 : upTo(100) / 1000.0;
    const double x = round % 50 == 0 ? kNaN : parts[3];
    const double y = round % 4 == 0 ? 0.0 : parts[4];
    const PixelPlaces places{0.5 - upTo(60), upTo(100) / 1000.0, slope, x, y};
    expectSame([&](const Kernels& loops) {
      std::array<std::uint8_t, 136 * 4> pixels{};
      loops.mixRings(runs, places, count, &pixels[0]);
      loops.mixRays(runs, places, parts[5], count, &pixels[68 * 4]);
      return pixels;
    });
  }
}

}  // namespace
}  // namespace glyphwright::raster
