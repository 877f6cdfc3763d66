#include <algorithm>
#include <cmath>
#include <limits>

#include <glyphwright/platform/raster/edges.h>

namespace glyphwright::raster {
namespace {

// Beyond this many pixels only the direction counts; keeping products of coordinates finite.
constexpr double kFarthest = 1e9;

// The box, or one that touches no pixel when a coordinate is NaN or infinite.
DeviceBox finiteBox(const PointBox& box) {
  const bool isFinite = !box.hasNaN && std::isfinite(box.minX) && std::isfinite(box.minY) &&
                        std::isfinite(box.maxX) && std::isfinite(box.maxY);
  if (isFinite) return {box.minX, box.minY, box.maxX, box.maxY};
  constexpr double nan = std::numeric_limits<double>::quiet_NaN();
  return {nan, nan, nan, nan};
}

bool isFar(const DeviceBox& box) {
  return box.minX < -kFarthest || box.minY < -kFarthest || box.maxX > kFarthest ||
         box.maxY > kFarthest;
}

const double* coordinates(std::span<const CGPoint> points) {
  static_assert(sizeof(CGPoint) == 2 * sizeof(double));
  return points.empty() ? nullptr : &points.front().x;
}

double near(double v) {
  return std::clamp(v, -kFarthest, kFarthest);
}

DeviceBox near(const DeviceBox& box) {
  return {near(box.minX), near(box.minY), near(box.maxX), near(box.maxY)};
}

}  // namespace

DeviceBox boxOfPoints(const CGPath& path) {
  const std::span<const CGPoint> points = path.points();
  const DeviceBox box = finiteBox(kernels().boxPoints(coordinates(points), points.size()));
  return isFar(box) ? near(box) : box;
}

DeviceBox mapPoints(const CGPath& path, const CGAffineTransform& toDevice,
                    std::vector<CGPoint>& devicePoints) {
  const std::span<const CGPoint> points = path.points();
  if (points.empty()) return finiteBox(kernels().boxPoints(nullptr, 0));
  if (devicePoints.size() < points.size()) devicePoints.resize(points.size());
  const double matrix[] = {toDevice.a, toDevice.b,  toDevice.c,
                           toDevice.d, toDevice.tx, toDevice.ty};
  DeviceBox box = finiteBox(
      kernels().mapPoints(coordinates(points), points.size(), matrix, &devicePoints.front().x));
  if (isFar(box)) {
    for (CGPoint& p : devicePoints) p = {near(p.x), near(p.y)};
    box = near(box);
  }
  return box;
}

}  // namespace glyphwright::raster
