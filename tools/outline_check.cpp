#include "outline_check.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace glyphwright::outline_check {

namespace {

double cross(CGPoint a, CGPoint b, CGPoint c) {
  return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

double distance(CGPoint a, CGPoint b) {
  return std::hypot(a.x - b.x, a.y - b.y);
}

double pointToEdge(CGPoint p, CGPoint a, CGPoint b) {
  const double dx = b.x - a.x;
  const double dy = b.y - a.y;
  const double length2 = dx * dx + dy * dy;
  if (length2 == 0) return distance(p, a);
  const double t = std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / length2, 0.0, 1.0);
  return distance(p, {a.x + t * dx, a.y + t * dy});
}

struct Edge {
  CGPoint from;
  CGPoint to;

  double minX() const { return std::min(from.x, to.x); }
  double maxX() const { return std::max(from.x, to.x); }
  double minY() const { return std::min(from.y, to.y); }
  double maxY() const { return std::max(from.y, to.y); }
};

Edge edgeOf(const Contour& contour, std::size_t index) {
  return {contour.points[index], contour.points[(index + 1) % contour.points.size()]};
}

bool boxesWithin(const Edge& a, const Edge& b, double reach) {
  return a.minX() <= b.maxX() + reach && b.minX() <= a.maxX() + reach &&
         a.minY() <= b.maxY() + reach && b.minY() <= a.maxY() + reach;
}

bool properlyCross(const Edge& a, const Edge& b) {
  const double d1 = cross(a.from, a.to, b.from);
  const double d2 = cross(a.from, a.to, b.to);
  const double d3 = cross(b.from, b.to, a.from);
  const double d4 = cross(b.from, b.to, a.to);
  return ((d1 > 0) != (d2 > 0)) && ((d3 > 0) != (d4 > 0)) && d1 != 0 && d2 != 0 && d3 != 0 &&
         d4 != 0;
}

double edgeDistance(const Edge& a, const Edge& b) {
  if (properlyCross(a, b)) return 0;
  return std::min({pointToEdge(a.from, b.from, b.to), pointToEdge(a.to, b.from, b.to),
                   pointToEdge(b.from, a.from, a.to), pointToEdge(b.to, a.from, a.to)});
}

bool areNeighbours(std::size_t i, std::size_t j, std::size_t count) {
  return j == i + 1 || (i == 0 && j == count - 1);
}

/// A spike: two neighbouring edges that lie on each other.
bool foldsBack(const Edge& first, const Edge& second, double reach) {
  const double ax = first.to.x - first.from.x;
  const double ay = first.to.y - first.from.y;
  const double bx = second.to.x - second.from.x;
  const double by = second.to.y - second.from.y;
  if (ax * bx + ay * by >= 0) return false;
  return std::min(pointToEdge(first.from, second.from, second.to),
                  pointToEdge(second.to, first.from, first.to)) < reach;
}

void findMeetings(const std::vector<Contour>& contours, double reach, std::vector<Meeting>& out) {
  for (std::size_t k = 0; k < contours.size(); ++k) {
    for (std::size_t m = k; m < contours.size(); ++m) {
      const std::size_t countK = contours[k].points.size();
      const std::size_t countM = contours[m].points.size();
      for (std::size_t i = 0; i < countK; ++i) {
        const Edge a = edgeOf(contours[k], i);
        for (std::size_t j = k == m ? i + 1 : 0; j < countM; ++j) {
          const Edge b = edgeOf(contours[m], j);
          if (!boxesWithin(a, b, reach)) continue;
          bool meets = false;
          if (k == m && areNeighbours(i, j, countK)) {
            meets = countK > 2 && (j == i + 1 ? foldsBack(a, b, reach) : foldsBack(b, a, reach));
          } else {
            meets = edgeDistance(a, b) < reach;
          }
          if (!meets) continue;
          out.push_back({k, m, a.from});
          i = countK;  // one meeting a pair of contours is enough to tell
          break;
        }
      }
    }
  }
}

double leastDistance(const Contour& first, const Contour& second, double best) {
  for (std::size_t i = 0; i < first.points.size(); ++i) {
    const Edge a = edgeOf(first, i);
    for (std::size_t j = 0; j < second.points.size(); ++j) {
      const Edge b = edgeOf(second, j);
      if (boxesWithin(a, b, best)) best = std::min(best, edgeDistance(a, b));
    }
  }
  return best;
}

bool isOnGrid(double value) {
  return std::abs(value * 100 - std::round(value * 100)) < 1e-6;
}

/// Walks the elements of a path and gathers contours and what only the elements can tell.
class Collector {
 public:
  Collector(double tolerance, Report& report) : tolerance_(tolerance), report_(report) {}

