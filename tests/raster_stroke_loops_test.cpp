// The loops that outline strokes: every set of them against the plain one, bit for bit.

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/platform/path.h>
#include <glyphwright/platform/raster/cells.h>
#include <glyphwright/platform/raster/kernels.h>
#include <glyphwright/platform/raster/stroke.h>
#include <glyphwright/platform/raster/stroke_edges.h>
#include <glyphwright/platform/raster/stroke_outline.h>

#include "raster_kernels.h"

namespace glyphwright::raster {
namespace {

TEST_P(RasterKernels, SidesOfStrokesAreTheSame) {
  int mixed = 0;
  int followed = 0;
  int folded = 0;
  for (const float size : {0.0F, 1.0F, 40.0F, 9000.0F}) {
    for (int round = 0; round < 100; ++round) {
      StrokeCubic curve{};
      for (float* v : {&curve.startX, &curve.startY, &curve.legX, &curve.legY}) {
        *v = real(-size, size);
      }
      for (float* v : {&curve.bendX, &curve.bendY, &curve.changeX, &curve.changeY}) {
        *v = real(-size, size) * 0.3F;
      }
      const float half = real(0.01F, 3);
      // A quarter of a circle that folds, or nearly does.
      if (round % 4 == 0) {
        const float r = half * real(0.1F, 1.6F);
        const float m = round % 8 == 0 ? r : -r;
        curve = {1, 2, 0, 0.5523F * r, -0.4477F * m, -0.1046F * r, 0.3431F * m, -0.3431F * r};
      }
      const int chords = static_cast<int>(real(1, round % 3 == 0 ? 4 : 41));
      // Between two lines, the first of which has a node of two corners.
      SegmentMemory memory;
      const StrokeSegments& s = memory.roomFor(3);
      s.chords[0] = s.chords[2] = 1;
      s.chords[1] = round % 7 == 0 ? -chords : chords;
      s.cubics[1] = curve;
      StrokeNode nodes[3] = {};
      for (StrokeNode& node : nodes) {
        node = {{{1, 2, 3}, 2, {4, 5, 6}, 0}, {{7, 8, 9}, 1, {9, 8, 7}, 0}};
      }
      const auto [reached, left, right] = expectSame([&](const Kernels& loops) {
        std::vector<float> x[2];
        std::vector<float> y[2];
        for (const int k : {0, 1}) {
          x[k].resize(64);
          y[k].resize(64);
        }
        SideEnds sides{x[0].data(), y[0].data(), x[1].data(), y[1].data()};
        const std::size_t until = loops.putSides(s, nodes, {0, 3, 0, 2, true}, {half, 0.4F}, sides);
        const auto cut = [](std::vector<float>& values, const float* end) {
          values.resize(static_cast<std::size_t>(end - values.data()));
        };
        cut(x[0], sides.leftX);
        cut(y[0], sides.leftY);
        cut(x[1], sides.rightX);
        cut(y[1], sides.rightY);
        EXPECT_TRUE(x[0].size() == y[0].size() && x[1].size() == y[1].size());
        return std::tuple(until, std::pair(x[0], y[0]), std::pair(x[1], y[1]));
      });
      // Three nodes and what is between the curve's ends: all of it, or the middle of the curve.
      const std::size_t inner = static_cast<std::size_t>(chords) - 1;
      if (reached == 1) {
        ++mixed;
      } else if (left.first.size() == 6 + inner && right.first.size() == 3 + inner) {
        ++followed;
      } else {
        ASSERT_TRUE(left.first.size() == 7 || right.first.size() == 4);
        ++folded;
      }
    }
  }
  for (const int times : {mixed, followed, folded}) EXPECT_GT(times, 20);
}

// Cubics of all kinds: gentle ones, tight ones, cusps, and ends without a direction; and where they
// are, with seven more.
struct SomeCubics {
  SomeCubics(std::size_t count, std::mt19937& random) : cubics(count) {
    const auto real = [&](double low, double high) {
      return std::uniform_real_distribution<double>(low, high)(random);
    };
    for (std::size_t i = 0; i < count; ++i) {
      const double size = std::vector{1e-9, 0.5, 4.0, 40.0, 9000.0}[i % 5];
      std::vector<double>& p = cubics[i];
      p.resize(8);
      for (double& v : p) v = real(-size, size);
      const double turn = real(-1, 1) * size;
      if (i % 3 != 0) p = {0, 0, size, 0, 2 * size, turn, 3 * size, 3 * turn};
      if (i % 7 == 0) p[4] = p[2], p[5] = p[3];
      if (i % 11 == 0) p[2] = p[0], p[3] = p[1];
      if (i % 13 == 0) std::fill(p.begin(), p.end(), 3.0);
    }
    for (const auto& cubic : cubics) places.push_back(cubic.data());
    places.resize(count + 7, places.back());
  }
  std::vector<std::vector<double>> cubics;
  std::vector<const double*> places;
};

TEST_P(RasterKernels, SegmentsArePreparedTheSame) {
  int gentle = 0;
  int tight = 0;
  int without = 0;
  for (const float half : {0.5F, 1.0F, 30.0F}) {
    for (std::size_t count = 1; count < 60; ++count) {
      const SomeCubics some(count, random_);
      const auto prepared = expectSame([&](const Kernels& loops) {
        SegmentMemory memory;
        const StrokeSegments& s = memory.roomFor(count);
        loops.prepareSegments(some.places.data(), count, {12, -7, half, 25, half * 4}, s);
        const auto lists = {s.startX,    s.startY,     s.startAlongX, s.startAlongY, s.endAlongX,
                            s.endAlongY, s.startReach, s.endReach,    s.sector};
        std::pair<std::vector<int>, std::vector<float>> all;
        for (std::size_t i = 0; i < count; ++i) {
          all.first.push_back(s.chords[i]);
          if (s.chords[i] == 0) continue;
          for (const float* list : lists) all.second.push_back(list[i]);
          float cubic[8];
          static_assert(sizeof cubic == sizeof s.cubics[i]);
          std::memcpy(cubic, &s.cubics[i], sizeof cubic);
          all.second.insert(all.second.end(), cubic, cubic + 8);
        }
        return all;
      });
      for (const int chords : prepared.first) {
        (chords == 0 ? without : (chords < 0 ? tight : gentle)) += 1;
      }
    }
  }
  for (const int times : {gentle, tight, without}) EXPECT_GT(times, 300);
}

TEST_P(RasterKernels, BoxesOfCornersAreTheSame) {
  constexpr std::size_t kMargin = 8;
  for (std::size_t count = 1; count < 40; ++count) {
    std::vector<float> x(count + 2 * kMargin, 1e30F);
    std::vector<float> y = x;
    for (std::size_t i = kMargin; i < kMargin + count; ++i) {
      x[i] = real(-40, 140);
      y[i] = count % 3 == 0 ? std::clamp(real(-40, 140), 0.0F, 90.0F) : real(-40, 140);
    }
    if (count == 17) y[kMargin + 9] = NAN;
    const float* fromX = x.data() + kMargin;
    const float* fromY = y.data() + kMargin;
    expectSame([&](const Kernels& loops) {
      const CornerBox box = loops.boxCorners(fromX, fromY, count);
      EXPECT_EQ(box.hasNaN, count == 17);
      return box.hasNaN ? std::vector<float>{}
                        : std::vector{box.minX, box.minY, box.maxX, box.maxY};
    });
  }
}

TEST_P(RasterKernels, SegmentsJoinTheSame) {
  int straightOn = 0;
  int corners[4] = {};
  for (const NodePen& pen :
       {NodePen{0.5F, 9e-4F, 50, 0.03F}, NodePen{3, 1e-4F, 2, 0.01F}, NodePen{1, 1e-4F, 0, 1}}) {
    for (std::size_t count = 1; count < 40; ++count) {
      const SomeCubics some(count + 1, random_);
      // Some neighbours run on, and some turn back.
      SegmentMemory memory;
      const StrokeSegments& s = memory.roomFor(count + 1);
      plain_.prepareSegments(some.places.data(), count + 1, {0, 0, pen.half, 25, 4}, s);
      for (std::size_t i = 1; i < count; i += 5) {
        const float sign = i % 2 == 0 ? 1 : -1;
        s.startAlongX[i + 1] = sign * s.endAlongX[i];
        s.startAlongY[i + 1] = sign * s.endAlongY[i];
      }
      expectSame([&](const Kernels& loops) {
        std::vector<StrokeNode> nodes(count + 8);
        loops.joinSegments(s, count, pen, nodes.data());
        std::vector<float> all;
        for (std::size_t i = 0; i < count; ++i) {
          if (s.chords[i] == 0 || s.chords[i + 1] == 0) continue;
          straightOn += nodes[i].left.count + nodes[i].right.count == 2 ? 1 : 0;
          for (const NodeSide* side : {&nodes[i].left, &nodes[i].right}) {
            ++corners[side->count];
            all.push_back(static_cast<float>(side->count));
            all.insert(all.end(), side->x, side->x + side->count);
            all.insert(all.end(), side->y, side->y + side->count);
            all.push_back(side->band);
          }
        }
        return all;
      });
    }
  }
  for (const int times : {straightOn, corners[1], corners[2], corners[3]}) EXPECT_GT(times, 80);
}

TEST_P(RasterKernels, RingsJoinTheSame) {
  for (std::size_t lines = 1; lines < 40; ++lines) {
    std::vector<float> x(lines + 9);
    std::vector<float> y(lines + 9);
    for (std::size_t i = 0; i <= lines; ++i) {
      x[i] = real(-4, 25);
      y[i] = real(-4, 25) / (lines % 4 == 0 ? 5.0F : 1.0F);
    }
    for (const bool backwards : {false, true}) {
      const auto [runs, all] = expectSame([&](const Kernels& loops) {
        std::vector<Edge> edges(lines + 8);
        const int count =
            loops.joinRing(x.data(), y.data(), lines + 1, {2, -3}, backwards, edges.data());
        std::vector<std::tuple<float, float, int, int>> each;
        for (std::size_t i = 0; i < lines; ++i) {
          each.emplace_back(edges[i].x0, edges[i].x1, edges[i].y0, edges[i].y1);
        }
        return std::pair(count, each);
      });
      EXPECT_GE(runs, 0);
      EXPECT_EQ(std::get<0>(all[0]), x[backwards ? 1 : 0] + 2);
    }
  }
}

// What bounds the windings decides whether narrow cells will do: too low a bound would let them
// overflow, too high a one would be slow.
TEST(StrokeEdges, WindingsAreBoundedByWhatLiesAbreast) {
  struct Case {
    std::string_view name;
    CGPath shape;  // at the origin, 10 pixels wide and high
    int columns;
    int rows;
    int abreast;  // the most that run down beside each other in a row
    int height;   // of the region
  };
  CGPath circle;
  circle.addEllipseInRect({0, 0, 10, 10});
  CGPath line;
  line.moveToPoint({5, 0});
  line.addLineToPoint({5, 10});
  CGPath tooth;
  tooth.moveToPoint({0, 0});
  tooth.addLineToPoint({5, 10});
  tooth.addLineToPoint({10, 0});
  const Case cases[] = {
      {"few rings in many rows", circle, 4, 20, 8, 480},
      {"rings abreast", circle, 20, 3, 40, 72},
      {"open lines", line, 30, 4, 30, 96},
      {"open lines that turn", tooth, 18, 3, 36, 72},
      {"rings that the region cuts", circle, 20, 3, 40, 40},
      {"turns that the region cuts", tooth, 18, 3, 36, 40},
  };
  for (const Case& c : cases) {
    CGPath path;
    for (int i = 0; i < c.columns * c.rows; ++i) {
      const int row = i / c.columns;
      const auto at =
          CGAffineTransformMakeTranslation(24 * (i - row * c.columns) + 4, 24 * row + 4);
      CGPath placed = c.shape;
      placed.applyTransform(at);
      path.addPath(placed);
    }
    std::vector<CGPoint> points;
    const DeviceBox around = mapPoints(path, CGAffineTransformIdentity, points);
    const PixelRect region{0, 0, 24 * c.columns, c.height};
    const StrokeStyle style;
    StrokeOutline outline;
    setOrigin(outline, around, region);
    PiecesBox pieces(kernels());
    const Stroke stroke{2, style, kStrokeTolerance, CGAffineTransformIdentity, around};
    ASSERT_TRUE(strokeOutline(path, points, stroke, kernels(), outline, pieces));
    EdgeList edges;
    {
      OutlineEdges writer(edges, boxOf(outline, kernels()), region, outline, kernels());
      writer.take(outline);
      writer.finish();
    }
    EXPECT_EQ(edges.verticalRuns / 2, c.abreast) << c.name;
  }
}

}  // namespace
}  // namespace glyphwright::raster
