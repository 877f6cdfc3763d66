// How near the pictures come to exact area, in levels of 255, at the sizes icons are shown.

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include <glyphwright/bezier_path.h>
#include <glyphwright/paths/method_names.h>
#include <glyphwright/paths/registry.h>
#include <glyphwright/platform/context.h>
#include <glyphwright/platform/image.h>
#include <glyphwright/platform/shadow.h>

#include "pixels.h"
#include "reference/plane.h"

namespace glyphwright {
namespace {

using reference::Plane;

/// Differences in levels over the pixels on the edge (neither empty nor full in the reference).
struct Errors {
  double worst = 0;
  double sum = 0;
  double signedSum = 0;
  std::size_t edgePixels = 0;
  double worstElsewhere = 0;

  void add(const Plane& expected, const UIImage& image) {
    const auto rgba = image.cgImage().rgba();
    for (std::size_t i = 0; i < expected.values.size(); ++i) {
      const double difference = rgba[4 * i + 3] - 255 * expected.values[i];
      const bool onEdge = expected.values[i] > 1e-9 && expected.values[i] < 1 - 1e-9;
      if (onEdge) {
        worst = std::max(worst, std::abs(difference));
        sum += std::abs(difference);
        signedSum += difference;
        ++edgePixels;
      } else {
        worstElsewhere = std::max(worstElsewhere, std::abs(difference));
      }
    }
  }
  double mean() const { return sum / static_cast<double>(edgePixels); }
  double bias() const { return signedSum / static_cast<double>(edgePixels); }
};

/// An image of `side` × `side` pixels at scale 1 that `paint` draws into.
template <typename Paint>
UIImage drawn(std::size_t side, Paint paint) {
  const auto points = static_cast<CGFloat>(side);
  return pixels::drawn({points, points}, 1, [&](CGContextRef) {
    UIColor::blackColor().set();
    paint();
  });
}

/// The path with its longer side spread over `side` pixels, a third of a pixel off the grid so that
/// no edge is lucky.
UIBezierPath fitted(UIBezierPath path, std::size_t side) {
  const CGRect box = path.bounds();
  const CGFloat factor =
      (static_cast<CGFloat>(side) - 1) / std::max(box.size.width, box.size.height);
  path.applyTransform(CGAffineTransformMakeTranslation(-box.origin.x, -box.origin.y));
  path.applyTransform(CGAffineTransformMakeScale(factor, factor));
  path.applyTransform(CGAffineTransformMakeTranslation(1.0 / 3, 0.43));
  return path;
}

bool isStraight(const UIBezierPath& path) {
  const auto verbs = path.cgPath().verbs();
  return std::none_of(verbs.begin(), verbs.end(), [](PathVerb verb) {
    return verb == PathVerb::quad || verb == PathVerb::cubic;
  });
}

UIBezierPath polygon(std::size_t corners, std::size_t step, CGFloat radius, CGPoint center) {
  UIBezierPath path;
  for (std::size_t i = 0; i < corners; ++i) {
    const double turn = 2 * 3.14159265358979 * static_cast<double>(i * step % corners) /
                            static_cast<double>(corners) +
                        0.1;
    const CGPoint point = {center.x + radius * std::cos(turn), center.y + radius * std::sin(turn)};
    i == 0 ? path.moveToPoint(point) : path.addLineToPoint(point);
  }
  path.closePath();
  return path;
}

constexpr std::size_t kSides[] = {24, 48, 96, 192};

TEST(RasterAccuracy, StraightEdgesAreExactToOneLevel) {
  Errors all;
  const auto expectExact = [&all](UIBezierPath path, std::size_t side, std::string_view name) {
    for (const bool evenOdd : {false, true}) {
      path.setUsesEvenOddFillRule(evenOdd);
      const UIImage image = drawn(side, [&] { path.fill(); });
      ASSERT_TRUE(image.hasPixels());
      const Plane expected = reference::coverage(path.cgPath(), evenOdd, side, side);
      Errors errors;
      errors.add(expected, image);
      EXPECT_LE(errors.worst, 1.01) << name << " at " << side;
      EXPECT_LE(errors.worstElsewhere, 0.5) << name << " at " << side;
      all.add(expected, image);
    }
  };
  std::size_t icons = 0;
  for (const std::size_t side : kSides) {
    for (const std::string_view name : iconMethodNames) {
      const UIBezierPath path = findClassMethod(name)();
      if (!isStraight(path) || name == "chatActionBarCloseIcon") continue;
      expectExact(fitted(path, side), side, name);
      ++icons;
    }
    const auto length = static_cast<CGFloat>(side);
    // Many directions, so that the luck of upright and level edges, which all round alike, does not
    // pass for a bias.
    for (std::size_t corners = 3; corners < 18; ++corners) {
      expectExact(polygon(corners, 1, length * 0.49, {length / 2, length / 2}), side,
                  std::to_string(corners) + " corners");
    }
    // Hanging out over every side of the canvas.
    expectExact(polygon(5, 1, length * 0.8, {length / 2, length / 2}), side, "cut off");
  }
  EXPECT_GE(icons, 5 * std::size(kSides));
  EXPECT_NEAR(all.bias(), 0, 0.02);
}

TEST(RasterAccuracy, CurvesStayWithinSixLevelsWithoutBias) {
  for (const std::size_t side : kSides) {
    Errors all;
    for (const std::string_view name : iconMethodNames) {
      const UIBezierPath path = fitted(findClassMethod(name)(), side);
      if (isStraight(path)) continue;
      const UIImage image = drawn(side, [&] { path.fill(); });
      ASSERT_TRUE(image.hasPixels());
      const Plane expected =
          reference::coverage(path.cgPath(), path.usesEvenOddFillRule(), side, side);
      Errors errors;
      errors.add(expected, image);
      all.add(expected, image);
      EXPECT_LE(errors.worst, 6) << name << " at " << side;
      EXPECT_LE(errors.worstElsewhere, 1) << name << " at " << side;
    }
    EXPECT_LE(all.mean(), 0.8) << side;
    EXPECT_NEAR(all.bias(), 0, 0.15) << side;
  }
}

/// The shadow of `path` alone: the caster stands one canvas to the left, out of sight.
UIImage shadowOf(UIBezierPath path, std::size_t side, CGFloat blurPixels, CGFloat scale) {
  const CGFloat points = static_cast<CGFloat>(side) / scale;
  path.applyTransform(CGAffineTransformMakeTranslation(-static_cast<CGFloat>(side), 0));
  path.applyTransform(CGAffineTransformMakeScale(1 / scale, 1 / scale));
  return pixels::drawn({points, points}, scale, [&](CGContextRef context) {
    CGContextSetShadowWithColor(context, {points, 0}, blurPixels / scale, UIColor::blackColor());
    path.fill();
  });
}

TEST(RasterAccuracy, ShadowsAreGaussian) {
  constexpr std::size_t kSide = 96;
  UIBezierPath heart = fitted(findClassMethod("heartPath")(), 56);
  heart.applyTransform(CGAffineTransformMakeTranslation(20, 20));
  UIBezierPath pentagon = polygon(5, 1, 26, {47.3, 48.1});
  for (const CGFloat scale : {1.0, 2.0}) {
    for (const CGFloat blur : {1.0, 2.0, 3.5, 6.0, 8.0, 15.0}) {
      for (const UIBezierPath* path : {&heart, &pentagon}) {
        // Hardly blurred, the shadow of a curve shows how the curve itself was drawn.
        if (path == &heart && blur < 2) continue;
        const UIImage image = shadowOf(*path, kSide, blur, scale);
        ASSERT_TRUE(image.hasPixels());
        const Plane shape = reference::coverage(path->cgPath(), false, kSide, kSide);
        Errors errors;
        errors.add(reference::gaussian(shape, blur / 2), image);
        EXPECT_LE(std::max(errors.worst, errors.worstElsewhere), 2) << "blur " << blur << " px";
        EXPECT_NEAR(errors.bias(), 0, 0.5) << "blur " << blur << " px";
      }
    }
  }
}

TEST(RasterAccuracy, InsetShadowsAreGaussian) {
  constexpr std::size_t kSide = 96;
  const UIBezierPath shape = polygon(5, 1, 40, {47.3, 48.1});
  const Plane inside = reference::coverage(shape.cgPath(), false, kSide, kSide);
  for (const CGFloat blur : {1.0, 2.0, 6.0, 15.0, 32.0, 40.0, 70.0}) {
    NSShadow shadow;
    shadow.setShadowOffset({3, -2});
    shadow.setShadowBlurRadius(blur);
    shadow.setShadowColor(UIColor::blackColor());
    const UIImage image = drawn(kSide, [&] { shape.drawInsetShadow(shadow); });
    // What surrounds the shape casts as much as the shape does not.
    const Plane cast = reference::gaussian(inside, blur / 2);
    Plane expected(kSide, kSide);
    for (std::size_t y = 0; y < kSide; ++y) {
      for (std::size_t x = 0; x < kSide; ++x) {
        const double covered = x >= 3 && y + 2 < kSide ? cast.at(x - 3, y + 2) : 0;
        expected.at(x, y) = inside.at(x, y) * (1 - covered);
      }
    }
    Errors errors;
    errors.add(expected, image);
    EXPECT_LE(std::max(errors.worst, errors.worstElsewhere), 2) << "blur " << blur << " px";
    EXPECT_NEAR(errors.bias(), 0, 0.5) << "blur " << blur << " px";
  }
}

TEST(Reference, IsRightWhereTheAnswerIsKnown) {
  CGPath path;
  path.addRect({1.25, 2.5, 4, 2});
  const Plane plane = reference::coverage(path, false, 8, 8);
  EXPECT_NEAR(plane.at(1, 2), 0.75 * 0.5, 1e-12);
  EXPECT_NEAR(plane.at(3, 3), 1, 1e-12);
  EXPECT_NEAR(plane.at(5, 4), 0.25 * 0.5, 1e-12);
  EXPECT_EQ(plane.at(6, 3), 0);

  CGPath disc;
  disc.addEllipseInRect({1, 1, 30, 30});
  double area = 0;
  for (const double value : reference::coverage(disc, true, 32, 32).values) area += value;
  // Four cubics make a circle 0.02 % too large on average.
  EXPECT_NEAR(area, 3.14159265 * 15 * 15 * 1.0002, 0.1);

  Plane dot(9, 9);
  dot.at(4, 4) = 1;
  const Plane blurred = reference::gaussian(dot, 2);
  EXPECT_NEAR(blurred.at(6, 4) / blurred.at(4, 4), std::exp(-0.5), 1e-12);
  double sum = 0;
  for (const double value : blurred.values) sum += value;
  EXPECT_NEAR(sum, 1, 1e-12);
}

}  // namespace
}  // namespace glyphwright
