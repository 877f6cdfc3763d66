#include <glyphwright/platform/raster/stroke_pen.h>

#include <algorithm>
#include <cmath>

namespace glyphwright::raster {

using namespace pen;

namespace {

// Two directions whose offsets lie this near to each other meet without a join, in parts of the
// tolerance.
constexpr double kSmoothPart = 0.5;

// Thin pens turn by no more than this without an arc, in radians, and none by steps finer than
// that.
constexpr double kMostBendTurn = 0.7;
constexpr double kLeastBendTurn = 1.0 / 128;

}  // namespace

StrokePen::StrokePen(double width, const StrokeStyle& style, double tolerance,
                     const CGPoint& origin, const DeviceBox& shown, StrokeOutline& out)
    : half_(width * 0.5),
      style_(style),
      tolerance_(tolerance),
      origin_(origin),
      shown_(shown),
      out_(out),
      // The chord of an angle θ on the outline's circle strays by half·θ²/8.
      arcStepCosine_(1 - std::min(1.0, 4 * tolerance / half_)),
      // The offsets of two directions are half·θ apart.
      sameAngle_(std::min(kSmoothPart * tolerance / half_, 0.1)),
      bendTurn_(std::clamp(std::sqrt(8 * tolerance / half_), kLeastBendTurn, kMostBendTurn)),
      // cos θ ≈ 1 − θ²/2, half as much again as a curve's pieces should turn
      smoothCosine_(1 - 1.125 * bendTurn_ * bendTurn_) {}

NodePen StrokePen::nodePen() const {
  const bool hasMiters = style_.join == CGLineJoin::miter && style_.miterLimit >= 1;
  // Miter length / width = 1 / cos(half the turn), and that cosine's square is (1 + cos turn)/2.
  const double halfSquare = hasMiters ? style_.miterLimit * style_.miterLimit * 0.5 : 0;
  return {static_cast<float>(half_), static_cast<float>(sameAngle_ * sameAngle_),
          static_cast<float>(std::min(halfSquare, 1e30)), static_cast<float>(tolerance_)};
}

CGLineCap StrokePen::foldStyle() const {
  return style_.join == CGLineJoin::round ? CGLineCap::round : CGLineCap::butt;
}

inline void StrokePen::put(OutlineSide& side, Vector p) const {
  side.put(static_cast<float>(p.x - origin_.x), static_cast<float>(p.y - origin_.y));
}

void StrokePen::across(Vector at, Vector direction) const {
  const Vector offset = leftOf(direction) * half_;
  put(out_.left, at + offset);
  put(out_.right, at - offset);
}

// The outer side goes round from the offset of one direction to that of the other. The inner sides
// go to where they cross when that lies within both neighbours, otherwise over the node itself,
// which keeps every piece wound the same way. Half a turn has no outer side of its own; it is given
// the left one.
void StrokePen::join(Vector at, Vector in, Vector out, double reach) const {
  const bool isLeft = cross(in, out) >= 0;
  const Vector from = leftOf(in) * (isLeft ? 1 : -1);
  const Vector to = leftOf(out) * (isLeft ? 1 : -1);
  OutlineSide& outer = isLeft ? out_.left : out_.right;
  put(outer, at + from * half_);
  turn(outer, at, from, to, in);
  put(outer, at + to * half_);
  OutlineSide& inner = isLeft ? out_.right : out_.left;
  const double cosine = dot(in, out);
  const double factor = half_ / (1 + cosine);
  if (cosine > NodePen::kLeastCosine && factor * std::fabs(cross(in, out)) <= reach) {
    return put(inner, at - (from + to) * factor);
  }
  put(inner, at - from * half_);
  put(inner, at);
  put(inner, at - to * half_);
}

// The diameter of the pen that lies across the curve sweeps a narrow strip. Where the curve bends
// more tightly than the pen, its end runs backwards on the hollow side: both of its places cross,
// and the strip is two triangles. The far one is run through on its own, so that it is wound like
// everything else, or left out. True when the side still stands over the centre.
inline bool StrokePen::stepSide(OutlineSide& side, double sign, const Swing& swing,
                                const Steps& steps, bool isOverCentre, const PenPlace& to,
                                bool withEnd) const {
  const PenPlace& from = steps.from;
  const Vector before = swing.before * sign;
  const Vector after = swing.after * sign;
  const Vector start = from.at + before * half_;
  const Vector end = to.at + after * (half_ * (1 + swing.lift));
  const bool isOuter = (swing.turning >= 0) == (sign > 0);
  if (!isOuter && steps.hollow != Hollow::backwards &&
      (swing.isSudden || dot(end - start, from.direction + to.direction) < 0)) {
    const double crossing = swing.turning != 0 ? cross(to.at - from.at, after) / swing.turning : 0;
    const Vector centre = from.at + before * std::clamp(crossing, 0.0, half_);
    put(side, centre);
    if (steps.hollow == Hollow::leftOut) return true;
    put(side, end);
    if (swing.isSudden) turn(side, to.at, after, before, -from.direction);
    put(side, start);
    put(side, centre);
  } else {
    if (isOverCentre) put(side, start);
    if (swing.isSudden) turn(side, to.at, before, after, from.direction);
  }
  if (withEnd) put(side, end);
  return false;
}

void StrokePen::step(Steps& steps, const PenPlace& to, bool withEnd) const {
  Swing swing{leftOf(steps.from.direction), leftOf(to.direction)};
  swing.turning = cross(swing.before, swing.after);
  // Only a cusp turns by so much.
  swing.isSudden = dot(swing.before, swing.after) < smoothCosine_;
  // Chords lose area to the hollow: lift by the square of the turn a step. What turns on the spot
  // gets an arc.
  const Vector turned = swing.after - swing.before;
  swing.lift = withEnd && !swing.isSudden ? std::min(dot(turned, turned) / 12, 0.05) : 0;
  steps.isLeftOverCentre =
      stepSide(out_.left, 1, swing, steps, steps.isLeftOverCentre, to, withEnd);
  steps.isRightOverCentre =
      stepSide(out_.right, -1, swing, steps, steps.isRightOverCentre, to, withEnd);
  steps.from = to;
}

// Points of the circle strictly between two unit normals: the short way, or about a unit vector
// `forward` when they are opposed.
void StrokePen::turn(OutlineSide& side, Vector center, Vector from, Vector to,
                     Vector forward) const {
  if (dot(from, to) > -0.9999) return arc(side, center, from, to);
  arc(side, center, from, forward);
  put(side, center + forward * half_);
  arc(side, center, forward, to);
}

void StrokePen::arc(OutlineSide& side, Vector center, Vector from, Vector to) const {
  double cosine = dot(from, to);
  int halvings = 0;
  while (cosine < arcStepCosine_ && halvings < 10) {
    cosine = std::sqrt((1 + cosine) * 0.5);
    ++halvings;
  }
  // Lifted by θ²/12 the chords keep the disc's area; θ² is twice what the cosine lacks to one.
  const double radius = half_ * (1 + (1 - cosine) / 6);
  halved(side, center, {from, to, halvings, true, true}, radius);
}

// Corners that lie with all around them on one side of what can show may be missing.
bool StrokePen::isBeyond(Vector from, Vector to, double reach) const {
  // Farther than this, corners may be infinite.
  constexpr double farthest = 1e30;
  const double left = std::min(from.x, to.x) - reach;
  const double top = std::min(from.y, to.y) - reach;
  const double right = std::max(from.x, to.x) + reach;
  const double bottom = std::max(from.y, to.y) + reach;
  return (right < shown_.minX || left > shown_.maxX || bottom < shown_.minY || top > shown_.maxY) &&
         left > -farthest && top > -farthest && right < farthest && bottom < farthest;
}

// The corners next to the arc's ends stay, since what leads to them may be seen.
void StrokePen::halved(OutlineSide& side, Vector center, const Arc& arc, double radius) const {
  const auto& [from, to, halvings, isFirst, isLast] = arc;
  Vector middle = from + to;
  if (halvings == 0 || !normalize(middle)) return;
  if (!isFirst && !isLast && halvings > 1) {
    const Vector across = to - from;
    const double reach = radius * (std::fabs(across.x) + std::fabs(across.y));
    if (isBeyond(center + from * radius, center + to * radius, reach)) return;
  }
  halved(side, center, {from, middle, halvings - 1, isFirst, false}, radius);
  put(side, center + middle * radius);
  halved(side, center, {middle, to, halvings - 1, false, isLast}, radius);
}

// A ring of its own, drawn on the left side's corners.
void StrokePen::endRing(std::size_t begin) const {
  OutlineSide& left = out_.left;
  left.put(left.x[begin], left.y[begin]);
  out_.contours.push_back({begin, left.count, out_.right.count, out_.right.count, false, false});
}

void StrokePen::cap(Vector at, Vector forward, CGLineCap style) const {
  if (style == CGLineCap::butt) return;
  const std::size_t begin = out_.left.count;
  const Vector left = leftOf(forward);
  put(out_.left, at + left * half_);
  if (style == CGLineCap::round) {
    turn(out_.left, at, left, -left, forward);
  } else {
    put(out_.left, at + (left + forward) * half_);
    put(out_.left, at + (forward - left) * half_);
  }
  put(out_.left, at - left * half_);
  endRing(begin);
}

void StrokePen::disc(Vector center) const {
  const std::size_t begin = out_.left.count;
  const Vector right{1, 0};
  const Vector down{0, 1};
  put(out_.left, center - down * half_);
  turn(out_.left, center, -down, down, right);
  put(out_.left, center + down * half_);
  turn(out_.left, center, down, -down, -right);
  endRing(begin);
}

}  // namespace glyphwright::raster