  void walk(const CGPath& path) {
    std::size_t at = 0;
    for (const PathVerb verb : path.verbs()) {
      const std::span<const CGPoint> points = path.points().subspan(at, pointCount(verb));
      at += points.size();
      if (verb == PathVerb::move) {
        finish(false);
        contour_.points.push_back(points[0]);
      } else if (verb == PathVerb::close) {
        finish(true);
      } else {
        segment(verb, points);
      }
    }
    finish(false);
  }

 private:
  void segment(PathVerb verb, std::span<const CGPoint> points) {
    const CGPoint from =
        contour_.points.empty() ? points.back() : last_.value_or(contour_.points[0]);
    bool empty = true;
    for (const CGPoint point : points) empty = empty && point == from;
    if (empty) ++report_.emptyEdges;
    countOffGrid(points);
    if (verb == PathVerb::line) {
      ++contour_.lines;
      add(points[0]);
    } else {
      ++contour_.curves;
      const CGPoint end = points.back();
      const CGPoint c1 = verb == PathVerb::cubic ? points[0] : elevate(from, points[0]);
      const CGPoint c2 = verb == PathVerb::cubic ? points[1] : elevate(end, points[0]);
      curve(from, c1, c2, end);
    }
    last_ = points.back();
  }

  static CGPoint elevate(CGPoint end, CGPoint control) {
    return {end.x + 2 * (control.x - end.x) / 3, end.y + 2 * (control.y - end.y) / 3};
  }

  void countOffGrid(std::span<const CGPoint> points) {
    for (std::size_t i = 0; i < points.size(); ++i) {
      std::size_t& count = i + 1 == points.size() ? offGridEnds_ : offGridControls_;
      count += static_cast<std::size_t>(!isOnGrid(points[i].x));
      count += static_cast<std::size_t>(!isOnGrid(points[i].y));
    }
  }

  void add(CGPoint point) {
    if (contour_.points.empty() || !coincide(contour_.points.back(), point)) {
      contour_.points.push_back(point);
    }
  }

  /// An arc comes home with the rounding of its last angle.
  bool coincide(CGPoint a, CGPoint b) const { return distance(a, b) < tolerance_ * 1e-6; }

  void curve(CGPoint p0, CGPoint p1, CGPoint p2, CGPoint p3) {
    const double bend = std::max(std::hypot(p0.x - 2 * p1.x + p2.x, p0.y - 2 * p1.y + p2.y),
                                 std::hypot(p1.x - 2 * p2.x + p3.x, p1.y - 2 * p2.y + p3.y));
    const double wanted = std::ceil(std::sqrt(0.75 * bend / tolerance_));
    const int pieces = static_cast<int>(std::clamp(wanted, 1.0, 256.0));
    for (int i = 1; i < pieces; ++i) {
      const double t = static_cast<double>(i) / pieces;
      const double s = 1 - t;
      const double w[4] = {s * s * s, 3 * s * s * t, 3 * s * t * t, t * t * t};
      add({w[0] * p0.x + w[1] * p1.x + w[2] * p2.x + w[3] * p3.x,
           w[0] * p0.y + w[1] * p1.y + w[2] * p2.y + w[3] * p3.y});
    }
    add(p3);
  }

  void finish(bool closed) {
    if (contour_.lines + contour_.curves > 0) {
      contour_.isClosed = closed;
      contour_.returnsExplicitly = last_ == contour_.points.front();
      if (contour_.points.size() > 1 && coincide(contour_.points.back(), contour_.points.front())) {
        contour_.points.pop_back();
      }
      const std::vector<CGPoint>& p = contour_.points;
      for (std::size_t i = 0; i < p.size(); ++i) {
        const CGPoint a = p[i];
        const CGPoint b = p[(i + 1) % p.size()];
        contour_.signedArea +=
            ((a.x - p[0].x) * (b.y - p[0].y) - (b.x - p[0].x) * (a.y - p[0].y)) / 2;
      }
      report_.lines += contour_.lines;
      report_.curves += contour_.curves;
      report_.offGridCoordinates += offGridEnds_;
      if (contour_.curves != 4) report_.offGridCoordinates += offGridControls_;
      report_.contours.push_back(std::move(contour_));
    }
    contour_ = {};
    last_.reset();
    offGridEnds_ = offGridControls_ = 0;
  }

