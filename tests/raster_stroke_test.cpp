// Pictures of strokes against exact ones, where the pen is thin, bends are tight, or the image cuts
// the stroke.

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/bezier_path.h>
#include <glyphwright/paths/registry.h>
#include <glyphwright/platform/context.h>
#include <glyphwright/platform/image.h>

#include "reference/plane.h"

namespace glyphwright::raster {
namespace {

UIImage stroked(const UIBezierPath& path, std::size_t side) {
  const auto points = static_cast<CGFloat>(side);
  UIGraphicsBeginImageContextWithOptions({points, points}, false, 1);
  UIColor::blackColor().set();
  path.stroke();
  const auto image = UIGraphicsGetImageFromCurrentImageContext();
  UIGraphicsEndImageContext();
  return image.value_or(UIImage());
}

// A round pen, so that the stroke is all that lies within half its width.
UIBezierPath drawnWith(UIBezierPath path, CGFloat width) {
  path.setLineWidth(width);
  path.setLineCapStyle(CGLineCap::round);
  path.setLineJoinStyle(CGLineJoin::round);
  return path;
}

UIBezierPath curve(CGPoint from, CGPoint control1, CGPoint control2, CGPoint to) {
  UIBezierPath path;
  path.moveToPoint(from);
  path.addCurveToPoint(to, control1, control2);
  return path;
}

TEST(RasterStroke, CurvesUnderThinAndWidePensAreNearlyExact) {
  constexpr std::size_t kSide = 48;
  struct Case {
    std::string_view name;
    UIBezierPath path;
    std::vector<CGFloat> widths;
    double mean;  // over the pixels on the edge, in levels
    double bias = 1;
  };
  const Case cases[] = {
      {"circle", UIBezierPath::bezierPathWithOvalInRect({8.3, 9.1, 30, 30}), {0.3, 1, 2, 9}, 2},
      {"small circle", UIBezierPath::bezierPathWithOvalInRect({20.3, 21.1, 3, 3}), {1, 4, 12}, 2},
      {"flat ellipse", UIBezierPath::bezierPathWithOvalInRect({6.3, 21.1, 34, 5}), {1, 4, 14}, 3},
      {"arch", curve({9, 40}, {9, 2}, {39, 2}, {39, 40}), {0.5, 1, 3, 12}, 2},
      {"hairpin", curve({20, 40}, {21, -10}, {26, -10}, {26, 40}), {1, 3, 9}, 3},
      // Where two arms cross at a narrow angle they share many pixels, whose sum of areas is not
      // the area of the sum.
      {"crossing", curve({8, 36}, {44, 6}, {4, 6}, {40, 36}), {1, 3, 8}, 4.5, 3.6},
      {"loop", curve({14, 40}, {60, 4}, {-12, 4}, {34, 40}), {1, 3}, 3},
      {"late bend", curve({6, 8}, {40, 8.2}, {40.5, 8.4}, {41, 40}), {1, 3, 8}, 2},
      {"double bend", curve({6, 30}, {20, -6}, {28, 54}, {42, 18}), {0.5, 1, 4}, 2},
  };
  for (const Case& c : cases) {
    for (const CGFloat width : c.widths) {
      const UIBezierPath path = drawnWith(c.path, width);
      const UIImage image = stroked(path, kSide);
      const auto rgba = image.cgImage().rgba();
      const auto expected = reference::neighbourhood(path.cgPath(), width / 2, kSide, kSide);
      double sum = 0;
      double signedSum = 0;
      std::size_t onEdge = 0;
      for (std::size_t i = 0; i < expected.values.size(); ++i) {
        const double difference = rgba[4 * i + 3] - 255 * expected.values[i];
        if (expected.values[i] > 1e-9 && expected.values[i] < 1 - 1e-9) {
          sum += std::abs(difference);
          signedSum += difference;
          ++onEdge;
        } else {
          // The reference counts samples, and may miss or close a sliver.
          EXPECT_LE(std::abs(difference), 10) << c.name << ", width " << width << " at " << i;
        }
      }
      ASSERT_GT(onEdge, 0U);
      EXPECT_LE(sum / static_cast<double>(onEdge), c.mean) << c.name << ", width " << width;
      EXPECT_LE(std::abs(signedSum) / static_cast<double>(onEdge), c.bias)
          << c.name << ", width " << width;
    }
  }
}

TEST(RasterStroke, QuadraticsAreTheirCubics) {
  UIBezierPath quads;
  UIBezierPath cubics;
  for (UIBezierPath* path : {&quads, &cubics}) {
    path->moveToPoint({6, 30});
    path->addCurveToPoint({20, 30}, {8, 4}, {17, 40});
  }
  quads.addQuadCurveToPoint({34, 12}, {28, 33});
  quads.addQuadCurveToPoint({36, 12}, {35, 0});
  cubics.addCurveToPoint({34, 12}, {20 + 16 / 3.0, 32}, {30, 26});
  cubics.addCurveToPoint({36, 12}, {34 + 2 / 3.0, 4}, {36 - 2 / 3.0, 4});
  for (UIBezierPath* path : {&quads, &cubics}) {
    path->addCurveToPoint({44, 40}, {37, 24}, {47, 24});
    path->setLineWidth(3);
  }
  const UIImage one = stroked(quads, 48);
  const UIImage other = stroked(cubics, 48);
  const auto rgba = one.cgImage().rgba();
  const auto expected = other.cgImage().rgba();
  std::size_t covered = 0;
  for (std::size_t i = 0; i < rgba.size(); ++i) {
    ASSERT_LE(std::abs(rgba[i] - expected[i]), 1) << i;
    covered += rgba[i] == 255 ? 1 : 0;
  }
  EXPECT_GT(covered, 100U);
}

TEST(RasterStroke, AnImageCutsStrokesWithoutATrace) {
  struct Parts {
    std::size_t whole;
    std::size_t side;
    std::vector<std::size_t> offsets;
  };
  // At the whole's middle, corners and sides; the larger parts leave out a few pixels at a side,
  // the last ones from pictures that are painted in bands.
  const Parts kinds[] = {{96, 40, {5, 30, 50}}, {96, 72, {5, 15, 24}}, {480, 352, {54, 72}}};
  for (const auto& [kWhole, kPart, offsets] : kinds) {
    for (const std::string_view name : {"heartPath", "starPath", "flamePath", "boltPath"}) {
      for (const CGFloat width : {1.0, 3.0, 11.0}) {
        UIBezierPath path = drawnWith(findClassMethod(name)(), width);
        const CGRect box = path.bounds();
        path.applyTransform(CGAffineTransformMakeTranslation(-box.origin.x, -box.origin.y));
        const CGFloat zoom = static_cast<CGFloat>(kWhole) / 96;
        path.applyTransform(
            CGAffineTransformMakeScale(70 * zoom / box.size.width, 70 * zoom / box.size.height));
        path.applyTransform(CGAffineTransformMakeTranslation(12.3 * zoom, 13.7 * zoom));
        const UIImage whole = stroked(path, kWhole);
        const auto expected = whole.cgImage().rgba();
        for (const std::size_t left : offsets) {
          for (const std::size_t top : offsets) {
            UIBezierPath moved = path;
            moved.applyTransform(CGAffineTransformMakeTranslation(-static_cast<CGFloat>(left),
                                                                  -static_cast<CGFloat>(top)));
            const UIImage part = stroked(moved, kPart);
            const auto rgba = part.cgImage().rgba();
            int worst = 0;
            for (std::size_t y = 0; y < kPart; ++y) {
              for (std::size_t x = 0; x < kPart; ++x) {
                const int is = rgba[(y * kPart + x) * 4 + 3];
                const int wanted = expected[((y + top) * kWhole + x + left) * 4 + 3];
                worst = std::max(worst, std::abs(is - wanted));
              }
            }
            EXPECT_LE(worst, 2) << name << ", width " << width << " at " << left << ", " << top
                                << " of " << kWhole;
          }
        }
      }
    }
  }
}

// However far a line leads on, what is seen of it is the same.
TEST(RasterStroke, FarEndsLeaveWhatIsSeenAlone) {
  constexpr std::size_t kSide = 64;
  const CGPoint near{20.3, 30.7};
  for (const CGPoint direction : {CGPoint{1, 0}, CGPoint{0, -1}, CGPoint{1, 1}, CGPoint{-1, 1}}) {
    for (const CGFloat width : {0.7, 6.0}) {
      const auto leading = [&](CGFloat distance) {
        UIBezierPath path;
        path.moveToPoint(near);
        path.addLineToPoint({near.x + distance * direction.x, near.y + distance * direction.y});
        // On to a place that is never seen, so that the far end is a corner with a join.
        path.addLineToPoint({near.x + distance * (direction.x - 0.5 * direction.y),
                             near.y + distance * (direction.y + 0.5 * direction.x)});
        return stroked(drawnWith(path, width), kSide);
      };
      const UIImage nearby = leading(1000);
      const auto expected = nearby.cgImage().rgba();
      for (const CGFloat distance : {1e5, 1e6, 1e8, 1e9, 1e300}) {
        const UIImage image = leading(distance);
        const auto rgba = image.cgImage().rgba();
        int worst = 0;
        for (std::size_t i = 0; i < rgba.size(); ++i) {
          worst = std::max(worst, std::abs(rgba[i] - expected[i]));
        }
        EXPECT_LE(worst, 2) << direction.x << ", " << direction.y << ": width " << width << ", to "
                            << distance;
      }
    }
  }
}

}  // namespace
}  // namespace glyphwright::raster
