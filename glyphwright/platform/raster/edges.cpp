#include <glyphwright/platform/raster/edges.h>

#include <algorithm>
#include <cmath>

#include <glyphwright/platform/raster/edge_writer.h>

namespace glyphwright::raster {
namespace {

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

// For shapes that lie inside the region as a whole. First all corners are gathered, then they are
// made edges: the count of a curve's samples comes late, and nothing else should wait for it.
class InsideWriter : public EdgeWriter {
 public:
  InsideWriter(EdgeList& out, const PixelRect& region, double tolerance, const Kernels& kernels)
      : EdgeWriter(out, region), kernels_(kernels) {
    const double factor = 6.0 / 8.0 / tolerance;
    frame_ = {left_, top_, static_cast<float>(width_), region.height() * kUnitsPerPixel,
              static_cast<float>(factor * factor)};
    out.contourEnds.clear();
  }

  void moveTo(const CGPoint* p) {
    endContour();
    lineTo(p);
  }
  void lineTo(const CGPoint* p) {
    makeCornerRoom(1);
    put(corners_++, *p);
  }
  // The curve's first end stands before the others.
  void cubicTo(const CGPoint* p) {
    makeCornerRoom(kMaxChords);
    const int samples = kernels_.sampleCurve(&p[-1].x, frame_, x_ + corners_, y_ + corners_);
    corners_ += static_cast<std::size_t>(samples);
    put(corners_ - 1, p[2]);
  }
  void closeContour() {}

  void finish() {
    endContour();
    makeCornerRoom(8);
    makeRoom(corners_ + 8);
    std::size_t first = 0;
    for (const std::size_t end : out_.contourEnds) {
      runs_ += 2 * kernels_.joinCorners(x_ + first, y_ + first, end - first,
                                        out_.storage.data() + count_);
      count_ += end - first - 1;
      first = end;
    }
  }

 private:
  void makeCornerRoom(std::size_t corners) {
    if (capacity_ < corners_ + corners) {
      const std::size_t wanted = 2 * (corners_ + corners);
      if (out_.cornerX.size() < wanted) {
        out_.cornerX.resize(wanted);
        out_.cornerY.resize(wanted);
      }
      x_ = out_.cornerX.data();
      y_ = out_.cornerY.data();
      capacity_ = out_.cornerX.size();
    }
  }
  void put(std::size_t at, const CGPoint& p) {
    x_[at] = std::clamp(static_cast<float>(p.x - left_), 0.0F, frame_.width);
    const int units = static_cast<int>((p.y - top_) * kUnitsPerPixel + 0.5);
    y_[at] = std::clamp(units, 0, frame_.height);
  }
  void endContour() {
    const std::size_t first = out_.contourEnds.empty() ? 0 : out_.contourEnds.back();
    if (corners_ == first) return;
    makeCornerRoom(1);
    x_[corners_] = x_[first];
    y_[corners_] = y_[first];
    out_.contourEnds.push_back(++corners_);
  }

  const Kernels& kernels_;
  CurveFrame frame_;
  std::size_t corners_ = 0;
  std::size_t capacity_ = 0;
  float* x_ = nullptr;
  std::int32_t* y_ = nullptr;
};

// For shapes that the region cuts.
class ClippedWriter : public CuttingWriter {
 public:
  ClippedWriter(EdgeList& out, const PixelRect& region, double tolerance,
                const Kernels& /*kernels*/)
      : CuttingWriter(out, region), tolerance_(tolerance) {}

  void moveTo(const CGPoint* p) {
    closeContour();
    start_ = from_ = relative(*p);
    startRuns();
  }
  void lineTo(const CGPoint* p) { segmentTo(relative(*p)); }
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

template <typename Writer>
void writePath(const CGPath& path, const std::vector<CGPoint>& devicePoints,
               const PixelRect& region, double tolerance, const Kernels& kernels, EdgeList& out) {
  Writer writer(out, region, tolerance, kernels);
  const CGPoint* next = devicePoints.data();
  for (const PathVerb verb : path.verbs()) {
    switch (verb) {
      case PathVerb::move:
        writer.moveTo(next);
        break;
      case PathVerb::line:
        writer.lineTo(next);
        break;
      case PathVerb::quad: {
        const CGPoint& from = next[-1];
        const CGPoint& control = next[0];
        const CGPoint& end = next[1];
        const auto towards = [&](const CGPoint& p) {
          return CGPoint{p.x + (control.x - p.x) * (2.0 / 3.0),
                         p.y + (control.y - p.y) * (2.0 / 3.0)};
        };
        const CGPoint cubic[4] = {from, towards(from), towards(end), end};
        writer.cubicTo(cubic + 1);
        break;
      }
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

void edgesOfPath(const CGPath& path, const std::vector<CGPoint>& devicePoints, const DeviceBox& box,
                 const PixelRect& region, double tolerance, const Kernels& kernels, EdgeList& out) {
  if (contains(region, box)) {
    writePath<InsideWriter>(path, devicePoints, region, tolerance, kernels, out);
  } else {
    writePath<ClippedWriter>(path, devicePoints, region, tolerance, kernels, out);
  }
}

}  // namespace glyphwright::raster
