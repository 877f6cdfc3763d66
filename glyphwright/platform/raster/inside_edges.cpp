#include <glyphwright/platform/raster/inside_edges.h>

#include <algorithm>

#include <glyphwright/platform/raster/chords.h>

// Nearly all shapes lie inside their region, and need no clipping. Their corners are worked out
// kind by kind instead of segment by segment: first what each segment is, then how many chords each
// curve takes, then where the corners of each segment go, then the corners. Each of these is a
// short loop whose rounds do not wait for one another.
namespace glyphwright::raster {
namespace {

// Makes room without giving up what is there.
template <typename T>
T* roomFor(std::vector<T>& list, std::size_t size) {
  if (list.size() < size) list.resize(std::max(size, 2 * list.size()));
  return list.data();
}

// Puts a quadratic's points behind the others, made a cubic; gives where.
std::uint32_t elevate(std::uint32_t quad, std::vector<CGPoint>& points, std::size_t& pointTotal) {
  roomFor(points, pointTotal + 4);
  const auto at = static_cast<std::uint32_t>(pointTotal);
  for (const CGPoint& p : cubicOfQuad(points[quad], points[quad + 1], points[quad + 2])) {
    points[pointTotal++] = p;
  }
  return at;
}

struct Outline {
  std::span<Segment> segments;
  std::span<Curve> curves;
};

// Reads a path's segments into the list. Which kind comes next nobody can foretell, so lines and
// curves are treated alike, and only what is kept differs.
Outline readSegments(const CGPath& path, std::vector<CGPoint>& devicePoints, EdgeList& out) {
  std::size_t pointTotal = path.points().size();
  // A contour may be as short as a move, and gets one segment more than it has.
  Segment* const segments = roomFor(out.segments, 2 * path.verbs().size() + 1);
  Curve* const curves = roomFor(out.curves, path.verbs().size() + 1);
  std::uint32_t segmentCount = 0;
  std::uint32_t curveCount = 0;
  std::uint32_t next = 0;   // point
  std::uint32_t first = 0;  // point of the contour
  std::uint32_t begun = 0;  // the contour's first segment
  // Contours are closed, whether they say so or not.
  const auto endContour = [&] {
    if (segmentCount == begun) return;
    segments[segmentCount++] = {first, 1};
    out.contourEnds.push_back(segmentCount);
    begun = segmentCount;
  };
  out.contourEnds.clear();
  for (const PathVerb verb : path.verbs()) {
    if (verb == PathVerb::move) {
      endContour();
      first = next;
    }
    const bool isQuad = verb == PathVerb::quad;
    curves[curveCount] = {isQuad ? elevate(next - 1, devicePoints, pointTotal) : next - 1,
                          segmentCount, 0, 0};
    curveCount += verb == PathVerb::cubic || isQuad ? 1 : 0;
    next += static_cast<std::uint32_t>(pointCount(verb));
    segments[segmentCount] = {next - 1, 1};
    segmentCount += verb != PathVerb::close ? 1 : 0;
  }
  endContour();
  return {{segments, segmentCount}, {curves, curveCount}};
}

// Places the last corner of each segment; gives how many corners there are.
std::size_t placeSegments(std::span<Segment> segments, std::span<Curve> curves) {
  for (const Curve& curve : curves) segments[curve.segment].corner = curve.chords;
  std::uint32_t corners = 0;
  for (Segment& segment : segments) {
    corners += segment.corner;
    segment.corner = corners - 1;
  }
  for (Curve& curve : curves) curve.corner = segments[curve.segment].corner + 1 - curve.chords;
  return corners;
}

}  // namespace

void edgesInside(const CGPath& path, std::vector<CGPoint>& devicePoints, const PixelRect& region,
                 double tolerance, const Kernels& kernels, EdgeList& out) {
  const auto [segments, curves] = readSegments(path, devicePoints, out);

  const double factor = squaredChordsOverBend(tolerance);
  const CurveFrame frame{static_cast<double>(region.x0), static_cast<double>(region.y0),
                         static_cast<float>(region.width()), region.height() * kUnitsPerPixel,
                         static_cast<float>(factor * factor)};
  const CGPoint* points = devicePoints.data();
  kernels.countChords(curves.data(), curves.size(), &points->x, frame);
  const std::size_t corners = placeSegments(segments, curves);

  float* x = roomFor(out.cornerX, corners + 8);
  std::int32_t* y = roomFor(out.cornerY, corners + 8);
  kernels.sampleCurves(curves.data(), curves.size(), &points->x, frame, x, y);
  kernels.placeEnds(segments.data(), segments.size(), &points->x, frame, x, y);

  Edge* edges = roomFor(out.storage, corners + 8);
  out.region = region;
  out.beyondLeft = out.beyondRight = 0;
  out.count = 0;
  out.sums.clear();
  out.verticalRuns = 0;
  std::size_t first = 0;
  for (const std::size_t contourEnd : out.contourEnds) {
    const std::size_t end = segments[contourEnd - 1].corner + 1;
    out.verticalRuns +=
        2 * kernels.joinCorners(x + first, y + first, end - first, edges + out.count);
    out.count += end - first - 1;
    first = end;
  }
}

}  // namespace glyphwright::raster
