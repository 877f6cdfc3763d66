#include <glyphwright/platform/raster/careful_stroke.h>

#include <glyphwright/platform/raster/careful_curve.h>

namespace glyphwright::raster {
namespace {

using namespace pen;

// Walks along a contour. Each segment draws the sides between its ends; the node between two of
// them is drawn when the second one is known.
class Stroker {
 public:
  Stroker(const StrokePen& pen, double tolerance, Vector start)
      : pen_(pen),
        out_(pen.outline()),
        curve_(pen, tolerance),
        start_(start),
        current_(start),
        leftBegin_(out_.left.count),
        rightBegin_(out_.right.count) {}

  void lineTo(Vector to) {
    hadSegment_ = true;
    const Leg leg = legBetween(current_, to);
    if (!leg.hasDirection()) return;
    const SegmentEnd end{leg.along, leg, false};
    beginSegment(end);
    ++lines_;
    lineStart_ = current_;
    endSegment(end, to);
  }

  void curveTo(const CGPoint& from, const CGPoint& control1, const CGPoint& control2,
               const CGPoint& to) {
    hadSegment_ = true;
    if (!curve_.begin(from, control1, control2, to)) return;
    beginSegment(curve_.start());
    curve_.draw();
    endSegment(curve_.end(), {to.x, to.y});
  }

  void finish(bool closed) {
    if (closed && length(start_ - current_) > 0) lineTo(start_);
    if (segments_ == 0) {
      if (hadSegment_ && pen_.capStyle() == CGLineCap::round) pen_.disc(current_);
    } else if (closed && isThereAndBack()) {
      // Two joins of half a turn: a miter or bevel ends flat, a round join as a half disc.
      out_.left.count = leftBegin_ + 1;
      out_.right.count = rightBegin_ + 1;
      current_ = lineStart_;
      last_ = first_;
      finishOpen(pen_.foldStyle());
    } else if (closed) {
      pen_.join(start_, last_, first_);
      out_.closeRings(leftBegin_ + 1, rightBegin_ + 1);
    } else {
      finishOpen(pen_.capStyle());
    }
  }

 private:
  void beginSegment(const SegmentEnd& start) {
    if (segments_++ > 0) {
      pen_.join(current_, last_, start);
      return;
    }
    first_ = start;
    // The corners of the start, in case that the contour stays open.
    pen_.across(start_, start.direction);
  }

  void endSegment(const SegmentEnd& end, Vector at) {
    last_ = end;
    current_ = at;
  }

  // A closed line of two points, which covers its own way back.
  bool isThereAndBack() const {
    return segments_ == 2 && lines_ == 2 && dot(first_.direction, last_.direction) < -0.999999;
  }

  void finishOpen(CGLineCap style) {
    pen_.across(current_, last_.direction);
    out_.contours.push_back({leftBegin_, out_.left.count, rightBegin_, out_.right.count, false});
    pen_.cap(current_, last_.direction, style);
    pen_.cap(start_, -first_.direction, style);
  }

  const StrokePen& pen_;
  StrokeOutline& out_;
  CarefulCurve curve_;
  Vector start_;
  Vector current_;
  Vector lineStart_;  // of the last line
  SegmentEnd first_;  // where the contour begins, and where its last segment ends
  SegmentEnd last_;
  std::size_t leftBegin_;
  std::size_t rightBegin_;
  int segments_ = 0;
  int lines_ = 0;
  bool hadSegment_ = false;
};

}  // namespace

void strokeCarefully(std::span<const PathVerb> verbs, const CGPoint* points, const StrokePen& pen,
                     double tolerance) {
  Stroker stroker(pen, tolerance, {points->x, points->y});
  const CGPoint* next = points + 1;
  bool isClosed = false;
  for (const PathVerb verb : verbs.subspan(1)) {
    const std::size_t count = pointCount(verb);
    switch (verb) {
      case PathVerb::move:
        break;
      case PathVerb::line:
        stroker.lineTo({next->x, next->y});
        break;
      case PathVerb::quad: {
        const auto cubic = cubicOfQuad(next[-1], next[0], next[1]);
        stroker.curveTo(cubic[0], cubic[1], cubic[2], cubic[3]);
        break;
      }
      case PathVerb::cubic:
        stroker.curveTo(next[-1], next[0], next[1], next[2]);
        break;
      case PathVerb::close:
        isClosed = true;
        break;
    }
    next += count;
  }
  stroker.finish(isClosed);
}

}  // namespace glyphwright::raster
