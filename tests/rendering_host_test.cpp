// Colours, gradients, the renderer and the drawing helpers that the application supplies.

#include <limits>
#include <optional>
#include <span>
#include <stdexcept>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/bezier_path.h>
#include <glyphwright/platform/color.h>
#include <glyphwright/platform/context.h>
#include <glyphwright/platform/gradient.h>
#include <glyphwright/platform/image_renderer.h>
#include <glyphwright/platform/vantel_kit.h>

#include "pixels.h"

namespace glyphwright {
namespace {

using namespace pixels;

constexpr CGFloat kNaN = std::numeric_limits<CGFloat>::quiet_NaN();

TEST(Color, ReadsItsComponents) {
  CGFloat r = 9;
  CGFloat g = 9;
  CGFloat b = 9;
  CGFloat a = 9;
  EXPECT_TRUE(UIColor(1.5, -0.25, 0.5, 7).getRed(&r, &g, &b, &a));
  EXPECT_EQ(r, 1.5);
  EXPECT_EQ(g, -0.25);
  EXPECT_EQ(b, 0.5);
  EXPECT_EQ(a, 1);
  EXPECT_TRUE(UIColor::colorWithWhite(0.25, 0.5).getRed(&r, nullptr, &b, nullptr));
  EXPECT_EQ(r, 0.25);
  EXPECT_EQ(b, 0.25);
  EXPECT_FALSE(UIColor(1, kNaN, 1, 1).getRed(&r, &g, &b, &a));
  EXPECT_EQ(r, 0.25) << "left alone";
  EXPECT_EQ(UIColor(0, 0, 0, kNaN).alpha(), 0);
  EXPECT_NE(UIColor::whiteColor(), UIColor(1, 1, 1, 1));
}

TEST(Color, FromHex) {
  EXPECT_EQ(VantelKit::colorFromHex("#FF8000"), UIColor(1, 128.0 / 255, 0, 1));
  EXPECT_EQ(VantelKit::colorFromHex("#fd267d"), UIColor(253.0 / 255, 38.0 / 255, 125.0 / 255, 1));
  for (const char* odd :
       {"", "#", "FF8000", "#FF800", "#FF80000", "#GG8000", "#FF 000", "0xFF80"}) {
    EXPECT_EQ(VantelKit::colorFromHex(odd), UIColor::clearColor()) << odd;
  }
}

TEST(Gradient, PutsItsStopsInOrder) {
  const std::vector<CGColor> colors = {red, blue, UIColor(2, -1, 0.5, 1)};
  const auto made = [&](std::optional<std::vector<CGFloat>> locations) {
    std::vector<std::pair<CGFloat, CGFloat>> stops;
    const auto gradient = CGGradientCreateWithColors(
        std::nullopt, colors,
        locations ? std::optional<std::span<const CGFloat>>(*locations) : std::nullopt);
    if (!gradient) return stops;
    for (const auto& stop : gradient->stops()) {
      stops.emplace_back(stop.location, stop.color.blue());
    }
    return stops;
  };
  using Stops = std::vector<std::pair<CGFloat, CGFloat>>;
  EXPECT_EQ(made(std::nullopt), (Stops{{0, 0}, {0.5, 1}, {1, 0.5}}));
  EXPECT_EQ(made({{1, 0.5, 0.5}}), (Stops{{0.5, 1}, {0.5, 0.5}, {1, 0}})) << "equal ones in order";
  EXPECT_EQ(made({{-3, kNaN, 7, 0.2}}), (Stops{{0, 0}, {0, 1}, {1, 0.5}})) << "clamped";
  EXPECT_TRUE(made({{0, 1}}).empty()) << "too few";
  EXPECT_FALSE(CGGradientCreateWithColors(std::nullopt, {}, std::nullopt));
  const auto single = CGGradientCreateWithColors(std::nullopt, {{red}}, std::nullopt);
  ASSERT_TRUE(single);
  EXPECT_EQ(single->stops()[0].location, 0);
  const CGGradient clamped({{0, colors[2]}});
  EXPECT_EQ(clamped.stops()[0].color, UIColor(1, 0, 0.5, 1));
}

TEST(ImageRenderer, StartsFreshAndLeaksNothing) {
  const ScreenScale scale(3);
  const UIGraphicsImageRenderer renderer({10, 10});
  for (int i = 0; i < 2; ++i) {
    const UIImage image = renderer.image([](const UIGraphicsImageRendererContext& context) {
      EXPECT_EQ(context.cgContext(), UIGraphicsGetCurrentContext());
      CGContextFillRect(context.cgContext(), {0, 0, 1, 1});  // black
      red.set();
      CGContextSaveGState(context.cgContext());
      UIGraphicsEndImageContext();  // not its to end
      EXPECT_EQ(context.cgContext(), UIGraphicsGetCurrentContext());
      EXPECT_FALSE(UIGraphicsGetImageFromCurrentImageContext());
      UIGraphicsBeginImageContext({4, 4});
      UIGraphicsBeginImageContext({0, 0});  // both left open
    });
    EXPECT_EQ(UIGraphicsGetCurrentContext(), nullptr);
    EXPECT_EQ(image.scale(), 3);
    EXPECT_EQ(image.cgImage().pixelWidth(), 30U);
    EXPECT_EQ(at(image, 0, 0), kBlack);
    EXPECT_EQ(paintedBox(image), (Box{0, 0, 3, 3}));
  }
  EXPECT_THROW(
      renderer.image([](const auto&) -> void { throw std::runtime_error("in the middle"); }),
      std::runtime_error);
  EXPECT_EQ(UIGraphicsGetCurrentContext(), nullptr);
  UIGraphicsImageRendererFormat format;
  EXPECT_EQ(UIGraphicsImageRendererFormat::defaultFormat().scale, 3);
  format.opaque = true;
  const UIImage opaque = UIGraphicsImageRenderer({1, 1}, format).image(nullptr);
  EXPECT_EQ(opaque.scale(), 3) << "0 is the main screen's";
  EXPECT_EQ(at(opaque, 0, 0), kBlack);
}

TEST(HostDrawing, OpensContextsOfTheAskedKind) {
  const ScreenScale scale(2);
  const auto fillHalf = [](CGContext& context) {
    EXPECT_EQ(&context, UIGraphicsGetCurrentContext());
    blue.set();
    CGContextFillRect(&context, {0, 0, 2, 4});
  };
  const UIImage drawn = VantelKit::drawImage({4, 4}, true, 1, fillHalf);
  EXPECT_EQ(drawn.scale(), 1);
  EXPECT_EQ(at(drawn, 1, 3), kBlue);
  EXPECT_EQ(at(drawn, 2, 0), kBlack);
  const std::optional<UIImage> rendered = UIImage::render({4, 4}, std::nullopt, fillHalf);
  EXPECT_EQ(rendered->scale(), 2);
  EXPECT_EQ(at(*rendered, 3, 7), kBlue);
  EXPECT_EQ(at(*rendered, 4, 0), kNone);
  EXPECT_EQ(UIImage::render({4, 4}, 5, fillHalf)->scale(), 5);
  EXPECT_EQ(UIGraphicsGetCurrentContext(), nullptr);
}

// Rendering inside a host's own drawing does not disturb it.
TEST(HostDrawing, RenderingNests) {
  const ScreenScale scale(1);
  const std::optional<UIImage> image = UIImage::render({8, 8}, 1, [](CGContext& context) {
    blue.set();
    UIBezierPath::heartPath().imageWithStrokeColor(red, red);
    EXPECT_EQ(&context, UIGraphicsGetCurrentContext());
    UIBezierPath::bezierPathWithRect({0, 0, 8, 8}).fill();
  });
  EXPECT_EQ(at(*image, 4, 4), kBlue);
}

}  // namespace
}  // namespace glyphwright
