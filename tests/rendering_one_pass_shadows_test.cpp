// Shadows painted in one pass together with what casts them, against the same in two.

#include <cmath>
#include <iterator>
#include <limits>
#include <optional>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/bezier_path.h>
#include <glyphwright/paths/method_names.h>
#include <glyphwright/paths/registry.h>
#include <glyphwright/platform/context.h>
#include <glyphwright/platform/shadow.h>
#include <glyphwright/rendering/shadows.h>

#include "pixels.h"

namespace glyphwright {
namespace {

using namespace pixels;

constexpr CGFloat kNaN = std::numeric_limits<CGFloat>::quiet_NaN();

NSShadow shadowOf(CGSize offset, CGFloat blur, const UIColor& color) {
  NSShadow shadow;
  shadow.setShadowOffset(offset);
  shadow.setShadowBlurRadius(blur);
  shadow.setShadowColor(color);
  return shadow;
}

UIBezierPath fitted(std::string_view name, CGRect box) {
  UIBezierPath path = findClassMethod(name)();
  path.scaleToFitSize(box.size);
  path.translateToZeroPoint();
  path.applyTransform(CGAffineTransformMakeTranslation(box.origin.x, box.origin.y));
  return path;
}

// Shapes at and beyond the sides of a 40-point image, wound often, open, empty and without a place.
std::vector<UIBezierPath> oddPaths() {
  std::vector<UIBezierPath> paths = {
      UIBezierPath(),
      UIBezierPath::bezierPathWithRect({0, 0, 40, 40}),
      UIBezierPath::bezierPathWithRect({-5, 8, 20, 20}),
      UIBezierPath::bezierPathWithOvalInRect({25.3, 30.1, 30, 30}),
      UIBezierPath::bezierPathWithRect({100, 100, 20, 20}),
      UIBezierPath::bezierPathWithRect({3.25, 4.5, 0.125, 30}),
      UIBezierPath::bezierPathWithRect({kNaN, 4, 10, 10}),
  };
  UIBezierPath often;
  for (int i = 0; i < 40; ++i) {
    const CGFloat in = i * 0.3;
    often.appendPath(UIBezierPath::bezierPathWithRect({2 + in, 3 + in, 34 - 2 * in, 33 - 2 * in}));
  }
  paths.push_back(often);
  UIBezierPath line;
  line.moveToPoint({3, 3});
  line.addLineToPoint({30, 12});
  paths.push_back(line);
  return paths;
}

// Over nothing a shadow and its caster are written together; over a pixel that is painted already,
// one after the other.
void expectTheSameOverAPaintedPixel(const UIBezierPath& path, const NSShadow& shadow,
                                    const UIColor& color, CGSize size, CGFloat scale) {
  const auto image = [&](bool isPainted) {
    return drawn(size, scale, [&](CGContextRef context) {
      const auto paintPixel = [&] {
        CGContextSetFillColor(context, UIColor(1, 0, 0, 1));
        CGContextFillRect(context, {0, 0, 1, 1});
      };
      if (isPainted) paintPixel();
      CGContextSaveGState(context);
      CGContextSetFillColor(context, color);
      CGContextSetShadowWithColor(context, shadow.shadowOffset(), shadow.shadowBlurRadius(),
                                  shadow.shadowColor());
      CGContextFillPath(context, path.cgPath(), true);
      CGContextRestoreGState(context);
      paintPixel();
    });
  };
  expectSamePixels(image(false), image(true));
}

constexpr UIColor kShade(0.2, 0, 0.7, 0.8);
constexpr UIColor kColors[] = {UIColor(0.1, 0.4, 0.9, 1), UIColor(0.9, 0.8, 0.1, 0.4)};

TEST(OnePassShadows, DropShadowsAreTheSame) {
  std::size_t i = 0;
  for (const std::string_view name : iconMethodNames) {
    SCOPED_TRACE(name);
    const auto side = static_cast<CGFloat>(17 + 7 * (i % 6));
    const UIBezierPath path = fitted(name, {6, 5, side - 11.5, side - 12.25});
    expectTheSameOverAPaintedPixel(path, shadowOf({0, 2}, 6, kShade), kColors[i % 2], {side, side},
                                   static_cast<CGFloat>(1 + i % 3));
    ++i;
  }
  for (const UIBezierPath& path : oddPaths()) {
    for (const CGSize offset : {CGSize{0, 0}, CGSize{-3.5, 1}, CGSize{0, 30}, CGSize{-90, 0}}) {
      for (const CGFloat blur : {0.0, 0.75, 5.0, 14.0, 20.0}) {
        expectTheSameOverAPaintedPixel(path, shadowOf(offset, blur, kShade), kColors[0], {40, 30},
                                       2);
      }
    }
  }
}

void expectFillAndInsetTheSame(const UIBezierPath& path, const NSShadow& shadow,
                               const UIColor& color, CGSize size, CGFloat scale) {
  const UIImage together = drawn(size, scale, [&](CGContextRef context) {
    CGContextSetFillColor(context, color);
    rendering::fillWithInsetShadow(context, path, shadow);
  });
  const UIImage apart = drawn(size, scale, [&](CGContextRef context) {
    CGContextSetFillColor(context, color);
    CGContextFillPath(context, path.cgPath(), true);
    rendering::drawInsetShadow(context, path, shadow);
  });
  expectSamePixels(together, apart);
}

TEST(OnePassShadows, InsetShadowsAreTheSame) {
  std::size_t i = 0;
  for (const std::string_view name : iconMethodNames) {
    SCOPED_TRACE(name);
    const auto side = static_cast<CGFloat>(9 + 11 * (i % 7));
    UIBezierPath path = fitted(name, {0, 0, side, side});
    path.setUsesEvenOddFillRule(i % 4 == 0);
    expectFillAndInsetTheSame(path, shadowOf({0, 2}, 6, kShade), kColors[i % 2], {side, side},
                              static_cast<CGFloat>(1 + i % 3));
    ++i;
  }
  for (const UIBezierPath& path : oddPaths()) {
    for (const CGSize offset : {CGSize{0, 0}, CGSize{-3.5, 1}, CGSize{0, 30}, CGSize{-90, 0}}) {
      for (const CGFloat blur : {0.0, 0.75, 5.0, 14.0, 20.0}) {
        for (const CGFloat scale : {1.0, 1.5, 2.0}) {
          expectFillAndInsetTheSame(path, shadowOf(offset, blur, kShade), kColors[1], {40, 37},
                                    scale);
        }
      }
    }
  }
}

// Where one pass would not do, it is not taken: a clip, a shadow in the state, paint below, a turn,
// colours that do not show.
TEST(OnePassShadows, WhatStandsInTheStateIsKept) {
  const UIBezierPath path = fitted("heartPath", {4, 5, 30, 30});
  const NSShadow shadow = shadowOf({1, -2}, 4, UIColor(0, 0, 0, 0.5));
  const auto clip = [](CGContextRef context) {
    CGContextClipToPath(context, UIBezierPath::bezierPathWithOvalInRect({8, 2, 20, 30}).cgPath(),
                        false);
  };
  using Prepare = void (*)(CGContextRef);
  const Prepare states[] = {
      clip,
      [](CGContextRef context) {
        CGContextClipToRect(context, {10, 3, 12.5, 30});
      },
      [](CGContextRef context) {
        CGContextSetShadowWithColor(context, {3, 3}, 2, UIColor(1, 0, 0, 1));
      },
      [](CGContextRef context) {
        CGContextFillRect(context, {0, 0, 20, 20});
      },
      [](CGContextRef context) { CGContextRotateCTM(context, 0.2); },
      [](CGContextRef context) { CGContextTranslateCTM(context, 10.3, -7.75); },
      [](CGContextRef context) { CGContextScaleCTM(context, 1.25, 1); },
      [](CGContextRef context) { CGContextSetAlpha(context, 0.5); },
      [](CGContextRef context) { CGContextSetAlpha(context, 0); },
      [](CGContextRef context) { CGContextSetFillColor(context, UIColor::clearColor()); },
      [](CGContextRef context) { CGContextAddPath(context, UIBezierPath::heartPath().cgPath()); },
      [](CGContextRef context) { CGContextBeginTransparencyLayer(context); },
  };
  for (const Prepare& prepare : states) {
    SCOPED_TRACE(&prepare - states);
    const auto image = [&](bool together) {
      return drawn({40, 40}, 2, [&](CGContextRef context) {
        CGContextSetFillColor(context, UIColor(0, 0.5, 0, 0.9));
        prepare(context);
        if (together) {
          rendering::fillWithInsetShadow(context, path, shadow);
        } else {
          CGContextFillPath(context, path.cgPath(), true);
          rendering::drawInsetShadow(context, path, shadow);
        }
        CGContextEndTransparencyLayer(context);
        // What is left of the state shows in what comes next.
        CGContextFillPath(context);
        CGContextFillRect(context, {30, 30, 9.5, 9.5});
      });
    };
    expectSamePixels(image(true), image(false));
  }
}

}  // namespace
}  // namespace glyphwright
