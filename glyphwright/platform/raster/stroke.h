#pragma once

#include <glyphwright/platform/path.h>
#include <glyphwright/platform/raster/edges.h>
#include <glyphwright/platform/stroke_style.h>

namespace glyphwright::raster {

/// The area of a stroke as contours that all wind the same way, so that the non-zero rule gives
/// their union.
///
/// `points` are the path's points in the pen's space, where the pen is a circle of `width` (above
/// 0); `toDevice` maps that space to device pixels, and the result is in device pixels.
/// `tolerance` is in the pen's space. Non-finite points give nothing.
void strokePolygons(const CGPath& path, const std::vector<CGPoint>& points, double width,
                    const StrokeStyle& style, double tolerance, const CGAffineTransform& toDevice,
                    Polygons& out);

/// The flattening tolerance of strokes, in pixels; the outside of a curve bends wider than its
/// middle.
inline constexpr double kStrokeTolerance = 0.03;

}  // namespace glyphwright::raster
