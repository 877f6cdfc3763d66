// Every set of loops against the plain one, on any input that they may be given: equal bit for bit.

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>
#include <vector>

#include <glyphwright/platform/raster/cells.h>
#include <glyphwright/platform/raster/kernels.h>

#include "input.h"

namespace {

using namespace glyphwright;
using namespace glyphwright::raster;

void require(bool holds) {
  if (!holds) __builtin_trap();
}

SolidColor color(fuzz::Input& input) {
  std::uint8_t bytes[4];
  bytes[3] = input.byte();
  for (int c = 0; c < 3; ++c) bytes[c] = std::min(input.byte(), bytes[3]);
  std::uint32_t pixel = 0;
  std::memcpy(&pixel, bytes, sizeof(pixel));
  return solidColor(pixel);
}

std::vector<std::uint16_t> coverage(fuzz::Input& input, std::size_t count) {
  std::vector<std::uint16_t> values(count);
  for (auto& v : values) {
    const int level = input.byte();
    v = static_cast<std::uint16_t>(level == 255 ? kOne : level << 7 | level >> 1);
  }
  return values;
}

std::vector<std::uint8_t> pixels(fuzz::Input& input, std::size_t count) {
  std::vector<std::uint8_t> rgba;
  for (std::size_t i = 0; i < count; ++i) {
    const std::uint8_t alpha = input.byte();
    for (int c = 0; c < 3; ++c) rgba.push_back(std::min(input.byte(), alpha));
    rgba.push_back(alpha);
  }
  return rgba;
}

// Paths further away are cut off before they come to the loops.
double finite(double value) {
  return std::abs(value) < 1e6 ? value : 0;
}

// From curves to a painted picture: what each step makes, one after the other.
struct Drawing {
  std::vector<float> x;
  std::vector<std::int32_t> y;
  std::vector<Edge> edges;
  std::vector<std::int32_t> wide;
  std::vector<std::int16_t> narrow;
  std::vector<std::uint16_t> inset;
  std::vector<std::uint8_t> painted;

