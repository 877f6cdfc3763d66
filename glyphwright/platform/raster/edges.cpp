#include <glyphwright/platform/raster/edges.h>

#include <algorithm>
#include <cmath>

#include <glyphwright/platform/raster/cells.h>
#include <glyphwright/platform/raster/edge_writer.h>
#include <glyphwright/platform/raster/inside_edges.h>

namespace glyphwright::raster {
namespace {

// All corners of a path that lies inside are kept at once, up to 500 of them for each curve across
// a picture of 2048 pixels, 24 bytes each: of longer paths they come one by one.
constexpr std::size_t kMostSegmentsAtOnce = 4096;

// The step between samples of a cubic with its inner samples moved out of the hollow, as forward
// differences: adding them up gives the next sample with nothing but additions.
struct CubicSteps {
  int count;
  double x, y;
  double dx, dy;
  double ddx, ddy;
  double dddx, dddy;

  void advance() {
    x += dx;
    y += dy;
    dx += ddx;
    dy += ddy;
    ddx += dddx;
    ddy += dddy;
  }
};

int chordCount(double bend, double tolerance) {
  // |p''| ≤ 6·bend, and a chord over a parameter step h strays by at most h²·|p''|/8.
  const double count = std::sqrt(bend * (6.0 / 8.0) / tolerance);
  return count < kMaxChords ? static_cast<int>(count) + 1 : kMaxChords;
}

// Points relative to the region.
CubicSteps stepsOf(CGPoint p0, CGPoint p1, CGPoint p2, CGPoint p3, double tolerance) {
  const double ux = p0.x - 2 * p1.x + p2.x;
  const double uy = p0.y - 2 * p1.y + p2.y;
  const double vx = p1.x - 2 * p2.x + p3.x;
  const double vy = p1.y - 2 * p2.y + p3.y;
  const double bend = std::sqrt(std::max(ux * ux + uy * uy, vx * vx + vy * vy));
  const int count = chordCount(bend, tolerance);
  const double h = 1.0 / count;
  const double h2 = h * h;
  // p(t) = a·t³ + b·t² + c·t + p0. Chords of a curve lose area to its hollow side; moving the
  // inner points by −h²·p''/12 gives it back, and folds into the two lower coefficients because
  // p'' = 6a·t + 2b is linear in t.
  const double ax = vx - ux;
  const double ay = vy - uy;
  const double bx = 3 * ux;
  const double by = 3 * uy;
  const double cx = 3 * (p1.x - p0.x) - ax * (h2 / 2);
  const double cy = 3 * (p1.y - p0.y) - ay * (h2 / 2);
  const double h3 = h2 * h;
  return {count,
          p0.x - bx * (h2 / 6),
          p0.y - by * (h2 / 6),
          ax * h3 + bx * h2 + cx * h,
          ay * h3 + by * h2 + cy * h,
          6 * ax * h3 + 2 * bx * h2,
          6 * ay * h3 + 2 * by * h2,
          6 * ax * h3,
          6 * ay * h3};
}

// For shapes that the region cuts.
class ClippedWriter : public CuttingWriter {
 public:
  ClippedWriter(EdgeList& out, const PixelRect& region, double tolerance, const Kernels& kernels)
      : CuttingWriter(out, region, kernels), tolerance_(tolerance) {}

  void moveTo(const CGPoint* p) {
    closeContour();
    start_ = from_ = relative(*p);
    startRuns();
  }
  void lineTo(const CGPoint* p) { segmentTo(relative(*p)); }
  // The curve's first end stands before the others.
  void quadTo(const CGPoint* p) {
    const auto cubic = cubicOfQuad(relative(p[-1]), relative(p[0]), relative(p[1]));
    curveTo(cubic[0], cubic[1], cubic[2], cubic[3]);
  }
  void cubicTo(const CGPoint* p) {
    curveTo(relative(p[-1]), relative(p[0]), relative(p[1]), relative(p[2]));
  }
  void closeContour() { segmentTo(start_); }
  void finish() { closeContour(); }

 private:
  CGPoint relative(const CGPoint& p) const { return {p.x - left_, p.y - top_}; }

  void segmentTo(CGPoint p) {
    segment(from_, p);
    from_ = p;
  }

  void curveTo(CGPoint p0, CGPoint p1, CGPoint p2, CGPoint p3) {
    const double minX = std::min(std::min(p0.x, p1.x), std::min(p2.x, p3.x));
    const double maxX = std::max(std::max(p0.x, p1.x), std::max(p2.x, p3.x));
    const double minY = std::min(std::min(p0.y, p1.y), std::min(p2.y, p3.y));
    const double maxY = std::max(std::max(p0.y, p1.y), std::max(p2.y, p3.y));
    // Outside, only the rows that it spans count.
    if (maxY > 0 && minY < height_ && minX < width_ && maxX > 0) {
      CubicSteps steps = stepsOf(p0, p1, p2, p3, tolerance_);
      for (int k = 1; k < steps.count; ++k) {
        steps.advance();
        segmentTo({steps.x, steps.y});
      }
    }
    segmentTo(p3);
  }

  double tolerance_;
  CGPoint start_;
  CGPoint from_;
};

void writePath(const CGPath& path, const CGPoint* next, ClippedWriter& writer) {
  for (const PathVerb verb : path.verbs()) {
    switch (verb) {
      case PathVerb::move:
        writer.moveTo(next);
        break;
      case PathVerb::line:
        writer.lineTo(next);
        break;
      case PathVerb::quad:
        writer.quadTo(next);
        break;
      case PathVerb::cubic:
        writer.cubicTo(next);
        break;
      case PathVerb::close:
        writer.closeContour();
        break;
    }
    next += pointCount(verb);
  }
  writer.finish();
}

}  // namespace

void EdgeList::addUp(const Kernels& kernels) {
  const std::size_t stride = cellStride(beyondLeft + region.width() + beyondRight);
  if (sums.empty()) sums.resize(stride * static_cast<std::size_t>(region.height()));
  accumulate<std::int32_t>(edges(), {sums.data(), stride, nullptr, 0, region.height(), 0}, kernels);
  count = 0;
}

void edgesOfPath(const CGPath& path, std::vector<CGPoint>& devicePoints, const DeviceBox& box,
                 const PixelRect& region, double tolerance, const Kernels& kernels, EdgeList& out) {
  if (contains(region, box) && path.verbs().size() <= kMostSegmentsAtOnce) {
    edgesInside(path, devicePoints, region, tolerance, kernels, out);
  } else {
    ClippedWriter writer(out, region, tolerance, kernels);
    writePath(path, devicePoints.data(), writer);
  }
}

}  // namespace glyphwright::raster
