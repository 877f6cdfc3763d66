#include "swept_pen.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <span>
#include <vector>

namespace glyphwright::reference {
namespace {

CGPoint operator+(CGPoint a, CGPoint b) {
  return {a.x + b.x, a.y + b.y};
}
CGPoint operator-(CGPoint a, CGPoint b) {
  return {a.x - b.x, a.y - b.y};
}
CGPoint operator*(CGPoint a, double k) {
  return {a.x * k, a.y * k};
}
CGPoint across(CGPoint direction) {
  return {direction.y, -direction.x};
}
bool hasLength(CGPoint a) {
  return a.x != 0 || a.y != 0;
}
CGPoint unit(CGPoint a) {
  return a * (1 / std::hypot(a.x, a.y));
}
double cross(CGPoint a, CGPoint b) {
  return a.x * b.y - a.y * b.x;
}
double angleBetween(CGPoint a, CGPoint b) {
  return std::atan2(cross(a, b), a.x * b.x + a.y * b.y);
}

/// A place on a segment, and the unit vector in which it is heading there.
struct Place {
  double t;
  CGPoint at;
  CGPoint heading;
};

/// Places close enough to each other along a segment.
using Way = std::vector<Place>;

Place placeOf(const CGPoint* p, double t, CGPoint fallback) {
  const double s = 1 - t;
  const CGPoint heading =
      (p[1] - p[0]) * (s * s) + (p[2] - p[1]) * (2 * s * t) + (p[3] - p[2]) * (t * t);
  return {t,
          p[0] * (s * s * s) + p[1] * (3 * s * s * t) + p[2] * (3 * s * t * t) + p[3] * (t * t * t),
          hasLength(heading) ? unit(heading) : fallback};
}

/// Adds what lies between two places, and the second one, until the heading changes by no more than
/// `turn` from one to the next. Where it bends the other way, both may be heading alike, and the
/// middle is not.
void addBetween(const CGPoint* p, const Place& from, const Place& to, double turn, int depth,
                Way& way) {
  const CGPoint step = to.at - from.at;
  const Place middle = placeOf(p, (from.t + to.t) / 2, from.heading);
  const auto turns = [&](const Place& place) {
    return std::abs(angleBetween(place.heading, middle.heading)) > turn;
  };
  if (depth < 4 ||
      (depth < 18 && std::hypot(step.x, step.y) > 1e-5 && (turns(from) || turns(to)))) {
    addBetween(p, from, middle, turn, depth + 1, way);
    addBetween(p, middle, to, turn, depth + 1, way);
  } else {
    way.push_back(to);
  }
}

Way wayOf(CGPoint p0, CGPoint p1, CGPoint p2, CGPoint p3, double turn) {
  const CGPoint p[] = {p0, p1, p2, p3};
  Place first{0, p0, {}};
  Place last{1, p3, {}};
  for (const CGPoint& to : {p3, p2, p1}) {
    if (hasLength(to - p0)) first.heading = unit(to - p0);
  }
  for (const CGPoint& from : {p0, p1, p2}) {
    if (hasLength(p3 - from)) last.heading = unit(p3 - from);
  }
  const double bend = std::max(std::hypot(p0.x - 2 * p1.x + p2.x, p0.y - 2 * p1.y + p2.y),
                               std::hypot(p1.x - 2 * p2.x + p3.x, p1.y - 2 * p2.y + p3.y));
  Way way{first};
  addBetween(p, first, last, turn, bend < 1e-9 ? 18 : 0, way);
  return way;
}

class Sweeper {
 public:
  Sweeper(const StrokeStyle& style, const CGAffineTransform& toPixels, SweptPen& out)
      : style_(style), half_(style.width / 2), toPixels_(toPixels), out_(out) {
    samples_.resize(out.covered.values.size() * kRows);
  }

