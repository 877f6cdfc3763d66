#include <glyphwright/platform/raster/stroke.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>

#include <glyphwright/platform/raster/bent_curve.h>
#include <glyphwright/platform/raster/kernels/put_sides.h>
#include <glyphwright/platform/raster/stroke_pen.h>

// All segments are listed as cubics and prepared, then the corners between neighbours are worked
// out, and then each contour is put together. All of this is in the pen's space; where a stretched
// pen is no circle on the device, the corners are mapped in the end.
namespace glyphwright::raster {
namespace {

using namespace pen;

// A wider pen is beyond all pictures, and its corners would leave the floats' range.
constexpr double kWidest = 2e9;

// A sector of this many tolerances' width is about a sixteenth of a pixel.
constexpr double kSpareFold = 13;

// A line as a cubic.
void raise(const CGPoint& from, const CGPoint& to, CGPoint* cubic) {
  cubic[0] = from;
  cubic[1] = {(2 * from.x + to.x) * (1.0 / 3), (2 * from.y + to.y) * (1.0 / 3)};
  cubic[2] = {(from.x + 2 * to.x) * (1.0 / 3), (from.y + 2 * to.y) * (1.0 / 3)};
  cubic[3] = to;
}

// Whether it has any length.
unsigned leads(const CGPoint* cubic) {
  if (!(cubic[0] == cubic[3])) return 1;
  return cubic[0] == cubic[1] && cubic[0] == cubic[2] ? 0 : 1;
}

// Lists the segments of all contours with the points of each; gives how many places are taken.
std::size_t listSegments(const CGPath& path, const CGPoint* points, StrokeOutline& out) {
  const auto verbs = path.verbs();
  // A contour may be as short as a move, and gets a segment more than it has; nothing may move once
  // it is listed.
  const std::size_t most = 2 * verbs.size() + 8;
  if (out.curves.size() < most) out.curves.resize(2 * most);
  if (out.raised.size() < 4 * most) out.raised.resize(8 * most);
  out.listed.clear();
  const double** const curves = out.curves.data();
  CGPoint* raised = out.raised.data();
  const CGPoint* next = points;
  CGPoint start{};
  std::size_t count = 0;
  std::size_t verb = 0;
  std::size_t segment = 0;
  const auto finish = [&](std::size_t verbEnd) {
    if (verbEnd == 0) return;
    const std::size_t segments = count - segment;
    const bool isClosed = verbs[verbEnd - 1] == PathVerb::close;
    if (isClosed && segments > 0) curves[count++] = curves[segment];
    out.listed.push_back({start, segment, segments, isClosed, verbEnd - verb > 1});
  };
  for (std::size_t i = 0; i < verbs.size(); ++i) {
    switch (verbs[i]) {
      case PathVerb::move:
        finish(i);
        start = *next++;
        verb = i;
        segment = count;
        continue;
      case PathVerb::cubic:
        curves[count] = &next[-1].x;
        count += leads(next - 1);
        next += 3;
        continue;
      case PathVerb::quad: {
        const auto cubic = cubicOfQuad(next[-1], next[0], next[1]);
        std::copy_n(cubic.begin(), 4, raised);
        curves[count] = &raised->x;
        count += leads(raised);
        raised += 4;
        next += 2;
        continue;
      }
      case PathVerb::line:
        raise(next[-1], next[0], raised);
        ++next;
        break;
      case PathVerb::close:
        raise(next[-1], start, raised);
        break;
    }
    curves[count] = &raised->x;
    count += raised[0] == raised[3] ? 0 : 1;
    raised += 4;
  }
  finish(verbs.size());
  // Loops read whole eights.
  if (count > 0) std::fill_n(curves + count, 7, curves[count - 1]);
  return count;
}

std::array<CGPoint, 4> pointsOf(const double* c) {
  return {{{c[0], c[1]}, {c[2], c[3]}, {c[4], c[5]}, {c[6], c[7]}}};
}

// The direction in which a cubic leaves the first of its points; with a step of −1 the last one.
Vector directionFrom(const CGPoint* p, int step) {
  Vector d{};
  for (int k = 1; k <= 3; ++k) {
    d = {p[k * step].x - p->x, p[k * step].y - p->y};
    if (normalize(d)) break;
  }
  return d;
}

// Puts contours together from prepared segments.
class ContourWriter {
 public:
  // `room` is enough for the corners of all contours on either side.
  ContourWriter(const StrokePen& pen, double tolerance, std::size_t room, const Kernels& kernels)
      : pen_(pen),
        bent_(pen, tolerance),
        sidePen_{static_cast<float>(pen.half()), static_cast<float>(kSpareFold * tolerance)},
        kernels_(kernels),
        out_(pen.outline()),
        s_(out_.segments.lists()),
        room_(room) {}

