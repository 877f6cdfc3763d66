#pragma once

#include <cstdint>

#include <glyphwright/platform/geometry.h>

namespace glyphwright {

/// How an open line ends: at its end point, with a half disc beyond it, or half its width beyond
/// it.
enum class CGLineCap : std::uint8_t { butt = 0, round = 1, square = 2 };
/// How two segments meet: in a point, in an arc, or cut off.
enum class CGLineJoin : std::uint8_t { miter = 0, round = 1, bevel = 2 };

/// How a line is drawn along a path.
struct StrokeStyle {
  /// In points; 0 is one device pixel, negative or NaN draws nothing.
  CGFloat width = 1;
  CGLineCap cap = CGLineCap::butt;
  CGLineJoin join = CGLineJoin::miter;
  /// A miter join longer than this many line widths becomes a bevel.
  CGFloat miterLimit = 10;
};

}  // namespace glyphwright
