// Drop shadows and inset shadows.

#include <memory>
#include <optional>

#include <gtest/gtest.h>

#include <glyphwright/bezier_path.h>
#include <glyphwright/platform/context.h>
#include <glyphwright/rendering/attribute_dictionary.h>
#include <glyphwright/rendering/icon_attributes.h>

#include "pixels.h"
#include "plain_icon_renderer.h"

namespace glyphwright {
namespace {

using namespace pixels;

NSShadow shadowOf(CGSize offset, CGFloat blur, std::optional<UIColor> color) {
  NSShadow shadow;
  shadow.setShadowOffset(offset);
  shadow.setShadowBlurRadius(blur);
  shadow.setShadowColor(color);
  return shadow;
}

UIBezierPath lineless(UIBezierPath path) {
  path.setLineWidth(0);
  return path;
}

// A red square from 10 to 30 in 40 by 40 points, at the screen's scale.
UIImage redSquare() {
  return drawn({40, 40}, 0, [](CGContextRef context) {
    red.set();
    CGContextFillRect(context, {10, 10, 20, 20});
  });
}

TEST(DropShadow, NoShadowNoChange) {
  const ScreenScale scale(2);
  const UIImage image = redSquare();
  const UIBezierPath path;
  for (const NSShadow& none :
       {shadowOf({0, 0}, 0, blue), shadowOf({3, 3}, 2, std::nullopt), shadowOf({3, 3}, 2, clear)}) {
    expectSamePixels(path.imageWithDropShadow(none, image), image);
  }
}

TEST(DropShadow, FallsBesideTheImageInItsOwnSize) {
  const ScreenScale scale(2);
  const UIImage image =
      UIBezierPath().imageWithDropShadow(shadowOf({15, -5}, 0, UIColor(0, 0, 1, 0.6)), redSquare());
  EXPECT_EQ(image.size(), (CGSize{40, 40}));
  EXPECT_EQ(paintedBox(image), (Box{20, 10, 80, 60})) << "what falls outside is cut off";
  EXPECT_EQ(at(image, 40, 30), kRed);
  EXPECT_EQ(at(image, 70, 12), (Rgba{0, 0, 153, 153}));
}

TEST(DropShadow, RedrawsAtTheScreenScale) {
  const UIImage image = [] {
    const ScreenScale scale(1);
    return redSquare();
  }();
  const ScreenScale scale(3);
  const UIImage redrawn = UIBezierPath().imageWithDropShadow(shadowOf({0, 0}, 0, blue), image);
  EXPECT_EQ(redrawn.scale(), 3);
  EXPECT_EQ(redrawn.cgImage().pixelWidth(), 120U);
  EXPECT_EQ(at(redrawn, 60, 60), kRed);
}

TEST(InsetShadow, AgreesWithThePlainSteps) {
  UIBezierPath filledTwice = UIBezierPath::bezierPathWithRect({2, 2, 36, 30});
  filledTwice.appendPath(UIBezierPath::bezierPathWithRect({10, 10, 12, 12}));
  UIBezierPath filledOften = filledTwice;  // more often than narrow cells hold
  for (int i = 0; i < 200; ++i) {
    filledOften.appendPath(UIBezierPath::bezierPathWithRect({20, 16, 9, 8}));
  }
  const UIBezierPath paths[] = {
      filledTwice,
      filledOften,
      UIBezierPath::bezierPathWithOvalInRect({5.3, 4.1, 30.7, 29.2}),
      UIBezierPath::heartPath(),
      UIBezierPath::gearPath(),
      UIBezierPath::bezierPathWithRect({0, 0, 40.25, 3.5}),
  };
  const CGSize offsets[] = {{0, 0}, {0, 2}, {-3.3, 1.7}, {0.5, -0.5}, {30, 30}};
  // At half scales nothing moves by whole pixels.
  for (const CGFloat scale : {1.0, 1.5, 2.0}) {
    for (const UIBezierPath& path : paths) {
      for (const CGSize offset : offsets) {
        for (const CGFloat blur : {0.0, 3.0, 7.5}) {
          const NSShadow shadow = shadowOf(offset, blur, UIColor(0.2, 0, 0.7, 0.8));
          const auto image = [&](auto draw) {
            return drawn({40, 40}, scale, [&](CGContextRef) { draw(); });
          };
          expectSamePixels(image([&] { path.drawInsetShadow(shadow); }),
                           image([&] { plain::drawInsetShadow(path, shadow); }));
        }
      }
    }
  }
}

TEST(InsetShadow, LeavesTheContextAsItWas) {
  const ScreenScale scale(1);
  const UIImage image = drawn({40, 40}, 1, [](CGContextRef) {
    blue.set();
    UIBezierPath::bezierPathWithRect({10, 10, 20, 20}).drawInsetShadow(shadowOf({4, 0}, 0, red));
    CGContextFillRect(UIGraphicsGetCurrentContext(), {0, 0, 5, 5});
  });
  EXPECT_EQ(at(image, 2, 2), kBlue) << "neither clip nor colour remain";
  EXPECT_EQ(at(image, 7, 2), kNone) << "no shadow remains";
  EXPECT_EQ(at(image, 12, 20), kRed);
  // Without a context, without a path, without a colour: nothing.
  UIBezierPath::bezierPathWithRect({10, 10, 20, 20}).drawInsetShadow(shadowOf({4, 0}, 0, red));
  EXPECT_EQ(paintedBox(drawn(
                {40, 40}, 1,
                [](CGContextRef) {
                  UIBezierPath().drawInsetShadow(shadowOf({4, 0}, 0, red));
                  UIBezierPath::heartPath().drawInsetShadow(shadowOf({4, 0}, 0, std::nullopt));
                })),
            Box{});
}

// The dictionary shades the finished image, background included; the record only what is drawn
// over the background.
TEST(DropShadow, OnAnOpaqueBackgroundOnlyTheRecordsShadowShows) {
  const ScreenScale scale(1);
  const UIBezierPath square = lineless(UIBezierPath::bezierPathWithRect({0, 0, 20, 20}));
  const auto shadow = std::make_shared<NSShadow>(shadowOf({4, 0}, 0, blue));
  const UIImage keyed =
      square.imageWithAttributes({{VNTLGlyphwrightSize, CGSize{40, 40}},
                                  {VNTLGlyphwrightFillColor, red},
                                  {VNTLGlyphwrightBackgroundColor, UIColor::whiteColor()},
                                  {VNTLGlyphwrightDropShadow, shadow}});
  const UIImage recorded = square.makeImage({.fillColor = red,
                                             .backgroundColor = UIColor::whiteColor(),
                                             .dropShadow = IconShadow(blue, {4, 0}, 0),
                                             .size = {40, 40}});
  for (const UIImage* image : {&keyed, &recorded}) {
    EXPECT_EQ(at(*image, 4, 20), kRed);
    EXPECT_EQ(at(*image, 35, 20), kRed);
    EXPECT_EQ(at(*image, 0, 0), kWhite);
  }
  EXPECT_EQ(at(keyed, 38, 20), kWhite);
  EXPECT_EQ(at(recorded, 38, 20), kBlue);
}

}  // namespace
}  // namespace glyphwright
