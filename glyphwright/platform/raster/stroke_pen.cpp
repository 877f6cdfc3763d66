#include <glyphwright/platform/raster/stroke_pen.h>

#include <algorithm>
#include <cmath>

namespace glyphwright::raster {

using namespace pen;

namespace {

// Two directions whose offsets lie this near to each other meet without a join, in parts of the
// tolerance.
constexpr double kSmoothPart = 0.5;

}  // namespace

StrokePen::StrokePen(double width, const StrokeStyle& style, double tolerance,
                     const CGAffineTransform& toDevice, StrokeOutline& out)
    : half_(width * 0.5),
      style_(style),
      toOutline_(toDevice),
      onDevice_(toDevice == CGAffineTransformIdentity),
      out_(out),
      // The chord of an angle θ on the outline's circle strays by half·θ²/8.
      arcStepCosine_(1 - std::min(1.0, 4 * tolerance / half_)) {
  toOutline_.tx -= out.originX;
  toOutline_.ty -= out.originY;
  // The offsets of two directions are half·θ apart, and the cosine falls short of one by θ²/2.
  sameAngle_ = std::min(kSmoothPart * tolerance / half_, 0.1);
  sameDirection_ = 1 - sameAngle_ * sameAngle_ * 0.5;
}

NodePen StrokePen::nodePen() const {
  const bool hasMiters = style_.join == CGLineJoin::miter && style_.miterLimit >= 1;
  // Miter length / width = 1 / cos(half the turn), and that cosine's square is (1 + cos turn)/2.
  const double halfSquare = hasMiters ? style_.miterLimit * style_.miterLimit * 0.5 : 0;
  return {static_cast<float>(half_), static_cast<float>(sameAngle_ * sameAngle_),
          static_cast<float>(std::min(halfSquare, 1e30))};
}

CGLineCap StrokePen::foldStyle() const {
  return style_.join == CGLineJoin::round ? CGLineCap::round : CGLineCap::butt;
}

inline void StrokePen::put(OutlineSide& side, Vector p) const {
  if (onDevice_) {
    side.put(static_cast<float>(p.x - out_.originX), static_cast<float>(p.y - out_.originY));
    return;
  }
  const CGPoint q = CGPointApplyAffineTransform({p.x, p.y}, toOutline_);
  side.put(static_cast<float>(q.x), static_cast<float>(q.y));
}

inline void StrokePen::bothSides(Vector at, Vector offset) const {
  put(out_.left, at + offset);
  put(out_.right, at - offset);
}

void StrokePen::across(Vector at, Vector direction) const {
  bothSides(at, leftOf(direction) * half_);
}

void StrokePen::join(Vector at, const SegmentEnd& in, const SegmentEnd& out) const {
  const double cosine = dot(in.direction, out.direction);
  const Vector from = leftOf(in.direction);
  const Vector to = leftOf(out.direction);
  if (cosine > sameDirection_) {
    Vector normal = (from + to) * 0.5;
    if (in.isTight || out.isTight) return bend(at, normal, in.leg, out.leg);
    bothSides(at, normal * half_);
    return;
  }
  const double shorter = std::min(in.leg.length, out.leg.length);
  // Half a turn has no outer side of its own; it is given the left one.
  if (cross(in.direction, out.direction) >= 0) {
    outerJoin(out_.left, at, from, to, in.direction);
    innerJoin(out_.right, at, -from, -to, shorter);
  } else {
    innerJoin(out_.left, at, from, to, shorter);
    outerJoin(out_.right, at, -from, -to, in.direction);
  }
}

// From the offset of the incoming to that of the outgoing direction.
void StrokePen::outerJoin(OutlineSide& side, Vector at, Vector from, Vector to,
                          Vector forward) const {
  put(side, at + from * half_);
  switch (style_.join) {
    case CGLineJoin::round:
      if (dot(from, to) > -0.9999) {
        arc(side, at, from, to);
      } else {
        halfDisc(side, at, from, forward);
      }
      break;
    case CGLineJoin::miter: {
      // Miter length / width = 1 / cos(half the turn).
      const double cosine = dot(from, to);
      const double halfTurnSquare = (1 + cosine) * 0.5;
      if (halfTurnSquare > 0 && style_.miterLimit >= 1 &&
          1 <= style_.miterLimit * style_.miterLimit * halfTurnSquare) {
        put(side, at + (from + to) * (half_ / (1 + cosine)));
      }
      break;
    }
    case CGLineJoin::bevel:
      break;
  }
  put(side, at + to * half_);
}

// Where the two offsets cross when both neighbours are long enough, otherwise over the node itself,
// which keeps every piece wound the same way.
void StrokePen::innerJoin(OutlineSide& side, Vector at, Vector from, Vector to,
                          double shorter) const {
  const double cosine = dot(from, to);
  if (cosine > -0.99) {
    const double factor = half_ / (1 + cosine);
    if (factor * std::fabs(cross(from, to)) <= shorter) {
      put(side, at + (from + to) * factor);
      return;
    }
  }
  put(side, at + from * half_);
  put(side, at);
  put(side, at + to * half_);
}

// On the hollow side of a bend tighter than the pen, the offset would run backwards; each chord
// then keeps its own rectangle.
void StrokePen::bend(Vector at, Vector normal, const Leg& in, const Leg& out) const {
  const bool turned = in.hasDirection() && out.hasDirection();
  const Vector turn = out.along - in.along;
  const double turnSquare = dot(turn, turn);
  const double shorter = std::min(in.length, out.length);
  const bool isTight = turned && turnSquare * half_ * half_ > shorter * shorter;
  const double side = isTight ? cross(in.along, out.along) : 0;
  // The offset's own chords lose area like any curve's: lift by the square of the turn a step.
  const double lift = turned ? turnSquare / 12 : 0;
  const Vector offset = normal * (half_ * (1 + std::min(lift, 0.05)));
  const Vector before = leftOf(in.along) * half_;
  const Vector after = leftOf(out.along) * half_;
  if (side < 0) {
    put(out_.left, at + before);
    put(out_.left, at);
    put(out_.left, at + after);
  } else {
    put(out_.left, at + offset);
  }
  if (side > 0) {
    put(out_.right, at - before);
    put(out_.right, at);
    put(out_.right, at - after);
  } else {
    put(out_.right, at - offset);
  }
}

// Points of the circle about `center` strictly between two unit normals, running the short way.
void StrokePen::arc(OutlineSide& side, Vector center, Vector from, Vector to) const {
  double cosine = dot(from, to);
  int halvings = 0;
  while (cosine < arcStepCosine_ && halvings < 10) {
    cosine = std::sqrt((1 + cosine) * 0.5);
    ++halvings;
  }
  // Lifted by θ²/12 the chords keep the disc's area; θ² is twice what the cosine lacks to one.
  halved(side, center, from, to, half_ * (1 + (1 - cosine) / 6), halvings);
}

void StrokePen::halved(OutlineSide& side, Vector center, Vector from, Vector to, double radius,
                       int halvings) const {
  Vector middle = from + to;
  if (halvings == 0 || !normalize(middle)) return;
  halved(side, center, from, middle, radius, halvings - 1);
  put(side, center + middle * radius);
  halved(side, center, middle, to, radius, halvings - 1);
}

void StrokePen::halfDisc(OutlineSide& side, Vector center, Vector from, Vector forward) const {
  arc(side, center, from, forward);
  put(side, center + forward * half_);
  arc(side, center, forward, -from);
}

// A ring of its own, drawn on the left side's corners.
void StrokePen::endRing(std::size_t begin) const {
  out_.closeRings(begin, out_.right.count);
}

void StrokePen::cap(Vector at, Vector forward, CGLineCap style) const {
  if (style == CGLineCap::butt) return;
  const std::size_t begin = out_.left.count;
  const Vector left = leftOf(forward);
  put(out_.left, at + left * half_);
  if (style == CGLineCap::round) {
    halfDisc(out_.left, at, left, forward);
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
  halfDisc(out_.left, center, -down, right);
  put(out_.left, center + down * half_);
  halfDisc(out_.left, center, down, -right);
  endRing(begin);
}

}  // namespace glyphwright::raster
