// Gradients of every kind, direction and size against colours worked out at each pixel's centre.

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/bezier_path.h>
#include <glyphwright/platform/context_stack.h>
#include <glyphwright/platform/contexts/graphics_context.h>
#include <glyphwright/platform/image.h>
#include <glyphwright/platform/layers/gradient_layer.h>

#include "pixels.h"

namespace glyphwright {
namespace {

using pixels::at;
using pixels::Rgba;

// With a hard edge in the middle and strengths that change.
CGGradient gradientWithEdge() {
  return CGGradient({{0, CGColor(1, 0.1, 0, 1)},
                     {0.5, CGColor(0, 0.9, 0.2, 0.4)},
                     {0.5, CGColor(0.3, 0.2, 1, 0.8)},
                     {1, CGColor(1, 1, 0, 1)}});
}

// In unit coordinates of a picture.
struct Drawn {
  std::string type;
  CGPoint start;
  CGPoint end;
  CGSize size;
  CGFloat scale;
  std::vector<CGFloat> locations;

  Drawn mirrored() const {
    Drawn other = *this;
    other.start.x = 1 - start.x;
    other.end.x = 1 - end.x;
    return other;
  }
  CGPoint inPicture(CGPoint unit) const { return {unit.x * size.width, unit.y * size.height}; }
  std::vector<CGGradient::Stop> stops() const {
    std::vector<CGGradient::Stop> all;
    const CGGradient gradient = gradientWithEdge();
    for (const CGGradient::Stop& stop : gradient.stops()) {
      all.push_back({locations[all.size()], stop.color});
    }
    return all;
  }

  UIImage byContext() const {
    contexts::Scope scope(size, false, scale, false);
    const CGGradient gradient(stops());
    const CGPoint from = inPicture(start);
    const CGPoint to = inPicture(end);
    if (type == kCAGradientLayerRadial) {
      CGContextTranslateCTM(scope.context(), from.x, from.y);
      CGContextScaleCTM(scope.context(), std::fabs(to.x - from.x), std::fabs(to.y - from.y));
      CGContextDrawRadialGradient(scope.context(), gradient, {}, 1);
    } else if (type == kCAGradientLayerConic) {
      CGContextDrawConicGradient(scope.context(), gradient, from,
                                 std::atan2(to.y - from.y, to.x - from.x));
    } else {
      CGContextDrawLinearGradient(scope.context(), gradient, from, to,
                                  CGGradientDrawingOptions::drawsBeforeAndAfter);
    }
    return scope.image();
  }

  UIImage byLayer() const {
    const auto layer = CAGradientLayer::layer();
    std::vector<CGColor> colors;
    for (const CGGradient::Stop& stop : stops()) colors.push_back(stop.color);
    layer->setFrame({{}, size});
    layer->setColors(colors);
    layer->setLocations(locations);
    layer->setStartPoint(start);
    layer->setEndPoint(end);
    layer->setType(type);
    contexts::Scope scope(size, false, scale, false);
    layer->renderInContext(scope.context());
    return scope.image();
  }

  double placeAt(std::size_t column, std::size_t row) const {
    const CGPoint from = inPicture(start);
    const CGPoint to = inPicture(end);
    const double x = (static_cast<double>(column) + 0.5) / scale - from.x;
    const double y = (static_cast<double>(row) + 0.5) / scale - from.y;
    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    if (type == kCAGradientLayerRadial) return std::hypot(x / dx, y / dy);
    if (type == kCAGradientLayerConic) {
      const double turns = (std::atan2(y, x) - std::atan2(dy, dx)) / (2 * std::numbers::pi);
      return turns - std::floor(turns);
    }
    return (x * dx + y * dy) / (dx * dx + dy * dy);
  }

  // The premultiplied colour at a place in levels of 255.
  std::vector<double> colorAt(double place) const {
    const std::vector<CGGradient::Stop> all = stops();
    std::size_t next = 0;
    while (next < all.size() && locations[next] <= place) ++next;
    const CGGradient::Stop& a = all[next == 0 ? 0 : next - 1];
    const CGGradient::Stop& b = all[std::min(next, all.size() - 1)];
    const double part =
        a.location < b.location ? (place - a.location) / (b.location - a.location) : 0;
    const auto mix = [&](double before, double after) { return before + (after - before) * part; };
    const double alpha = mix(a.color.alpha(), b.color.alpha()) * 255;
    return {mix(a.color.red(), b.color.red()) * alpha,
            mix(a.color.green(), b.color.green()) * alpha,
            mix(a.color.blue(), b.color.blue()) * alpha, alpha};
  }

  // Where rounding may decide for either side of a jump.
  bool isOnJump(double place) const {
    const auto isAt = [&](double jump) { return std::fabs(place - jump) < 1e-9; };
    return isAt(locations[1]) || (type == kCAGradientLayerConic && (isAt(0) || isAt(1)));
  }

