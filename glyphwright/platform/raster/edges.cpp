#include <glyphwright/platform/raster/edges.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace glyphwright::raster {
namespace {

// More chords than this are never spent on one curve; at 16384 pixels a quarter circle needs 560.
constexpr int kMaxChords = 1024;

// Takes a polyline in region coordinates and writes its edges, clipped to the region. What lies to
// the left is pushed to the region's left edge, where it still turns the winding of the row; what
// lies to the right or above or below has no effect and is dropped.
class EdgeWriter {
 public:
  EdgeWriter(EdgeList& out, const PixelRect& region)
      : out_(out),
        left_(region.x0),
        top_(region.y0),
        width_(region.width()),
        height_(region.height()) {
    out.region = region;
    out.edges.clear();
    out.verticalRuns = 0;
  }

  double left() const { return left_; }
  double top() const { return top_; }
  double width() const { return width_; }
  double height() const { return height_; }

  void moveTo(double x, double y) {
    closeContour();
    startX_ = fromX_ = x;
    startY_ = fromY_ = y;
    fromUnits_ = units(y);
    rising_ = -1;
  }

  // An edge that is known to lie inside the region (or beside it by rounding only).
  void lineInside(double x, double y) {
    const int to = std::clamp(units(y), 0, static_cast<int>(height_) * kUnitsPerPixel);
    const int from = std::clamp(fromUnits_, 0, static_cast<int>(height_) * kUnitsPerPixel);
    if (to != from) {
      push(static_cast<float>(std::clamp(fromX_, 0.0, width_)), from,
           static_cast<float>(std::clamp(x, 0.0, width_)), to);
    }
    fromX_ = x;
    fromY_ = y;
    fromUnits_ = to;
  }

  void lineClipped(double x, double y) {
    const double x0 = fromX_;
    const double y0 = fromY_;
    fromX_ = x;
    fromY_ = y;
    fromUnits_ = units(y);
    if ((y0 <= 0 && y <= 0) || (y0 >= height_ && y >= height_) || y0 == y) return;
    const double slope = (x - x0) / (y - y0);
    const auto xAt = [&](double at) { return x0 + (at - y0) * slope; };
    // The part inside the rows.
    double ya = std::clamp(y0, 0.0, height_);
    const double yb = std::clamp(y, 0.0, height_);
    double xa = ya == y0 ? x0 : xAt(ya);
    const double xb = yb == y ? x : xAt(yb);
    // Split where it crosses the sides, in running order.
    double crossings[2];
    int count = 0;
    for (const double side : {0.0, width_}) {
      if ((xa < side && xb > side) || (xa > side && xb < side)) {
        const double at = y0 + (side - x0) / slope;
        crossings[count++] = std::clamp(at, std::min(ya, yb), std::max(ya, yb));
      }
    }
    if (count == 2 && (xa > xb)) std::swap(crossings[0], crossings[1]);
    for (int i = 0; i < count; ++i) {
      const double xc = std::clamp(xAt(crossings[i]), 0.0, width_);
      pushClamped(xa, ya, xc, crossings[i]);
      xa = xc;
      ya = crossings[i];
    }
    pushClamped(xa, ya, xb, yb);
  }

  void closeContour() {
    if (fromX_ != startX_ || fromY_ != startY_) lineClipped(startX_, startY_);
  }

 private:
  static int units(double y) {
    // Far outside the region only the side matters.
    constexpr double limit = 1 << 20;
    return static_cast<int>(std::floor(std::clamp(y, -limit, limit) * kUnitsPerPixel + 0.5));
  }

  void pushClamped(double xa, double ya, double xb, double yb) {
    const int from = units(ya);
    const int to = units(yb);
    if (from == to) return;
    if (xa >= width_ && xb >= width_) return;
    push(static_cast<float>(std::clamp(xa, 0.0, width_)), from,
         static_cast<float>(std::clamp(xb, 0.0, width_)), to);
  }

  void push(float x0, int y0, float x1, int y1) {
    out_.edges.push_back({x0, x1, y0, y1});
    const int rising = y1 > y0 ? 1 : 0;
    out_.verticalRuns += rising != rising_ ? 1 : 0;
    rising_ = rising;
  }

