#include <glyphwright/platform/layers/path_trimming.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <utility>

#include <glyphwright/platform/math.h>

namespace glyphwright {
namespace {

// Each curve is measured in this many pieces of equal parameter; a piece's length is taken halfway
// between its chord and its control polygon, which is wrong by the fourth power of its share.
constexpr std::size_t kPieces = 32;

CGPoint between(CGPoint a, CGPoint b, CGFloat t) {
  return {a.x * (1 - t) + b.x * t, a.y * (1 - t) + b.y * t};
}

CGFloat distance(CGPoint a, CGPoint b) {
  return math::hypot(b.x - a.x, b.y - a.y);
}

struct Cubic {
  CGPoint p0, p1, p2, p3;
};

// The parts of a curve before and after a parameter.
std::pair<Cubic, Cubic> split(const Cubic& curve, CGFloat t) {
  const CGPoint a = between(curve.p0, curve.p1, t);
  const CGPoint b = between(curve.p1, curve.p2, t);
  const CGPoint c = between(curve.p2, curve.p3, t);
  const CGPoint ab = between(a, b, t);
  const CGPoint bc = between(b, c, t);
  const CGPoint middle = between(ab, bc, t);
  return {{curve.p0, a, ab, middle}, {middle, bc, c, curve.p3}};
}

// The curve between two parameters, its ends exact at 0 and 1.
Cubic cut(const Cubic& curve, CGFloat from, CGFloat to) {
  const Cubic right = from == 0 ? curve : split(curve, from).second;
  return to == 1 ? right : split(right, (to - from) / (1 - from)).first;
}

// The lengths from the start of a curve to the end of each piece.
using LengthTable = std::array<CGFloat, kPieces>;

LengthTable measured(const Cubic& cubic) {
  LengthTable table{};
  CGFloat sum = 0;
  for (std::size_t i = 0; i < kPieces; ++i) {
    constexpr auto pieces = static_cast<CGFloat>(kPieces);
    const Cubic piece =
        cut(cubic, static_cast<CGFloat>(i) / pieces, static_cast<CGFloat>(i + 1) / pieces);
    const CGFloat polygon =
        distance(piece.p0, piece.p1) + distance(piece.p1, piece.p2) + distance(piece.p2, piece.p3);
    sum += (polygon + distance(piece.p0, piece.p3)) * 0.5;
    table[i] = sum;
  }
  return table;
}

// The parameter at a length from the start, as if each piece were run through evenly.
CGFloat evenParameterAt(const LengthTable& table, CGFloat length) {
  const auto piece = std::lower_bound(table.begin(), table.end(), length);
  if (piece == table.end()) return 1;
  const CGFloat before = piece == table.begin() ? 0 : *(piece - 1);
  const CGFloat share = *piece > before ? (length - before) / (*piece - before) : 1;
  return (static_cast<CGFloat>(piece - table.begin()) + share) / static_cast<CGFloat>(kPieces);
}

// The same, with the piece that the length falls into measured in pieces once more.
CGFloat parameterAt(const Cubic& cubic, const LengthTable& table, CGFloat length) {
  const auto piece = std::lower_bound(table.begin(), table.end(), length);
  if (piece == table.end()) return 1;
  const CGFloat before = piece == table.begin() ? 0 : *(piece - 1);
  constexpr auto pieces = static_cast<CGFloat>(kPieces);
  const auto index = static_cast<CGFloat>(piece - table.begin());
  const LengthTable fine = measured(cut(cubic, index / pieces, (index + 1) / pieces));
  return (index + evenParameterAt(fine, length - before)) / pieces;
}

// One element after the move that starts its subpath; a close is the edge back to the start.
struct Segment {
  PathVerb verb;
  CGPoint from;
  std::array<CGPoint, 3> points;  // as many as the verb carries; for a close, the start

  CGPoint end() const { return points[verb == PathVerb::close ? 0 : pointCount(verb) - 1]; }

  Cubic cubic() const {
    if (verb == PathVerb::cubic) return {from, points[0], points[1], points[2]};
    const auto raised = cubicOfQuad(from, points[0], points[1]);
    return {raised[0], raised[1], raised[2], raised[3]};
  }
  bool isCurve() const { return verb == PathVerb::cubic || verb == PathVerb::quad; }
  CGFloat length() const { return isCurve() ? measured(cubic()).back() : distance(from, end()); }
};

// Calls `move(point)` and `segment(segment)` for each element in order.
template <typename OnMove, typename OnSegment>
void forEachSegment(const CGPath& path, OnMove onMove, OnSegment onSegment) {
  const CGPoint* points = path.points().data();
  CGPoint current;
  CGPoint start;
  for (const PathVerb verb : path.verbs()) {
    if (verb == PathVerb::move) {
      current = start = *points++;
      onMove(current);
      continue;
    }
    Segment segment{verb, current, {start}};
    for (std::size_t i = 0; i < pointCount(verb); ++i) segment.points[i] = *points++;
    onSegment(segment);
    current = segment.end();
  }
}

// Appends the part of a segment between two lengths from its start.
void addPart(CGPath& path, const Segment& segment, CGFloat length, CGFloat from, CGFloat to,
             bool pending) {
  if (!segment.isCurve()) {
    if (pending)
      path.moveToPoint(from > 0 ? between(segment.from, segment.end(), from / length)
                                : segment.from);
    path.addLineToPoint(to < length ? between(segment.from, segment.end(), to / length)
                                    : segment.end());
    return;
  }
  const Cubic cubic = segment.cubic();
  const LengthTable table = measured(cubic);
  const Cubic part = cut(cubic, from > 0 ? parameterAt(cubic, table, from) : 0,
                         to < length ? parameterAt(cubic, table, to) : 1);
  if (pending) path.moveToPoint(part.p0);
  path.addCurveToPoint(part.p3, part.p1, part.p2);
}

}  // namespace

CGFloat pathLength(const CGPath& path) {
  CGFloat sum = 0;
  forEachSegment(
      path, [](CGPoint) {}, [&](const Segment& s) { sum += s.length(); });
  return sum;
}

CGPath trimmedPath(const CGPath& path, CGFloat start, CGFloat end) {
  const CGFloat first = start > 0 ? std::min(start, 1.0) : 0;
  const CGFloat last = end > 0 ? std::min(end, 1.0) : 0;
  if (first == 0 && last == 1) return path;
  CGPath result;
  const CGFloat total = pathLength(path);
  if (first >= last || !std::isfinite(total)) return result;
  const CGFloat from = first * total;
  const CGFloat to = last * total;

  CGFloat at = 0;       // length up to the present segment
  bool pending = true;  // no move yet for what is being added
  bool whole = false;   // nothing of the present subpath has been cut off so far
  forEachSegment(
      path,
      [&](CGPoint) {
        pending = true;
        whole = true;
      },
      [&](const Segment& segment) {
        const CGFloat length = segment.length();
        const CGFloat segmentEnd = at + length;
        const bool inside = at >= from && segmentEnd <= to;
        if (inside && whole && segment.verb == PathVerb::close && !pending) {
          result.closeSubpath();
        } else if (length > 0 ? segmentEnd > from && at < to : inside && whole) {
          // Ends that are not cut stay to the bit.
          addPart(result, segment, length, at < from ? from - at : 0,
                  segmentEnd > to ? to - at : length, pending);
          pending = false;
        }
        whole = whole && inside;
        at = segmentEnd;
      });
  return result;
}

}  // namespace glyphwright
