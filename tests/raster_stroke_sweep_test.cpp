// Strokes of every kind against what their pen covers: nothing less and nothing more.

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/platform/context.h>
#include <glyphwright/platform/image.h>
#include <glyphwright/platform/raster/scratch.h>

#include "reference/swept_pen.h"

namespace glyphwright::raster {
namespace {

struct PenStroke {
  CGPath path;  // in the pen's space
  StrokeStyle style;
  CGAffineTransform toPixels = CGAffineTransformIdentity;
};

std::string describe(const PenStroke& s) {
  std::ostringstream text;
  text.precision(17);
  const CGPoint* p = s.path.points().data();
  for (const PathVerb verb : s.path.verbs()) {
    text << "MLQCZ"[static_cast<int>(verb)];
    for (std::size_t i = 0; i < pointCount(verb); ++i, ++p) text << ' ' << p->x << ',' << p->y;
    text << ' ';
  }
  const CGAffineTransform& t = s.toPixels;
  text << "width " << s.style.width << " cap " << static_cast<int>(s.style.cap) << " join "
       << static_cast<int>(s.style.join) << " limit " << s.style.miterLimit << " under " << t.a
       << ' ' << t.b << ' ' << t.c << ' ' << t.d << ' ' << t.tx << ' ' << t.ty;
  return text.str();
}

// By how many levels a pixel has too little, and two more than another have too much: where a curve
// goes exactly back over itself, the ends of arcs that lie over one another share a pixel.
struct Worst {
  double tooLittle = 0;
  double tooMuch = 0;
};

UIImage drawn(const PenStroke& s, CGFloat side) {
  return UIImage::render({side, side}, 1,
                         [&](CGContext& context) {
                           CGContextConcatCTM(&context, s.toPixels);
                           CGContextStrokePath(&context, s.path, s.style);
                         })
      .value();
}

Worst worstOf(const PenStroke& s, std::size_t side) {
  const UIImage image = drawn(s, static_cast<CGFloat>(side));
  const auto rgba = image.cgImage().rgba();
  const auto swept = reference::sweptPen(s.path, s.style, s.toPixels, side, side);
  double most[3] = {};
  Worst worst;
  for (std::size_t i = 0; i < side * side; ++i) {
    const double is = rgba[4 * i + 3];
    const double tooLittle = 255 * swept.covered.values[i] - is;
    const double tooMuch = is - 255 * std::min(1.0, swept.counted.values[i]);
    worst.tooLittle = std::max(worst.tooLittle, tooLittle);
    *std::min_element(most, most + 3) = std::max(*std::min_element(most, most + 3), tooMuch);
  }
  worst.tooMuch = *std::min_element(most, most + 3);
  return worst;
}

// Strokes that lie in and around a small picture.
class RandomStrokes {
 public:
  explicit RandomStrokes(unsigned seed) : random_(seed) {}

