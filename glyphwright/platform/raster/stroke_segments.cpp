#include <glyphwright/platform/raster/stroke_segments.h>

#include <algorithm>

namespace glyphwright::raster {
namespace {

// A line as a cubic.
void raise(const CGPoint& from, const CGPoint& to, CGPoint* cubic) {
  cubic[0] = from;
  cubic[1] = {(2 * from.x + to.x) * (1.0 / 3), (2 * from.y + to.y) * (1.0 / 3)};
  cubic[2] = {(from.x + 2 * to.x) * (1.0 / 3), (from.y + 2 * to.y) * (1.0 / 3)};
  cubic[3] = to;
}

// One look at both coordinates: that one of them is the same says little.
bool isSame(const CGPoint& a, const CGPoint& b) {
  return (static_cast<unsigned>(a.x == b.x) & static_cast<unsigned>(a.y == b.y)) != 0;
}

// Whether it has any length.
unsigned leads(const CGPoint* cubic) {
  if (!isSame(cubic[0], cubic[3])) return 1;
  return isSame(cubic[0], cubic[1]) && isSame(cubic[0], cubic[2]) ? 0 : 1;
}

}  // namespace

PathStretch PathStretch::takeContours(std::size_t most) {
  std::size_t end = 0;
  std::size_t pointEnd = 0;
  std::size_t at = 0;  // point
  for (std::size_t i = 0; i <= verbs.size(); ++i) {
    if (i == verbs.size() || (i > 0 && verbs[i] == PathVerb::move)) {
      if (end > 0 && i > most) break;
      end = i;
      pointEnd = at;
      if (end >= most) break;
    }
    if (i < verbs.size()) at += pointCount(verbs[i]);
  }
  const PathStretch taken{verbs.first(end), points};
  verbs = verbs.subspan(end);
  points += pointEnd;
  return taken;
}

std::size_t listSegments(const PathStretch& contours, StrokeOutline& out) {
  const auto verbs = contours.verbs;
  // A contour may be as short as a move, and gets a segment more than it has; nothing may move once
  // it is listed.
  const std::size_t most = 2 * verbs.size() + 8;
  if (out.curves.size() < most) out.curves.resize(2 * most);
  if (out.raised.size() < 4 * most) out.raised.resize(8 * most);
  out.listed.clear();
  const double** const curves = out.curves.data();
  CGPoint* raised = out.raised.data();
  const CGPoint* next = contours.points;
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
    count += isSame(raised[0], raised[3]) ? 0 : 1;
    raised += 4;
  }
  finish(verbs.size());
  // Loops read whole eights.
  if (count > 0) std::fill_n(curves + count, 7, curves[count - 1]);
  return count;
}

bool SegmentReader::read(CGPoint* cubic) {
  while (next_ != end_) {
    const PathVerb verb = *next_++;
    switch (verb) {
      case PathVerb::move:
        continue;
      case PathVerb::line:
        raise(point_[-1], point_[0], cubic);
        ++point_;
        break;
      case PathVerb::quad: {
        const auto raised = cubicOfQuad(point_[-1], point_[0], point_[1]);
        std::copy_n(raised.begin(), 4, cubic);
        point_ += 2;
        break;
      }
      case PathVerb::cubic:
        std::copy_n(point_ - 1, 4, cubic);
        point_ += 3;
        break;
      case PathVerb::close:
        raise(point_[-1], start_, cubic);
        break;
    }
    const bool isLine = verb == PathVerb::line || verb == PathVerb::close;
    if (isLine ? !isSame(cubic[0], cubic[3]) : leads(cubic) != 0) return true;
  }
  return false;
}

}  // namespace glyphwright::raster
