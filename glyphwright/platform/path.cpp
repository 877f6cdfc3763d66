#include <glyphwright/platform/path.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include <glyphwright/platform/math.h>
#include <glyphwright/platform/points.h>

namespace glyphwright {
namespace {

// 4/3·tan(π/8): the handle length, in radii, of a cubic that stands for a quarter circle.
constexpr CGFloat kQuarterHandle = 0.5522847498307936;

constexpr CGFloat kHalfPi = math::kPi / 2;
constexpr CGFloat kFullTurn = math::kPi * 2;

// The signed sweep from start to end in the asked direction, at most one full turn.
CGFloat arcSweep(CGFloat start, CGFloat end, bool clockwise) {
  CGFloat sweep = end - start;
  if (std::fabs(sweep) > kFullTurn) {
    // Several turns in the asked direction draw as one; against it, the remainder counts.
    if ((sweep > 0) == clockwise) return clockwise ? kFullTurn : -kFullTurn;
    // Angles near the end of the number range are too far apart for their difference.
    sweep = std::isfinite(sweep)
                ? std::fmod(sweep, kFullTurn)
                : std::fmod(std::fmod(end, kFullTurn) - std::fmod(start, kFullTurn), kFullTurn);
  }
  if (clockwise && sweep < 0) sweep += kFullTurn;
  if (!clockwise && sweep > 0) sweep -= kFullTurn;
  return sweep;
}

CGFloat cornerRadius(CGFloat asked, CGFloat side) {
  return asked > 0 ? std::min(asked, side * 0.5) : 0;
}

}  // namespace

void CGPath::reserve(std::size_t verbs, std::size_t points) {
  // Room for exactly so many each time would move all of a path for each of its parts.
  const auto growBy = [](auto& list, std::size_t more) {
    const std::size_t needed = list.size() + more;
    if (needed > list.capacity()) list.reserve(std::max(needed, 2 * list.capacity()));
  };
  growBy(verbs_.edit(), verbs);
  growBy(points_.edit(), points);
}

void CGPath::add(PathVerb verb, std::initializer_list<CGPoint> points) {
  auto& own = points_.edit();
  verbs_.edit().push_back(verb);
  own.insert(own.end(), points);
  box_.reset();
}

void CGPath::moveToPoint(CGPoint point) {
  add(PathVerb::move, {point});
  current_ = subpathStart_ = point;
}

bool CGPath::beginSegment() {
  if (isEmpty()) return false;
  if (verbs().back() == PathVerb::close) moveToPoint(subpathStart_);
  return true;
}

void CGPath::addLineToPoint(CGPoint point) {
  if (!beginSegment()) return;
  add(PathVerb::line, {point});
  current_ = point;
}

void CGPath::addQuadCurveToPoint(CGPoint point, CGPoint control) {
  if (!beginSegment()) return;
  add(PathVerb::quad, {control, point});
  current_ = point;
}

void CGPath::addCurveToPoint(CGPoint point, CGPoint control1, CGPoint control2) {
  if (!beginSegment()) return;
  add(PathVerb::cubic, {control1, control2, point});
  current_ = point;
}

void CGPath::closeSubpath() {
  if (isEmpty() || verbs().back() == PathVerb::close) return;
  add(PathVerb::close, {});
  current_ = subpathStart_;
}

void CGPath::addArc(CGPoint center, CGFloat radius, CGFloat startAngle, CGFloat endAngle,
                    bool clockwise) {
  if (!std::isfinite(radius) || !std::isfinite(startAngle) || !std::isfinite(endAngle)) return;
  const auto pointAt = [&](CGFloat cosine, CGFloat sine) {
    return CGPoint{center.x + radius * cosine, center.y + radius * sine};
  };
  CGFloat angle = startAngle;
  CGFloat cosine = math::cos(angle);
  CGFloat sine = math::sin(angle);
  if (isEmpty()) {
    moveToPoint(pointAt(cosine, sine));
  } else {
    addLineToPoint(pointAt(cosine, sine));
  }
  if (radius == 0) return;

  // Whole quarter turns from the start, the remainder last.
  CGFloat remaining = arcSweep(startAngle, endAngle, clockwise);
  while (remaining != 0) {
    CGFloat piece = std::clamp(remaining, -kHalfPi, kHalfPi);
    // A remainder of rounding noise belongs to the piece before it.
    if (std::fabs(remaining - piece) < 1e-12) piece = remaining;
    const CGFloat quarter = piece / 4;
    const CGFloat arm = radius * (4.0 / 3.0) * (math::sin(quarter) / math::cos(quarter));
    angle += piece;
    const CGFloat nextCosine = math::cos(angle);
    const CGFloat nextSine = math::sin(angle);
    const CGPoint from = pointAt(cosine, sine);
    const CGPoint to = pointAt(nextCosine, nextSine);
    addCurveToPoint(to, {from.x - arm * sine, from.y + arm * cosine},
                    {to.x + arm * nextSine, to.y - arm * nextCosine});
    cosine = nextCosine;
    sine = nextSine;
    remaining -= piece;
  }
}

void CGPath::addLines(std::span<const CGPoint> between, const CGAffineTransform& transform) {
  reserve(between.size(), between.size());
  bool first = true;
  for (const CGPoint& point : between) {
    const CGPoint mapped = CGPointApplyAffineTransform(point, transform);
    if (first) {
      moveToPoint(mapped);
    } else {
      addLineToPoint(mapped);
    }
    first = false;
  }
}

void CGPath::addRect(const CGRect& rect) {
  const CGFloat x0 = CGRectGetMinX(rect);
  const CGFloat y0 = CGRectGetMinY(rect);
  const CGFloat x1 = CGRectGetMaxX(rect);
  const CGFloat y1 = CGRectGetMaxY(rect);
  reserve(5, 4);
  moveToPoint({x0, y0});
  addLineToPoint({x1, y0});
  addLineToPoint({x1, y1});
  addLineToPoint({x0, y1});
  closeSubpath();
}

void CGPath::addEllipseInRect(const CGRect& rect) {
  const CGFloat rx = CGRectGetWidth(rect) * 0.5;
  const CGFloat ry = CGRectGetHeight(rect) * 0.5;
  const CGFloat x0 = CGRectGetMinX(rect);
  const CGFloat y0 = CGRectGetMinY(rect);
  const CGFloat x1 = CGRectGetMaxX(rect);
  const CGFloat y1 = CGRectGetMaxY(rect);
  const CGFloat cx = CGRectGetMidX(rect);
  const CGFloat cy = CGRectGetMidY(rect);
  const CGFloat kx = rx * kQuarterHandle;
  const CGFloat ky = ry * kQuarterHandle;
  reserve(6, 13);
  moveToPoint({x1, cy});
  addCurveToPoint({cx, y1}, {x1, cy + ky}, {cx + kx, y1});
  addCurveToPoint({x0, cy}, {cx - kx, y1}, {x0, cy + ky});
  addCurveToPoint({cx, y0}, {x0, cy - ky}, {cx - kx, y0});
  addCurveToPoint({x1, cy}, {cx + kx, y0}, {x1, cy - ky});
  closeSubpath();
}

void CGPath::addRoundedRect(const CGRect& rect, UIRectCorner corners, CGSize radii) {
  const CGFloat rx = cornerRadius(radii.width, CGRectGetWidth(rect));
  const CGFloat ry = cornerRadius(radii.height, CGRectGetHeight(rect));
  const auto cut = [&](UIRectCorner corner) {
    return contains(corners, corner) && rx > 0 && ry > 0 ? CGSize{rx, ry} : CGSize{};
  };
  const CGSize topLeft = cut(UIRectCorner::topLeft);
  const CGSize topRight = cut(UIRectCorner::topRight);
  const CGSize bottomLeft = cut(UIRectCorner::bottomLeft);
  const CGSize bottomRight = cut(UIRectCorner::bottomRight);
  const CGFloat x0 = CGRectGetMinX(rect);
  const CGFloat y0 = CGRectGetMinY(rect);
  const CGFloat x1 = CGRectGetMaxX(rect);
  const CGFloat y1 = CGRectGetMaxY(rect);
  constexpr CGFloat k = 1 - kQuarterHandle;  // from the square corner to the handle, in radii
  const auto corner = [&](CGSize r, CGPoint to, CGPoint control1, CGPoint control2) {
    if (r.width > 0) addCurveToPoint(to, control1, control2);
  };
  reserve(10, 17);
  moveToPoint({x0 + topLeft.width, y0});
  addLineToPoint({x1 - topRight.width, y0});
  corner(topRight, {x1, y0 + topRight.height}, {x1 - topRight.width * k, y0},
         {x1, y0 + topRight.height * k});
  addLineToPoint({x1, y1 - bottomRight.height});
  corner(bottomRight, {x1 - bottomRight.width, y1}, {x1, y1 - bottomRight.height * k},
         {x1 - bottomRight.width * k, y1});
  addLineToPoint({x0 + bottomLeft.width, y1});
  corner(bottomLeft, {x0, y1 - bottomLeft.height}, {x0 + bottomLeft.width * k, y1},
         {x0, y1 - bottomLeft.height * k});
  // A square upper left corner is reached by the closing edge.
  if (topLeft.width > 0) addLineToPoint({x0, y0 + topLeft.height});
  corner(topLeft, {x0 + topLeft.width, y0}, {x0, y0 + topLeft.height * k},
         {x0 + topLeft.width * k, y0});
  closeSubpath();
}

void CGPath::addPath(const CGPath& other) {
  if (other.isEmpty()) return;
  if (isEmpty()) {
    *this = other;
    return;
  }
  if (&other == this) {
    addPath(CGPath(other));
    return;
  }
  auto& verbs = verbs_.edit();
  auto& points = points_.edit();
  verbs.insert(verbs.end(), other.verbs().begin(), other.verbs().end());
  points.insert(points.end(), other.points().begin(), other.points().end());
  current_ = other.current_;
  subpathStart_ = other.subpathStart_;
  box_.reset();
}

void CGPath::applyTransform(const CGAffineTransform& transform) {
  if (isEmpty()) return;
  const std::span<const CGPoint> from = points();
  mapPoints(from, transform, points_.renew(from.size()).data());
  current_ = CGPointApplyAffineTransform(current_, transform);
  subpathStart_ = CGPointApplyAffineTransform(subpathStart_, transform);
  box_.reset();
}

CGPath CGPath::reversed() const {
  const std::span<const PathVerb> verbs = this->verbs();
  const std::span<const CGPoint> points = this->points();
  CGPath result;
  result.reserve(verbs.size(), points.size());
  std::size_t verb = 0;
  std::size_t point = 0;
  while (verb < verbs.size()) {
    // One subpath: a move, its segments, perhaps a close.
    const std::size_t firstSegment = verb + 1;
    const std::size_t firstPoint = point;
    std::size_t end = firstSegment;
    point += pointCount(verbs[verb]);
    while (end < verbs.size() && verbs[end] != PathVerb::move && verbs[end] != PathVerb::close) {
      point += pointCount(verbs[end]);
      ++end;
    }
    const bool closed = end < verbs.size() && verbs[end] == PathVerb::close;
    std::size_t at = point - 1;
    result.moveToPoint(points[at]);
    for (std::size_t segment = end; segment-- > firstSegment;) {
      switch (verbs[segment]) {
        case PathVerb::line:
          result.addLineToPoint(points[at - 1]);
          break;
        case PathVerb::quad:
          result.addQuadCurveToPoint(points[at - 2], points[at - 1]);
          break;
        case PathVerb::cubic:
          result.addCurveToPoint(points[at - 3], points[at - 1], points[at - 2]);
          break;
        case PathVerb::move:
        case PathVerb::close:
          break;
      }
      at -= pointCount(verbs[segment]);
    }
    if (closed) result.closeSubpath();
    verb = closed ? end + 1 : end;
    point = std::max(point, firstPoint + 1);
  }
  return result;
}

CGRect CGPath::boundingBox() const {
  if (box_) return *box_;
  const std::span<const PathVerb> verbs = this->verbs();
  const std::span<const CGPoint> points = this->points();
  PointBox box = boxPoints({});
  bool any = false;
  const auto add = [&](std::size_t from, std::size_t end) {
    if (from == end) return;
    const PointBox part = boxPoints(points.subspan(from, end - from));
    box = {std::min(box.minX, part.minX), std::min(box.minY, part.minY),
           std::max(box.maxX, part.maxX), std::max(box.maxY, part.maxY), false};
    any = true;
  };
  // Everything between lone moves in one go.
  std::size_t from = 0;
  std::size_t at = 0;
  for (std::size_t verb = 0; verb < verbs.size(); ++verb) {
    const bool lone = verbs[verb] == PathVerb::move &&
                      (verb + 1 == verbs.size() || verbs[verb + 1] == PathVerb::move);
    if (lone) {
      add(from, at);
      from = at + 1;
    }
    at += pointCount(verbs[verb]);
  }
  add(from, at);
  if (!any) return CGRectNull;
  return {box.minX, box.minY, box.maxX - box.minX, box.maxY - box.minY};
}

bool CGPath::isFinite() const {
  return std::ranges::all_of(
      points(), [](const CGPoint& p) { return std::isfinite(p.x) && std::isfinite(p.y); });
}

bool operator==(const CGPath& a, const CGPath& b) {
  return std::ranges::equal(a.verbs(), b.verbs()) && std::ranges::equal(a.points(), b.points());
}

}  // namespace glyphwright