  PenStroke next() {
    PenStroke s;
    s.style.width = std::pow(2.0, real(-3, std::log2(2 * kSide)));
    s.style.cap = static_cast<CGLineCap>(pick(3));
    s.style.join = static_cast<CGLineJoin>(pick(3));
    s.style.miterLimit = pick(2) == 0 ? 10 : std::pow(2.0, real(-1, 8));
    if (pick(3) == 0) {
      // One by one: arguments may be worked out in any order.
      const double scale = std::pow(2.0, real(-2, 2));
      const double stretch = std::pow(2.0, real(-2.5, 2.5));
      s.toPixels = CGAffineTransformMakeRotation(real(0, 7));
      s.toPixels =
          CGAffineTransformConcat(s.toPixels, CGAffineTransformMakeScale(scale, scale * stretch));
      s.toPixels = CGAffineTransformConcat(s.toPixels, CGAffineTransformMakeRotation(real(0, 7)));
      if (pick(4) == 0) s.toPixels.a = -s.toPixels.a;
      s.style.width /= scale;
    }
    const bool isWhole = pick(4) == 0;
    reach_ = pick(3) == 0 ? std::pow(2.0, real(-4, 4)) : kSide;
    const auto point = [&] {
      CGPoint p{real(-2, kSide + 2), real(-2, kSide + 2)};
      if (reach_ < kSide) p = {last_.x + real(-reach_, reach_), last_.y + real(-reach_, reach_)};
      return last_ = isWhole ? CGPoint{std::round(p.x), std::round(p.y)} : p;
    };
    last_ = {real(4, kSide - 4), real(4, kSide - 4)};
    const int contours = pick(8) == 0 ? 2 : 1;
    for (int c = 0; c < contours; ++c) {
      CGPoint at = point();
      CGPoint along{real(-1, 1), real(-1, 1)};
      s.path.moveToPoint(at);
      const int segments = pick(5) + (pick(10) == 0 ? 0 : 1);
      for (int i = 0; i < segments; ++i) {
        const CGPoint to = pick(20) == 0 ? at : point();
        CGPoint one = point();
        CGPoint two = point();
        // On in the same direction, or without handles of their own.
        const double length = std::hypot(to.x - at.x, to.y - at.y) * real(0.1, 0.7);
        if (pick(2) == 0) one = {at.x + along.x * length, at.y + along.y * length};
        if (pick(12) == 0) one = at;
        if (pick(12) == 0) two = to;
        if (pick(12) == 0) two = one;
        switch (pick(4)) {
          case 0:
            s.path.addLineToPoint(to);
            two = at;
            break;
          case 1:
            s.path.addQuadCurveToPoint(to, one);
            two = one;
            break;
          default:
            s.path.addCurveToPoint(to, one, two);
        }
        const double from = std::max(std::hypot(to.x - two.x, to.y - two.y), 1e-9);
        along = {(to.x - two.x) / from, (to.y - two.y) / from};
        last_ = at = to;
      }
      if (pick(2) == 0) s.path.closeSubpath();
    }
    s.path.applyTransform(CGAffineTransformInvert(s.toPixels));
    return s;
  }

  static constexpr double kSide = 24;

 private:
  double real(double low, double high) {
    return low + (high - low) * (static_cast<double>(random_()) / 4294967296.0);
  }
  int pick(unsigned kinds) { return static_cast<int>(random_() % kinds); }

