// Filling a path and stroking it by turns against doing one after the other.

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/bezier_path.h>
#include <glyphwright/paths/registry.h>
#include <glyphwright/platform/context.h>
#include <glyphwright/platform/graphics_context.h>

namespace glyphwright {
namespace {

using Prepare = std::function<void(CGContextRef)>;

std::vector<std::uint8_t> painted(const CGPath& path, std::size_t side, bool evenOdd,
                                  const StrokeStyle& style, const Prepare& prepare, bool byTurns) {
  const auto points = static_cast<CGFloat>(side);
  UIGraphicsBeginImageContextWithOptions({points, points}, false, 1);
  CGContextRef context = UIGraphicsGetCurrentContext();
  CGContextSetFillColor(context, UIColor(0.1, 0.4, 0.9, 0.8));
  CGContextSetStrokeColor(context, UIColor(0.9, 0.3, 0.1, 0.7));
  prepare(context);
  if (byTurns) {
    // Halved and doubled again, which nothing is lost by.
    CGPath half = path;
    half.applyTransform(CGAffineTransformMakeScale(0.5, 0.5));
    contexts::fillAndStroke(*context, half, CGAffineTransformMakeScale(2, 2), evenOdd, style);
  } else {
    CGContextFillPath(context, path, evenOdd);
    CGContextStrokePath(context, path, style);
  }
  CGContextEndTransparencyLayer(context);  // where one was begun
  const UIImage image = UIGraphicsGetImageFromCurrentImageContext().value_or(UIImage());
  UIGraphicsEndImageContext();
  const auto rgba = image.cgImage().rgba();
  return {rgba.begin(), rgba.end()};
}

// The path with its box spread over `width` × `height` from (x, y) on.
CGPath placed(UIBezierPath path, CGFloat x, CGFloat y, CGFloat width, CGFloat height) {
  const CGRect box = path.bounds();
  path.applyTransform(CGAffineTransformMakeTranslation(-box.origin.x, -box.origin.y));
  path.applyTransform(CGAffineTransformMakeScale(width / box.size.width, height / box.size.height));
  path.applyTransform(CGAffineTransformMakeTranslation(x, y));
  return path.cgPath();
}

TEST(FillAndStroke, ByTurnsIsTheSameAsOneAfterTheOther) {
  CGPath clip;
  clip.addRect({3.5, 4.5, 150, 120});
  struct State {
    std::string_view name;
    Prepare prepare;
  };
  const State states[] = {
      {"plain", [](CGContextRef) {}},
      {"over a ground",
       [](CGContextRef c) {
         CGContextSaveGState(c);
         CGContextSetFillColor(c, UIColor(1, 1, 0.8, 0.5));
         CGContextFillRect(c, {0, 0, 4000, 4000});
         CGContextRestoreGState(c);
       }},
      {"over a picture",
       [](CGContextRef c) {
         CGContextFillRect(c, {2.5, 3.5, 40.25, 17});
       }},
      {"clipped", [&](CGContextRef c) { CGContextClipToPath(c, clip, false); }},
      {"clipped by pixels",
       [](CGContextRef c) {
         CGContextClipToRect(c, {4, 5, 61, 80});
       }},
      {"with a shadow",
       [](CGContextRef c) {
         CGContextSetShadowWithColor(c, {1, 2}, 4, UIColor::blackColor());
       }},
      {"in a group", [](CGContextRef c) { CGContextBeginTransparencyLayer(c); }},
      {"stretched", [](CGContextRef c) { CGContextScaleCTM(c, 1.25, 0.75); }},
      {"half clear", [](CGContextRef c) { CGContextSetAlpha(c, 0.5); }},
      {"without a fill", [](CGContextRef c) { CGContextSetFillColor(c, UIColor::clearColor()); }},
  };
  struct Place {
    std::string_view name;
    std::size_t side;
    CGFloat x, y, width, height;
  };
  const Place places[] = {
      {"small", 24, 0, 0, 24, 24},
      {"whole", 96, 5.3, 6.1, 80, 84},
      {"in bands", 400, 3.3, 2.1, 390, 350},
      {"large", 1100, 40, 30, 1000, 1033},
      {"over the corner", 300, -120, -140, 300, 300},
      {"over the other corner", 300, 120, 140, 300, 300},
      {"fill outside", 60, 60.2, 5, 30, 40},
      {"all outside", 60, 160.2, 5, 30, 40},
  };
  for (const std::string_view name : {"heartPath", "vantelTextLogoPath"}) {
    for (const Place& p : places) {
      const CGPath path = placed(findClassMethod(name)(), p.x, p.y, p.width, p.height);
      for (const State& state : states) {
        for (const CGFloat width : {0.0, 2.0, 21.0}) {
          const StrokeStyle style{width};
          const bool evenOdd = width != 2;
          const auto expected = painted(path, p.side, evenOdd, style, state.prepare, false);
          const auto actual = painted(path, p.side, evenOdd, style, state.prepare, true);
          EXPECT_TRUE(actual == expected)
              << name << ' ' << p.name << ' ' << state.name << ", width " << width;
        }
      }
    }
  }
}

// So many windings that the cells take more than sixteen bits, on one side and on both.
TEST(FillAndStroke, ManyWindingsByTurns) {
  for (const std::size_t side : {64U, 400U}) {
    CGPath path;
    for (int turn = 0; turn < 64; ++turn) path.addEllipseInRect({8.25, 9.5, 40, 44});
    for (const bool evenOdd : {false, true}) {
      const StrokeStyle style{3};
      const auto none = [](CGContextRef) {};
      EXPECT_TRUE(painted(path, side, evenOdd, style, none, true) ==
                  painted(path, side, evenOdd, style, none, false));
    }
  }
}

}  // namespace
}  // namespace glyphwright
