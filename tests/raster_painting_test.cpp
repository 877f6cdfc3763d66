// What bitmap contexts paint: strokes, clips, groups, shadows, images, gradients.

#include <cmath>
#include <limits>
#include <optional>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/platform/context.h>
#include <glyphwright/platform/gradient.h>
#include <glyphwright/platform/image.h>
#include <glyphwright/platform/raster/scratch.h>

#include "pixels.h"

namespace glyphwright {
namespace {

using pixels::at;
using pixels::kNone;
using pixels::kRed;
using pixels::Rgba;

// With everything red that no colour is set for.
template <typename Paint>
UIImage painted(CGSize size, Paint paint, CGFloat scale = 1) {
  return pixels::drawn(size, scale, [&](CGContextRef context) {
    CGContextSetFillColor(context, pixels::red);
    CGContextSetStrokeColor(context, pixels::red);
    paint(context);
  });
}

// Painted area in pixels.
double area(const UIImage& image) {
  double sum = 0;
  const auto rgba = image.cgImage().rgba();
  for (std::size_t i = 3; i < rgba.size(); i += 4) sum += rgba[i] / 255.0;
  return sum;
}

CGPath lines(std::vector<CGPoint> points, bool closed) {
  CGPath path;
  path.addLines(points);
  if (closed) path.closeSubpath();
  return path;
}

CGPath rectangle(const CGRect& rect) {
  CGPath path;
  path.addRect(rect);
  return path;
}

double strokedArea(const CGPath& path, const StrokeStyle& style, CGFloat scaleX = 1) {
  return area(painted({80, 80}, [&](CGContextRef context) {
    CGContextScaleCTM(context, scaleX, 1);
    CGContextStrokePath(context, path, style);
  }));
}

TEST(RasterStrokes, CapsAndJoinsHaveTheirArea) {
  constexpr double kPi = 3.14159265358979;
  const CGPath line = lines({{20, 40}, {50, 40}}, false);
  const CGPath dot = lines({{40, 40}, {40, 40}}, false);
  const CGPath corner = lines({{20, 50}, {50, 50}, {50, 20}}, false);
  const CGPath spike = lines({{10, 40}, {60, 41}, {10, 42}}, false);
  const CGPath thereAndBack = lines({{20, 40}, {50, 40}}, true);
  struct Case {
    const char* name;
    const CGPath& path;
    StrokeStyle style;
    double area;
  };
  const auto butt = CGLineCap::butt;
  const auto square = CGLineCap::square;
  const auto miter = CGLineJoin::miter;
  const auto round = CGLineJoin::round;
  const auto bevel = CGLineJoin::bevel;
  const Case cases[] = {
      {"butt", line, {8, butt, miter, 10}, 240},
      {"square", line, {8, square, miter, 10}, 240 + 64},
      {"round", line, {8, CGLineCap::round, miter, 10}, 240 + 16 * kPi},
      {"hairline is a pixel wide", line, {0, butt, miter, 10}, 30},
      {"negative width", line, {-1, butt, miter, 10}, 0},
      {"no length, butt", dot, {8, butt, miter, 10}, 0},
      {"no length, round", dot, {8, CGLineCap::round, miter, 10}, 16 * kPi},
      // Both arms meet in the square of half the width on the inner side and one corner square.
      {"miter", corner, {8, butt, miter, 10}, 480 - 16 + 16},
      {"bevel", corner, {8, butt, bevel, 10}, 480 - 16 + 8},
      {"round join", corner, {8, butt, round, 10}, 480 - 16 + 4 * kPi},
      {"miter above its limit is a bevel", corner, {8, butt, miter, 1.4}, 480 - 16 + 8},
      {"two points closed, miter", thereAndBack, {8, butt, miter, 10}, 240},
      {"two points closed, round", thereAndBack, {8, butt, round, 10}, 240 + 16 * kPi},
  };
  for (const Case& c : cases) EXPECT_NEAR(strokedArea(c.path, c.style), c.area, 0.3) << c.name;
  EXPECT_LT(strokedArea(spike, {4, butt, miter, 10}), 50.1 * 6 + 8) << "a spike beyond the limit";
}

TEST(RasterStrokes, ThePenIsStretchedWithTheSpaceButAHairlineIsNot) {
  const CGPath upright = lines({{10, 20}, {10, 50}}, false);
  EXPECT_NEAR(strokedArea(upright, {4, CGLineCap::butt, CGLineJoin::miter, 10}, 3), 30 * 12, 0.3);
  EXPECT_NEAR(strokedArea(upright, {0, CGLineCap::butt, CGLineJoin::miter, 10}, 3), 30, 0.3);
}

// What a group paints beyond the clip casts its shadow into it, however many pieces it has.
TEST(RasterGroups, CastFromBeyondTheClip) {
  const auto cast = [](int pieces) {
    return painted({20, 20}, [&](CGContextRef context) {
      CGContextFillRect(context, {12, 0, 2, 2});
      CGContextSetShadowWithColor(context, {9, 4}, 3, UIColor(0, 0, 1, 0.5));
      if (pieces > 1) CGContextBeginTransparencyLayer(context);
      for (CGFloat x = -8, width = 8.0 / pieces; x < 0; x += width) {
        CGContextFillPath(context, rectangle({x, -2, width, 12}), FillRule::nonZero);
      }
      CGContextEndTransparencyLayer(context);
      CGContextFillPath(context, rectangle({-9, 14, 1, 1}), FillRule::nonZero);
    });
  };
  const UIImage one = cast(1);
  EXPECT_GT(at(one, 4, 8).alpha, 100);
  pixels::expectSamePixels(cast(2), one);
}

TEST(RasterClips, ClipsMultiply) {
  const UIImage image = painted({8, 8}, [](CGContextRef context) {
    CGContextClipToPath(context, rectangle({0.5, 0, 4, 8}), FillRule::nonZero);
    CGContextClipToPath(context, rectangle({0.5, 0.5, 4, 8}), FillRule::evenOdd);
    CGContextFillRect(context, {0, 0, 8, 8});
  });
  EXPECT_NEAR(at(image, 0, 0).alpha, 255 * 0.5 * 0.25, 1);
  EXPECT_NEAR(at(image, 0, 3).alpha, 255 * 0.5 * 0.5, 1);
  EXPECT_EQ(at(image, 2, 3), kRed);
  EXPECT_EQ(at(image, 6, 3), kNone);
}

TEST(RasterClips, RestoringWidensAndAnEmptyClipStopsAll) {
  const UIImage image = painted({8, 8}, [](CGContextRef context) {
    CGContextSaveGState(context);
    CGContextClipToPath(context, CGPath(), FillRule::nonZero);
    EXPECT_TRUE(CGRectIsNull(CGContextGetClipBoundingBox(context)));
    CGContextFillRect(context, {0, 0, 8, 8});
    CGContextRestoreGState(context);
    CGContextRestoreGState(context);  // nothing saved any more
    CGContextFillRect(context, {0, 0, 1, 1});
  });
  EXPECT_NEAR(area(image), 1, 1e-9);
}

TEST(RasterGroups, AGroupIsComposedOnce) {
  const UIImage image = painted({8, 8}, [](CGContextRef context) {
    CGContextSetFillColor(context, pixels::blue);
    CGContextSaveGState(context);
    CGContextSetFillColor(context, pixels::red);
    CGContextSetAlpha(context, 0.5);
    CGContextBeginTransparencyLayer(context);
    CGContextRestoreGState(context);           // saved outside
    CGContextTranslateCTM(context, 100, 100);  // ends with the group
    CGContextFillRect(context, {-100, -100, 4, 8});
    CGContextFillRect(context, {-98, -100, 4, 8});
    CGContextEndTransparencyLayer(context);
    CGContextEndTransparencyLayer(context);
    CGContextFillRect(context, {7, 0, 1, 1});
  });
  for (const std::size_t x : {0U, 3U, 5U}) EXPECT_EQ(at(image, x, 4), (Rgba{128, 0, 0, 128})) << x;
  EXPECT_EQ(at(image, 6, 4), kNone);
  EXPECT_NEAR(at(image, 7, 0).alpha, 128, 1);
}

TEST(RasterShadows, CastersCountOutsideTheClipAndTheBitmap) {
  const auto shadowed = [](CGRect caster, CGSize offset, CGFloat blur, CGFloat scale) {
    return painted(
        {10, 10},
        [&](CGContextRef context) {
          CGContextClipToRect(context, {0, 0, 5, 10});
          CGContextSetShadowWithColor(context, offset, blur, UIColor(0, 0, 1, 1));
          CGContextFillRect(context, caster);
        },
        scale);
  };
  // The caster stands left of the bitmap; what shows of its shadow ends at the clip.
  for (const CGFloat scale : {1.0, 2.0}) {
    const UIImage image = shadowed({-20, 0, 10, 10}, {20, 0}, 0, scale);
    EXPECT_NEAR(area(image), 50 * scale * scale, 1e-9);
    EXPECT_EQ(at(image, 0, 0), pixels::kBlue);
  }
  // Blurred, half of the shadow lies beyond the caster's edge.
  const UIImage soft = shadowed({-20, -20, 22, 50}, {0, 0.0001}, 4, 1);
  EXPECT_NEAR(at(soft, 2, 5).alpha, 255 * 0.4, 15);
  EXPECT_EQ(at(soft, 1, 5), kRed) << "the shape lies over its shadow";
  EXPECT_EQ(at(shadowed({0, 0, 2, 2}, {std::nan(""), 0}, 4, 1), 4, 4), kNone);
}

UIImage checkered() {
  const std::uint8_t rgba[] = {255, 0, 0, 255, 0, 255, 0, 255, 0, 0, 255, 255, 0, 0, 0, 0};
  return {CGImage(2, 2, rgba), 1, {2, 2}};
}

TEST(RasterImages, AreCopiedEnlargedShrunkAndTurned) {
  const UIImage source = checkered();
  const auto drawn = [&](CGRect rect, CGFloat turn) {
    return painted({8, 8}, [&](CGContextRef context) {
      CGContextTranslateCTM(context, 4, 4);
      CGContextRotateCTM(context, turn);
      CGContextTranslateCTM(context, -4, -4);
      CGContextDrawImage(context, rect, source);
    });
  };
  const UIImage copied = drawn({3, 3, 2, 2}, 0);
  EXPECT_EQ(at(copied, 3, 3), kRed);
  EXPECT_EQ(at(copied, 4, 3), pixels::kGreen);
  EXPECT_EQ(at(copied, 3, 4), pixels::kBlue);
  EXPECT_NEAR(area(copied), 3, 1e-9);

  const UIImage large = drawn({0, 0, 8, 8}, 0);
  EXPECT_EQ(at(large, 0, 0), kRed);
  EXPECT_NEAR(at(large, 3, 0).red + at(large, 3, 0).green, 255, 2) << "halfway is a mixture";
  EXPECT_GT(at(large, 3, 0).red, at(large, 4, 0).red);

  const UIImage small = drawn({0, 0, 1, 1}, 0);
  EXPECT_EQ(at(small, 0, 0), (Rgba{64, 64, 64, 191})) << "the mean of all four";

  const UIImage turned = drawn({3, 3, 2, 2}, 3.14159265358979 / 2);
  EXPECT_NEAR(at(turned, 4, 3).red, 255, 2) << "upper left turns to the upper right";
  EXPECT_NEAR(at(turned, 3, 3).blue, 255, 2);
}

TEST(RasterStack, TheLastEntryToCloseGivesMemoryBack) {
  const auto kept = [] { return raster::threadScratch().keptBytes(); };
  UIGraphicsBeginImageContext({1800, 1800});
  const CGContextRef context = UIGraphicsGetCurrentContext();
  CGContextSetShadowWithColor(context, {2, 2}, 4, UIColor(0, 0, 0, 1));
  CGContextFillRect(context, {0, 0, 1800, 1800});
  UIGraphicsBeginImageContext({1, 1});
  UIGraphicsEndImageContext();
  EXPECT_GT(kept(), raster::Scratch::kKeptBytes);
  UIGraphicsEndImageContext();
  EXPECT_LT(kept(), raster::Scratch::kKeptBytes);
}

TEST(RasterStack, SizesAreRoundedUpToPixelsButForNoise) {
  struct Case {
    CGSize size;
    CGFloat scale;
    std::size_t width, height;
  };
  for (const Case& c :
       {Case{{50, 25}, 2.2, 110, 55}, Case{{10.5, 7.01}, 1, 11, 8}, Case{{1e-9, 1e-9}, 1, 1, 1}}) {
    const UIImage image = pixels::drawn(c.size, c.scale, [](CGContextRef) {});
    EXPECT_EQ(image.cgImage().pixelWidth(), c.width) << c.size.width;
    EXPECT_EQ(image.cgImage().pixelHeight(), c.height) << c.size.height;
  }
}

TEST(RasterStack, EntriesOpenAndCloseInOrder) {
  EXPECT_EQ(UIGraphicsGetCurrentContext(), nullptr);
  UIGraphicsBeginImageContext({2, 3});
  const CGContextRef outer = UIGraphicsGetCurrentContext();
  EXPECT_NE(outer, nullptr);
  for (const CGFloat side : {0.0, -1.0, std::nan(""), 1e300}) {
    UIGraphicsBeginImageContext({side, 5});
    EXPECT_EQ(UIGraphicsGetCurrentContext(), nullptr) << side;
    EXPECT_FALSE(UIGraphicsGetImageFromCurrentImageContext()) << side;
    CGContextFillRect(nullptr, {0, 0, 1, 1});
    UIGraphicsEndImageContext();
    EXPECT_EQ(UIGraphicsGetCurrentContext(), outer) << side;
  }
  const auto before = UIGraphicsGetImageFromCurrentImageContext();
  CGContextFillRect(outer, {0, 0, 2, 3});
  const auto after = UIGraphicsGetImageFromCurrentImageContext();
  CGContextSetFillColor(outer, pixels::red);
  CGContextFillPath(outer, rectangle({0, 0, 1, 3}), FillRule::nonZero);
  UIGraphicsEndImageContext();
  UIGraphicsEndImageContext();  // nothing left
  EXPECT_EQ(UIGraphicsGetCurrentContext(), nullptr);
  ASSERT_TRUE(before && after);
  EXPECT_EQ(area(*before), 0) << "an image is a snapshot";
  EXPECT_EQ(area(*after), 6);
  EXPECT_EQ(at(*after, 0, 0), pixels::kBlack);
}

TEST(RasterPainting, WindingBeyondWhatSmallCellsHoldIsRight) {
  // So many turns on one spot that sixteen bits come to nought, also where the region's side drops
  // every edge that runs back up.
  CGPath path;
  for (int i = 0; i < 64; ++i) {
    path.moveToPoint({2, 2});
    path.addLineToPoint({2, 30});
    path.addLineToPoint({90, 30});
    path.addLineToPoint({90, 2});
    path.closeSubpath();
  }
  CGPath spiral;
  spiral.moveToPoint({2, 2});
  for (int i = 0; i < 64; ++i) {
    spiral.addLineToPoint({2, 30});
    spiral.addLineToPoint({90, 30});
    spiral.addLineToPoint({90, 2});
    spiral.addLineToPoint({2, 2});
  }
  for (const CGPath* shape : {&path, &spiral}) {
    for (const double width : {40.0, 100.0}) {
      const UIImage image = painted({width, 32}, [&](CGContextRef context) {
        CGContextFillPath(context, *shape, FillRule::nonZero);
      });
      EXPECT_NEAR(area(image), (std::min(width, 90.0) - 2) * 28, 1e-6) << width;
    }
  }
}

// Edges of strokes may lie a little beyond the region; nothing of that may be left for a fill, nor
// go into a shadow's mask.
TEST(RasterPainting, StrokesThatReachBeyondLeaveNothing) {
  const CGPath edge = rectangle({-6, 10, 20, 20});
  const auto fill = [&](CGContextRef context) {
    CGContextFillPath(context, rectangle({3.5, 3, 30, 30}), FillRule::evenOdd);
  };
  const UIImage alone = painted({40, 40}, fill);
  const auto stroke = [&](CGContextRef context) { CGContextStrokePath(context, edge, {6}); };
  const UIImage stroked = painted({40, 40}, stroke);
  EXPECT_NEAR(area(stroked), 2 * 6 * 17 + 6 * 14, 0.5);
  pixels::expectSamePixels(painted({40, 40}, fill), alone);

  for (const CGFloat blur : {1.0, 4.0}) {
    const auto castFrom = [&](CGFloat margin) {
      return painted({40 + 2 * margin, 40 + 2 * margin}, [&](CGContextRef context) {
        CGContextTranslateCTM(context, margin, margin);
        CGContextSetShadowWithColor(context, {1, 2}, blur, UIColor(0, 0, 1, 1));
        stroke(context);
      });
    };
    const UIImage cut = castFrom(0);
    const UIImage whole = castFrom(30);
    for (std::size_t y = 0; y < 40; ++y) {
      for (std::size_t x = 0; x < 40; ++x) ASSERT_EQ(at(cut, x, y), at(whole, x + 30, y + 30));
    }
    pixels::expectSamePixels(painted({40, 40}, fill), alone);
  }
}

}  // namespace
}  // namespace glyphwright
