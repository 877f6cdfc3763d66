#include <glyphwright/platform/raster/stroke.h>

#include <glyphwright/platform/raster/stroke_curves.h>
#include <glyphwright/platform/raster/stroke_pen.h>

namespace glyphwright::raster {
namespace {

using namespace pen;

// Walks along a path, segment by segment. Each segment draws the sides between its ends; the node
// between two of them is drawn when the second one is known.
class Stroker {
 public:
  Stroker(const StrokePen& pen, double tolerance, const Kernels* kernels)
      : pen_(pen), out_(pen.outline()), curves_(pen, tolerance, kernels) {
    curves_.prepare();
  }

  void moveTo(Vector at) {
    finish(false);
    start_ = current_ = at;
    open_ = true;
    hadSegment_ = false;
  }

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

  // Along a curve that the outline lists.
  void curveTo(std::size_t index, Vector to) {
    hadSegment_ = true;
    if (!curves_.begin(index)) return;
    beginSegment(curves_.start());
    curves_.draw();
    endSegment(curves_.end(), to);
  }

  void close() {
    if (!open_) return;
    if (length(start_ - current_) > 0) lineTo(start_);
    finish(true);
  }

  void finish(bool closed) {
    if (!open_) return;
    open_ = false;
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
      out_.contours.push_back(
          {leftBegin_ + 1, out_.left.count, rightBegin_ + 1, out_.right.count, true});
    } else {
      finishOpen(pen_.capStyle());
    }
    segments_ = 0;
    lines_ = 0;
  }

 private:
  void beginSegment(const SegmentEnd& start) {
    if (segments_++ > 0) {
      pen_.join(current_, last_, start);
      return;
    }
    first_ = start;
    leftBegin_ = out_.left.count;
    rightBegin_ = out_.right.count;
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
  StrokeCurves curves_;
  Vector start_;
  Vector current_;
  Vector lineStart_;  // of the last line
  SegmentEnd first_;  // where the contour begins, and where its last segment ends
  SegmentEnd last_;
  std::size_t leftBegin_ = 0;
  std::size_t rightBegin_ = 0;
  int segments_ = 0;
  int lines_ = 0;
  bool open_ = false;
  bool hadSegment_ = false;
};

// Lists the points of all curves; those of a quadratic are raised.
void listCurves(const CGPath& path, const std::vector<CGPoint>& points, StrokeOutline& out) {
  const auto verbs = path.verbs();
  out.raised.clear();
  out.curves.resize(verbs.size());
  const double** to = out.curves.data();
  const CGPoint* next = points.data();
  for (const PathVerb verb : verbs) {
    // Which verbs are curves nobody can foretell: all are written down, and only curves stay.
    *to = next == points.data() ? nullptr : &next[-1].x;
    if (verb == PathVerb::quad) {
      // Nothing may move once it is listed.
      if (out.raised.empty()) out.raised.reserve(4 * verbs.size());
      const auto cubic = cubicOfQuad(next[-1], next[0], next[1]);
      out.raised.insert(out.raised.end(), cubic.begin(), cubic.end());
      *to = &out.raised[out.raised.size() - 4].x;
    }
    to += verb == PathVerb::cubic || verb == PathVerb::quad ? 1 : 0;
    next += pointCount(verb);
  }
  out.curves.resize(static_cast<std::size_t>(to - out.curves.data()));
}

}  // namespace

void strokeOutline(const CGPath& path, const std::vector<CGPoint>& points, const Stroke& stroke,
                   const Kernels& kernels, StrokeOutline& out) {
  out.clear();
  const StrokePen pen(stroke.width, stroke.style, stroke.tolerance, stroke.toDevice, out);
  const bool onDevice = stroke.toDevice == CGAffineTransformIdentity;
  listCurves(path, points, out);
  Stroker stroker(pen, stroke.tolerance, onDevice ? &kernels : nullptr);
  const CGPoint* next = points.data();
  std::size_t curve = 0;
  for (const PathVerb verb : path.verbs()) {
    const std::size_t count = pointCount(verb);
    next += count;
    const Vector end = count > 0 ? Vector{next[-1].x, next[-1].y} : Vector{};
    switch (verb) {
      case PathVerb::move:
        stroker.moveTo(end);
        break;
      case PathVerb::line:
        stroker.lineTo(end);
        break;
      case PathVerb::quad:
      case PathVerb::cubic:
        stroker.curveTo(curve++, end);
        break;
      case PathVerb::close:
        stroker.close();
        break;
    }
  }
  stroker.finish(false);
}

}  // namespace glyphwright::raster