  void contour(const std::vector<Way>& ways, CGPoint start, bool isClosed, bool isDot) {
    if (ways.empty()) {
      if (isDot && style_.cap == CGLineCap::round) fan(start, {1, 0}, 2 * kPi);
      return;
    }
    for (std::size_t i = 0; i < ways.size(); ++i) {
      along(ways[i]);
      if (i + 1 < ways.size()) join(ways[i], ways[i + 1]);
    }
    if (isClosed) {
      join(ways.back(), ways.front());
    } else {
      cap(ways.front().front().at, ways.front().front().heading * -1);
      cap(ways.back().back().at, ways.back().back().heading);
    }
  }

  void finish() {
    const std::size_t width = out_.covered.width;
    for (std::size_t i = 0; i < samples_.size(); ++i) {
      out_.covered.at(i % width, i / width / kRows) += std::popcount(samples_[i]) * kShare;
    }
  }

 private:
  static constexpr double kPi = 3.14159265358979323846;
  static constexpr std::size_t kRows = 8;  // of sixteen samples each, in a pixel
  static constexpr double kColumns = 16;
  static constexpr double kShare = 1.0 / (kRows * kColumns);

  void along(const Way& way) {
    for (std::size_t i = 1; i < way.size(); ++i) {
      const CGPoint before = across(way[i - 1].heading) * half_;
      const CGPoint after = across(way[i].heading) * half_;
      const double angle = angleBetween(before, after);
      for (const double side : {1.0, -1.0}) {
        if (std::abs(angle) > 0.03) {
          // Where it turns back, or by this much between places that are no longer halved, the pen
          // turns on the spot.
          fan(way[i].at, before * (side / half_), angle);
        } else {
          strip(way[i - 1].at, before * side, way[i].at, after * side);
        }
      }
    }
  }

  // What half of the pen sweeps on a small step; where its places cross, that is two triangles.
  void strip(CGPoint from, CGPoint fromReach, CGPoint to, CGPoint toReach) {
    const CGPoint step = to - from;
    const double turned = cross(fromReach, toReach);
    const double crossing = cross(step, toReach) / turned;
    const double crossingTo = cross(step, fromReach) / turned;
    if (crossing > 0 && crossing < 1 && crossingTo > 0 && crossingTo < 1) {
      const CGPoint middle = from + fromReach * crossing;
      polygon({{from, middle, to}});
      polygon({{middle, from + fromReach, to + toReach}});
    } else {
      polygon({{from, from + fromReach, to + toReach}});
      polygon({{from, to + toReach, to}});
    }
  }

  void join(const Way& in, const Way& out) {
    const auto& [t, at, heading] = out.front();
    const double angle = angleBetween(in.back().heading, heading);
    const CGPoint from = across(in.back().heading) * (angle > 0 ? 1 : -1);
    const CGPoint to = across(heading) * (angle > 0 ? 1 : -1);
    const double cosine = std::cos(angle / 2);
    if (style_.join == CGLineJoin::round) {
      fan(at, from, angle);
    } else if (style_.join == CGLineJoin::miter && style_.miterLimit >= 1 &&
               style_.miterLimit * cosine >= 1) {
      polygon({{at, at + from * half_, at + (from + to) * (half_ / (2 * cosine * cosine)),
                at + to * half_}});
    } else {
      polygon({{at, at + from * half_, at + to * half_}});
    }
  }

  void cap(CGPoint at, CGPoint forward) {
    const CGPoint side = across(forward);
    if (style_.cap == CGLineCap::round) fan(at, side, kPi);
    if (style_.cap == CGLineCap::square) {
      polygon({{at + side * half_, at + (side + forward) * half_, at + (forward - side) * half_,
                at - side * half_}});
    }
  }

  // A sector of the pen's circle.
  void fan(CGPoint at, CGPoint from, double angle) {
    const int steps = 1 + static_cast<int>(std::abs(angle) / 0.06);
    const auto rim = [&](int i) {
      const double turned = angle * i / steps;
      return at + (from * std::cos(turned) - across(from) * std::sin(turned)) * half_;
    };
    for (int i = 0; i < steps; ++i) polygon({{at, rim(i), rim(i + 1)}});
  }

