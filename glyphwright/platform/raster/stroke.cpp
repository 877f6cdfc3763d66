#include <glyphwright/platform/raster/stroke.h>

#include <algorithm>
#include <cmath>

#include <glyphwright/platform/raster/stroke_geometry.h>

namespace glyphwright::raster {
namespace {

using namespace pen;

constexpr int kMaxSamples = 1024;

class Stroker {
 public:
  Stroker(double width, const StrokeStyle& style, double tolerance,
          const CGAffineTransform& toDevice, Polygons& out)
      : half_(width * 0.5),
        style_(style),
        tolerance_(tolerance),
        toDevice_(toDevice),
        out_(out),
        // The chord of an angle θ on the outline's circle strays by half·θ²/8.
        arcStepCosine_(1 - std::min(1.0, 4 * tolerance / half_)) {}

  void moveTo(Vector at) {
    finish(false);
    start_ = current_ = at;
    open_ = true;
    hadSegment_ = false;
  }

  void lineTo(Vector to) {
    hadSegment_ = true;
    Vector direction = to - current_;
    if (!normalize(direction)) return;
    addNode(current_, direction, direction, false);
    current_ = to;
  }

  void cubicTo(Vector c1, Vector c2, Vector to) {
    hadSegment_ = true;
    const Vector p = current_;
    const Vector u = p - c1 * 2 + c2;
    const Vector v = c1 - c2 * 2 + to;
    const double bend = std::max(length(u), length(v));
    const int count = sampleCount(p, c1, c2, to, bend);
    const double h = 1.0 / count;
    const Vector a = v - u;
    const Vector b = u * 3;
    const Vector c = (c1 - p) * 3;
    // Inner samples move out of the hollow by h²·p''/12, as in filling, so that the area stays.
    const auto pointAt = [&](double t) {
      const Vector bulge = (a * (6 * t) + b * 2) * (h * h / 12);
      return ((a * t + b) * t + c) * t + p - bulge;
    };
    const auto directionAt = [&](double t, Vector fallback) {
      Vector d = (a * (3 * t) + b * 2) * t + c;
      return normalize(d) ? d : fallback;
    };
    Vector chord = to - p;
    if (!normalize(chord)) chord = {1, 0};
    Vector direction = endDirection(p, c1, c2, to, chord);
    if (length(to - p) == 0 && length(c1 - p) == 0 && length(c2 - p) == 0) return;
    addNode(p, direction, direction, false);
    for (int k = 1; k < count; ++k) {
      const double t = k * h;
      direction = directionAt(t, direction);
      addNode(pointAt(t), direction, direction, true);
    }
    pendingIn_ = -endDirection(to, c2, c1, p, -chord);
    hasPendingIn_ = true;
    current_ = to;
  }

  void close() {
    if (!open_) return;
    if (length(start_ - current_) > 0) lineTo(start_);
    finish(true);
  }

  void finish(bool closed) {
    if (!open_) return;
    open_ = false;
    if (nodes_.empty()) {
      if (hadSegment_) disc();
    } else if (closed && isThereAndBack()) {
      // Two joins of half a turn: a miter or bevel ends flat, a round join as a half disc.
      nodes_[1].out = nodes_[1].in;
      outlineOpen(style_.join == CGLineJoin::round ? CGLineCap::round : CGLineCap::butt);
    } else if (closed) {
      nodes_.front().in = lastDirection();
      outlineClosed();
    } else {
      nodes_.push_back({current_, lastDirection(), lastDirection(), false});
      outlineOpen(style_.cap);
    }
    nodes_.clear();
    hasPendingIn_ = false;
  }

 private:
  // The direction in which a cubic leaves its first point.
  static Vector endDirection(Vector p, Vector c1, Vector c2, Vector to, Vector fallback) {
    for (const Vector& target : {c1, c2, to}) {
      Vector d = target - p;
      if (normalize(d)) return d;
    }
    return fallback;
  }

  int sampleCount(Vector p, Vector c1, Vector c2, Vector to, double bend) const {
    const double chords = std::sqrt(bend * (6.0 / 8.0) / tolerance_);
    // On the outline the same turn is made at `half_` further out: the control polygon's turning
    // bounds the angle, and an arc of radius half_ may stray by half_·θ²/8 a step.
    double turn = 0;
    Vector last{};
    bool hasLast = false;
    for (Vector leg : {c1 - p, c2 - c1, to - c2}) {
      if (!normalize(leg)) continue;
      if (hasLast) turn += turnBetween(last, leg);
      last = leg;
      hasLast = true;
    }
    const double arcs = turn * std::sqrt(half_ / (8 * tolerance_));
    const double count = chords + arcs;
    return count < kMaxSamples ? static_cast<int>(count) + 1 : kMaxSamples;
  }

  // The angle between two unit vectors from its chord: exact at 0, 10 % low at a right angle,
  // where the joining steps are short anyway.
  static double turnBetween(Vector a, Vector b) {
    const double chord = length(b - a);
    return chord + chord * chord * chord / 24;
  }

