#include <glyphwright/platform/raster/stroke.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>

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

// Lists the segments of all contours with the points of each.
class SegmentLister {
 public:
  SegmentLister(const CGPath& path, const CGPoint* points, StrokeOutline& out)
      : path_(path), points_(points), out_(out) {
    // A contour may be as short as a move, and gets a segment more than it has; nothing may move
    // once it is listed.
    const std::size_t most = 2 * path.verbs().size() + 1;
    if (out.curves.size() < most) out.curves.resize(2 * most);
    if (out.raised.size() < 4 * most) out.raised.resize(8 * most);
    out.listed.clear();
  }

  /// Gives how many places in the lists are taken.
  std::size_t run() {
    const auto verbs = path_.verbs();
    for (std::size_t i = 0; i < verbs.size(); ++i) {
      const PathVerb verb = verbs[i];
      if (verb == PathVerb::move) {
        finish(i);
        begin(i);
        continue;
      }
      // Which of the others is a curve nobody can foretell: all are raised, and only those that are
      // none are kept.
      const CGPoint* const at = points_ + next_;
      const std::size_t count = pointCount(verb);
      const bool isCubic = verb == PathVerb::cubic;
      const CGPoint end = verb == PathVerb::close ? start_ : at[count - 1];
      CGPoint* const raised = out_.raised.data() + raised_;
      raise(at[-1], end, raised);
      if (verb == PathVerb::quad) {
        const auto cubic = cubicOfQuad(at[-1], at[0], at[1]);
        std::copy_n(cubic.begin(), 4, raised);
      }
      out_.curves[count_] = isCubic ? &at[-1].x : &raised->x;
      const bool isSegment = isCubic || verb == PathVerb::quad || !(at[-1] == end);
      count_ += isSegment ? 1 : 0;
      raised_ += isCubic ? 0 : 4;
      next_ += count;
    }
    finish(verbs.size());
    return count_;
  }

 private:
  static void raise(const CGPoint& from, const CGPoint& to, CGPoint* cubic) {
    cubic[0] = from;
    cubic[1] = {(2 * from.x + to.x) * (1.0 / 3), (2 * from.y + to.y) * (1.0 / 3)};
    cubic[2] = {(from.x + 2 * to.x) * (1.0 / 3), (from.y + 2 * to.y) * (1.0 / 3)};
    cubic[3] = to;
  }

  void begin(std::size_t verb) {
    start_ = points_[next_];
    out_.listed.push_back({verb, verb, next_, count_, 0, false});
    ++next_;
  }

  void finish(std::size_t verbEnd) {
    if (out_.listed.empty()) return;
    StrokeOutline::Listed& contour = out_.listed.back();
    contour.verbEnd = verbEnd;
    contour.segmentCount = count_ - contour.segment;
    contour.isClosed = path_.verbs()[verbEnd - 1] == PathVerb::close;
    if (contour.isClosed && contour.segmentCount > 0) {
      out_.curves[count_++] = out_.curves[contour.segment];
    }
  }

  const CGPath& path_;
  const CGPoint* points_;
  StrokeOutline& out_;
  CGPoint start_{};
  std::size_t next_ = 0;  // point
  std::size_t count_ = 0;
  std::size_t raised_ = 0;
};

// Puts contours together from prepared segments.
class ContourWriter {
 public:
  ContourWriter(const StrokePen& pen, const Kernels& kernels)
      : pen_(pen),
        kernels_(kernels),
        out_(pen.outline()),
        s_(out_.segments.lists()),
        half_(static_cast<float>(pen.half())) {}

