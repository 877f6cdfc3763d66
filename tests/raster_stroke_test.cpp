// The outlines of strokes: the loops of this machine against the scalar ones, bit for bit, and the
// pictures against exact ones where the pen is thin, bends are tight, or the image cuts the stroke.

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <random>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/bezier_path.h>
#include <glyphwright/paths/registry.h>
#include <glyphwright/platform/context.h>
#include <glyphwright/platform/image.h>
#include <glyphwright/platform/raster/kernels.h>

#include "reference/plane.h"

namespace glyphwright::raster {
namespace {

TEST(RasterStroke, CurvesSampleTheSameOnEveryMachine) {
  std::mt19937 random(20240608);
  const auto real = [&](float low, float high) {
    return std::uniform_real_distribution<float>(low, high)(random);
  };
  int followed = 0;
  for (const float size : {0.0F, 1.0F, 40.0F, 9000.0F}) {
    for (int round = 0; round < 100; ++round) {
      StrokeCurve curve{};
      for (float* v : {&curve.startX, &curve.startY, &curve.legX, &curve.legY}) {
        *v = real(-size, size);
      }
      for (float* v : {&curve.bendX, &curve.bendY, &curve.changeX, &curve.changeY}) {
        *v = real(-size, size) * 0.3F;
      }
      curve.half = real(0.01F, 3);
      curve.count = static_cast<int>(real(1, 41));
      std::vector<float> fast[4];
      for (auto& side : fast) side.assign(48, -1);
      std::vector<float> plain[4] = {fast[0], fast[1], fast[2], fast[3]};
      const auto corners = [](std::vector<float>* v) {
        return StrokeCorners{v[0].data(), v[1].data(), v[2].data(), v[3].data()};
      };
      const bool follows = scalarKernels().strokeCurve(curve, corners(plain));
      ASSERT_EQ(kernels().strokeCurve(curve, corners(fast)), follows);
      followed += follows ? 1 : 0;
      // A curve without a direction somewhere has no sides there.
      if (!follows) continue;
      for (std::size_t i = 0; i < static_cast<std::size_t>(curve.count); ++i) {
        for (std::size_t side = 0; side < 4; ++side) ASSERT_EQ(fast[side][i], plain[side][i]);
      }
    }
  }
  EXPECT_GT(followed, 40);
  EXPECT_LT(followed, 360);
}

// Cubics of all kinds: gentle ones, tight ones, cusps, and ends without a direction.
std::vector<std::vector<double>> someCubics(std::size_t count, std::mt19937& random) {
  const auto real = [&](double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random);
  };
  std::vector<std::vector<double>> cubics;
  for (std::size_t i = 0; i < count; ++i) {
    const double size = std::vector{1e-9, 0.5, 4.0, 40.0, 9000.0}[i % 5];
    std::vector<double> p(8);
    for (double& v : p) v = real(-size, size);
    const double turn = real(-1, 1) * size;
    if (i % 3 != 0) p = {0, 0, size, 0, 2 * size, turn, 3 * size, 3 * turn};
    if (i % 11 == 0) p[2] = p[0], p[3] = p[1];
    if (i % 13 == 0) std::fill(p.begin(), p.end(), 3.0);
    cubics.push_back(p);
  }
  return cubics;
}

TEST(RasterStroke, CurvesArePreparedAndBentTheSameOnEveryMachine) {
  std::mt19937 random(20240610);
  int gentle = 0;
  int tight = 0;
  int without = 0;
  for (const float half : {0.5F, 1.0F, 30.0F}) {
    for (std::size_t count = 1; count < 60; ++count) {
      const auto cubics = someCubics(count, random);
      std::vector<const double*> points;
      for (const auto& cubic : cubics) points.push_back(cubic.data());
      const CurvePen pen{12, -7, half, 25, half * 4};
      std::vector<PreparedCurve> fast(count + 8);
      std::vector<PreparedCurve> plain(count);
      kernels().prepareCurves(points.data(), count, pen, fast.data());
      scalarKernels().prepareCurves(points.data(), count, pen, plain.data());
      for (std::size_t i = 0; i < count; ++i) {
        const PreparedCurve& a = fast[i];
        const PreparedCurve& b = plain[i];
        ASSERT_EQ(a.count, b.count);
        ASSERT_EQ(a.tightCount, b.tightCount);
        (b.tightCount == 0 ? without : (b.count == 0 ? tight : gentle)) += 1;
        if (b.tightCount == 0) continue;
        ASSERT_GE(b.tightCount, b.count);
        for (const auto member :
             {&PreparedCurve::startAlongX, &PreparedCurve::startAlongY, &PreparedCurve::endAlongX,
              &PreparedCurve::endAlongY, &PreparedCurve::startLength, &PreparedCurve::endLength}) {
          ASSERT_EQ(a.*member, b.*member);
        }
        for (const auto member : {&StrokeCubic::startX, &StrokeCubic::startY, &StrokeCubic::legX,
                                  &StrokeCubic::legY, &StrokeCubic::bendX, &StrokeCubic::bendY,
                                  &StrokeCubic::changeX, &StrokeCubic::changeY}) {
          ASSERT_EQ(a.*member, b.*member);
        }
        const auto chords = static_cast<std::size_t>(b.tightCount);
        std::vector<float> to[2][8];
        BentCurve bent[2];
        for (const int k : {0, 1}) {
          for (auto& values : to[k]) values.assign(3 * chords + 16, -1);
          auto& v = to[k];
          bent[k] = {v[0].data(), v[1].data(), v[2].data(), v[3].data(),
                     v[4].data(), v[5].data(), v[6].data(), v[7].data()};
          (k == 0 ? kernels() : scalarKernels())
              .bendCurve({b.cubic(), half, b.tightCount}, bent[k]);
        }
        ASSERT_EQ(bent[0].leftCount, bent[1].leftCount);
        ASSERT_EQ(bent[0].rightCount, bent[1].rightCount);
        const std::size_t counts[] = {chords + 1,         chords + 1,        chords + 1,
                                      chords + 1,         bent[0].leftCount, bent[0].leftCount,
                                      bent[0].rightCount, bent[0].rightCount};
        for (int k = 0; k < 8; ++k) {
          for (auto* values : {&to[0][k], &to[1][k]}) values->resize(counts[k]);
          ASSERT_EQ(to[0][k], to[1][k]) << k;
        }
      }
    }
  }
  EXPECT_GT(gentle, 300);
  EXPECT_GT(tight, 300);
  EXPECT_GT(without, 300);
}

TEST(RasterStroke, CornersArePlacedTheSameOnEveryMachine) {
  std::mt19937 random(20240609);
  std::uniform_real_distribution<float> real(-40, 140);
  constexpr std::size_t kMargin = 8;
  for (std::size_t count = 1; count < 40; ++count) {
    std::vector<float> x(count + 2 * kMargin, 1e30F);
    std::vector<float> y = x;
    for (std::size_t i = kMargin; i < kMargin + count; ++i) {
      x[i] = real(random);
      y[i] = count % 3 == 0 ? std::clamp(real(random), 0.0F, 90.0F) : real(random);
    }
    if (count == 17) y[kMargin + 9] = NAN;
    const float* fromX = x.data() + kMargin;
    const float* fromY = y.data() + kMargin;
    const CornerBox a = kernels().boxCorners(fromX, fromY, count);
    const CornerBox b = scalarKernels().boxCorners(fromX, fromY, count);
    ASSERT_EQ(a.hasNaN, b.hasNaN);
    ASSERT_EQ(a.hasNaN, count == 17);
    if (!a.hasNaN) {
      ASSERT_EQ(a.minX, b.minX);
      ASSERT_EQ(a.minY, b.minY);
      ASSERT_EQ(a.maxX, b.maxX);
      ASSERT_EQ(a.maxY, b.maxY);
    }
    for (const bool backwards : {false, true}) {
      std::vector<float> placedX[2];
      std::vector<std::int32_t> placedY[2];
      std::vector<std::uint8_t> outside[2];
      for (const int k : {0, 1}) {
        placedX[k].resize(count + kMargin);
        placedY[k].resize(count + kMargin);
        outside[k].resize((count + 7) / 8);
        (k == 0 ? kernels() : scalarKernels())
            .placeCorners(fromX, fromY, count, backwards, {2.5F, -3, 100, 90},
                          {placedX[k].data(), placedY[k].data(), outside[k].data()});
        placedX[k].resize(count);
        placedY[k].resize(count);
      }
      ASSERT_EQ(placedX[0], placedX[1]);
      ASSERT_EQ(placedY[0], placedY[1]);
      ASSERT_EQ(outside[0], outside[1]);
    }
  }
}

TEST(RasterStroke, RunsAreCountedTheSameOnEveryMachine) {
  constexpr int kRows = 20;
  std::mt19937 random(20240611);
  std::uniform_int_distribution<std::int32_t> height(-4 * kUnitsPerPixel, 25 * kUnitsPerPixel);
  for (std::size_t lines = 1; lines < 40; ++lines) {
    std::vector<std::int32_t> y(lines + 1);
    for (std::int32_t& v : y) v = lines % 4 == 0 ? height(random) / 5 : height(random);
    std::vector<int> fast(kRows + 1, 3);
    std::vector<int> plain(kRows + 1, 3);
    kernels().countRuns(y.data(), lines, kRows, fast.data());
    scalarKernels().countRuns(y.data(), lines, kRows, plain.data());
    ASSERT_EQ(fast, plain) << lines;
  }
  // Down, up a little, down, and up again; then a line down of the next eight, from above.
  const std::int32_t y[] = {1024, 3000, 2500, 5000, 1500, 1400, 1300, 1200, -1024, 2047};
  std::vector<int> changes(kRows + 1, 0);
  kernels().countRuns(y, 9, kRows, changes.data());
  std::vector<int> expected(kRows + 1, 0);
  expected[0] = 2 + 1;
  expected[5] = -2;
  expected[2] = -1;
  EXPECT_EQ(changes, expected);
}

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