  EdgeList& out_;
  double left_;
  double top_;
  double width_;
  double height_;
  double startX_ = 0;
  double startY_ = 0;
  double fromX_ = 0;
  double fromY_ = 0;
  int fromUnits_ = 0;
  int rising_ = -1;
};

// A cubic in polynomial form, relative to the region.
struct Cubic {
  double ax, ay, bx, by, cx, cy, dx, dy;
};

int chordCount(double bend, double tolerance) {
  // |p''| ≤ 6·bend, and a chord over a parameter step h strays by at most h²·|p''|/8.
  const double count = std::sqrt(bend * (6.0 / 8.0) / tolerance);
  return count < kMaxChords ? static_cast<int>(count) + 1 : kMaxChords;
}

void addCubic(EdgeWriter& writer, CGPoint p0, CGPoint p1, CGPoint p2, CGPoint p3,
              double tolerance) {
  const double minX = std::min(std::min(p0.x, p1.x), std::min(p2.x, p3.x));
  const double maxX = std::max(std::max(p0.x, p1.x), std::max(p2.x, p3.x));
  const double minY = std::min(std::min(p0.y, p1.y), std::min(p2.y, p3.y));
  const double maxY = std::max(std::max(p0.y, p1.y), std::max(p2.y, p3.y));
  if (maxY <= 0 || minY >= writer.height() || minX >= writer.width() || maxX <= 0) {
    writer.lineClipped(p3.x, p3.y);
    return;
  }
  const double ux = p0.x - 2 * p1.x + p2.x;
  const double uy = p0.y - 2 * p1.y + p2.y;
  const double vx = p1.x - 2 * p2.x + p3.x;
  const double vy = p1.y - 2 * p2.y + p3.y;
  const double bend = std::sqrt(std::max(ux * ux + uy * uy, vx * vx + vy * vy));
  const int chords = chordCount(bend, tolerance);
  const double h = 1.0 / chords;
  const Cubic q{vx - ux, vy - uy, 3 * ux, 3 * uy, 3 * (p1.x - p0.x), 3 * (p1.y - p0.y), p0.x, p0.y};
  // Chords of a curve lose area to its hollow side. Moving the inner points by −h²·p''/12 gives it
  // back, and folds into the coefficients because p'' is linear in t.
  const double cx = q.cx - q.ax * (h * h / 2);
  const double cy = q.cy - q.ay * (h * h / 2);
  const double dx = q.dx - q.bx * (h * h / 6);
  const double dy = q.dy - q.by * (h * h / 6);
  const bool inside = minX >= 0 && minY >= 0 && maxX <= writer.width() && maxY <= writer.height();
  for (int k = 1; k < chords; ++k) {
    const double t = k * h;
    const double x = ((q.ax * t + q.bx) * t + cx) * t + dx;
    const double y = ((q.ay * t + q.by) * t + cy) * t + dy;
    if (inside) {
      writer.lineInside(x, y);
    } else {
      writer.lineClipped(x, y);
    }
  }
  if (inside) {
    writer.lineInside(p3.x, p3.y);
  } else {
    writer.lineClipped(p3.x, p3.y);
  }
}

}  // namespace

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
  for (const Polygons::Point& p : polygons.points) builder.add(p.x, p.y);
  return builder.box();
}

void edgesOfPath(const CGPath& path, const std::vector<CGPoint>& devicePoints,
                 const PixelRect& region, double tolerance, EdgeList& out) {
  EdgeWriter writer(out, region);
  const auto at = [&](std::size_t i) {
    return CGPoint{devicePoints[i].x - writer.left(), devicePoints[i].y - writer.top()};
  };
  std::size_t next = 0;
  CGPoint current;
  for (const PathVerb verb : path.verbs()) {
    switch (verb) {
      case PathVerb::move:
        current = at(next);
        writer.moveTo(current.x, current.y);
        break;
      case PathVerb::line:
        current = at(next);
        writer.lineClipped(current.x, current.y);
        break;
      case PathVerb::quad: {
        const CGPoint control = at(next);
        const CGPoint end = at(next + 1);
        const CGPoint c1{current.x + (control.x - current.x) * (2.0 / 3.0),
                         current.y + (control.y - current.y) * (2.0 / 3.0)};
        const CGPoint c2{end.x + (control.x - end.x) * (2.0 / 3.0),
                         end.y + (control.y - end.y) * (2.0 / 3.0)};
        addCubic(writer, current, c1, c2, end, tolerance);
        current = end;
        break;
      }
      case PathVerb::cubic: {
        const CGPoint end = at(next + 2);
        addCubic(writer, current, at(next), at(next + 1), end, tolerance);
        current = end;
        break;
      }
      case PathVerb::close:
        writer.closeContour();
        break;
    }
    next += pointCount(verb);
  }
  writer.closeContour();
}

void edgesOfPolygons(const Polygons& polygons, const PixelRect& region, EdgeList& out) {
  EdgeWriter writer(out, region);
  std::size_t i = 0;
  for (const std::size_t end : polygons.ends) {
    bool first = true;
    for (; i < end; ++i) {
      const double x = polygons.points[i].x - writer.left();
      const double y = polygons.points[i].y - writer.top();
      if (first) {
        writer.moveTo(x, y);
      } else {
        writer.lineClipped(x, y);
      }
      first = false;
    }
  }
  writer.closeContour();
}

}  // namespace glyphwright::raster
