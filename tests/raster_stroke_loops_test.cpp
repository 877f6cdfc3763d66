// The loops that outline strokes: this machine's against the scalar ones, bit for bit.

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <random>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/platform/path.h>
#include <glyphwright/platform/raster/cells.h>
#include <glyphwright/platform/raster/kernels.h>
#include <glyphwright/platform/raster/stroke.h>
#include <glyphwright/platform/raster/stroke_outline.h>

namespace glyphwright::raster {
namespace {

TEST(StrokeLoops, CurvesSampleTheSameOnEveryMachine) {
  std::mt19937 random(20240608);
  const auto real = [&](float low, float high) {
    return std::uniform_real_distribution<float>(low, high)(random);
  };
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
        const float radius = half * real(0.1F, 1.6F);
        const float mirror = round % 8 == 0 ? radius : -radius;
        curve = {1,
                 2,
                 0,
                 0.5523F * radius,
                 -0.4477F * mirror,
                 -0.1046F * radius,
                 0.3431F * mirror,
                 -0.3431F * radius};
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
      std::vector<float> to[2][4];
      std::size_t counts[2][2];
      std::size_t reached[2];
      for (const int k : {0, 1}) {
        for (auto& side : to[k]) side.assign(64, -1);
        SideEnds sides{to[k][0].data(), to[k][1].data(), to[k][2].data(), to[k][3].data()};
        reached[k] = (k == 0 ? kernels() : kernelSets().back().loops())
                         .putSides(s, nodes, {0, 3, 0, 2}, {half, 0.4F}, sides);
        counts[k][0] = static_cast<std::size_t>(sides.leftX - to[k][0].data());
        counts[k][1] = static_cast<std::size_t>(sides.rightX - to[k][2].data());
        ASSERT_EQ(sides.leftY - to[k][1].data(), sides.leftX - to[k][0].data());
        ASSERT_EQ(sides.rightY - to[k][3].data(), sides.rightX - to[k][2].data());
      }
      ASSERT_EQ(reached[0], reached[1]);
      for (std::size_t side = 0; side < 4; ++side) {
        const std::size_t count = counts[1][side / 2];
        ASSERT_EQ(counts[0][side / 2], count);
        for (std::size_t i = 0; i < count; ++i) ASSERT_EQ(to[0][side][i], to[1][side][i]);
      }
      // Three nodes and what is between the curve's ends: all of it, or the middle of the curve.
      const std::size_t inner = static_cast<std::size_t>(chords) - 1;
      if (reached[1] == 1) {
        ++mixed;
      } else if (counts[1][0] == 6 + inner && counts[1][1] == 3 + inner) {
        ++followed;
      } else {
        ASSERT_TRUE(counts[1][0] == 7 || counts[1][1] == 4);
        ++folded;
      }
    }
  }
  for (const int times : {mixed, followed, folded}) EXPECT_GT(times, 20);
}

// Cubics of all kinds: gentle ones, tight ones, cusps, and ends without a direction.
std::vector<std::vector<double>> someCubics(std::size_t count, std::mt19937& random) {
  const auto real = [&](double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random);
  };
  std::vector<std::vector<double>> cubics;
  for (std::size_t i = 0; i < count; ++i) {
    const double size = std::vector{1e-9, 0.5, 4.0, 40.0, 9000.0}[i % 5];
    std::vector<double> p(8);
    for (double& v : p) v = real(-size, size);
    const double turn = real(-1, 1) * size;
    if (i % 3 != 0) p = {0, 0, size, 0, 2 * size, turn, 3 * size, 3 * turn};
    if (i % 7 == 0) p[4] = p[2], p[5] = p[3];
    if (i % 11 == 0) p[2] = p[0], p[3] = p[1];
    if (i % 13 == 0) std::fill(p.begin(), p.end(), 3.0);
    cubics.push_back(p);
  }
  return cubics;
}

