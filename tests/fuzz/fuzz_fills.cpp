// Any fill of a small picture against plain arithmetic. A pixel's coverage is the mean number of
// turns around its points, folded by the rule: which is its covered share, wherever edges that
// cross inside one pixel do not cancel one another out.

#include <algorithm>
#include <cmath>
#include <cstdio>

#include <glyphwright/platform/context.h>
#include <glyphwright/platform/image.h>

#include "../reference/plane.h"
#include "input.h"

namespace {

using namespace glyphwright;

constexpr std::size_t kSide = 20;

// Mostly in and around the picture, on whole and half pixels as well as between, at times far away.
double coordinate(fuzz::Input& input) {
  const std::uint8_t kind = input.byte();
  if (kind < 128) return kind / 4.0 - 4;
  if (kind < 240) return (kind - 128) / 4.0 - 4 + input.byte() / 1024.0;
  return (kind - 248) * (1 + input.byte()) * 10.0;
}

CGPoint point(fuzz::Input& input) {
  const double x = coordinate(input);
  return {x, coordinate(input)};
}

CGPath pathOf(fuzz::Input& input) {
  CGPath path;
  path.moveToPoint(point(input));
  for (int steps = 0; steps < 12 && !input.isEmpty(); ++steps) {
    const CGPoint to = point(input);
    switch (input.below(5)) {
      case 0:
        path.moveToPoint(to);
        break;
      case 1:
        path.addQuadCurveToPoint(to, point(input));
        break;
      case 2: {
        const CGPoint control = point(input);
        path.addCurveToPoint(to, control, point(input));
        break;
      }
      default:
        path.addLineToPoint(to);
        break;
    }
  }
  return path;
}

double folded(double turns, bool evenOdd) {
  if (!evenOdd) return std::min(std::abs(turns), 1.0);
  const double rest = std::fmod(std::abs(turns), 2.0);
  return std::min(rest, 2 - rest);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  const bool evenOdd = input.coin();
  const CGPath path = pathOf(input);
  UIGraphicsBeginImageContextWithOptions({kSide, kSide}, false, 1);
  CGContextFillPath(UIGraphicsGetCurrentContext(), path,
                    evenOdd ? FillRule::evenOdd : FillRule::nonZero);
  const UIImage image = UIGraphicsGetImageFromCurrentImageContext().value_or(UIImage());
  UIGraphicsEndImageContext();
  const auto rgba = image.cgImage().rgba();
  const reference::Plane turns = reference::winding(path, kSide, kSide);
  // Six levels are what one curved edge may be off; here up to twelve segments meet in a pixel.
  const double tolerance = 6 + 2 * static_cast<double>(path.verbs().size());
  for (std::size_t i = 0; i < turns.values.size(); ++i) {
    const double expected = 255 * folded(turns.values[i], evenOdd);
    if (std::abs(rgba[4 * i + 3] - expected) <= tolerance) continue;
    std::fprintf(stderr, "pixel %zu, %zu: %d, not %.1f\n", i % kSide, i / kSide, rgba[4 * i + 3],
                 expected);
    __builtin_trap();
  }
  return 0;
}
