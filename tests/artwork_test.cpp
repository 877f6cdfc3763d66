// The drawings themselves: what each must be, and the rules that all of them follow.

#include <algorithm>
#include <array>
#include <cmath>
#include <fstream>
#include <map>
#include <optional>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/bezier_path.h>
#include <glyphwright/paths/method_names.h>
#include <glyphwright/paths/registry.h>

#include "tools/outline_check.h"

#include "places.h"

namespace glyphwright {
namespace {

using outline_check::Report;

struct Row {
  std::string name;
  bool evenOdd = false;
  std::optional<std::array<double, 4>> frame;        // min x, min y, max x, max y
  std::array<std::optional<std::size_t>, 3> counts;  // contours, curves, lines
};

std::vector<Row> readTable() {
  std::ifstream in(places::inFrozen("artwork_frames.txt"));
  std::vector<Row> rows;
  for (std::string line; std::getline(in, line);) {
    if (line.empty() || line[0] == '#') continue;
    std::istringstream fields(line);
    Row row;
    std::string rule;
    fields >> row.name >> rule;
    row.evenOdd = rule == "even-odd";
    std::array<std::string, 4> frame;
    for (std::string& field : frame) fields >> field;
    if (frame[0] != "-") {
      row.frame.emplace();
      std::transform(frame.begin(), frame.end(), row.frame->begin(),
                     [](const std::string& text) { return std::stod(text); });
    }
    for (auto& count : row.counts) {
      std::string field;
      fields >> field;
      if (field != "-") count = std::stoul(field);
    }
    rows.push_back(std::move(row));
  }
  return rows;
}

UIBezierPath draw(std::string_view name) {
  const ClassMethod method = findClassMethod(name);
  if (method == nullptr) {
    ADD_FAILURE() << name << " has no drawing";
    return {};
  }
  return method();
}

UIBezierPath turned(UIBezierPath path, CGFloat angle) {
  path.applyTransform(CGAffineTransformMakeRotation(angle));
  return path;
}

TEST(Artwork, TheTableNamesEveryIconOnce) {
  std::set<std::string> names;
  for (const Row& row : readTable()) EXPECT_TRUE(names.insert(row.name).second) << row.name;
  EXPECT_EQ(names, std::set<std::string>(std::begin(iconMethodNames), std::end(iconMethodNames)));
}

TEST(Artwork, FramesRulesAndFixedCounts) {
  for (const Row& row : readTable()) {
    SCOPED_TRACE(row.name);
    const UIBezierPath path = draw(row.name);
    if (path.isEmpty()) continue;
    EXPECT_EQ(path.usesEvenOddFillRule(), row.evenOdd);
    const CGRect box = path.bounds();
    if (row.frame) {
      // The turned ones miss the multiples of a quarter turn by a float's last place.
      EXPECT_NEAR(CGRectGetMinX(box), (*row.frame)[0], 1e-5);
      EXPECT_NEAR(CGRectGetMinY(box), (*row.frame)[1], 1e-5);
      EXPECT_NEAR(CGRectGetMaxX(box), (*row.frame)[2], 1e-5);
      EXPECT_NEAR(CGRectGetMaxY(box), (*row.frame)[3], 1e-5);
    }
    const Report report = outline_check::check(path.cgPath());
    EXPECT_EQ(report.contours.size(), row.counts[0].value_or(report.contours.size()));
    EXPECT_EQ(report.curves, row.counts[1].value_or(report.curves));
    EXPECT_EQ(report.lines, row.counts[2].value_or(report.lines));
  }
}

TEST(Artwork, OnlyStrokedIconsCarryStrokeAttributes) {
  struct Style {
    CGFloat width;
    CGLineCap cap;
    CGLineJoin join;
  };
  const std::map<std::string_view, Style> styles = {
      {"shareIcon", {1, CGLineCap::round, CGLineJoin::round}},
      {"ctaPlusIcon", {1, CGLineCap::round, CGLineJoin::round}},
      {"liveOpsMoodraPromptCloseButton", {1, CGLineCap::round, CGLineJoin::round}},
      {"jobIconPath", {1, CGLineCap::butt, CGLineJoin::round}},
      {"chatActionBarCloseIcon", {2, CGLineCap::round, CGLineJoin::round}},
  };
  for (const std::string_view name : iconMethodNames) {
    const auto found = styles.find(name);
    const Style expected =
        found == styles.end() ? Style{1, CGLineCap::butt, CGLineJoin::miter} : found->second;
    const UIBezierPath path = draw(name);
    EXPECT_EQ(path.lineWidth(), expected.width) << name;
    EXPECT_EQ(path.lineCapStyle(), expected.cap) << name;
    EXPECT_EQ(path.lineJoinStyle(), expected.join) << name;
    EXPECT_EQ(path.miterLimit(), 10) << name;
  }
}

TEST(Artwork, DerivedIconsAreTheirSources) {
  struct Derivation {
    std::string_view name;
    std::string_view source;
    CGFloat angle;
  };
  const Derivation derivations[] = {
      {"starPath", "pointyStarPath", 0},
      {"stellonStarPath", "pointyStarPath", 0},
      {"stellonStarOnlyPath", "pointyStarPath", 0},
      {"disclosureArrowPath", "rightArrowStemPath", 0},
      {"leftArrowStemPath", "rightArrowStemPath", 3.141592502593994},
      {"navigationArrowRightPath", "navigationArrowLeftPath", 3.141592502593994},
      {"navigationArrowDownPath", "navigationArrowLeftPath", -1.570796251296997},
      {"angledAirplanePath", "airplanePath", 0.7853981633974483},
  };
  for (const Derivation& derivation : derivations) {
    UIBezierPath expected = draw(derivation.source);
    if (derivation.angle != 0) expected = turned(std::move(expected), derivation.angle);
    EXPECT_EQ(draw(derivation.name).cgPath(), expected.cgPath()) << derivation.name;
  }
}

/// What an icon may do against the rules, because its drawing is fixed or meant so. The number is
/// the allowance; one that is not used up is a fault as well, so that the list stays true.
struct Exceptions {
  std::map<std::string_view, std::size_t> openContours = {{"chatActionBarCloseIcon", 2},
                                                          {"homeCircleIcon", 1}};
  std::map<std::string_view, std::size_t> meetings = {{"chatActionBarCloseIcon", 1}};
  std::map<std::string_view, std::size_t> wrongWindings = {{"facebookLogo", 1},
                                                           {"dropDownArrowIcon", 1}};
  // A rectangle leaves its last side to the close.
  std::map<std::string_view, std::size_t> impliedReturns = {{"jobIconPath", 1}};
  // Thin on purpose, for large use only.
  std::set<std::string_view> narrowGaps = {"retroMatchThinOutline"};
  // A pill's corners leave nothing of its upright sides.
  std::map<std::string_view, std::size_t> emptyEdges = {{"roundedButtonBackground", 2}};
  // Turned by constants.
  std::set<std::string_view> offGrid = {"leftArrowStemPath", "navigationArrowRightPath",
                                        "navigationArrowDownPath", "angledAirplanePath"};
  // The extents on record are those of control points, or the number of curves is fixed so low that
  // not every extreme can be a node.
  std::set<std::string_view> controlsOutside = {
      "pointyStarPath",      "starPath",      "stellonStarPath",
      "stellonStarOnlyPath", "arrowPath",     "angledAirplanePath",
      "gamepadNopeXPath",    "likesYouHeart", "likesYouHeart"};
  std::set<std::string_view> strokedOnly = {"chatActionBarCloseIcon"};
};

std::size_t allowance(const std::map<std::string_view, std::size_t>& table, std::string_view name) {
  const auto found = table.find(name);
  return found == table.end() ? 0 : found->second;
}

TEST(Artwork, EveryOutlineFollowsTheRulesOfDrawing) {
  const Exceptions except;
  for (const std::string_view name : iconMethodNames) {
    SCOPED_TRACE(name);
    const UIBezierPath path = draw(name);
    if (path.isEmpty()) continue;
    const Report report = outline_check::check(path.cgPath());
    EXPECT_EQ(report.openContours(), allowance(except.openContours, name));
    EXPECT_EQ(report.impliedReturns(), allowance(except.impliedReturns, name));
    EXPECT_EQ(report.meetings.size(), allowance(except.meetings, name))
        << "contours meet near " << (report.meetings.empty() ? 0 : report.meetings[0].point.x)
        << ", " << (report.meetings.empty() ? 0 : report.meetings[0].point.y);
    EXPECT_EQ(report.emptyEdges, allowance(except.emptyEdges, name));
    if (!except.strokedOnly.contains(name)) {
      EXPECT_EQ(report.wrongWindings(), allowance(except.wrongWindings, name));
      EXPECT_TRUE(report.looksTheSameUnderBothRules());
    }
    EXPECT_EQ(report.offGridCoordinates > 0, except.offGrid.contains(name))
        << report.offGridCoordinates << " coordinates with more than two decimals";
    // Narrower walls and gaps close up at 24 pixels; a hairline may take a little more.
    if (report.minimumGap && report.meetings.empty()) {
      EXPECT_EQ(*report.minimumGap < 1.47, except.narrowGaps.contains(name))
          << "gap " << *report.minimumGap << " u";
    }
    const double outside = std::max(report.frame.size.width - report.ink.size.width,
                                    report.frame.size.height - report.ink.size.height);
    EXPECT_EQ(outside > 0.011, except.controlsOutside.contains(name))
        << "control points " << outside << " outside the ink";
  }
}

// An icon's path refers to constants until it is changed. It must be like one built by calls from
// the start, and no change may reach the constants or another path.
TEST(Artwork, ConstantPathsBehaveLikeBuiltOnes) {
  for (const Row& row : readTable()) {
    const UIBezierPath icon = draw(row.name);
    const CGPath& constant = icon.cgPath();
    CGPath built = constant;
    built.applyTransform(CGAffineTransformIdentity);  // has points of its own now
    EXPECT_EQ(built, constant) << row.name;
    EXPECT_EQ(built.boundingBox(), constant.boundingBox()) << row.name;
    EXPECT_EQ(built.currentPoint(), constant.currentPoint()) << row.name;

    const CGRect box = constant.boundingBox();
    CGPath longer = constant;
    longer.addLineToPoint({box.origin.x - 50, box.origin.y - 60});
    EXPECT_EQ(longer.boundingBox().origin, (CGPoint{box.origin.x - 50, box.origin.y - 60}));
    longer.addPath(constant);
    EXPECT_EQ(longer.currentPoint(), constant.currentPoint()) << row.name;
    EXPECT_EQ(draw(row.name).cgPath(), constant) << row.name;
    EXPECT_EQ(constant.boundingBox(), box) << row.name;
  }
}

}  // namespace
}  // namespace glyphwright
