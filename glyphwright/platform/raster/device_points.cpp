#include <algorithm>
#include <limits>

#include <glyphwright/platform/raster/edges.h>

namespace glyphwright::raster {
namespace {

// Beyond this many pixels only the direction counts; keeping products of coordinates finite.
constexpr double kFarthest = 1e9;

// Grows a box point by point.
class BoxBuilder {
 public:
  void add(double x, double y) {
    box_.minX = std::min(box_.minX, x);
    box_.minY = std::min(box_.minY, y);
    box_.maxX = std::max(box_.maxX, x);
    box_.maxY = std::max(box_.maxY, y);
    poison_ += x * 0 + y * 0;  // stays 0 unless a coordinate is NaN or infinite
  }
  bool isPoisoned() const { return poison_ != 0; }
  bool isFar() const {
    return box_.minX < -kFarthest || box_.minY < -kFarthest || box_.maxX > kFarthest ||
           box_.maxY > kFarthest;
  }
  DeviceBox box() const {
    if (!isPoisoned()) return box_;
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    return {nan, nan, nan, nan};
  }

 private:
  static constexpr double infinity = std::numeric_limits<double>::infinity();
  DeviceBox box_{infinity, infinity, -infinity, -infinity};
  double poison_ = 0;
};

}  // namespace

DeviceBox mapPoints(const CGPath& path, const CGAffineTransform& toDevice,
                    std::vector<CGPoint>& devicePoints) {
  const std::span<const CGPoint> points = path.points();
  devicePoints.resize(points.size());
  BoxBuilder builder;
  for (std::size_t i = 0; i < points.size(); ++i) {
    devicePoints[i] = CGPointApplyAffineTransform(points[i], toDevice);
    builder.add(devicePoints[i].x, devicePoints[i].y);
  }
  if (builder.isFar() && !builder.isPoisoned()) {
    for (CGPoint& p : devicePoints) {
      p = {std::clamp(p.x, -kFarthest, kFarthest), std::clamp(p.y, -kFarthest, kFarthest)};
    }
  }
  return builder.box();
}

DeviceBox boxOf(const Polygons& polygons) {
  BoxBuilder builder;
  for (const CGPoint& p : polygons.points) builder.add(p.x, p.y);
  return builder.box();
}

}  // namespace glyphwright::raster