  void write(const StrokeOutline::Listed& contour) {
    const std::size_t first = contour.segment;
    const std::size_t last = first + contour.segmentCount;
    if (first == last) {
      const bool isDisc = contour.isDot && pen_.capStyle() == CGLineCap::round;
      if (isDisc) pen_.disc({contour.start.x, contour.start.y});
    } else if (!contour.isClosed) {
      writeOpen(first, last, pen_.capStyle());
    } else if (isThereAndBack(contour)) {
      // Two joins of half a turn: a miter or bevel ends flat, a round join as a half disc.
      writeOpen(first, first + 1, pen_.foldStyle());
    } else {
      const std::size_t leftBegin = out_.left.count;
      const std::size_t rightBegin = out_.right.count;
      putSegments({first, last, last - 1, last}, true);
      out_.closeRings(leftBegin, rightBegin);
    }
  }

 private:
  Vector startOf(std::size_t i) const { return {out_.curves[i][0], out_.curves[i][1]}; }
  Vector startAlong(std::size_t i) const { return {s_.startAlongX[i], s_.startAlongY[i]}; }
  Vector endAlong(std::size_t i) const { return {s_.endAlongX[i], s_.endAlongY[i]}; }

  // A closed line of two points, which covers its own way back.
  bool isThereAndBack(const StrokeOutline::Listed& c) const {
    return c.segmentCount == 2 && s_.chords[c.segment] == 1 && s_.chords[c.segment + 1] == 1 &&
           dot(startAlong(c.segment), startAlong(c.segment + 1)) < -0.999999;
  }

  void writeOpen(std::size_t first, std::size_t last, CGLineCap cap) {
    const std::size_t leftBegin = out_.left.count;
    const std::size_t rightBegin = out_.right.count;
    pen_.across(startOf(first), startAlong(first));
    // There is no node at its end.
    putSegments({first, last - 1, first, last - 1}, true);
    putSegments({last - 1, last, last - 1 - (last - 1 > first ? 1 : 0), last - 1}, false);
    const double* end = out_.curves[last - 1] + 6;
    const Vector at{end[0], end[1]};
    pen_.across(at, endAlong(last - 1));
    out_.contours.push_back({leftBegin, out_.left.count, rightBegin, out_.right.count, false});
    pen_.cap(at, endAlong(last - 1), cap);
    pen_.cap(startOf(first), -startAlong(first), cap);
  }

  // Both sides of segments, each followed by its node or not.
  void putSegments(SegmentRange range, bool withNodes) {
    OutlineSide& left = out_.left;
    OutlineSide& right = out_.right;
    const bool oneByOne = withNodes && pen_.hasRoundJoins();
    const StrokeNode* nodes = withNodes && !oneByOne ? out_.segments.nodes().data() : nullptr;
    const std::size_t end = range.end;
    const std::size_t after = range.after;
    while (range.first < end) {
      left.makeRoom(room_);
      right.makeRoom(room_);
      SideEnds sides{left.endX(), left.endY(), right.endX(), right.endY()};
      range.end = oneByOne ? range.first + 1 : end;
      range.after = range.end == end ? after : range.end;
      const std::size_t reached = kernels_.putSides(s_, nodes, range, sidePen_, sides);
      left.endAt(sides.leftX);
      right.endAt(sides.rightX);
      const bool isBent = reached < range.end;
      if (isBent) putBent(reached, range);
      const std::size_t last = isBent ? reached : reached - 1;
      if (withNodes && (oneByOne || isBent)) putNode(last);
      range.first = last + 1;
      range.before = last;
    }
  }

  void putBent(std::size_t i, const SegmentRange& range) {
    const Fold<ContourWriter> fold(s_, i, sidePen_);
    const StrokePen::Hollow hollow = fold.isInsideTwice(range)    ? StrokePen::Hollow::backwards
                                     : fold.isPartlyInside(range) ? StrokePen::Hollow::leftOut
                                                                  : StrokePen::Hollow::drawn;
    bent_.draw(pointsOf(out_.curves[i]).data(),
               {startAlong(i), endAlong(i), s_.startReach[i], s_.endReach[i], hollow});
  }

  // The corners between a segment and the next one.
  void putNode(std::size_t i) {
    const StrokeNode& node = out_.segments.nodes()[i];
    if (pen_.hasRoundJoins() && node.left.count + node.right.count > 2) {
      const float reach = std::min(s_.endReach[i], s_.startReach[i + 1]);
      return pen_.join(startOf(i + 1), endAlong(i), startAlong(i + 1),
                       std::max(reach, sidePen_.half * NodePen::kNoise));
    }
    put(out_.left, node.left);
    put(out_.right, node.right);
  }

