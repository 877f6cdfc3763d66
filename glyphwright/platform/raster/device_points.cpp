#include <algorithm>
#include <cmath>
#include <limits>

#include <glyphwright/platform/points.h>
#include <glyphwright/platform/raster/edges.h>

namespace glyphwright::raster {
namespace {

// Beyond this many pixels only the direction counts; keeping products of coordinates finite.
constexpr double kFarthest = 1e9;

// The box, or one that touches no pixel when a coordinate is NaN or infinite.
DeviceBox finiteBox(const glyphwright::PointBox& box) {
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

double near(double v) {
  return std::clamp(v, -kFarthest, kFarthest);
}

DeviceBox near(const DeviceBox& box) {
  return {near(box.minX), near(box.minY), near(box.maxX), near(box.maxY)};
}

}  // namespace

DeviceBox boxOfPoints(const CGPath& path) {
  const DeviceBox box = finiteBox(boxPoints(path.points()));
  return isFar(box) ? near(box) : box;
}

DeviceBox mapPoints(const CGPath& path, const CGAffineTransform& toDevice,
                    std::vector<CGPoint>& devicePoints) {
  const std::span<const CGPoint> points = path.points();
  if (devicePoints.size() < points.size()) devicePoints.resize(points.size());
  DeviceBox box = finiteBox(glyphwright::mapPoints(points, toDevice, devicePoints.data()));
  if (isFar(box)) {
    for (CGPoint& p : devicePoints) p = {near(p.x), near(p.y)};
    box = near(box);
  }
  return box;
}

}  // namespace glyphwright::raster