TEST(StrokeLoops, CurvesArePreparedTheSameOnEveryMachine) {
  std::mt19937 random(20240610);
  int gentle = 0;
  int tight = 0;
  int without = 0;
  for (const float half : {0.5F, 1.0F, 30.0F}) {
    for (std::size_t count = 1; count < 60; ++count) {
      const auto cubics = someCubics(count, random);
      std::vector<const double*> points;
      for (const auto& cubic : cubics) points.push_back(cubic.data());
      points.resize(points.size() + 7, points.back());
      const SegmentPen pen{12, -7, half, 25, half * 4};
      SegmentMemory memory[2];
      const StrokeSegments& fast = memory[0].roomFor(count);
      const StrokeSegments& plain = memory[1].roomFor(count);
      kernels().prepareSegments(points.data(), count, pen, fast);
      kernelSets().back().loops().prepareSegments(points.data(), count, pen, plain);
      for (std::size_t i = 0; i < count; ++i) {
        ASSERT_EQ(fast.chords[i], plain.chords[i]);
        (plain.chords[i] == 0 ? without : (plain.chords[i] < 0 ? tight : gentle)) += 1;
        if (plain.chords[i] == 0) continue;
        for (const auto list :
             {&StrokeSegments::startX, &StrokeSegments::startY, &StrokeSegments::startAlongX,
              &StrokeSegments::startAlongY, &StrokeSegments::endAlongX, &StrokeSegments::endAlongY,
              &StrokeSegments::startReach, &StrokeSegments::endReach}) {
          ASSERT_EQ((fast.*list)[i], (plain.*list)[i]);
        }
        for (const auto member : {&StrokeCubic::startX, &StrokeCubic::startY, &StrokeCubic::legX,
                                  &StrokeCubic::legY, &StrokeCubic::bendX, &StrokeCubic::bendY,
                                  &StrokeCubic::changeX, &StrokeCubic::changeY}) {
          ASSERT_EQ(fast.cubics[i].*member, plain.cubics[i].*member);
        }
      }
    }
  }
  EXPECT_GT(gentle, 300);
  EXPECT_GT(tight, 300);
  EXPECT_GT(without, 300);
}

TEST(StrokeLoops, CornersArePlacedTheSameOnEveryMachine) {
  std::mt19937 random(20240609);
  std::uniform_real_distribution<float> real(-40, 140);
  constexpr std::size_t kMargin = 8;
  for (std::size_t count = 1; count < 40; ++count) {
    std::vector<float> x(count + 2 * kMargin, 1e30F);
    std::vector<float> y = x;
    for (std::size_t i = kMargin; i < kMargin + count; ++i) {
      x[i] = real(random);
      y[i] = count % 3 == 0 ? std::clamp(real(random), 0.0F, 90.0F) : real(random);
    }
    if (count == 17) y[kMargin + 9] = NAN;
    const float* fromX = x.data() + kMargin;
    const float* fromY = y.data() + kMargin;
    const CornerBox a = kernels().boxCorners(fromX, fromY, count);
    const CornerBox b = kernelSets().back().loops().boxCorners(fromX, fromY, count);
    ASSERT_EQ(a.hasNaN, b.hasNaN);
    ASSERT_EQ(a.hasNaN, count == 17);
    if (!a.hasNaN) {
      ASSERT_EQ(a.minX, b.minX);
      ASSERT_EQ(a.minY, b.minY);
      ASSERT_EQ(a.maxX, b.maxX);
      ASSERT_EQ(a.maxY, b.maxY);
    }
    for (const bool backwards : {false, true}) {
      std::vector<float> placedX[2];
      std::vector<std::int32_t> placedY[2];
      std::vector<std::uint8_t> outside[2];
      for (const int k : {0, 1}) {
        placedX[k].resize(count + kMargin);
        placedY[k].resize(count + kMargin);
        outside[k].resize((count + 7) / 8);
        (k == 0 ? kernels() : kernelSets().back().loops())
            .placeCorners(fromX, fromY, count, backwards, {2.5F, -3, 100, 90},
                          {placedX[k].data(), placedY[k].data(), outside[k].data()});
        placedX[k].resize(count);
        placedY[k].resize(count);
      }
      ASSERT_EQ(placedX[0], placedX[1]);
      ASSERT_EQ(placedY[0], placedY[1]);
      ASSERT_EQ(outside[0], outside[1]);
    }
  }
}

