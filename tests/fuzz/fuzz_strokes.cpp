// Any stroke of a small picture against what its pen covers on its way, by plain arithmetic.

#include <algorithm>
#include <cmath>
#include <cstdio>

#include <glyphwright/platform/context.h>
#include <glyphwright/platform/image.h>

#include "../reference/swept_pen.h"
#include "input.h"

namespace {

using namespace glyphwright;

constexpr std::size_t kSide = 24;
// What 128 samples a pixel and the flattening of strokes come to.
constexpr double kTolerance = 40;

CGPoint point(fuzz::Input& input) {
  const double x = input.byte() / 8.0 - 4;
  return {x, input.byte() / 8.0 - 4};
}

CGPath pathOf(fuzz::Input& input) {
  CGPath path;
  path.moveToPoint(point(input));
  for (std::size_t steps = 1 + input.below(4); steps > 0; --steps) {
    const CGPoint to = point(input);
    const std::size_t kind = input.below(4);
    const CGPoint control = point(input);
    if (kind == 0) path.addQuadCurveToPoint(to, control);
    if (kind == 1 || kind == 2) path.addCurveToPoint(to, control, point(input));
    if (kind == 3) path.addLineToPoint(to);
  }
  if (input.coin()) path.closeSubpath();
  return path;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  StrokeStyle style;
  style.width = std::exp2(input.byte() / 32.0 - 3);
  style.cap = static_cast<CGLineCap>(input.below(3));
  style.join = static_cast<CGLineJoin>(input.below(3));
  style.miterLimit = input.coin() ? 10 : std::exp2(input.byte() / 32.0 - 1);
  CGAffineTransform toPixels;
  if (input.below(3) == 0) {
    // A pen that is up to four times as long as it is wide, either way up.
    const double turn = input.byte() / 40.0;
    const CGAffineTransform stretch =
        CGAffineTransformMakeScale(input.coin() ? 1 : -1, std::exp2(input.byte() / 64.0 - 2));
    toPixels = CGAffineTransformConcat(
        CGAffineTransformConcat(CGAffineTransformMakeRotation(-turn), stretch),
        CGAffineTransformMakeRotation(input.byte() / 40.0));
  }
  CGPath path = pathOf(input);
  path.applyTransform(CGAffineTransformInvert(toPixels));

  UIGraphicsBeginImageContextWithOptions({kSide, kSide}, false, 1);
  CGContextRef context = UIGraphicsGetCurrentContext();
  CGContextConcatCTM(context, toPixels);
  CGContextStrokePath(context, path, style);
  const UIImage image = UIGraphicsGetImageFromCurrentImageContext().value_or(UIImage());
  UIGraphicsEndImageContext();
  const auto rgba = image.cgImage().rgba();
  const auto swept = reference::sweptPen(path, style, toPixels, kSide, kSide);
  int tooMuch = 0;
  for (std::size_t i = 0; i < kSide * kSide; ++i) {
    const double is = rgba[4 * i + 3];
    const bool hasTooLittle = 255 * swept.covered.values[i] - is > kTolerance;
    // Where a curve goes exactly back over itself, the ends of arcs that lie over one another share
    // a pixel or two.
    if (is - 255 * std::min(1.0, swept.counted.values[i]) > kTolerance) ++tooMuch;
    if (!hasTooLittle && tooMuch < 3) continue;
    std::fprintf(stderr, "pixel %zu, %zu: %.0f, not %.0f to %.0f\n", i % kSide, i / kSide, is,
                 255 * swept.covered.values[i], 255 * std::min(1.0, swept.counted.values[i]));
    __builtin_trap();
  }
  return 0;
}