  void addNode(Vector at, Vector in, Vector out, bool smooth) {
    nodes_.push_back(
        {at, hasPendingIn_ ? pendingIn_ : (nodes_.empty() ? in : nodes_.back().out), out, smooth});
    if (smooth) nodes_.back().in = in;
    hasPendingIn_ = false;
  }

  // A closed line of two points, which covers its own way back.
  bool isThereAndBack() const {
    return nodes_.size() == 2 && !nodes_[1].smooth && !hasPendingIn_ &&
           dot(nodes_[0].out, nodes_[1].out) < -0.999999 &&
           dot(nodes_[0].out, nodes_[1].in) > 0.999999;
  }

  Vector lastDirection() const { return hasPendingIn_ ? pendingIn_ : nodes_.back().out; }

  void emit(Vector p) {
    const CGPoint q = CGPointApplyAffineTransform({p.x, p.y}, toDevice_);
    out_.points.push_back({q.x, q.y});
  }

  // Points of the circle about `center` strictly between two unit normals, running the short way.
  void arc(Vector center, Vector from, Vector to) {
    double cosine = dot(from, to);
    int halvings = 0;
    while (cosine < arcStepCosine_ && halvings < 10) {
      cosine = std::sqrt((1 + cosine) * 0.5);
      ++halvings;
    }
    // Lifted by θ²/12 the chords keep the disc's area; θ² is twice what the cosine lacks to one.
    const double radius = half_ * (1 + (1 - cosine) / 6);
    halved(center, from, to, radius, halvings);
  }

  void halved(Vector center, Vector from, Vector to, double radius, int halvings) {
    Vector middle = from + to;
    if (halvings == 0 || !normalize(middle)) return;
    halved(center, from, middle, radius, halvings - 1);
    emit(center + middle * radius);
    halved(center, middle, to, radius, halvings - 1);
  }

  void halfDisc(Vector center, Vector from, Vector forward) {
    arc(center, from, forward);
    emit(center + forward * half_);
    arc(center, forward, -from);
  }

  // One side of a join: from the offset of the incoming to that of the outgoing direction.
  void outerJoin(const Node& n, Vector from, Vector to) {
    emit(n.at + from * half_);
    switch (style_.join) {
      case CGLineJoin::round:
        if (dot(from, to) > -0.9999) {
          arc(n.at, from, to);
        } else {
          halfDisc(n.at, from, n.in);
        }
        break;
      case CGLineJoin::miter: {
        // Miter length / width = 1 / cos(half the turn).
        const double cosine = dot(from, to);
        const double halfTurnSquare = (1 + cosine) * 0.5;
        if (halfTurnSquare > 0 && style_.miterLimit >= 1 &&
            1 <= style_.miterLimit * style_.miterLimit * halfTurnSquare) {
          emit(n.at + (from + to) * (half_ / (1 + cosine)));
        }
        break;
      }
      case CGLineJoin::bevel:
        break;
    }
    emit(n.at + to * half_);
  }

  // The inner side: where the two offsets cross when both neighbours are long enough, otherwise
  // over the node itself, which keeps every piece wound the same way.
  void innerJoin(const Node& n, Vector from, Vector to, double shorter) {
    const double cosine = dot(from, to);
    const double reach = half_ * std::fabs(cross(from, to)) / (1 + cosine);
    if (cosine > -0.99 && reach <= shorter) {
      emit(n.at + (from + to) * (half_ / (1 + cosine)));
      return;
    }
    emit(n.at + from * half_);
    emit(n.at);
    emit(n.at + to * half_);
  }

  // What both sides need of each node, worked out once.
  void measure() {
    for (std::size_t i = 0; i < nodes_.size(); ++i) {
      Node& node = nodes_[i];
      node.along = nodes_[i + 1 < nodes_.size() ? i + 1 : 0].at - node.at;
      node.legLength = length(node.along);
      normalize(node.along);
      node.normal = leftOf(node.in) + leftOf(node.out);
      if (!normalize(node.normal)) node.normal = leftOf(node.in);
    }
  }

  // One side of the stroke, nodes first to last (`step` 1) or last to first (−1). `wraps` joins
  // the ends of a closed line.
  void side(int step, bool wraps) {
    const int count = static_cast<int>(nodes_.size());
    const int first = step > 0 ? 0 : count - 1;
    for (int k = 0; k < count; ++k) {
      const int i = first + k * step;
      const Node& node = nodes_[static_cast<std::size_t>(i)];
      const Node& previous = nodes_[static_cast<std::size_t>(i > 0 ? i - 1 : count - 1)];
      const bool isEnd = !wraps && (i == 0 || i == count - 1);
      if (isEnd) {
        const Vector towards =
            step > 0 ? (k == 0 ? node.out : node.in) : -(k == 0 ? node.in : node.out);
        emit(node.at + leftOf(towards) * half_);
      } else if (step > 0) {
        joinAt(node, {previous.along, previous.legLength}, {node.along, node.legLength}, true);
      } else {
        // Seen backwards, a node is left in the direction opposite to the one it was entered in.
        const Node back{node.at, -node.out, -node.in, node.smooth, -node.normal};
        joinAt(back, {-node.along, node.legLength}, {-previous.along, previous.legLength}, false);
      }
    }
  }