  std::mt19937 random_;
  double reach_ = 0;
  CGPoint last_;
};

CGPath pathOf(const std::vector<CGPoint>& points, bool isClosed) {
  CGPath path;
  path.moveToPoint(points[0]);
  if (points.size() == 4 && !isClosed) path.addCurveToPoint(points[3], points[1], points[2]);
  if (points.size() == 3 && !isClosed) path.addQuadCurveToPoint(points[2], points[1]);
  for (std::size_t i = 1; isClosed && i < points.size(); ++i) path.addLineToPoint(points[i]);
  if (isClosed) path.closeSubpath();
  return path;
}

// What 128 samples a pixel and the flattening of strokes come to.
constexpr double kTolerance = 40;

// Closed shapes narrower than their pen, curves that bend more tightly than it, and dots.
TEST(RasterStrokeSweep, WidePensLeaveNoHoles) {
  using enum CGLineJoin;
  constexpr auto butt = CGLineCap::butt;
  const CGAffineTransform blob{0.75, 0, 0, 0.14, 30, 30};
  std::vector<CGPoint> disc;
  for (int i = 0; i < 3000; ++i)
    disc.push_back({30 + 3 * std::cos(i / 477.4648), 30 + 3 * std::sin(i / 477.4648)});
  const PenStroke cases[] = {
      {pathOf({{20, 20}, {30, 20}, {30, 30}, {20, 30}}, true), {20, butt, miter, 10}},
      {pathOf({{20, 20}, {30, 20}, {30, 30}, {20, 30}}, true), {24, butt, bevel, 10}},
      {pathOf({{20, 20}, {30, 20}, {26, 30}}, true), {17, butt, round, 10}},
      {pathOf(disc, true), {20, butt, miter, 10}},
      {pathOf({{38, 40}, {38, 36}, {94, 84}, {94, 84}}, false), {46, butt, miter, 10}},
      {pathOf({{40, 20}, {56, 64}, {56, 62}}, false), {37, butt, miter, 10}},
      {pathOf({{40, 48}, {44, 40}, {40, 0}}, true), {35, CGLineCap::square, bevel, 10}},
      {pathOf({{48, 16}, {46, 16}, {64, 64}, {0, 64}}, false), {27, butt, round, 10}},
      {pathOf({{-0.94, 0}, {32, 8}, {0, 9}}, false), {10.25, CGLineCap::round, miter, 122}, blob},
      {pathOf({{10, 30}, {60, 30}, {-10, 30}, {50, 30}}, false), {9, butt, miter, 10}},
      {pathOf({{20, 20}}, true), {9, CGLineCap::round, miter, 10}},
      {pathOf({{20, 20}}, true), {9, CGLineCap::square, miter, 10}},
  };
  for (const PenStroke& s : cases) {
    const Worst worst = worstOf(s, 64);
    EXPECT_LE(std::max(worst.tooLittle, worst.tooMuch), kTolerance)
        << worst.tooLittle << " too little, " << worst.tooMuch << " too much\n"
        << (s.path.verbs().size() < 20 ? describe(s) : "a polygon");
  }
}

TEST(RasterStrokeSweep, RandomStrokesCoverWhatThePenCovers) {
  const char* const asked = std::getenv("GLYPHWRIGHT_STROKES");
  const int count = asked != nullptr ? std::atoi(asked) : 2000;
  int hurt = 0;
  for (int i = 0; i < count; ++i) {
    const PenStroke s = RandomStrokes(static_cast<unsigned>(i)).next();
    const Worst worst = worstOf(s, static_cast<std::size_t>(RandomStrokes::kSide));
    if (std::max(worst.tooLittle, worst.tooMuch) <= kTolerance) continue;
    ++hurt;
    ADD_FAILURE() << i << ": " << worst.tooLittle << " too little, " << worst.tooMuch
                  << " too much\n"
                  << describe(s);
  }
  EXPECT_EQ(hurt, 0) << "of " << count;
}

// Pieces as small as they may be, and then edges that are added up, too, which may be painted by
// other loops.
TEST(RasterStrokeSweep, StrokesTooLongToBeKeptAreTheSame) {
  for (unsigned i = 0; i < 600; ++i) {
    PenStroke s = RandomStrokes(i).next();
    // Long, and in part far away.
    for (int k = i % 3 == 0 ? 40 : 1; k > 0; --k)
      s.path.addPath(RandomStrokes(i + 600).next().path);
    if (i % 4 == 0) s.path.applyTransform(CGAffineTransformMakeScale(1, 3000));
    const auto bytes = [&] {
      const UIImage image = drawn(s, RandomStrokes::kSide);
      const auto rgba = image.cgImage().rgba();
      return std::vector<int>(rgba.begin(), rgba.end());
    };
    const std::vector<int> whole = bytes();
    const auto keepAtMost = [](std::size_t segments, std::size_t corners, std::size_t edges) {
      const auto memory = threadScratch().lease<ShapeMemory>();
      memory->outline.mostSegments = segments;
      memory->outline.mostCorners = corners;
      memory->edges.most = edges;
    };
    const StrokeOutline outline;
    keepAtMost(4 + i % 3, 16, EdgeList().most);
    const std::vector<int> pieces = bytes();
    keepAtMost(4 + i % 3, 16, 24);
    const std::vector<int> sums = bytes();
    keepAtMost(outline.mostSegments, outline.mostCorners, EdgeList().most);
    ASSERT_EQ(pieces, whole) << i << ": " << describe(s);
    for (std::size_t k = 0; k < whole.size(); ++k) ASSERT_NEAR(sums[k], whole[k], 1) << i;
  }
}

}  // namespace
}  // namespace glyphwright::raster
