// No cost grows faster than its input: processor time for n, 2n and 4n of whatever can be many,
// where a cost that grew with the square would be four and sixteen times as high.

#include <algorithm>
#include <ctime>
#include <functional>
#include <memory>
#include <ostream>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/bezier_path.h>
#include <glyphwright/catalogue/app.h>
#include <glyphwright/catalogue/pathable.h>
#include <glyphwright/layers/gradient_shape_layer.h>
#include <glyphwright/platform/context.h>
#include <glyphwright/platform/image.h>
#include <glyphwright/rendering/icon_attributes.h>

namespace glyphwright {
namespace {

struct Cost {
  const char* of;
  int count;  // n, such that it takes a few milliseconds
  std::function<void(int)> spend;
};

void PrintTo(const Cost& cost, std::ostream* out) {
  *out << cost.of;
}

void drawOn(CGFloat side, const std::function<void(CGContextRef)>& actions) {
  UIImage::render({side, side}, 1, [&](CGContext& context) { actions(&context); });
}

// Lines and curves all over a picture of 64 points, which wind at most a few times.
CGPath pathOf(int segments) {
  CGPath path;
  path.moveToPoint({0, 0});
  for (int i = 1; i <= segments; ++i) {
    const CGPoint to{i % 64 + 0.5, static_cast<CGFloat>(i) * 64 / segments};
    if (i % 2 == 0) path.addLineToPoint(to);
    if (i % 2 != 0) path.addCurveToPoint(to, {10, to.y}, {50, to.y});
  }
  return path;
}

const Cost kCosts[] = {
    {"segments, built and measured", 20000,
     [](int n) {
       CGPath path = pathOf(n);
       path.applyTransform(CGAffineTransformMakeScale(2, 2));
       EXPECT_FALSE(CGRectIsEmpty(path.boundingBox()));
     }},
    {"segments, filled", 20000,
     [](int n) {
       drawOn(64, [&](CGContextRef c) { CGContextFillPath(c, pathOf(n), FillRule::nonZero); });
     }},
    {"segments, stroked", 5000,
     [](int n) { drawOn(64, [&](CGContextRef c) { CGContextStrokePath(c, pathOf(n), {2}); }); }},
    {"contours, stroked", 5000,
     [](int n) {
       CGPath path;
       for (int i = 0; i < n; ++i) path.addEllipseInRect({i % 60 + 0.5, i / 8 % 60 + 0.5, 3, 3});
       drawOn(64, [&](CGContextRef c) { CGContextStrokePath(c, path, {1}); });
     }},
    {"clips inside one another", 1000,
     [](int n) {
       drawOn(32, [&](CGContextRef c) {
         CGPath disc;
         disc.addEllipseInRect({1, 1, 30, 30});
         for (int i = 0; i < n; ++i) CGContextClipToPath(c, disc, FillRule::nonZero);
         CGContextFillRect(c, {0, 0, 32, 32});
       });
     }},
    {"groups inside one another", 5000,
     [](int n) {
       drawOn(32, [&](CGContextRef c) {
         for (int i = 0; i < n; ++i) CGContextBeginTransparencyLayer(c);
         CGContextFillRect(c, {4, 4, 9, 9});
         for (int i = 0; i < n; ++i) CGContextEndTransparencyLayer(c);
       });
     }},
    {"saved states", 10000,
     [](int n) {
       drawOn(8, [&](CGContextRef c) {
         for (int i = 0; i < n; ++i) CGContextSaveGState(c);
         for (int i = 0; i < n; ++i) CGContextRestoreGState(c);
       });
     }},
    {"icons on a canvas", 300,
     [](int n) {
       const auto count = static_cast<std::size_t>(n);
       const std::vector<Pathable> icons(count, App::DeleteAccount::heart);
       const std::vector<IconAttributes> looks(
           count, IconAttributes{.fillColor = UIColor::blackColor(),
                                 .backgroundColor = UIColor::clearColor(),
                                 .size = {16, 16}});
       const std::vector<CGPoint> positions(count, {8, 8});
       const std::vector<CGSize> sizes(count, {16, 16});
       EXPECT_TRUE(UIBezierPath::newImage(icons, looks, positions, sizes, {64, 64}).hasPixels());
     }},
    {"layers beside one another, added, shown, added again and taken off from the front", 5000,
     [](int n) {
       const auto root = CALayer::layer();
       std::vector<std::shared_ptr<CALayer>> layers;
       for (int i = 0; i < n; ++i) {
         layers.push_back(CALayer::layer());
         layers.back()->setFrame({0, 0, 4, 4});
         layers.back()->setBackgroundColor(UIColor::blackColor());
         root->addSublayer(layers.back());
       }
       drawOn(8, [&](CGContextRef c) { root->renderInContext(c); });
       for (const auto& layer : layers) root->addSublayer(layer);
       for (const auto& layer : layers) layer->removeFromSuperlayer();
     }},
    {"gradient layers whose inner layers are each other's", 1500,
     [](int n) {
       const auto first = VNTLGradientShapeLayer::layer();
       auto last = first;
       for (int i = 0; i < n; ++i) {
         const auto next = VNTLGradientShapeLayer::layer();
         last->setGradientSubLayers(std::vector<std::shared_ptr<CALayer>>{next, next});
         last = next;
       }
       first->setFrame({0, 0, 9, 9});
     }},
};

class Growth : public testing::TestWithParam<Cost> {};

double secondsFor(const Cost& cost, int count) {
  const std::clock_t start = std::clock();
  cost.spend(count);
  return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

TEST_P(Growth, IsNoFasterThanTheInput) {
  const Cost& cost = GetParam();
  constexpr int kTimes[] = {1, 2, 4};
  double least[] = {1e9, 1e9, 1e9};
  // The least of several, as anything else that runs only adds; more of them where it adds much.
  // Between what is in proportion, 4, and its square, 16; caches that fill up count, too.
  for (int round = 0; round < 4 || (round < 16 && least[2] > 10 * least[0]); ++round) {
    for (int i = 0; i < 3; ++i) {
      least[i] = std::min(least[i], secondsFor(cost, kTimes[i] * cost.count));
    }
  }
  EXPECT_LT(least[2], 10 * least[0])
      << cost.of << ": " << 1000 * least[0] << ", " << 1000 * least[1] << " and " << 1000 * least[2]
      << " ms for n, 2n and 4n";
}

INSTANTIATE_TEST_SUITE_P(Costs, Growth, testing::ValuesIn(kCosts));

}  // namespace
}  // namespace glyphwright
