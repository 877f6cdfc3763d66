#include <glyphwright/platform/raster/stroke.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <numeric>

#include <glyphwright/platform/raster/careful_stroke.h>
#include <glyphwright/platform/raster/stroke_pen.h>

// Nearly all strokes are drawn with the loops: all segments are listed as cubics and prepared, then
// the corners between neighbours are worked out, and then each contour is put together. Contours
// that are out of the ordinary, and pens that are no circles on the device, are followed with care.
namespace glyphwright::raster {
namespace {

using namespace pen;

// A wider pen is beyond all pictures, and its corners would leave the floats' range.
constexpr double kWidestHalf = 1e9;

// A line as a cubic.
void raise(const CGPoint& from, const CGPoint& to, CGPoint* cubic) {
  cubic[0] = from;
  cubic[1] = {(2 * from.x + to.x) * (1.0 / 3), (2 * from.y + to.y) * (1.0 / 3)};
  cubic[2] = {(from.x + 2 * to.x) * (1.0 / 3), (from.y + 2 * to.y) * (1.0 / 3)};
  cubic[3] = to;
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
  StrokeOutline::Listed contour{};
  const auto finish = [&](std::size_t verbEnd) {
    if (verbEnd == 0) return;
    contour.verbEnd = verbEnd;
    contour.segmentCount = count - contour.segment;
    contour.isClosed = verbs[verbEnd - 1] == PathVerb::close;
    if (contour.isClosed && contour.segmentCount > 0) curves[count++] = curves[contour.segment];
    out.listed.push_back(contour);
  };
  for (std::size_t i = 0; i < verbs.size(); ++i) {
    const PathVerb verb = verbs[i];
    if (verb == PathVerb::move) {
      finish(i);
      start = *next;
      contour = {i, i, static_cast<std::size_t>(next - points), count, 0, false};
      ++next;
      continue;
    }
    if (verb == PathVerb::cubic) {
      curves[count++] = &next[-1].x;
      next += 3;
      continue;
    }
    // A line, the way back to the start or a quadratic is raised, and kept if it leads anywhere.
    const CGPoint& from = next[-1];
    const std::size_t pointTotal = pointCount(verb);
    if (verb == PathVerb::quad) {
      const auto cubic = cubicOfQuad(from, next[0], next[1]);
      std::copy_n(cubic.begin(), 4, raised);
    } else {
      raise(from, *(verb == PathVerb::close ? &start : next), raised);
    }
    const auto leads = static_cast<unsigned>(!(raised[0] == raised[3])) |
                       static_cast<unsigned>(verb == PathVerb::quad);
    curves[count] = &raised->x;
    count += leads;
    raised += 4;
    next += pointTotal;
  }
  finish(verbs.size());
  // Loops read whole eights.
  if (count > 0) std::fill_n(curves + count, 7, curves[count - 1]);
  return count;
}

// How many chords a curve takes that may bend more tightly than the pen: more than others, as what
// bends and what turns it are counted one by one.
int chordsOfBent(const StrokeCubic& c, const SegmentPen& pen) {
  const Vector bend{c.bendX, c.bendY};
  const Vector bendOn = bend + Vector{c.changeX, c.changeY};
  const Vector first{c.legX, c.legY};
  Vector legs[] = {first, first + bend, first + bend + bendOn};
  for (Vector& leg : legs) normalize(leg);
  const double turn = turnBetween(legs[0], legs[1]) + turnBetween(legs[1], legs[2]);
  const double mean = std::sqrt(0.5 * (dot(bend, bend) + dot(bendOn, bendOn)));
  const double wanted = std::sqrt(mean * pen.bendFactor) + turn * std::sqrt(pen.turnFactor);
  // In this order NaN gives the most, too.
  return static_cast<int>(std::min(kMaxChords - 1.0, wanted)) + 1;
}

// Puts contours together from prepared segments.
class ContourWriter {
 public:
  ContourWriter(const StrokePen& pen, const SegmentPen& segmentPen, std::size_t segmentCount,
                const Kernels& kernels)
      : pen_(pen),
        segmentPen_(segmentPen),
        kernels_(kernels),
        out_(pen.outline()),
        s_(out_.segments.lists()) {
    const auto chords = std::accumulate(s_.chords, s_.chords + segmentCount, std::size_t{0},
                                        [](std::size_t sum, int number) {
                                          return sum + static_cast<std::size_t>(std::abs(number));
                                        });
    room_ = chords + 4 * segmentCount + 16;
  }

  /// False, with nothing drawn, when the contour needs care.
  bool write(const StrokeOutline::Listed& contour) {
    const std::size_t first = contour.segment;
    const std::size_t last = first + contour.segmentCount;
    const auto needsCare = [](std::int32_t chords) { return chords == 0; };
    if (first == last || std::any_of(s_.chords + first, s_.chords + last, needsCare) ||
        isThereAndBack(contour)) {
      return false;
    }
    const std::size_t leftBegin = out_.left.count;
    const std::size_t rightBegin = out_.right.count;
    if (!contour.isClosed) pen_.across(startOf(first), startAlong(first));
    // An open one has no node at its end.
    putSegments(first, contour.isClosed ? last : last - 1, true);
    if (contour.isClosed) {
      out_.closeRings(leftBegin, rightBegin);
      return true;
    }
    putSegments(last - 1, last, false);
    const double* end = out_.curves[last - 1] + 6;
    const Vector at{end[0], end[1]};
    pen_.across(at, endAlong(last - 1));
    out_.contours.push_back({leftBegin, out_.left.count, rightBegin, out_.right.count, false});
    pen_.cap(at, endAlong(last - 1), pen_.capStyle());
    pen_.cap(startOf(first), -startAlong(first), pen_.capStyle());
    return true;
  }

