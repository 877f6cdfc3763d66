#include "path_morph.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

#include <glyphwright/platform/layers/path_trimming.h>

namespace glyphwright::cli {
namespace {

// Every contour is looked at in this many places besides its corners; at icon sizes the chords
// stay within a small part of a pixel.
constexpr std::size_t kGrid = 96;
// Where a contour may start relative to its partner.
constexpr std::size_t kTurns = 48;

/// One closed contour, run through by the share of its length.
struct Contour {
  CGPath path;
  std::vector<CGFloat> corners;  // shares of the length, from 0, where its elements meet
  CGFloat area = 0;              // positive clockwise on screen
  CGPoint middle;

  CGPoint at(CGFloat share) const {
    share -= std::floor(share);
    return share == 0 ? path.points().front() : trimmedPath(path, 0, share).currentPoint();
  }
};

void finish(CGPath path, std::vector<Contour>& contours) {
  path.closeSubpath();
  const CGFloat length = pathLength(path);
  if (!(length > 0) || !std::isfinite(length)) return;
  Contour contour;
  contour.path = std::move(path);
  // The lengths up to each element, by building the contour again.
  CGPath prefix;
  const CGPoint* points = contour.path.points().data();
  for (const PathVerb verb : contour.path.verbs()) {
    if (verb == PathVerb::move) prefix.moveToPoint(points[0]);
    if (verb == PathVerb::line) prefix.addLineToPoint(points[0]);
    if (verb == PathVerb::quad) prefix.addQuadCurveToPoint(points[1], points[0]);
    if (verb == PathVerb::cubic) prefix.addCurveToPoint(points[2], points[0], points[1]);
    points += pointCount(verb);
    const CGFloat share = pathLength(prefix) / length;
    if (verb != PathVerb::close && share < 1) contour.corners.push_back(share);
  }
  CGPoint before = contour.at((kGrid - 1.0) / kGrid);
  for (std::size_t i = 0; i < kGrid; ++i) {
    const CGPoint point = contour.at(static_cast<CGFloat>(i) / kGrid);
    contour.area += (before.x * point.y - point.x * before.y) * 0.5;
    contour.middle.x += point.x / kGrid;
    contour.middle.y += point.y / kGrid;
    before = point;
  }
  contours.push_back(std::move(contour));
}

// Largest first.
std::vector<Contour> contoursOf(const CGPath& path) {
  std::vector<Contour> contours;
  if (!path.isFinite()) return contours;
  CGPath current;
  const CGPoint* points = path.points().data();
  for (const PathVerb verb : path.verbs()) {
    if (verb == PathVerb::move) {
      if (!current.isEmpty()) finish(std::exchange(current, {}), contours);
      current.moveToPoint(points[0]);
    }
    if (verb == PathVerb::line) current.addLineToPoint(points[0]);
    if (verb == PathVerb::quad) current.addQuadCurveToPoint(points[1], points[0]);
    if (verb == PathVerb::cubic) current.addCurveToPoint(points[2], points[0], points[1]);
    points += pointCount(verb);
  }
  if (!current.isEmpty()) finish(std::move(current), contours);
  std::stable_sort(contours.begin(), contours.end(), [](const Contour& a, const Contour& b) {
    return std::fabs(a.area) > std::fabs(b.area);
  });
  return contours;
}

// How far the second contour is turned so that its points lie nearest to the first one's, both
// seen from their middles.
CGFloat bestTurn(const Contour& a, const Contour& b) {
  CGFloat best = std::numeric_limits<CGFloat>::infinity();
  CGFloat turn = 0;
  std::vector<CGPoint> from;
  std::vector<CGPoint> to;
  for (std::size_t i = 0; i < kTurns; ++i) {
    from.push_back(a.at(static_cast<CGFloat>(i) / kTurns));
    to.push_back(b.at(static_cast<CGFloat>(i) / kTurns));
  }
  for (std::size_t shift = 0; shift < kTurns; ++shift) {
    CGFloat sum = 0;
    for (std::size_t i = 0; i < kTurns; ++i) {
      const CGPoint& p = from[i];
      const CGPoint& q = to[(i + shift) % kTurns];
      const CGFloat dx = (p.x - a.middle.x) - (q.x - b.middle.x);
      const CGFloat dy = (p.y - a.middle.y) - (q.y - b.middle.y);
      sum += dx * dx + dy * dy;
    }
    if (sum < best) {
      best = sum;
      turn = static_cast<CGFloat>(shift) / kTurns;
    }
  }
  return turn;
}

void add(CGPath& path, const std::vector<CGPoint>& points) {
  path.addLines(points);
  path.closeSubpath();
}

void addPair(const Contour& a, const Contour& b, std::pair<CGPath, CGPath>& result) {
  const CGFloat turn = bestTurn(a, b);
  // Both are looked at wherever either has a corner.
  std::vector<CGFloat> shares = a.corners;
  for (const CGFloat corner : b.corners) {
    const CGFloat share = corner - turn;
    shares.push_back(share - std::floor(share));
  }
  for (std::size_t i = 0; i < kGrid; ++i) shares.push_back(static_cast<CGFloat>(i) / kGrid);
  std::sort(shares.begin(), shares.end());
  std::vector<CGPoint> from;
  std::vector<CGPoint> to;
  for (const CGFloat share : shares) {
    from.push_back(a.at(share));
    to.push_back(b.at(share + turn));
  }
  add(result.first, from);
  add(result.second, to);
}

void addLone(const Contour& contour, CGPath& shape, CGPath& point) {
  std::vector<CGFloat> shares = contour.corners;
  for (std::size_t i = 0; i < kGrid; ++i) shares.push_back(static_cast<CGFloat>(i) / kGrid);
  std::sort(shares.begin(), shares.end());
  std::vector<CGPoint> outline;
  outline.reserve(shares.size());
  for (const CGFloat share : shares) outline.push_back(contour.at(share));
  add(shape, outline);
  add(point, std::vector<CGPoint>(outline.size(), contour.middle));
}

}  // namespace

std::pair<CGPath, CGPath> morphable(const CGPath& from, const CGPath& to) {
  std::pair<CGPath, CGPath> result;
  std::vector<Contour> ends = contoursOf(to);
  for (const Contour& start : contoursOf(from)) {
    const auto partner = std::find_if(ends.begin(), ends.end(), [&](const Contour& end) {
      return (end.area < 0) == (start.area < 0);
    });
    if (partner == ends.end()) {
      addLone(start, result.first, result.second);
    } else {
      addPair(start, *partner, result);
      ends.erase(partner);
    }
  }
  for (const Contour& end : ends) addLone(end, result.second, result.first);
  return result;
}

}  // namespace glyphwright::cli
