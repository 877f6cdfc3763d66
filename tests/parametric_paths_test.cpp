// The computed paths against plain arithmetic. The drawings of the glyphs are in the manifest of
// pictures; here is where their boards go.

#include <cmath>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/bezier_path.h>

namespace glyphwright {
namespace {

void expectPath(const UIBezierPath& path, const std::string& verbs,
                const std::vector<CGPoint>& points) {
  std::string actual;
  for (const PathVerb verb : path.cgPath().verbs()) {
    actual += "MLQCZ"[static_cast<std::size_t>(verb)];
  }
  EXPECT_EQ(actual, verbs);
  ASSERT_EQ(path.cgPath().points().size(), points.size());
  for (std::size_t i = 0; i < points.size(); ++i) {
    EXPECT_NEAR(path.cgPath().points()[i].x, points[i].x, 1e-9) << i;
    EXPECT_NEAR(path.cgPath().points()[i].y, points[i].y, 1e-9) << i;
  }
}

TEST(ParametricPaths, ArrowsRunFromPointToPoint) {
  struct Case {
    CGPoint from, to;
    CGFloat tail, head, headLength;
  };
  for (const Case& c : {Case{{10, 20}, {40, 20}, 4, 10, 8}, Case{{1, 2}, {31, 42}, 6, 14, 20},
                        Case{{5, 5}, {-7, 0}, 3, 2, 40}, Case{{0, 9}, {0, 0}, 0, -4, -2}}) {
    const double dx = c.to.x - c.from.x;
    const double dy = c.to.y - c.from.y;
    const double length = std::sqrt(dx * dx + dy * dy);
    const double neck = length - c.headLength;
    std::vector<CGPoint> points;
    CGPoint least{1e9, 1e9};
    for (const CGPoint p : {CGPoint{0, c.tail / 2},
                            {neck, c.tail / 2},
                            {neck, c.head / 2},
                            {length, 0},
                            {neck, -c.head / 2},
                            {neck, -c.tail / 2},
                            {0, -c.tail / 2}}) {
      points.push_back({(p.x * dx - p.y * dy) / length, (p.x * dy + p.y * dx) / length});
      least = {std::fmin(least.x, points.back().x), std::fmin(least.y, points.back().y)};
    }
    for (CGPoint& p : points) p = {p.x - least.x, p.y - least.y};
    expectPath(UIBezierPath::arrowIcon(c.from, c.to, c.tail, c.head, c.headLength), "MLLLLLLZ",
               points);
  }
  EXPECT_FALSE(UIBezierPath::arrowIcon({3, 3}, {3, 3}, 1, 2, 3).cgPath().isFinite());
}

TEST(ParametricPaths, TheInfoViewIsCutAlongALine) {
  const std::vector<CGPoint> points = {{3, 13}, {3, 35}, {43, 35}, {43, 20}};
  expectPath(UIBezierPath::curataInfoViewPath({3, 5, 40, 30}), "MLLLZ", points);
  expectPath(UIBezierPath::curataInfoViewPath({43, 35, -40, -30}), "MLLLZ", points);
}

// The handle of a cubic that stands for a quarter of a circle, in radii.
const double kHandle = 4.0 / 3 * (std::sqrt(2.0) - 1);

// Outside and inside: a box with round upper corners, and the band wound against it.
TEST(ParametricPaths, TheTagsFrameIsThreeWide) {
  const double o = 8 * (1 - kHandle);
  const double i = 5 * (1 - kHandle);
  const std::vector<CGPoint> sharp = {{10, 120}, {210, 120}, {210, 90},  {10, 69},
                                      {13, 117}, {207, 117}, {207, 23},  {13, 23},
                                      {13, 54},  {207, 86},  {207, 117}, {13, 117}};
  std::vector<CGPoint> points = {{18, 20},     {202, 20},    {210 - o, 20}, {210, 20 + o},
                                 {210, 28},    {210, 120},   {10, 120},     {10, 28},
                                 {10, 20 + o}, {10 + o, 20}, {18, 20}};
  points.insert(points.end(), sharp.begin(), sharp.begin() + 4);
  points.insert(points.end(), {{18, 23},
                               {13 + i, 23},
                               {13, 23 + i},
                               {13, 28},
                               {13, 117},
                               {207, 117},
                               {207, 28},
                               {207, 23 + i},
                               {207 - i, 23},
                               {202, 23},
                               {18, 23}});
  points.insert(points.end(), sharp.begin() + 8, sharp.end());
  const CGRect box{10, 20, 200, 100};
  expectPath(UIBezierPath::curataTagBorder(box, 8), "MLCLLLCZMLLLZMCLLLCLZMLLLZ", points);
  // A radius that the frame takes up leaves sharp corners.
  points = {{10, 20}, {210, 20}, {210, 120}, {10, 120}};
  points.insert(points.end(), sharp.begin(), sharp.end());
  expectPath(UIBezierPath::curataTagBorder(box, 0), "MLLLZMLLLZMLLLZMLLLZ", points);
}

TEST(ParametricPaths, RoundedBoxesTakeARadiusForEachCorner) {
  struct Case {
    double topLeft, topRight, bottomLeft, bottomRight;
  };
  for (const Case& c : {Case{1, 2, 3, 4}, Case{12, 7, 9, 5}, Case{40, 40, 40, 40}}) {
    const auto h = [](double radius) { return radius * (1 - kHandle); };
    const auto [tl, tr, bl, br] = c;
    const double w = 40;
    const double e = 30;
    const std::vector<CGPoint> points = {
        {tl, 0},     {w - tr, 0}, {w - tr, 0},    {w - h(tr), 0}, {w, h(tr)},  {w, tr},
        {w, e - br}, {w, e - br}, {w, e - h(br)}, {w - h(br), e}, {w - br, e}, {bl, e},
        {bl, e},     {h(bl), e},  {0, e - h(bl)}, {0, e - bl},    {0, tl},     {0, tl},
        {0, h(tl)},  {h(tl), 0},  {tl, 0}};
    for (const UIBezierPath& path :
         {UIBezierPath::rectWithRoundedCorners(CGRect{5, 6, w, e}, tl, tr, bl, br),
          UIBezierPath::rectWithRoundedCorners(CGSize{w, e}, tl, tr, bl, br),
          UIBezierPath::rectWithRoundedCorners(w, e, tl, tr, bl, br)}) {
      expectPath(path, "MLLCLLCLLCLLCZ", points);
    }
  }
  expectPath(UIBezierPath::rectWithRoundedCorners(40, 30, 0, 0, 0, 0), "MLLLLLLLLZ",
             {{0, 0}, {40, 0}, {40, 0}, {40, 30}, {40, 30}, {0, 30}, {0, 30}, {0, 0}, {0, 0}});
}

TEST(ParametricPaths, BoardsAreLaidOverTheAskedSize) {
  struct Case {
    UIBezierPath (*glyph)(CGSize);
    CGSize board;
    CGRect ink;  // on the board
  };
  const auto shifted = [](CGSize size) { return UIBezierPath::thinX(size, {2, 1}); };
  for (const Case& c :
       {Case{&UIBezierPath::caretIcon, {12.9, 22}, {0, 0, 12.9, 22}},
        Case{&UIBezierPath::checkmark, {13, 10}, {0, 0, 13, 10}},
        Case{&UIBezierPath::thickCheckmark, {17, 13}, {0.2, 0.2, 16.6, 12.6}},
        Case{&UIBezierPath::thickX, {14, 14}, {0, 0, 13.6, 13.6}},
        Case{shifted, {11, 11}, {2, 1, 11, 11}},
        Case{&UIBezierPath::instagramProfileConnectButtonIconPath,
             {16, 16},
             {0.03, 0.03, 15.92, 15.92}},
        Case{&UIBezierPath::instagramProfileConnectButtonIconPathWithSize,
             {16, 16},
             {0.03, 0.03, 15.92, 15.92}},
        Case{&UIBezierPath::instagramThumbnailPlaceholder, {30, 30}, {7.03, 7.03, 15.92, 15.92}},
        Case{&UIBezierPath::instagramThumbnailPlaceholderWithSize,
             {30, 30},
             {7.03, 7.03, 15.92, 15.92}}}) {
    const CGRect box = c.glyph({c.board.width * 2, c.board.height * 3}).bounds();
    EXPECT_NEAR(box.origin.x, c.ink.origin.x * 2, 1e-9);
    EXPECT_NEAR(box.origin.y, c.ink.origin.y * 3, 1e-9);
    EXPECT_NEAR(box.size.width, c.ink.size.width * 2, 1e-9);
    EXPECT_NEAR(box.size.height, c.ink.size.height * 3, 1e-9);
  }
  expectPath(UIBezierPath::thinX({22, 33}, {2, 1}), "MLZMLZ", {{4, 3}, {26, 36}, {26, 3}, {4, 36}});
}

}  // namespace
}  // namespace glyphwright
