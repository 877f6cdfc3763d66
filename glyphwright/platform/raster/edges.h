#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include <glyphwright/platform/path.h>
#include <glyphwright/platform/raster/kernels.h>
#include <glyphwright/platform/raster/pixel_rect.h>

namespace glyphwright::raster {

/// The edges of one shape, relative to the pixels it may touch.
struct EdgeList {
  PixelRect region;
  /// How many pixels edges may reach beyond the region's sides; x counts from the farthest to the
  /// left. Above and below they may reach beyond it as they like.
  int beyondLeft = 0;  // whole blocks
  int beyondRight = 0;
  std::vector<Edge> storage;  // grows only; the first `count` are in use
  std::size_t count = 0;
  /// What edges beyond the most that are kept have added to the region's cells, as they would
  /// stand in one band of all rows; empty as long as all are kept.
  std::vector<std::int32_t> sums;
  std::size_t most = std::size_t{1} << 18;
  /// What stands between a path and its edges, likewise only growing. Each contour ends where it
  /// began; the ends count segments.
  std::vector<Segment> segments;
  std::vector<Curve> curves;
  std::vector<float> cornerX;
  std::vector<std::int32_t> cornerY;
  std::vector<std::size_t> contourEnds;
  /// How often a contour changes between running down and running up, over all contours: no pixel
  /// is wound round more often than half of this.
  int verticalRuns = 0;

  std::span<const Edge> edges() const { return {storage.data(), count}; }
  /// Adds the edges to the sums, and keeps none of them.
  void addUp(const Kernels& kernels);
};

/// The box around a path's points under `toDevice`, control points included; NaN or infinite
/// points give a box that touches no pixel. `devicePoints` receives the mapped points at its start.
DeviceBox mapPoints(const CGPath& path, const CGAffineTransform& toDevice,
                    std::vector<CGPoint>& devicePoints);

/// The same box around points that are on the device already.
DeviceBox boxOfPoints(const CGPath& path);

/// Flattens a path whose points have been mapped to device pixels; open subpaths are closed. `box`
/// is the box around the points. A curve becomes as many chords as keep it within `tolerance`
/// pixels, and the chords' inner points are moved out so that the area under the curve is kept.
/// `devicePoints` may get more points behind those of the path.
void edgesOfPath(const CGPath& path, std::vector<CGPoint>& devicePoints, const DeviceBox& box,
                 const PixelRect& region, double tolerance, const Kernels& kernels, EdgeList& out);

/// The flattening tolerance of fills, in pixels.
inline constexpr double kFillTolerance = 0.025;

}  // namespace glyphwright::raster
