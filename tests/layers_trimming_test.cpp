#include <cmath>
#include <limits>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/platform/layers/path_trimming.h>
#include <glyphwright/platform/layers/shape_layer.h>
#include <tests/pixels.h>

namespace glyphwright {
namespace {

CGPath square() {
  CGPath path;
  path.addRect({0, 0, 10, 10});
  return path;
}

CGPath polyline(const std::vector<CGPoint>& points) {
  CGPath path;
  path.addLines(points);
  return path;
}

TEST(PathTrimming, MeasuresLinesClosingEdgesAndCurves) {
  EXPECT_EQ(pathLength(CGPath()), 0);
  EXPECT_EQ(pathLength(square()), 40);
  CGPath two = square();
  two.addPath(polyline({{100, 0}, {103, 4}}));
  EXPECT_EQ(pathLength(two), 45);
  CGPath circle;
  circle.addEllipseInRect({0, 0, 200, 200});
  // The four cubics' own length, by Simpson's rule over their speed in 20000 steps.
  EXPECT_NEAR(pathLength(circle), 628.4066792, 1e-5);
  CGPath parabola;
  parabola.moveToPoint({0, 0});
  parabola.addQuadCurveToPoint({2, 2}, {1, 0});
  EXPECT_NEAR(pathLength(parabola), std::sqrt(5.0) * 2 / 2 + std::asinh(2.0) / 2, 1e-6);
}

TEST(PathTrimming, CutsByLengthAlongAllSubpaths) {
  struct Case {
    CGFloat start, end;
    CGPath expected;
  };
  CGPath both = square();
  both.addPath(polyline({{100, 0}, {100, 40}}));
  CGPath later;
  later.moveToPoint({100, 0});
  later.addLineToPoint({100, 20});
  CGPath closedAndMore = square();
  closedAndMore.addPath(later);
  CGPath across = polyline({{0, 10}, {0, 0}});
  across.addPath(later);
  for (const Case& c : {
           Case{0, 0.125, polyline({{0, 0}, {10, 0}})},
           Case{0.0625, 0.1875, polyline({{5, 0}, {10, 0}, {10, 5}})},
           Case{0.0625, 0.5, polyline({{5, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}})},
           Case{0.375, 0.5, polyline({{0, 10}, {0, 0}})},
           Case{0, 0.75, closedAndMore},
           Case{0.375, 0.75, across},
           Case{0.5, 1, polyline({{100, 0}, {100, 40}})},
           Case{0, 1, both},
           Case{-3, 7, both},
           Case{std::numeric_limits<CGFloat>::quiet_NaN(), 1, both},
           Case{0.5, 0.5, CGPath()},
           Case{0.75, 0.25, CGPath()},
           Case{0, std::numeric_limits<CGFloat>::quiet_NaN(), CGPath()},
       }) {
    EXPECT_EQ(trimmedPath(both, c.start, c.end), c.expected) << c.start << ' ' << c.end;
  }
}

TEST(PathTrimming, CutsCurvesWhereTheirLengthSays) {
  CGPath path;
  path.moveToPoint({0, 0});
  path.addCurveToPoint({90, 0}, {0, 80}, {10, -40});
  path.addQuadCurveToPoint({40, 70}, {120, 30});
  const CGFloat whole = pathLength(path);
  for (const CGFloat start : {0.0, 0.1, 0.35, 0.62}) {
    for (const CGFloat end : {0.15, 0.5, 0.77, 0.99, 1.0}) {
      if (end <= start) continue;
      EXPECT_NEAR(pathLength(trimmedPath(path, start, end)), whole * (end - start), whole * 1e-6)
          << start << ' ' << end;
    }
  }
  // What follows on from a cut starts where it ended.
  const CGPath head = trimmedPath(path, 0, 0.4);
  const CGPath tail = trimmedPath(path, 0.4, 1);
  EXPECT_NEAR(head.points().back().x, tail.points().front().x, 1e-9);
  EXPECT_NEAR(head.points().back().y, tail.points().front().y, 1e-9);
  EXPECT_EQ(tail.points().back(), path.points().back());
}

TEST(PathTrimming, PathsWithoutALengthEnd) {
  CGPath dot = polyline({{5, 5}, {5, 5}});
  EXPECT_EQ(trimmedPath(dot, 0, 1), dot);
  dot.closeSubpath();
  EXPECT_EQ(trimmedPath(dot, 0, 1), dot);
  for (const CGFloat value : {1e300, std::numeric_limits<CGFloat>::infinity(),
                              std::numeric_limits<CGFloat>::quiet_NaN()}) {
    CGPath path = polyline({{0, 0}, {value, 1}, {-value, 2}});
    path.addCurveToPoint({0, 0}, {value, value}, {-value, value});
    EXPECT_TRUE(trimmedPath(path, 0.25, 0.5).isEmpty() || std::isfinite(value));
  }
  EXPECT_TRUE(trimmedPath(CGPath(), 0.25, 0.5).isEmpty());
}

TEST(PathTrimming, AStrokeIsDrawnFromStartToEnd) {
  const auto layer = CAShapeLayer::layer();
  layer->setFillColor(std::nullopt);
  layer->setStrokeColor(UIColor::blackColor());
  layer->setLineWidth(2);
  layer->setPath(polyline({{0, 5}, {40, 5}}));
  struct Case {
    CGFloat start, end;
    pixels::Box box;
  };
  for (const Case& c : {Case{0, 1, {0, 4, 40, 6}}, Case{0.25, 1, {10, 4, 40, 6}},
                        Case{0, 0.5, {0, 4, 20, 6}}, Case{0.25, 0.5, {10, 4, 20, 6}},
                        Case{0.5, 0.5, {}}, Case{0.6, 0.4, {}}, Case{-1, 2, {0, 4, 40, 6}}}) {
    layer->setStrokeStart(c.start);
    layer->setStrokeEnd(c.end);
    const UIImage image =
        pixels::drawn({40, 10}, 1, [&](CGContextRef to) { layer->renderInContext(to); });
    EXPECT_EQ(pixels::paintedBox(image), c.box) << c.start;
  }
}

}  // namespace
}  // namespace glyphwright
