// Hostile requests, and the most memory that each may take at once: counted, not timed.

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/bezier_path.h>
#include <glyphwright/catalogue/catalogue.h>
#include <glyphwright/catalogue/pathable.h>
#include <glyphwright/platform/context.h>
#include <glyphwright/platform/image.h>
#include <glyphwright/platform/layers/shape_layer.h>
#include <glyphwright/rendering/icon_attributes.h>

#include "failing_memory.h"
#include "pixels.h"

namespace glyphwright::memory {
namespace {

constexpr std::size_t kMiB = std::size_t{1} << 20;
const UIColor kRose(0.93, 0.26, 0.4, 1);

// The most bytes in use at once, beyond those of `work`'s own input, on a thread without a past.
// Under a sanitizer, which looks at each access, a part of the work finds as much.
#ifdef __has_feature
constexpr int kPart = __has_feature(address_sanitizer) ? 20 : 1;
#else
constexpr int kPart = 1;
#endif

std::size_t peakOf(const std::function<void()>& work) {
  std::size_t peak = 0;
  std::thread([&] {
    const Watch watch;
    work();
    peak = watch.peak();
  }).join();
  return peak;
}

void drawOn(CGFloat side, const std::function<void(CGContextRef)>& actions) {
  UIImage::render({side, side}, 1, [&](CGContext& context) { actions(&context); });
}

CGPath cubics(int count, CGFloat near, CGFloat far) {
  CGPath path;
  path.moveToPoint({0, 0});
  for (int i = 0; i < count / kPart; ++i) {
    const CGFloat reach = i % 2 == 0 ? far : near;
    path.addCurveToPoint({i * 0.001, i * 0.01}, {reach, 3}, {7, far + near - reach});
  }
  return path;
}
CGPath farCubics(int count) {
  return cubics(count, -1e6, 1e6);
}

std::function<void()> stroked(const CGPath& path, const StrokeStyle& style, CGFloat side) {
  return [=] {
    drawOn(side, [&](CGContextRef context) { CGContextStrokePath(context, path, style); });
  };
}

struct Request {
  std::string name;
  std::size_t most;  // bytes
  std::function<std::function<void()>()> prepare;
};

TEST(Bounds, HostileRequestsTakeBoundedMemory) {
  const Request requests[] = {
      {"100,000 cubics that reach a million pixels, filled", 64 * kMiB,
       [&] {
         return [path = farCubics(100000)] {
           drawOn(100, [&](CGContextRef context) {
             CGContextFillPath(context, path, FillRule::evenOdd);
           });
         };
       }},
      {"100,000 cubics all over a picture of 2048 pixels a side, filled", (16 + 64) * kMiB,
       [&] {
         return [path = cubics(100000, 1, 2047)] {
           drawOn(2048, [&](CGContextRef context) {
             CGContextFillPath(context, path, FillRule::evenOdd);
           });
         };
       }},
      {"20,000 cubics that reach a million pixels, stroked, 2048 pixels a side", (16 + 64) * kMiB,
       [&] { return stroked(farCubics(20000), {.width = 2}, 2048); }},
      {"50,000 zigzag lines with round joins under the widest pen", 64 * kMiB,
       [&] {
         CGPath path;
         path.moveToPoint({0, 0});
         for (int i = 1; i < 50000 / kPart; ++i) path.addLineToPoint({i % 2 * 100.0, i * 0.002});
         return stroked(path, {.width = 1e300, .join = CGLineJoin::round}, 100);
       }},
      {"a million dots", 64 * kMiB,
       [&] {
         CGPath path;
         for (int i = 0; i < 1000000 / kPart; ++i) {
           path.moveToPoint({i * 1e-4, 50});
           path.closeSubpath();
         }
         return stroked(path, {.width = 9, .cap = CGLineCap::round}, 100);
       }},
      {"part of a shape layer's outline of 100,000 cubics that reach a million pixels", 64 * kMiB,
       [&] {
         auto layer = std::make_shared<CAShapeLayer>();
         layer->setPath(farCubics(100000));
         layer->setFillColor(std::nullopt);
         layer->setStrokeColor(kRose);
         layer->setStrokeEnd(0.7);
         return [layer] {
           drawOn(100, [&](CGContextRef context) { layer->renderInContext(context); });
         };
       }},
      {"an icon with everything, 2048 pixels a side", (16 + 64) * kMiB,
       [&] {
         return [] {
           UIBezierPath::gearPath().makeImage({.fillColor = kRose,
                                               .backgroundColor = UIColor::clearColor(),
                                               .border = IconBorder(kRose, 9),
                                               .dropShadow = IconShadow(kRose, {40, 40}, 1e9),
                                               .insetShadow = IconShadow(kRose, {40, 40}, 300),
                                               .size = {1024, 1024}});
         };
       }},
      {"twenty clips that something is painted through, 2048 pixels a side", (16 + 64) * kMiB,
       [&] {
         return [] {
           drawOn(2048, [](CGContextRef context) {
             for (int i = 0; i < 20; ++i) {
               CGPath path;
               path.addEllipseInRect({{0, 0}, {2048.0 - i, 2048.0}});
               CGContextClipToPath(context, path, FillRule::nonZero);
               CGContextFillRect(context, {{0, 0}, {2048, 2048}});
             }
           });
         };
       }},
      {"10,000 icons on one canvas", 16 * kMiB,
       [&] {
         const std::size_t count = 10000 / kPart;
         return [icons = std::vector<Pathable>(count, App::Shapes::Checks::checkmark),
                 looks = std::vector<IconAttributes>(
                     count, {.fillColor = kRose, .backgroundColor = kRose, .size = {32, 32}}),
                 places = std::vector<CGPoint>(count, CGPoint{3, 3}),
                 sizes = std::vector<CGSize>(count, CGSize{32, 32})] {
           UIBezierPath::newImage(icons, looks, places, sizes, {64, 64});
         };
       }},
  };
  for (const Request& request : requests) {
    SCOPED_TRACE(request.name);
    const std::function<void()> work = request.prepare();
    EXPECT_LE(peakOf(work) / kMiB, request.most / kMiB);
  }
}

// Nothing is as deep as the input is long: paths that clip what others have clipped, painted
// through when all are there and when half of them have been taken off again.
TEST(Bounds, ClipsMayBeNestedWithoutEnd) {
  CGPath oval;
  oval.addEllipseInRect({{-10, -10}, {28, 28}});
  const UIImage image = UIImage::render({8, 8}, 1, [&](CGContext& c) {
                          for (int i = 0; i < 60000; ++i) {
                            if (i == 30000) CGContextSaveGState(&c);
                            CGContextClipToPath(&c, oval, FillRule::nonZero);
                          }
                          CGContextFillRect(&c, {{0, 0}, {3.5, 8}});
                          CGContextRestoreGState(&c);
                          CGContextFillRect(&c, {{3.5, 0}, {4.5, 8}});
                        }).value();
  // Each of so many products loses a little to its rounding.
  EXPECT_GT(pixels::at(image, 2, 2).alpha, 127);
  EXPECT_GT(pixels::at(image, 6, 2).alpha, 127);
}

}  // namespace
}  // namespace glyphwright::memory