TEST(StrokeLoops, NodesJoinTheSameOnEveryMachine) {
  std::mt19937 random(20240612);
  int straightOn = 0;
  int corners[4] = {};
  for (const NodePen& pen :
       {NodePen{0.5F, 9e-4F, 50, 0.03F}, NodePen{3, 1e-4F, 2, 0.01F}, NodePen{1, 1e-4F, 0, 1}}) {
    for (std::size_t count = 1; count < 40; ++count) {
      const auto cubics = someCubics(count + 1, random);
      std::vector<const double*> points;
      for (const auto& cubic : cubics) points.push_back(cubic.data());
      points.resize(points.size() + 7, points.back());
      // Some neighbours run on, and some turn back.
      SegmentMemory memory;
      const StrokeSegments& s = memory.roomFor(count + 1);
      kernels().prepareSegments(points.data(), count + 1, {0, 0, pen.half, 25, 4}, s);
      for (std::size_t i = 1; i < count; i += 5) {
        const float sign = i % 2 == 0 ? 1 : -1;
        s.startAlongX[i + 1] = sign * s.endAlongX[i];
        s.startAlongY[i + 1] = sign * s.endAlongY[i];
      }
      std::vector<StrokeNode> nodes[2];
      for (auto& list : nodes) list.resize(count + 8);
      kernels().joinSegments(s, count, pen, nodes[0].data());
      kernelSets().back().loops().joinSegments(s, count, pen, nodes[1].data());
      for (std::size_t i = 0; i < count; ++i) {
        if (s.chords[i] == 0 || s.chords[i + 1] == 0) continue;
        straightOn += nodes[0][i].left.count + nodes[0][i].right.count == 2 ? 1 : 0;
        for (const auto side : {&StrokeNode::left, &StrokeNode::right}) {
          const NodeSide& fast = nodes[0][i].*side;
          const NodeSide& plain = nodes[1][i].*side;
          ASSERT_EQ(fast.count, plain.count);
          ++corners[plain.count];
          for (int k = 0; k < plain.count; ++k) {
            ASSERT_EQ(fast.x[k], plain.x[k]);
            ASSERT_EQ(fast.y[k], plain.y[k]);
          }
        }
      }
    }
  }
  for (const int times : {straightOn, corners[1], corners[2], corners[3]}) EXPECT_GT(times, 40);
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
    strokeOutline(path, points, {2, style, kStrokeTolerance, CGAffineTransformIdentity}, kernels(),
                  outline);
    EdgeList edges;
    edgesOfOutline(outline, boxOf(outline, kernels()), region, kernels(), edges);
    EXPECT_EQ(edges.verticalRuns / 2, c.abreast) << c.name;
  }
}

TEST(StrokeLoops, RingsJoinTheSameOnEveryMachine) {
  std::mt19937 random(20240611);
  std::uniform_real_distribution<float> height(-4, 25);
  for (std::size_t lines = 1; lines < 40; ++lines) {
    std::vector<float> x(lines + 9);
    std::vector<float> y(lines + 9);
    for (std::size_t i = 0; i <= lines; ++i) {
      x[i] = height(random);
      y[i] = lines % 4 == 0 ? height(random) / 5 : height(random);
    }
    for (const bool backwards : {false, true}) {
      std::vector<Edge> edges[2];
      int runs[2];
      for (const int k : {0, 1}) {
        const Kernels& loops = k == 0 ? kernels() : kernelSets().back().loops();
        edges[k].resize(lines + 8);
        runs[k] =
            loops.joinRing(x.data(), y.data(), lines + 1, {2, -3}, backwards, edges[k].data());
      }
      EXPECT_EQ(runs[0], runs[1]);
      for (std::size_t i = 0; i < lines; ++i) {
        const auto isSame = [&](auto member) { return edges[0][i].*member == edges[1][i].*member; };
        ASSERT_TRUE(isSame(&Edge::x0) && isSame(&Edge::x1) && isSame(&Edge::y0) &&
                    isSame(&Edge::y1));
      }
      EXPECT_EQ(edges[0][0].x0, x[backwards ? 1 : 0] + 2);
    }
  }
}

}  // namespace
}  // namespace glyphwright::raster
