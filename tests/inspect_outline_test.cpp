// The judge is judged: each fault planted in a plain outline must be seen.

#include <limits>
#include <sstream>
#include <vector>

#include <gtest/gtest.h>

#include "tools/inspect.h"
#include "tools/outline_check.h"

namespace glyphwright::outline_check {
namespace {

void addSquare(CGPath& path, double x, double y, double side, bool clockwise = true) {
  path.moveToPoint({x, y});
  path.addLineToPoint(clockwise ? CGPoint{x + side, y} : CGPoint{x, y + side});
  path.addLineToPoint({x + side, y + side});
  path.addLineToPoint(clockwise ? CGPoint{x, y + side} : CGPoint{x + side, y});
  path.addLineToPoint({x, y});
  path.closeSubpath();
}

CGPath ring() {
  CGPath path;
  addSquare(path, 0, 0, 24);
  addSquare(path, 2, 2, 20, false);
  return path;
}

TEST(OutlineCheck, MeasuresARing) {
  const Report report = check(ring());
  ASSERT_EQ(report.contours.size(), 2U);
  EXPECT_EQ(report.frame, CGRect(0, 0, 24, 24));
  EXPECT_EQ(report.unit, 1);
  EXPECT_EQ(report.lines, 8U);
  EXPECT_EQ(report.contours[0].signedArea, 576);
  EXPECT_EQ(report.contours[1].signedArea, -400);
  EXPECT_EQ(report.contours[0].depth, 0U);
  EXPECT_EQ(report.contours[1].depth, 1U);
  ASSERT_TRUE(report.minimumGap);
  EXPECT_DOUBLE_EQ(*report.minimumGap, 2);
  EXPECT_EQ(report.openContours() + report.impliedReturns() + report.wrongWindings(), 0U);
  EXPECT_TRUE(report.meetings.empty());
  EXPECT_TRUE(report.looksTheSameUnderBothRules());
}

TEST(OutlineCheck, TheShorterSideCountsInLongFrames) {
  CGPath path;
  path.addRect({0, 0, 120, 24});
  EXPECT_EQ(check(path).unit, 1);
  path = {};
  path.addRect({0, 0, 48, 24});
  EXPECT_EQ(check(path).unit, 2);
}

TEST(OutlineCheck, SeesWhatIsWrong) {
  CGPath path = ring();
  addSquare(path, 10, 10, 4, false);  // an island wound like a hole
  Report report = check(path);
  EXPECT_EQ(report.wrongWindings(), 1U);
  EXPECT_TRUE(report.looksTheSameUnderBothRules());  // -1 turns paint under both

  path = {};
  addSquare(path, 0, 0, 24);
  addSquare(path, 2, 2, 20);  // a hole that the non-zero rule fills
  report = check(path);
  EXPECT_EQ(report.wrongWindings(), 1U);
  EXPECT_FALSE(report.looksTheSameUnderBothRules());

  path = {};
  addSquare(path, 0, 0, 10);
  addSquare(path, 5, 5, 10);  // overlap
  EXPECT_EQ(check(path).meetings.size(), 1U);

  path = {};
  addSquare(path, 0, 0, 10);
  addSquare(path, 10, 0, 10);  // a side in common
  EXPECT_EQ(check(path).meetings.size(), 1U);

  const std::vector<std::vector<CGPoint>> meetings = {
      {{0, 0}, {10, 10}, {10, 0}, {0, 10}, {0, 0}},           // a bow tie
      {{0, 0}, {10, 0}, {20, 0}, {10, 0}, {10, 10}, {0, 0}},  // a spike
      {{0, 0}, {10, 0}, {4, 0}}                               // nothing but one
  };
  for (const std::vector<CGPoint>& points : meetings) {
    path = {};
    path.addLines(points);
    path.closeSubpath();
    EXPECT_EQ(check(path).meetings.size(), 1U);
  }

  path = {};
  path.addRect({0, 0, 10, 10});
  path.moveToPoint({20.123, 0});
  path.addLineToPoint({20.123, 0});
  path.addLineToPoint({30, 0});
  report = check(path);
  EXPECT_EQ(report.impliedReturns(), 1U);
  EXPECT_EQ(report.openContours(), 1U);
  EXPECT_EQ(report.emptyEdges, 1U);
  EXPECT_EQ(report.offGridCoordinates, 1U);
}

TEST(OutlineCheck, FlattensCurvesWithinTheTolerance) {
  CGPath path;
  path.addEllipseInRect({0, 0, 10, 10});
  const Report report = check(path);
  ASSERT_EQ(report.contours.size(), 1U);
  EXPECT_EQ(report.curves, 4U);
  EXPECT_NEAR(report.contours[0].signedArea, 78.56, 0.02);
  EXPECT_EQ(report.offGridCoordinates, 0U);
  EXPECT_NEAR(report.ink.size.width, 10, 1e-9);
  EXPECT_EQ(windingNumber(report.contours[0], {5, 5}), 1);
  EXPECT_EQ(windingNumber(report.contours[0], {9, 9}), 0);
}

TEST(OutlineCheck, NothingForNothing) {
  CGPath path;
  EXPECT_TRUE(check(path).contours.empty());
  path.moveToPoint({1, 1});
  EXPECT_TRUE(check(path).contours.empty());
  path.addLineToPoint({std::numeric_limits<double>::quiet_NaN(), 0});
  EXPECT_TRUE(check(path).contours.empty());
}

TEST(Inspect, WritesTheFactsAndTheObjections) {
  std::ostringstream out;
  const std::string names[] = {"facebookLogo", "noSuchIcon"};
  EXPECT_EQ(runInspect(names, out), 1);
  const std::string text = out.str();
  EXPECT_NE(text.find("facebookLogo  even-odd"), std::string::npos) << text;
  EXPECT_NE(text.find("frame x 0 to 18, y 0 to 18"), std::string::npos) << text;
  EXPECT_NE(text.find("12 lines, 7 curves"), std::string::npos) << text;
  EXPECT_NE(text.find("! 1 contours wound against the rule"), std::string::npos) << text;
  EXPECT_NE(text.find("noSuchIcon: no such icon"), std::string::npos) << text;
}

}  // namespace
}  // namespace glyphwright::outline_check