  bool operator==(const Drawing& other) const {
    return x == other.x && y == other.y && wide == other.wide && narrow == other.narrow &&
           inset == other.inset && painted == other.painted;
  }
};

struct Request {
  std::vector<double> points;
  std::size_t curves = 0;
  CurveFrame frame{};
  FillRule rule = FillRule::nonZero;
  SolidColor ink;
  std::vector<std::uint8_t> ground;
};

Drawing draw(const Request& request, const Kernels& table) {
  Drawing drawing;
  std::vector<Curve> curves;
  for (std::uint32_t i = 0; i < request.curves; ++i) curves.push_back({3 * i, i, 0, 0});
  const CurveFrame& frame = request.frame;
  table.countChords(curves.data(), curves.size(), request.points.data(), frame);
  std::uint32_t corners = 0;
  std::vector<Segment> ends;
  for (Curve& curve : curves) {
    require(curve.chords >= 1 && curve.chords <= kMaxChords);
    curve.corner = corners;
    corners += curve.chords;
    ends.push_back({curve.point + 3, corners - 1});
  }
  drawing.x.resize(corners + 9);
  drawing.y.resize(corners + 9);
  float* const x = drawing.x.data();
  std::int32_t* const y = drawing.y.data();
  table.sampleCurves(curves.data(), curves.size(), request.points.data(), frame, x, y);
  table.placeEnds(ends.data(), ends.size(), request.points.data(), frame, x, y);
  x[corners] = x[0];
  y[corners] = y[0];
  // What is written past the corners may be anything.
  std::fill(drawing.x.begin() + corners + 1, drawing.x.end(), 0.0F);
  std::fill(drawing.y.begin() + corners + 1, drawing.y.end(), 0);
  drawing.edges.resize(corners + 9);
  const int runs =
      table.joinCorners(drawing.x.data(), drawing.y.data(), corners + 1, drawing.edges.data());
  drawing.edges.resize(corners);
  const auto rows = static_cast<std::size_t>(frame.height / kUnitsPerPixel);
  const std::size_t stride = static_cast<std::size_t>(cellStride(static_cast<int>(frame.width)));
  std::vector<std::uint8_t> touched(stride / kBlock * rows + kTouchedMargin);
  drawing.wide.resize(stride * rows);
  accumulate<std::int32_t>(
      drawing.edges, {drawing.wide.data(), stride, touched.data(), 0, static_cast<int>(rows), 0},
      table);
  if (runs / 2 > kNarrowWindingLimit) return drawing;
  const auto cellsAgain = [&] {
    std::vector<std::int16_t> cells(stride * rows);
    std::fill(touched.begin(), touched.end(), 0);
    accumulate<std::int16_t>(
        drawing.edges, {cells.data(), stride, touched.data(), 0, static_cast<int>(rows), 0}, table);
    return cells;
  };
  std::vector<std::int16_t> cells = drawing.narrow = cellsAgain();
  drawing.inset.resize(2 * stride);
  table.sumInset(cells.data(), stride, request.rule, drawing.inset.data(), &drawing.inset[stride]);
  const auto width = static_cast<std::size_t>(frame.width);
  drawing.painted = request.ground;
  cells = cellsAgain();
  table.blendCells(drawing.painted.data(), width * 4,
                   {cells.data(), stride, touched.data(), rows, width, request.rule}, request.ink);
  require(std::ranges::all_of(cells, [](std::int16_t cell) { return cell == 0; }));
  return drawing;
}

void fuzzDrawing(fuzz::Input& input, const Kernels& fast, const Kernels& plain) {
  const auto side = static_cast<int>(1 + input.below(70));
  Request request;
  request.curves = 1 + input.below(6);
  request.frame = {finite(input.number()), finite(input.number()), static_cast<float>(side),
                   side * kUnitsPerPixel, 900.0F};
  request.rule = input.coin() ? FillRule::nonZero : FillRule::evenOdd;
  request.ink = color(input);
  for (std::size_t i = 0; i < 2 * (3 * request.curves + 1); ++i) {
    request.points.push_back(finite(input.coin() ? input.byte() / 3.0 - 4 : input.number()));
  }
  request.ground = pixels(input, 3);
  request.ground.resize(static_cast<std::size_t>(side * side) * 4 + 4 * kBlock);
  require(draw(request, fast) == draw(request, plain));
}

void fuzzColors(fuzz::Input& input, const Kernels& fast, const Kernels& plain) {
  ColorStretch stretch;
  stretch.bends = input.coin();
  for (int c = 0; c < 4; ++c) {
    stretch.start[c] = static_cast<float>(input.byte()) + 0.5F;
    stretch.change[c] = static_cast<float>(input.byte()) + 0.5F - stretch.start[c];
    if (c < 3 && stretch.bends)
      stretch.bend[c] = static_cast<float>(input.below(9)) * stretch.change[c] / 8;
    if (c < 3) stretch.change[c] -= stretch.bend[c];
  }
  const std::size_t count = 1 + input.below(40);
  double parts[48] = {};
  for (std::size_t i = 0; i < count; ++i) parts[i] = input.byte() / 255.0;
  const double step = (parts[1] - parts[0]) / static_cast<double>(count);
  for (const bool along : {false, true}) {
    std::vector<std::uint8_t> made[2];
    for (auto& pixels : made) pixels.resize(4 * (count + 1), 7);
    for (const int k : {0, 1}) {
      const Kernels& table = k == 0 ? fast : plain;
      if (along) {
        ColorSteps steps;
        steps.colors = stretch;
        steps.step = step;
        table.prepareSteps(steps);
        table.mixAlong(steps, parts[0], count, made[k].data());
      }
      if (!along) table.mixParts(stretch, parts, count, made[k].data());
    }
    require(made[0] == made[1]);
  }
}

void fuzzPixels(fuzz::Input& input, const Kernels& fast, const Kernels& plain) {
  const std::size_t count = 1 + input.below(70);
  const auto levels = coverage(input, count);
  const auto others = coverage(input, count);
  const auto source = pixels(input, count);
  const auto below = pixels(input, count + 3);
  const SolidColor ink = color(input);
  const SolidColor shade = color(input);
  const auto run = [&](const Kernels& k) {
    std::vector<std::vector<std::uint8_t>> made(6, below);
    k.writeSolid(made[0].data(), levels.data(), count, ink);
    k.blendSolid(made[1].data(), levels.data(), count, ink);
    k.writePixels(made[2].data(), levels.data(), count, source.data());
    k.blendPixels(made[3].data(), levels.data(), count, source.data());
    k.writeInset(made[4].data(), {levels.data(), others.data(), levels.data()}, count, ink, shade);
    auto product = levels;
    k.multiplyCoverage(product.data(), others.data(), count);
    made[5].assign(reinterpret_cast<const std::uint8_t*>(product.data()),
                   reinterpret_cast<const std::uint8_t*>(product.data() + count));
    return made;
  };
  require(run(fast) == run(plain));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input first(data, size);
  const std::size_t kind = first.below(4);
  const Kernels& plain = kernelSets().back().loops();
  for (const KernelSet& set : kernelSets().first(kernelSets().size() - 1)) {
    if (!set.runsHere()) continue;
    fuzz::Input input = first;
    if (kind == 0) fuzzColors(input, set.loops(), plain);
    if (kind == 1) fuzzPixels(input, set.loops(), plain);
    if (kind > 1) fuzzDrawing(input, set.loops(), plain);
  }
  return 0;
}
