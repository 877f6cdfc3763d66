// Gradients in every direction against colours worked out pixel by pixel.

#include <algorithm>
#include <cmath>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/bezier_path.h>
#include <glyphwright/platform/context_stack.h>
#include <glyphwright/platform/graphics_context.h>
#include <glyphwright/platform/image.h>

#include "pixels.h"

namespace glyphwright {
namespace {

using pixels::at;
using pixels::Rgba;

constexpr CGSize kSize{61, 37};
constexpr double kMiddleX = 30.5;
constexpr double kMiddleY = 18.5;

// With a hard edge in the middle and strengths that change.
CGGradient gradientWithEdge() {
  return CGGradient({{0, CGColor(1, 0.1, 0, 1)},
                     {0.5, CGColor(0, 0.9, 0.2, 0.4)},
                     {0.5, CGColor(0.3, 0.2, 1, 0.8)},
                     {1, CGColor(1, 1, 0, 1)}});
}

// The premultiplied colour at `t` in levels of 255.
std::vector<double> colorAt(const CGGradient& gradient, double t) {
  const auto stops = gradient.stops();
  std::size_t next = 0;
  while (next < stops.size() && stops[next].location <= t) ++next;
  const auto& a = stops[next == 0 ? 0 : next - 1];
  const auto& b = stops[std::min(next, stops.size() - 1)];
  const double part = a.location < b.location ? (t - a.location) / (b.location - a.location) : 0;
  const auto mix = [&](double from, double to) { return from + (to - from) * part; };
  const double alpha = mix(a.color.alpha(), b.color.alpha()) * 255;
  return {mix(a.color.red(), b.color.red()) * alpha, mix(a.color.green(), b.color.green()) * alpha,
          mix(a.color.blue(), b.color.blue()) * alpha, alpha};
}

TEST(RasterGradients, EveryDirectionShowsTheColoursOfItsPlaces) {
  const CGGradient gradient = gradientWithEdge();
  constexpr double length = 24;
  // 90 degrees and its multiples are in the list: rows of one colour, and rows that are all alike.
  for (int angle = 0; angle < 360; angle += 15) {
    for (const bool runsOn : {true, false}) {
      const double turn = angle * 3.14159265358979323846 / 180;
      const double dx = angle % 180 == 90 ? 0 : std::cos(turn);
      const double dy = angle % 180 == 0 ? 0 : std::sin(turn);
      contexts::Scope scope(kSize, false, 1, false);
      CGContextDrawLinearGradient(
          scope.context(), gradient, {kMiddleX - dx * length / 2, kMiddleY - dy * length / 2},
          {kMiddleX + dx * length / 2, kMiddleY + dy * length / 2},
          runsOn ? CGGradientDrawingOptions::drawsBeforeAndAfter : CGGradientDrawingOptions::none);
      const UIImage image = scope.image();
      for (std::size_t y = 0; y < 37; ++y) {
        for (std::size_t x = 0; x < 61; ++x) {
          const double along = (static_cast<double>(x) + 0.5 - kMiddleX) * dx +
                               (static_cast<double>(y) + 0.5 - kMiddleY) * dy;
          const double t = along / length + 0.5;
          // Within a quarter pixel of an edge either side will do.
          const double edges[] = {0, 0.5, 1};
          const bool isNearEdge = std::any_of(std::begin(edges), std::end(edges), [&](double e) {
            return std::fabs(t - e) * length < 0.26;
          });
          if (isNearEdge) continue;
          const Rgba pixel = at(image, x, y);
          if (!runsOn && (t < 0 || t > 1)) {
            ASSERT_EQ(pixel, pixels::kNone) << angle << " degrees at " << x << ", " << y;
            continue;
          }
          // Colour and strength change by 1.6 × 255 levels in 12 pixels at most; a quarter pixel
          // makes up to 9 of that.
          const std::vector<double> want = colorAt(gradient, t);
          ASSERT_NEAR(pixel.red, want[0], 9) << angle << " degrees at " << x << ", " << y;
          ASSERT_NEAR(pixel.green, want[1], 9) << angle << " degrees at " << x << ", " << y;
          ASSERT_NEAR(pixel.blue, want[2], 9) << angle << " degrees at " << x << ", " << y;
          ASSERT_NEAR(pixel.alpha, want[3], 9) << angle << " degrees at " << x << ", " << y;
        }
      }
    }
  }
}

// One step does what three did: also over something, through another clip and half seen.
TEST(RasterGradients, FillingIsClippingAndDrawing) {
  const CGGradient gradient = gradientWithEdge();
  const CGPath heart = UIBezierPath::heartPath().cgPath();
  const CGRect box = heart.boundingBox();
  for (const CGPoint end : {CGPoint{0, 32}, CGPoint{32, 0}, CGPoint{21, 26}}) {
    for (int kind = 0; kind < 4; ++kind) {
      const auto drawn = [&](bool inOneStep) {
        contexts::Scope scope({40, 40}, kind == 1, 1, false);
        const CGContextRef context = scope.context();
        if (kind == 2) CGContextClipToRect(context, {3.5, 2.5, 30, 29});
        if (kind == 3) CGContextSetAlpha(context, 0.5);
        CGContextTranslateCTM(context, 4, 4);
        CGContextScaleCTM(context, 32 / box.size.width, 32 / box.size.height);
        CGContextTranslateCTM(context, -box.origin.x, -box.origin.y);
        const CGPoint to{box.origin.x + end.x * box.size.width / 32,
                         box.origin.y + end.y * box.size.height / 32};
        constexpr auto kOptions = CGGradientDrawingOptions::drawsBeforeAndAfter;
        if (inOneStep) {
          contexts::fillWithLinearGradient(*context, heart, CGAffineTransformIdentity, true,
                                           gradient, box.origin, to, kOptions);
        } else {
          CGContextClipToPath(context, heart, true);
          CGContextDrawLinearGradient(context, gradient, box.origin, to, kOptions);
        }
        return scope.image();
      };
      const UIImage once = drawn(true);
      const UIImage twice = drawn(false);
      EXPECT_TRUE(std::ranges::equal(once.cgImage().rgba(), twice.cgImage().rgba()))
          << "to " << end.x << ", " << end.y << ", kind " << kind;
      EXPECT_EQ(at(once, 20, 16).alpha > 60, true);
    }
  }
}

}  // namespace
}  // namespace glyphwright