 private:
  Vector startOf(std::size_t i) const { return {out_.curves[i][0], out_.curves[i][1]}; }
  Vector startAlong(std::size_t i) const { return {s_.startAlongX[i], s_.startAlongY[i]}; }
  Vector endAlong(std::size_t i) const { return {s_.endAlongX[i], s_.endAlongY[i]}; }

  // A closed line of two points, which covers its own way back.
  bool isThereAndBack(const StrokeOutline::Listed& c) const {
    return c.isClosed && c.segmentCount == 2 && s_.chords[c.segment] == 1 &&
           s_.chords[c.segment + 1] == 1 &&
           dot(startAlong(c.segment), startAlong(c.segment + 1)) < -0.999999;
  }

  // Both sides of segments, each followed by its node or not.
  void putSegments(std::size_t first, std::size_t end, bool withNodes) {
    OutlineSide& left = out_.left;
    OutlineSide& right = out_.right;
    const bool oneByOne = withNodes && pen_.hasRoundJoins();
    const StrokeNode* nodes = withNodes && !oneByOne ? out_.segments.nodes().data() : nullptr;
    while (first < end) {
      left.makeRoom(room_);
      right.makeRoom(room_);
      SideEnds sides{left.endX(), left.endY(), right.endX(), right.endY()};
      const std::size_t until = oneByOne ? first + 1 : end;
      const std::size_t reached =
          kernels_.putSides(s_, nodes, first, until, segmentPen_.half, sides);
      left.endAt(sides.leftX);
      right.endAt(sides.rightX);
      first = reached;
      if (reached < until) putBent(first++);
      if (withNodes && (oneByOne || reached < until)) putNode(first - 1);
    }
  }

  void putBent(std::size_t i) {
    const int chords = chordsOfBent(s_.cubics[i], segmentPen_);
    const std::size_t samples = static_cast<std::size_t>(chords) + 16;
    const std::size_t corners = 3 * static_cast<std::size_t>(chords) + 16;
    std::vector<float>& memory = out_.bent;
    if (memory.size() < 4 * (samples + corners)) memory.resize(4 * (samples + corners));
    float* sample = memory.data();
    float* corner = sample + 4 * samples;
    BentCurve bent{sample, sample + samples, sample + 2 * samples, sample + 3 * samples,
                   corner, corner + corners, corner + 2 * corners, corner + 3 * corners};
    kernels_.bendCurve(s_.cubics[i], segmentPen_.half, chords, bent);
    out_.left.put(bent.leftX, bent.leftY, bent.leftCount);
    out_.right.put(bent.rightX, bent.rightY, bent.rightCount);
  }

  // The corners between a segment and the next one.
  void putNode(std::size_t i) {
    const StrokeNode& node = out_.segments.nodes()[i];
    if (pen_.hasRoundJoins() && node.left.count + node.right.count > 2) {
      pen_.join(startOf(i + 1), {endAlong(i), {endAlong(i), s_.endLength[i]}, false},
                {startAlong(i + 1), {startAlong(i + 1), s_.startLength[i + 1]}, false});
      return;
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
  const SegmentPen& segmentPen_;
  const Kernels& kernels_;
  StrokeOutline& out_;
  const StrokeSegments& s_;
  std::size_t room_;  // enough for the corners of all contours on either side
};

// All segments and what lies between neighbours; gives how many places they take.
std::size_t prepare(const StrokePen& pen, const SegmentPen& segmentPen, const CGPath& path,
                    const CGPoint* points, const Kernels& kernels) {
  StrokeOutline& out = pen.outline();
  const std::size_t count = listSegments(path, points, out);
  const StrokeSegments& segments = out.segments.roomFor(count);
  kernels.prepareSegments(out.curves.data(), count, segmentPen, segments);
  kernels.joinSegments(segments, count, pen.nodePen(), out.segments.nodeData());
  return count;
}

void drawCarefully(const CGPath& path, const CGPoint* points, const StrokePen& pen,
                   double tolerance) {
  const auto verbs = path.verbs();
  for (std::size_t begin = 0; begin < verbs.size();) {
    std::size_t end = begin + 1;
    std::size_t count = pointCount(verbs[begin]);
    for (; end < verbs.size() && verbs[end] != PathVerb::move; ++end)
      count += pointCount(verbs[end]);
    strokeCarefully(verbs.subspan(begin, end - begin), points, pen, tolerance);
    points += count;
    begin = end;
  }
}

}  // namespace

void strokeOutline(const CGPath& path, const std::vector<CGPoint>& points, const Stroke& stroke,
                   const Kernels& kernels, StrokeOutline& out) {
  out.clear();
  const StrokePen pen(stroke.width, stroke.style, stroke.tolerance, stroke.toDevice, out);
  const bool onDevice = stroke.toDevice == CGAffineTransformIdentity;
  if (!onDevice || !(pen.half() < kWidestHalf)) {
    return drawCarefully(path, points.data(), pen, stroke.tolerance);
  }
  const SegmentPen segmentPen{out.originX, out.originY, static_cast<float>(pen.half()),
                              static_cast<float>(6.0 / 8.0 / stroke.tolerance),
                              static_cast<float>(pen.half() / (8 * stroke.tolerance))};
  const std::size_t count = prepare(pen, segmentPen, path, points.data(), kernels);
  ContourWriter writer(pen, segmentPen, count, kernels);
  for (const StrokeOutline::Listed& contour : out.listed) {
    if (writer.write(contour)) continue;
    strokeCarefully(path.verbs().subspan(contour.verb, contour.verbEnd - contour.verb),
                    points.data() + contour.point, pen, stroke.tolerance);
  }
}

}  // namespace glyphwright::raster
