// How paths are built, measured and turned round.

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/paths/outline.h>
#include <glyphwright/platform/path.h>

namespace glyphwright {
namespace {

constexpr CGFloat kPi = 3.14159265358979323846;

std::string verbsOf(const CGPath& path) {
  std::string text;
  for (const PathVerb verb : path.verbs()) text += "MLQCZ"[static_cast<std::size_t>(verb)];
  return text;
}

TEST(RasterPath, SegmentsNeedAPointToStartFrom) {
  CGPath path;
  path.addLineToPoint({1, 1});
  path.addCurveToPoint({1, 1}, {2, 2}, {3, 3});
  path.closeSubpath();
  EXPECT_TRUE(path.isEmpty());

  path.moveToPoint({1, 2});
  path.addLineToPoint({5, 2});
  path.closeSubpath();
  path.closeSubpath();
  EXPECT_EQ(path.currentPoint(), (CGPoint{1, 2}));
  path.addLineToPoint({3, 9});
  EXPECT_EQ(verbsOf(path), "MLZML");
  EXPECT_EQ(path.points()[2], (CGPoint{1, 2})) << "a line after a close starts where it closed";
}

TEST(RasterPath, OutlinesAreTheCallsThatWouldDrawThem) {
  using namespace paths;
  const auto drawn = [](std::span<const Step> steps) {
    CGPath path;
    for (const Step& s : steps) {
      if (s.verb == PathVerb::move) path.moveToPoint(s.end);
      if (s.verb == PathVerb::line) path.addLineToPoint(s.end);
      if (s.verb == PathVerb::cubic) path.addCurveToPoint(s.end, s.control1, s.control2);
      if (s.verb == PathVerb::close) path.closeSubpath();
    }
    return path;
  };
  const std::vector<std::vector<Step>> cases = {
      {},
      {move(1, 2)},
      {move(0, 0), line(4, 0), curve(9, 9, 1, 2, 3, 4), close()},
      {move(0, 0), line(4, 0), close(), move(7, 7), curve(9, 9, 1, 2, 3, 4)},
      // Not written in full: a segment after a close, none before the first move, two closes.
      {move(1, 1), line(4, 0), close(), line(5, 5)},
      {line(4, 0), close(), move(1, 1), line(2, 2)},
      {move(1, 1), line(4, 0), close(), close(), move(3, 3)},
  };
  for (const auto& steps : cases) {
    const CGPath expected = drawn(steps);
    const UIBezierPath path = outline(steps);
    EXPECT_EQ(path.cgPath(), expected) << verbsOf(expected);
    EXPECT_EQ(path.currentPoint(), expected.currentPoint()) << verbsOf(expected);
    CGPath longer = path.cgPath();
    CGPath expectedLonger = expected;
    longer.addLineToPoint({8, 8});
    expectedLonger.addLineToPoint({8, 8});
    EXPECT_EQ(longer, expectedLonger) << verbsOf(expected);
  }
}

TEST(RasterPath, ArcsRunTheAskedWayRound) {
  struct Case {
    CGFloat start;
    CGFloat end;
    bool clockwise;
    std::size_t curves;
    CGPoint last;
  };
  const Case cases[] = {
      {0, kPi / 2, true, 1, {0, 10}},
      {0, kPi / 2, false, 3, {0, 10}},
      {0, 2 * kPi, true, 4, {10, 0}},
      {0, 7 * kPi, true, 4, {10, 0}},
      {kPi / 2, 0, false, 1, {10, 0}},
      {0, -kPi / 2, true, 3, {0, -10}},
      {0, 1, true, 1, {10 * std::cos(1.0), 10 * std::sin(1.0)}},
      {0, 0, true, 0, {10, 0}},
  };
  for (const Case& c : cases) {
    CGPath path;
    path.addArc({0, 0}, 10, c.start, c.end, c.clockwise);
    EXPECT_EQ(verbsOf(path), "M" + std::string(c.curves, 'C')) << c.start << " to " << c.end;
    EXPECT_NEAR(path.currentPoint().x, c.last.x, 1e-9) << c.start << " to " << c.end;
    EXPECT_NEAR(path.currentPoint().y, c.last.y, 1e-9) << c.start << " to " << c.end;
  }
  CGPath joined;
  joined.moveToPoint({-3, -3});
  joined.addArc({0, 0}, 10, 0, 1, true);
  EXPECT_EQ(verbsOf(joined), "MLC");
  joined.addArc({0, 0}, std::nan(""), 0, 1, true);
  joined.addArc({0, 0}, 10, 0, std::numeric_limits<CGFloat>::infinity(), true);
  EXPECT_EQ(verbsOf(joined), "MLC");
}

TEST(RasterPath, BoundsLeaveOutMovesThatNothingFollows) {
  CGPath path;
  EXPECT_TRUE(CGRectIsNull(path.boundingBox()));
  path.moveToPoint({100, 100});
  EXPECT_TRUE(CGRectIsNull(path.boundingBox()));
  path.moveToPoint({1, 2});
  path.addCurveToPoint({5, 6}, {-3, 4}, {2, 20});
  path.moveToPoint({-50, 0});
  EXPECT_EQ(path.boundingBox(), (CGRect{-3, 2, 8, 18})) << "control points count";
  path.moveToPoint({0, 0});
  path.addLineToPoint({0, 40});
  EXPECT_EQ(path.boundingBox(), (CGRect{-3, 0, 8, 40}));
}

TEST(RasterPath, ReversedPathsRunBackSubpathBySubpath) {
  CGPath path;
  path.moveToPoint({0, 0});
  path.addLineToPoint({4, 0});
  path.addCurveToPoint({8, 8}, {5, 1}, {6, 2});
  path.closeSubpath();
  path.moveToPoint({20, 20});
  path.addQuadCurveToPoint({22, 22}, {21, 25});
  const CGPath back = path.reversed();
  EXPECT_EQ(verbsOf(back), "MCLZMQ");
  const CGPoint expected[] = {{8, 8}, {6, 2}, {5, 1}, {4, 0}, {0, 0}, {22, 22}, {21, 25}, {20, 20}};
  EXPECT_EQ(std::vector<CGPoint>(back.points().begin(), back.points().end()),
            std::vector<CGPoint>(std::begin(expected), std::end(expected)));
  EXPECT_EQ(back.reversed(), path);
}

TEST(RasterPath, RoundedRectanglesClampTheirRadii) {
  struct Case {
    UIRectCorner corners;
    CGSize radii;
    const char* verbs;
  };
  const Case cases[] = {
      {UIRectCorner::allCorners, {3, 3}, "MLCLCLCLCZ"},
      {UIRectCorner::allCorners, {300, 300}, "MLCLCLCLCZ"},
      {UIRectCorner::topLeft | UIRectCorner::bottomRight, {3, 3}, "MLLCLLCZ"},
      {UIRectCorner::none, {3, 3}, "MLLLZ"},
      {UIRectCorner::allCorners, {-1, std::nan("")}, "MLLLZ"},
  };
  for (const Case& c : cases) {
    CGPath path;
    path.addRoundedRect({2, 3, 20, 10}, c.corners, c.radii);
    EXPECT_EQ(verbsOf(path), c.verbs);
    EXPECT_EQ(path.boundingBox(), (CGRect{2, 3, 20, 10})) << c.verbs;
  }
}

TEST(RasterPath, AppendingItselfDoublesAPath) {
  CGPath path;
  path.addRect({0, 0, 3, 4});
  path.addPath(path);
  EXPECT_EQ(verbsOf(path), "MLLLZMLLLZ");
  EXPECT_EQ(path.points()[5], path.points()[1]);
}

}  // namespace
}  // namespace glyphwright
