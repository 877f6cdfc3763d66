// What contexts do when memory fails, and how much of it they take.

#include <functional>
#include <new>
#include <optional>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/bezier_path.h>
#include <glyphwright/catalogue/pathable.h>
#include <glyphwright/catalogue/recs.h>
#include <glyphwright/platform/context.h>
#include <glyphwright/platform/gradient.h>
#include <glyphwright/platform/layers/shape_layer.h>
#include <glyphwright/platform/raster/scratch.h>
#include <glyphwright/rendering/icon_attributes.h>

#include "failing_memory.h"
#include "pixels.h"

namespace glyphwright {
namespace {

using Draw = std::function<void(CGContextRef)>;

UIImage drawn(CGFloat side, const Draw& draw) {
  UIGraphicsBeginImageContextWithOptions({side, side}, false, 1);
  draw(UIGraphicsGetCurrentContext());
  UIImage image = UIGraphicsGetImageFromCurrentImageContext().value_or(UIImage());
  UIGraphicsEndImageContext();
  return image;
}

CGPath rings(CGFloat side, int count) {
  CGPath path;
  for (int i = 0; i < count; ++i) {
    const CGFloat in = side * 0.4 * i / count;
    path.addEllipseInRect({in + 0.3, in + 0.7, side - 2 * in - 1, side - 2 * in - 1});
  }
  return path;
}

void clipTo(CGContextRef context, const CGRect& oval) {
  CGPath path;
  path.addEllipseInRect(oval);
  CGContextClipToPath(context, path, false);
}

IconAttributes attributesOf(CGFloat side) {
  return {.fillColor = UIColor(1, 0, 0, 1),
          .backgroundColor = UIColor::clearColor(),
          .stroke = IconStroke(UIColor::clearColor(), 1),
          .size = {side, side}};
}

struct Scene {
  std::string_view name;
  CGFloat side;
  Draw draw;
};

std::vector<Scene> scenes() {
  const auto fill = [](CGContextRef c) { CGContextFillPath(c, rings(40, 3), true); };
  const auto inBands = [](CGContextRef c) { CGContextFillPath(c, rings(300, 3), false); };
  const auto woundOften = [](CGContextRef c) { CGContextFillPath(c, rings(60, 40), false); };
  const auto clipped = [=](CGContextRef c) {
    CGContextSaveGState(c);
    clipTo(c, {2.5, 2, 30, 31});
    clipTo(c, {6.5, 1, 33, 31});
    fill(c);
    CGContextRestoreGState(c);
  };
  const auto shadow = [=](CGContextRef c) {
    CGContextSaveGState(c);
    CGContextSetShadowWithColor(c, {1, 2}, 5, UIColor(0, 0, 1, 0.5));
    fill(c);
    CGContextSetShadowWithColor(c, {1, 2}, 40, UIColor(0, 0, 1, 0.5));
    CGContextBeginTransparencyLayer(c);
    fill(c);
    CGContextFillRect(c, {-8, 3, 12, 12});
    CGContextEndTransparencyLayer(c);
    CGContextRestoreGState(c);
  };
  const auto gradient = [](CGContextRef c) {
    const UIColor colors[] = {UIColor(1, 0, 0, 1), UIColor(0, 1, 0, 0.5)};
    const CGFloat stops[] = {0, 1};
    const auto made = CGGradientCreateWithColors(CGColorSpaceCreateDeviceRGB(), colors, stops);
    if (made) CGContextDrawRadialGradient(c, *made, {20, 20}, 15);
  };
  const auto layers = [](CGContextRef c) {
    const auto layer = CAShapeLayer::layer();
    layer->setBounds({0, 0, 40, 40});
    layer->setPosition({20, 20});
    layer->setPath(rings(40, 2));
    const auto mask = CALayer::layer();
    mask->setBounds({0, 0, 20, 20});
    mask->setBackgroundColor(UIColor(0, 0, 0, 0.5));
    layer->setMask(mask);
    layer->renderInContext(c);
  };
  const auto canvas = [](CGContextRef c) {
    IconAttributes attributes = attributesOf(20);
    attributes.insetShadow = IconShadow(UIColor(0, 0, 0, 0.5), {1, 1}, 2);
    const Pathable icons[] = {Recs::ItsAMatch::retroMatchThinOutline,
                              Recs::ItsAMatch::retroMatchThinOutline};
    const IconAttributes each[] = {attributes, attributes};
    const CGPoint places[] = {{0, 0}, {10, 15}};
    const CGSize sizes[] = {{20, 20}, {25, 20}};
    const UIImage image = UIBezierPath::newImage(icons, each, places, sizes, {40, 40});
    CGContextDrawImage(c, {1.5, 1, 37, 38}, image);
  };
  const auto all = [=](CGContextRef c) {
    for (const Draw& draw : std::vector<Draw>{inBands, woundOften, clipped, shadow, gradient}) {
      draw(c);
    }
  };
  return {{"fill", 40, fill},       {"in bands", 300, inBands}, {"wound often", 60, woundOften},
          {"clipped", 40, clipped}, {"shadow", 40, shadow},     {"gradient", 40, gradient},
          {"layers", 40, layers},   {"canvas", 40, canvas},     {"all", 300, all}};
}

// Each allocation of each scene fails once: the failure is told, no context is left open, and the
// next picture on the thread is as it would have been.
TEST(FailingMemory, IsToldAndLeavesNothingBehind) {
  const std::vector<Scene> all = scenes();
  const UIImage expected = drawn(all.back().side, all.back().draw);
  for (const Scene& scene : all) {
    bool failed = true;
    std::size_t failures = 0;
    for (std::size_t count = 0; failed; ++count) {
      raster::threadScratch() = raster::Scratch();
      UIGraphicsBeginImageContextWithOptions({scene.side, scene.side}, false, 1);
      const CGContextRef context = UIGraphicsGetCurrentContext();
      failed = false;
      try {
        const memory::FailsAfter fails(count);
        scene.draw(context);
      } catch (const std::bad_alloc&) {
        failed = true;
        ++failures;
      }
      ASSERT_EQ(UIGraphicsGetCurrentContext(), context) << scene.name << ' ' << count;
      UIGraphicsEndImageContext();
      if (failed) {
        SCOPED_TRACE(std::string(scene.name) + ' ' + std::to_string(count));
        pixels::expectSamePixels(drawn(all.back().side, all.back().draw), expected);
      }
    }
    EXPECT_GT(failures, 0U) << scene.name;
  }
}

// Nothing is as deep as the input is long: paths that clip what others have clipped, painted
// through when all are there and when half of them have been taken off again.
TEST(Bounds, ClipsMayBeNestedWithoutEnd) {
  const UIImage image = drawn(8, [](CGContextRef context) {
    for (int i = 0; i < 60000; ++i) {
      if (i == 30000) CGContextSaveGState(context);
      clipTo(context, {-10, -10, 28, 28});
    }
    CGContextFillRect(context, {0, 0, 3.5, 8});
    CGContextRestoreGState(context);
    CGContextFillRect(context, {3.5, 0, 4.5, 8});
  });
  // Each of so many products loses a little to its rounding.
  EXPECT_GT(pixels::at(image, 2, 2).alpha, 127);
  EXPECT_GT(pixels::at(image, 6, 2).alpha, 127);
}

TEST(Bounds, MasksAndIconsAreNotKept) {
  constexpr std::size_t kMega = 1 << 20;
  drawn(1024, [](CGContextRef context) {
    const memory::Peak peak;
    for (int i = 0; i < 40; ++i) {
      CGContextSaveGState(context);
      clipTo(context, {0.5, 0.5, 1023, 1023});
      CGContextFillRect(context, {1, 1, 1, 1});
    }
    // A mask takes 2 MiB.
    EXPECT_LT(peak.bytes(), 24 * kMega);
  });
  const std::vector<Pathable> icons(2000, Recs::ItsAMatch::retroMatchThinOutline);
  const std::vector<IconAttributes> attributes(icons.size(), attributesOf(24));
  const std::vector<CGPoint> places(icons.size());
  const std::vector<CGSize> sizes(icons.size(), {24, 24});
  const memory::Peak peak;
  UIBezierPath::newImage(icons, attributes, places, sizes, {100, 100});
  // Their pixels alone are 4 MiB.
  EXPECT_LT(peak.bytes(), kMega);
}

}  // namespace
}  // namespace glyphwright
