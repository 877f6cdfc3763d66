#include <glyphwright/platform/path.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include <glyphwright/platform/math.h>
#include <glyphwright/platform/raster/kernels.h>

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

CGPath::CGPath(std::vector<PathVerb> verbs, std::vector<CGPoint> points)
    : verbs_(std::move(verbs)), points_(std::move(points)) {
  if (points_.empty()) return;
  std::size_t start = points_.size();
  for (std::size_t i = verbs_.size(); i-- > 0;) {
    start -= pointCount(verbs_[i]);
    if (verbs_[i] == PathVerb::move) break;
  }
  subpathStart_ = points_[start];
  current_ = verbs_.back() == PathVerb::close ? subpathStart_ : points_.back();
}

void CGPath::reserve(std::size_t verbs, std::size_t points) {
  verbs_.reserve(verbs_.size() + verbs);
  points_.reserve(points_.size() + points);
}

void CGPath::moveToPoint(CGPoint point) {
  verbs_.push_back(PathVerb::move);
  points_.push_back(point);
  current_ = subpathStart_ = point;
}

bool CGPath::beginSegment() {
  if (verbs_.empty()) return false;
  if (verbs_.back() == PathVerb::close) moveToPoint(subpathStart_);
  return true;
}

void CGPath::addLineToPoint(CGPoint point) {
  if (!beginSegment()) return;
  verbs_.push_back(PathVerb::line);
  points_.push_back(point);
  current_ = point;
}

void CGPath::addQuadCurveToPoint(CGPoint point, CGPoint control) {
  if (!beginSegment()) return;
  verbs_.push_back(PathVerb::quad);
  points_.insert(points_.end(), {control, point});
  current_ = point;
}

void CGPath::addCurveToPoint(CGPoint point, CGPoint control1, CGPoint control2) {
  if (!beginSegment()) return;
  verbs_.push_back(PathVerb::cubic);
  points_.insert(points_.end(), {control1, control2, point});
  current_ = point;
}

void CGPath::closeSubpath() {
  if (verbs_.empty() || verbs_.back() == PathVerb::close) return;
  verbs_.push_back(PathVerb::close);
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
  if (verbs_.empty()) {
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
  if (other.verbs_.empty()) return;
  if (&other == this) {
    addPath(CGPath(other));
    return;
  }
  verbs_.insert(verbs_.end(), other.verbs_.begin(), other.verbs_.end());
  points_.insert(points_.end(), other.points_.begin(), other.points_.end());
  current_ = other.current_;
  subpathStart_ = other.subpathStart_;
}

void CGPath::applyTransform(const CGAffineTransform& transform) {
  if (verbs_.empty()) return;
  const CGFloat matrix[] = {transform.a, transform.b,  transform.c,
                            transform.d, transform.tx, transform.ty};
  raster::kernels().mapPoints(&points_.front().x, points_.size(), matrix, &points_.front().x);
  current_ = CGPointApplyAffineTransform(current_, transform);
  subpathStart_ = CGPointApplyAffineTransform(subpathStart_, transform);
}

CGPath CGPath::reversed() const {
  CGPath result;
  result.reserve(verbs_.size(), points_.size());
  std::size_t verb = 0;
  std::size_t point = 0;
  while (verb < verbs_.size()) {
    // One subpath: a move, its segments, perhaps a close.
    const std::size_t firstSegment = verb + 1;
    const std::size_t firstPoint = point;
    std::size_t end = firstSegment;
    point += pointCount(verbs_[verb]);
    while (end < verbs_.size() && verbs_[end] != PathVerb::move && verbs_[end] != PathVerb::close) {
      point += pointCount(verbs_[end]);
      ++end;
    }
    const bool closed = end < verbs_.size() && verbs_[end] == PathVerb::close;
    std::size_t at = point - 1;
    result.moveToPoint(points_[at]);
    for (std::size_t segment = end; segment-- > firstSegment;) {
      switch (verbs_[segment]) {
        case PathVerb::line:
          result.addLineToPoint(points_[at - 1]);
          break;
        case PathVerb::quad:
          result.addQuadCurveToPoint(points_[at - 2], points_[at - 1]);
          break;
        case PathVerb::cubic:
          result.addCurveToPoint(points_[at - 3], points_[at - 1], points_[at - 2]);
          break;
        case PathVerb::move:
        case PathVerb::close:
          break;
      }
      at -= pointCount(verbs_[segment]);
    }
    if (closed) result.closeSubpath();
    verb = closed ? end + 1 : end;
    point = std::max(point, firstPoint + 1);
  }
  return result;
}

CGRect CGPath::boundingBox() const {
  const raster::Kernels& kernels = raster::kernels();
  raster::PointBox box = kernels.boxPoints(nullptr, 0);
  bool any = false;
  const auto add = [&](std::size_t from, std::size_t end) {
    if (from == end) return;
    const raster::PointBox part = kernels.boxPoints(&points_[from].x, end - from);
    box = {std::min(box.minX, part.minX), std::min(box.minY, part.minY),
           std::max(box.maxX, part.maxX), std::max(box.maxY, part.maxY), false};
    any = true;
  };
  // Everything between lone moves in one go.
  std::size_t from = 0;
  std::size_t at = 0;
  for (std::size_t verb = 0; verb < verbs_.size(); ++verb) {
    const bool lone = verbs_[verb] == PathVerb::move &&
                      (verb + 1 == verbs_.size() || verbs_[verb + 1] == PathVerb::move);
    if (lone) {
      add(from, at);
      from = at + 1;
    }
    at += pointCount(verbs_[verb]);
  }
  add(from, at);
  if (!any) return CGRectNull;
  return {box.minX, box.minY, box.maxX - box.minX, box.maxY - box.minY};
}

bool CGPath::isFinite() const {
  return std::all_of(points_.begin(), points_.end(),
                     [](const CGPoint& p) { return std::isfinite(p.x) && std::isfinite(p.y); });
}

}  // namespace glyphwright