  void expectExact(const UIImage& image, const std::string& name) const {
    SCOPED_TRACE(testing::Message() << type << name << " to " << end.x << ", " << end.y << " at "
                                    << size.width << " x " << size.height);
    // A colour is rounded to 1/64 levels, then to levels.
    constexpr double kOff = 0.5 + 1.0 / 128 + 0.001;
    for (std::size_t y = 0; y < image.cgImage().pixelHeight(); ++y) {
      for (std::size_t x = 0; x < image.cgImage().pixelWidth(); ++x) {
        if (isOnJump(placeAt(x, y))) continue;
        const Rgba pixel = at(image, x, y);
        const std::vector<double> want = colorAt(placeAt(x, y));
        ASSERT_NEAR(pixel.red, want[0], kOff) << x << ", " << y;
        ASSERT_NEAR(pixel.green, want[1], kOff) << x << ", " << y;
        ASSERT_NEAR(pixel.blue, want[2], kOff) << x << ", " << y;
        ASSERT_NEAR(pixel.alpha, want[3], kOff) << x << ", " << y;
      }
    }
  }
};

TEST(RasterGradients, EachPixelHasTheColourAtItsCentreAndAMirrorImageMirrorsIt) {
  const CGSize sizes[] = {{1, 1}, {16, 16}, {23, 40}, {61, 37}, {192, 3}};
  for (const std::string_view type :
       {kCAGradientLayerAxial, kCAGradientLayerRadial, kCAGradientLayerConic}) {
    // Right angles are in the list: rows of one colour, and rows that are all alike.
    for (int angle = 0; angle < 360; angle += 15) {
      const double turn = angle * std::numbers::pi / 180;
      const double dx = angle % 180 == 90 ? 0 : std::cos(turn) / 2;
      const double dy = angle % 180 == 0 ? 0 : std::sin(turn) / 2;
      if (type == kCAGradientLayerRadial && angle % 90 == 0) continue;
      for (const CGSize& size : sizes) {
        Drawn drawn{std::string(type),          {0.5 - dx / 4, 0.5 - dy / 4},
                    {0.5 + dx, 0.5 + dy},       size,
                    angle % 2 == 0 ? 1.0 : 2.0, {0, 0.5, 0.5, 1}};
        const UIImage image = drawn.byContext();
        drawn.expectExact(image, "");
        if (type != kCAGradientLayerConic) {  // whose mirror image turns the other way
          const UIImage mirror = drawn.mirrored().byContext();
          const std::size_t width = image.cgImage().pixelWidth();
          for (std::size_t y = 0; y < image.cgImage().pixelHeight(); ++y) {
            for (std::size_t x = 0; x < width; ++x) {
              if (drawn.isOnJump(drawn.placeAt(x, y))) continue;
              ASSERT_EQ(at(image, x, y), at(mirror, width - 1 - x, y)) << type << ", " << angle;
            }
          }
        }
        // Layers keep locations outside 0…1.
        drawn.locations = {-0.5, 0.3, 0.3, 1.5};
        drawn.expectExact(drawn.byLayer(), " layer");
      }
    }
  }
}

TEST(RasterGradients, EndsRunOnWhereTheyAreToldTo) {
  using enum CGGradientDrawingOptions;
  for (const CGGradientDrawingOptions options :
       {none, drawsBeforeStartLocation, drawsAfterEndLocation, drawsBeforeAndAfter}) {
    const bool before = options == drawsBeforeStartLocation || options == drawsBeforeAndAfter;
    const bool after = options == drawsAfterEndLocation || options == drawsBeforeAndAfter;
    for (const CGPoint end : {CGPoint{30, 20}, CGPoint{10, 30}, CGPoint{33, 37}}) {
      const UIImage image = pixels::drawn({40, 40}, 1, [&](CGContextRef context) {
        CGContextDrawLinearGradient(context, gradientWithEdge(), {10, 20}, end, options);
      });
      const double dx = end.x - 10;
      const double dy = end.y - 20;
      for (std::size_t y = 0; y < 40; ++y) {
        for (std::size_t x = 0; x < 40; ++x) {
          const double along =
              (static_cast<double>(x) - 9.5) * dx + (static_cast<double>(y) - 19.5) * dy;
          const double length = dx * dx + dy * dy;
          if (along == 0 || along == length) continue;  // rounding may decide for either
          const bool shows = along < 0 ? before : along < length || after;
          ASSERT_EQ(at(image, x, y) != pixels::kNone, shows)
              << x << ", " << y << " to " << end.x << ", " << end.y;
        }
      }
    }
  }
  const UIImage nothing = pixels::drawn({8, 8}, 1, [](CGContextRef context) {
    CGContextDrawLinearGradient(context, gradientWithEdge(), {4, 4}, {4, 4}, drawsBeforeAndAfter);
    CGContextDrawRadialGradient(context, gradientWithEdge(), {4, 4}, -1);
  });
  EXPECT_EQ(pixels::paintedBox(nothing), pixels::Box{});
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
          context->fillWithLinearGradient(heart, CGAffineTransformIdentity, FillRule::evenOdd,
                                          gradient, box.origin, to, kOptions);
        } else {
          CGContextClipToPath(context, heart, FillRule::evenOdd);
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