  // The samples inside a convex polygon.
  void polygon(std::vector<CGPoint> corners) {
    double top = INFINITY;
    double bottom = -INFINITY;
    for (CGPoint& p : corners) {
      p = CGPointApplyAffineTransform(p, toPixels_);
      p = {p.x * kColumns - 0.5, p.y * kRows - 0.5};
      top = std::min(top, p.y);
      bottom = std::max(bottom, p.y);
    }
    const auto rows = static_cast<double>(out_.covered.height * kRows);
    const auto columns = static_cast<double>(out_.covered.width) * kColumns;
    for (double y = std::max(0.0, std::ceil(top)); y <= std::min(bottom, rows - 1); ++y) {
      double left = INFINITY;
      double right = -INFINITY;
      for (std::size_t i = 0; i < corners.size(); ++i) {
        const CGPoint& a = corners[i];
        const CGPoint& b = corners[(i + 1) % corners.size()];
        if ((a.y <= y) == (b.y <= y)) continue;
        const double x = a.x + (b.x - a.x) * ((y - a.y) / (b.y - a.y));
        left = std::min(left, x);
        right = std::max(right, x);
      }
      left = std::max(0.0, std::ceil(left));
      right = std::min(columns - 1, std::floor(right));
      if (left <= right)
        mark(static_cast<std::size_t>(y), static_cast<unsigned>(left),
             static_cast<unsigned>(right));
    }
  }

  void mark(std::size_t row, unsigned first, unsigned last) {
    const std::size_t width = out_.covered.width;
    for (unsigned i = first / 16; i <= last / 16; ++i) {
      const unsigned from = i == first / 16 ? first % 16 : 0;
      const unsigned to = i == last / 16 ? last % 16 : 15;
      samples_[row * width + i] |=
          static_cast<std::uint16_t>((0xFFFFU << from) & (0xFFFFU >> (15 - to)));
      out_.counted.at(i, row / kRows) += (to + 1 - from) * kShare;
    }
  }

  const StrokeStyle& style_;
  double half_;
  const CGAffineTransform& toPixels_;
  SweptPen& out_;
  std::vector<std::uint16_t> samples_;  // a bit for each
};

}  // namespace

SweptPen sweptPen(const CGPath& path, const StrokeStyle& style, const CGAffineTransform& toPixels,
                  std::size_t width, std::size_t height) {
  SweptPen out{Plane(width, height), Plane(width, height)};
  Sweeper sweeper(style, toPixels, out);
  // Where a curve begins to bend the other way its heading goes further than at the places around,
  // by up to half a step: the end of a long pen shall not miss more than a tenth of a pixel by it.
  const double reach =
      style.width / 2 *
      std::hypot(std::hypot(toPixels.a, toPixels.b), std::hypot(toPixels.c, toPixels.d));
  const double turn = std::clamp(0.2 / reach, 0.001, 0.012);
  const auto points = path.points();
  const CGPoint* p = points.data();
  CGPoint start;
  CGPoint last;
  std::vector<Way> ways;
  bool isDot = false;
  bool isClosed = false;
  const auto add = [&](CGPoint p1, CGPoint p2, CGPoint p3) {
    isDot = true;
    if (hasLength(p1 - last) || hasLength(p2 - last) || hasLength(p3 - last)) {
      ways.push_back(wayOf(last, p1, p2, p3, turn));
    }
    last = p3;
  };
  const auto line = [&](CGPoint to) {
    add(last + (to - last) * (1.0 / 3), to + (last - to) * (1.0 / 3), to);
  };
  const auto endContour = [&] {
    sweeper.contour(ways, start, isClosed, isDot);
    ways.clear();
    isDot = isClosed = false;
  };
  for (const PathVerb verb : path.verbs()) {
    switch (verb) {
      case PathVerb::move:
        endContour();
        start = last = p[0];
        break;
      case PathVerb::line:
        line(p[0]);
        break;
      case PathVerb::quad:
        add(last + (p[0] - last) * (2.0 / 3), p[1] + (p[0] - p[1]) * (2.0 / 3), p[1]);
        break;
      case PathVerb::cubic:
        add(p[0], p[1], p[2]);
        break;
      case PathVerb::close:
        line(start);
        isClosed = true;
        break;
    }
    p += pointCount(verb);
  }
  endContour();
  sweeper.finish();
  return out;
}

}  // namespace glyphwright::reference