  static void put(OutlineSide& side, const NodeSide& corners) {
    side.makeRoom(4);
    // Four values each, whatever the fourth is.
    std::memcpy(side.x.data() + side.count, &corners, 4 * sizeof(float));
    std::memcpy(side.y.data() + side.count, corners.y, 4 * sizeof(float));
    side.count += static_cast<std::size_t>(corners.count);
  }

  const StrokePen& pen_;
  BentCurve bent_;
  SidePen sidePen_;
  const Kernels& kernels_;
  StrokeOutline& out_;
  const StrokeSegments& s_;
  std::size_t room_;
};

// Prepares all segments and what lies between neighbours; gives how many corners either side may
// take.
std::size_t prepare(const CGPath& path, const CGPoint* points, const StrokePen& pen,
                    const SegmentPen& segmentPen, const Kernels& kernels) {
  StrokeOutline& out = pen.outline();
  const std::size_t count = listSegments(path, points, out);
  const StrokeSegments& s = out.segments.roomFor(count);
  kernels.prepareSegments(out.curves.data(), count, segmentPen, s);
  std::size_t corners = 8 * count + 16;
  for (std::size_t i = 0; i < count; ++i) {
    corners += static_cast<std::size_t>(std::abs(s.chords[i]));
    if (s.chords[i] != 0) continue;
    // Its legs may tell nothing of where it leads.
    const std::array<CGPoint, 4> p = pointsOf(out.curves[i]);
    const Vector start = directionFrom(&p[0], 1);
    const Vector end = -directionFrom(&p[3], -1);
    s.startAlongX[i] = static_cast<float>(start.x);
    s.startAlongY[i] = static_cast<float>(start.y);
    s.endAlongX[i] = static_cast<float>(end.x);
    s.endAlongY[i] = static_cast<float>(end.y);
    s.startReach[i] = s.endReach[i] = 0;
  }
  kernels.joinSegments(s, count, pen.nodePen(), out.segments.nodeData());
  return corners;
}

// Where the pen's space is finest: at the outline's own origin, if that can be told.
CGPoint penOrigin(const StrokeOutline& out, const CGAffineTransform& toDevice,
                  const CGPoint& fallback) {
  const CGPoint origin =
      CGPointApplyAffineTransform({out.originX, out.originY}, CGAffineTransformInvert(toDevice));
  const CGPoint back = CGPointApplyAffineTransform(origin, toDevice);
  const bool isThere = std::abs(back.x - out.originX) < 1 && std::abs(back.y - out.originY) < 1;
  return isThere ? origin : fallback;
}

// From the pen's space to the device, each from its origin.
void mapCorners(OutlineSide& side, const CGAffineTransform& map) {
  for (std::size_t i = OutlineSide::kMargin; i < side.count; ++i) {
    const CGPoint p = CGPointApplyAffineTransform({side.x[i], side.y[i]}, map);
    side.x[i] = static_cast<float>(p.x);
    side.y[i] = static_cast<float>(p.y);
  }
}

}  // namespace

void strokeOutline(const CGPath& path, const std::vector<CGPoint>& points, const Stroke& stroke,
                   const Kernels& kernels, StrokeOutline& out) {
  out.clear();
  if (path.isEmpty()) return;
  const bool onDevice = stroke.toDevice == CGAffineTransformIdentity;
  const CGPoint origin =
      onDevice ? CGPoint{out.originX, out.originY} : penOrigin(out, stroke.toDevice, points[0]);
  const StrokePen pen(std::min(stroke.width, kWidest), stroke.style, stroke.tolerance, origin, out);
  const SegmentPen segmentPen{origin.x, origin.y, static_cast<float>(pen.half()),
                              static_cast<float>(6.0 / 8.0 / stroke.tolerance),
                              static_cast<float>(pen.half() / (8 * stroke.tolerance))};
  const std::size_t room = prepare(path, points.data(), pen, segmentPen, kernels);
  ContourWriter writer(pen, stroke.tolerance, room, kernels);
  for (const StrokeOutline::Listed& contour : out.listed) writer.write(contour);
  if (onDevice) return;
  CGAffineTransform map = stroke.toDevice;
  const CGPoint moved = CGPointApplyAffineTransform(origin, map);
  map.tx = moved.x - out.originX;
  map.ty = moved.y - out.originY;
  mapCorners(out.left, map);
  mapCorners(out.right, map);
}

}  // namespace glyphwright::raster