  void joinAt(const Node& n, const Leg& incoming, const Leg& outgoing, bool forwards) {
    if (n.smooth || dot(n.in, n.out) > kSameDirection) {
      smoothPoint(n, incoming, outgoing);
      return;
    }
    const Vector from = leftOf(n.in);
    const Vector to = leftOf(n.out);
    // Half a turn has no outer side of its own; it is given the forward one.
    const double turning = cross(n.in, n.out);
    if (turning > 0 || (turning == 0 && forwards)) {
      outerJoin(n, from, to);
    } else {
      innerJoin(n, from, to, std::min(incoming.length, outgoing.length));
    }
  }

  void smoothPoint(const Node& n, const Leg& incoming, const Leg& outgoing) {
    const bool turned = incoming.hasDirection() && outgoing.hasDirection();
    const Vector turn = outgoing.along - incoming.along;
    // On the hollow side of a bend tighter than the pen, the offset would run backwards; each
    // chord then keeps its own rectangle.
    if (turned && cross(incoming.along, outgoing.along) < 0) {
      if (length(turn) * half_ > std::min(incoming.length, outgoing.length)) {
        emit(n.at + leftOf(incoming.along) * half_);
        emit(n.at);
        emit(n.at + leftOf(outgoing.along) * half_);
        return;
      }
    }
    // The offset's own chords lose area like any curve's: lift by the square of the turn a step.
    const double lift = turned ? dot(turn, turn) / 12 : 0;
    emit(n.at + n.normal * (half_ * (1 + std::min(lift, 0.05))));
  }

  void cap(Vector at, Vector forward, CGLineCap style) {
    const Vector left = leftOf(forward);
    switch (style) {
      case CGLineCap::butt:
        break;
      case CGLineCap::round:
        halfDisc(at, left, forward);
        break;
      case CGLineCap::square:
        emit(at + (left + forward) * half_);
        emit(at + (forward - left) * half_);
        break;
    }
  }

  void outlineOpen(CGLineCap style) {
    measure();
    side(1, false);
    cap(nodes_.back().at, nodes_.back().in, style);
    side(-1, false);
    cap(nodes_.front().at, -nodes_.front().out, style);
    out_.endContour();
  }

  void outlineClosed() {
    measure();
    side(1, true);
    out_.endContour();
    side(-1, true);
    out_.endContour();
  }

  // A subpath without length: a disc under a round cap, otherwise nothing.
  void disc() {
    if (style_.cap != CGLineCap::round) return;
    const Vector right{1, 0};
    const Vector down{0, 1};
    emit(current_ - down * half_);
    halfDisc(current_, -down, right);
    emit(current_ + down * half_);
    halfDisc(current_, down, -right);
    out_.endContour();
  }

  double half_;
  const StrokeStyle& style_;
  double tolerance_;
  const CGAffineTransform& toDevice_;
  Polygons& out_;
  double arcStepCosine_;
  std::vector<Node> nodes_;
  Vector start_;
  Vector current_;
  Vector pendingIn_;
  bool hasPendingIn_ = false;
  bool open_ = false;
  bool hadSegment_ = false;
};

}  // namespace

void strokePolygons(const CGPath& path, const std::vector<CGPoint>& points, double width,
                    const StrokeStyle& style, double tolerance, const CGAffineTransform& toDevice,
                    Polygons& out) {
  out.clear();
  Stroker stroker(width, style, tolerance, toDevice, out);
  std::size_t next = 0;
  Vector current;
  const auto at = [&](std::size_t i) { return Vector{points[i].x, points[i].y}; };
  for (const PathVerb verb : path.verbs()) {
    switch (verb) {
      case PathVerb::move:
        current = at(next);
        stroker.moveTo(current);
        break;
      case PathVerb::line:
        current = at(next);
        stroker.lineTo(current);
        break;
      case PathVerb::quad: {
        const Vector control = at(next);
        const Vector end = at(next + 1);
        stroker.cubicTo(current + (control - current) * (2.0 / 3.0),
                        end + (control - end) * (2.0 / 3.0), end);
        current = end;
        break;
      }
      case PathVerb::cubic: {
        const Vector end = at(next + 2);
        stroker.cubicTo(at(next), at(next + 1), end);
        current = end;
        break;
      }
      case PathVerb::close:
        stroker.close();
        break;
    }
    next += pointCount(verb);
  }
  stroker.finish(false);
}

}  // namespace glyphwright::raster
