#include <glyphwright/platform/raster/edges.h>

#include <algorithm>

#include <glyphwright/platform/raster/cells.h>
#include <glyphwright/platform/raster/chords.h>
#include <glyphwright/platform/raster/edge_writer.h>
#include <glyphwright/platform/raster/inside_edges.h>

namespace glyphwright::raster {
namespace {

// All corners of a path that lies inside are kept at once, up to 500 of them for each curve across
// a picture of 2048 pixels, 24 bytes each: of longer paths they come one by one.
constexpr std::size_t kMostSegmentsAtOnce = 4096;

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
      ChordSteps steps(p0, p1, p2, p3, tolerance_);
      for (int k = 1; k < steps.count(); ++k) segmentTo(steps.next());
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