  /// False, with nothing drawn, when the contour needs care.
  bool write(const StrokeOutline::Listed& contour) {
    const std::size_t first = contour.segment;
    const std::size_t last = first + contour.segmentCount;
    const auto needsCare = [](std::int32_t bentChords) { return bentChords == 0; };
    if (first == last || std::any_of(s_.bentChords + first, s_.bentChords + last, needsCare) ||
        isThereAndBack(contour)) {
      return false;
    }
    const std::size_t leftBegin = out_.left.count;
    const std::size_t rightBegin = out_.right.count;
    if (!contour.isClosed) pen_.across(startOf(first), startAlong(first));
    const std::size_t nodes = contour.isClosed ? last : last - 1;
    for (std::size_t i = first; i < nodes; ++i) {
      putInside(i);
      putNode(i);
    }
    if (contour.isClosed) {
      out_.closeRings(leftBegin, rightBegin);
      return true;
    }
    putInside(last - 1);
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

  // What both sides have between the ends of a segment.
  void putInside(std::size_t i) {
    const int chords = s_.chords[i];
    if (chords == 1) return;
    const int count = std::abs(chords);
    OutlineSide& left = out_.left;
    OutlineSide& right = out_.right;
    left.makeRoom(static_cast<std::size_t>(count) + 8);
    right.makeRoom(static_cast<std::size_t>(count) + 8);
    const StrokeCubic& cubic = s_.cubics[i];
    const PenBend bend =
        kernels_.strokeCurve(cubic, half_, count,
                             {left.x.data() + left.count, left.y.data() + left.count,
                              right.x.data() + right.count, right.y.data() + right.count});
    const std::size_t inner = static_cast<std::size_t>(count) - 1;
    // What is known of the start is known long before what the samples tell.
    if (chords > 0 && bend == PenBend::follows) {
      left.count += inner;
      right.count += inner;
    } else if (bend == PenBend::foldsLeft || bend == PenBend::foldsRight) {
      const bool isLeft = bend == PenBend::foldsLeft;
      putFold(cubic, isLeft ? left : right);
      (isLeft ? right : left).count += inner;
    } else {
      putBent(i);
    }
  }

  // A side that would run backwards all along is led through the middle of its curve instead.
  static void putFold(const StrokeCubic& c, OutlineSide& side) {
    const auto middle = [](float start, float leg, float bend, float change) {
      return ((change * 0.5F + 3.0F * bend) * 0.5F + 3.0F * leg) * 0.5F + start;
    };
    side.put(middle(c.startX, c.legX, c.bendX, c.changeX),
             middle(c.startY, c.legY, c.bendY, c.changeY));
  }

  void putBent(std::size_t i) {
    const int chords = s_.bentChords[i];
    const std::size_t samples = static_cast<std::size_t>(chords) + 16;
    const std::size_t corners = 3 * static_cast<std::size_t>(chords) + 16;
    std::vector<float>& memory = out_.bent;
    if (memory.size() < 4 * (samples + corners)) memory.resize(4 * (samples + corners));
    float* sample = memory.data();
    float* corner = sample + 4 * samples;
    BentCurve bent{sample, sample + samples, sample + 2 * samples, sample + 3 * samples,
                   corner, corner + corners, corner + 2 * corners, corner + 3 * corners};
    kernels_.bendCurve(s_.cubics[i], half_, chords, bent);
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
  const Kernels& kernels_;
  StrokeOutline& out_;
  const StrokeSegments& s_;
  float half_;
};

// All segments and what lies between neighbours.
void prepare(const StrokePen& pen, double tolerance, const CGPath& path, const CGPoint* points,
             const Kernels& kernels) {
  StrokeOutline& out = pen.outline();
  const std::size_t count = SegmentLister(path, points, out).run();
  if (count == 0) return;
  const StrokeSegments& segments = out.segments.roomFor(count);
  kernels.prepareSegments(
      out.curves.data(), count,
      {out.originX, out.originY, static_cast<float>(pen.half()),
       static_cast<float>(6.0 / 8.0 / tolerance), static_cast<float>(pen.half() / (8 * tolerance))},
      segments);
  kernels.joinSegments(segments, count, pen.nodePen(), out.segments.nodeData());
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
  prepare(pen, stroke.tolerance, path, points.data(), kernels);
  ContourWriter writer(pen, kernels);
  for (const StrokeOutline::Listed& contour : out.listed) {
    if (writer.write(contour)) continue;
    strokeCarefully(path.verbs().subspan(contour.verb, contour.verbEnd - contour.verb),
                    points.data() + contour.point, pen, stroke.tolerance);
  }
}

}  // namespace glyphwright::raster