  double tolerance_;
  Report& report_;
  Contour contour_;
  std::optional<CGPoint> last_;
  std::size_t offGridEnds_ = 0;
  std::size_t offGridControls_ = 0;
};

CGRect boxOf(const std::vector<Contour>& contours) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  double box[4] = {infinity, infinity, -infinity, -infinity};
  for (const Contour& contour : contours) {
    for (const CGPoint p : contour.points) {
      box[0] = std::min(box[0], p.x);
      box[1] = std::min(box[1], p.y);
      box[2] = std::max(box[2], p.x);
      box[3] = std::max(box[3], p.y);
    }
  }
  return {box[0], box[1], box[2] - box[0], box[3] - box[1]};
}

}  // namespace

std::size_t Report::openContours() const {
  return static_cast<std::size_t>(std::count_if(contours.begin(), contours.end(),
                                                [](const Contour& c) { return !c.isClosed; }));
}

std::size_t Report::impliedReturns() const {
  return static_cast<std::size_t>(
      std::count_if(contours.begin(), contours.end(),
                    [](const Contour& c) { return c.isClosed && !c.returnsExplicitly; }));
}

std::size_t Report::wrongWindings() const {
  return static_cast<std::size_t>(
      std::count_if(contours.begin(), contours.end(),
                    [](const Contour& c) { return (c.signedArea > 0) != (c.depth % 2 == 0); }));
}

bool Report::looksTheSameUnderBothRules() const {
  if (!meetings.empty()) return false;
  return std::all_of(contours.begin(), contours.end(), [this](const Contour& contour) {
    int turns = contour.signedArea > 0 ? 1 : -1;
    for (const Contour& other : contours) {
      if (&other != &contour) turns += windingNumber(other, contour.points.front());
    }
    return std::abs(turns) == static_cast<int>((contour.depth + 1) % 2);
  });
}

int windingNumber(const Contour& contour, CGPoint point) {
  int turns = 0;
  for (std::size_t i = 0; i < contour.points.size(); ++i) {
    const Edge edge = edgeOf(contour, i);
    const bool fromAbove = edge.from.y <= point.y;
    const bool toAbove = edge.to.y <= point.y;
    if (fromAbove == toAbove) continue;
    const double side = cross(edge.from, edge.to, point);
    if (toAbove ? side < 0 : side > 0) turns += fromAbove ? 1 : -1;
  }
  return turns;
}

std::vector<Contour> flatten(const CGPath& path, double tolerance) {
  Report report;
  Collector(tolerance, report).walk(path);
  return std::move(report.contours);
}

Report check(const CGPath& path) {
  Report report;
  if (!path.isFinite()) return report;
  const CGRect frame = path.boundingBox();
  if (CGRectIsNull(frame)) return report;
  report.frame = frame;
  const double longer = std::max(frame.size.width, frame.size.height);
  const double shorter = std::min(frame.size.width, frame.size.height);
  report.unit = (longer > 2.5 * shorter ? shorter : longer) / 24;
  const double tolerance = std::max(longer, 1e-9) / 20000;
  Collector(tolerance, report).walk(path);
  report.ink = boxOf(report.contours);
  findMeetings(report.contours, tolerance * 0.1, report.meetings);
  for (std::size_t k = 0; k < report.contours.size(); ++k) {
    Contour& contour = report.contours[k];
    for (std::size_t m = 0; m < report.contours.size(); ++m) {
      if (m == k) continue;
      const Contour& other = report.contours[m];
      contour.depth += static_cast<std::size_t>(windingNumber(other, contour.points.front()) != 0);
      if (m > k) {
        const double best = report.minimumGap ? *report.minimumGap * report.unit : 4 * longer;
        report.minimumGap = leastDistance(contour, other, best) / report.unit;
      }
    }
  }
  return report;
}

}  // namespace glyphwright::outline_check
