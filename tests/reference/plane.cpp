#include "plane.h"

#include <algorithm>
#include <cmath>

namespace glyphwright::reference {

namespace {

struct Line {
  CGPoint from;
  CGPoint to;
};

constexpr double kFlatness = 1.0 / 20000;

void addCubic(CGPoint p0, CGPoint p1, CGPoint p2, CGPoint p3, std::vector<Line>& lines) {
  const double bend = std::max(std::hypot(p0.x - 2 * p1.x + p2.x, p0.y - 2 * p1.y + p2.y),
                               std::hypot(p1.x - 2 * p2.x + p3.x, p1.y - 2 * p2.y + p3.y));
  const int pieces = 1 + static_cast<int>(std::sqrt(0.75 * bend / kFlatness));
  CGPoint last = p0;
  for (int i = 1; i <= pieces; ++i) {
    const double t = static_cast<double>(i) / pieces;
    const double s = 1 - t;
    const CGPoint next = {
        s * s * s * p0.x + 3 * s * s * t * p1.x + 3 * s * t * t * p2.x + t * t * t * p3.x,
        s * s * s * p0.y + 3 * s * s * t * p1.y + 3 * s * t * t * p2.y + t * t * t * p3.y};
    lines.push_back({last, next});
    last = next;
  }
}

/// All lines of the path; open subpaths are closed when `close` asks for it.
std::vector<Line> flatten(const CGPath& path, bool close) {
  std::vector<Line> lines;
  CGPoint start;
  CGPoint last;
  const CGPoint* p = path.points().data();
  for (const PathVerb verb : path.verbs()) {
    switch (verb) {
      case PathVerb::move:
        if (close) lines.push_back({last, start});
        start = last = p[0];
        break;
      case PathVerb::line:
        lines.push_back({last, p[0]});
        last = p[0];
        break;
      case PathVerb::quad: {
        const CGPoint c1 = {last.x + 2 * (p[0].x - last.x) / 3, last.y + 2 * (p[0].y - last.y) / 3};
        const CGPoint c2 = {p[1].x + 2 * (p[0].x - p[1].x) / 3, p[1].y + 2 * (p[0].y - p[1].y) / 3};
        addCubic(last, c1, c2, p[1], lines);
        last = p[1];
        break;
      }
      case PathVerb::cubic:
        addCubic(last, p[0], p[1], p[2], lines);
        last = p[2];
        break;
      case PathVerb::close:
        lines.push_back({last, start});
        last = start;
        break;
    }
    p += pointCount(verb);
  }
  if (close) lines.push_back({last, start});
  return lines;
}

struct Crossing {
  double x;
  int direction;
};

/// Adds `weight` times the covered share of each pixel between two places of one row. What lies
/// between the first and the last pixel is noted in `runs` as a rise and a fall.
void addExtent(Plane& plane, Plane& runs, std::size_t row, double from, double to, double weight) {
  from = std::clamp(from, 0.0, static_cast<double>(plane.width));
  to = std::clamp(to, 0.0, static_cast<double>(plane.width));
  if (!(from < to)) return;
  const auto first = static_cast<std::size_t>(from);
  const auto last = static_cast<std::size_t>(std::ceil(to)) - 1;
  if (first == last) {
    plane.at(first, row) += weight * (to - from);
    return;
  }
  plane.at(first, row) += weight * (static_cast<double>(first + 1) - from);
  plane.at(last, row) += weight * (to - static_cast<double>(last));
  runs.at(first + 1, row) += weight;
  runs.at(last, row) -= weight;
}

}  // namespace

namespace {

/// The mean over each pixel of what `valueOf` makes of the number of turns around a point.
template <typename ValueOf>
Plane meanOf(const CGPath& path, std::size_t width, std::size_t height, ValueOf valueOf) {
  constexpr int kLinesPerRow = 256;
  Plane plane(width, height);
  Plane runs(width, height);
  std::vector<std::vector<Crossing>> scans(height * kLinesPerRow);
  for (Line line : flatten(path, true)) {
    int direction = 1;
    if (line.from.y > line.to.y) {
      std::swap(line.from, line.to);
      direction = -1;
    }
    const auto scanCount = static_cast<double>(scans.size());
    const double first = std::ceil(line.from.y * kLinesPerRow - 0.5);
    const double end = std::ceil(line.to.y * kLinesPerRow - 0.5);
    for (double k = std::max(first, 0.0); k < std::min(end, scanCount); ++k) {
      const double y = (k + 0.5) / kLinesPerRow;
      const double t = (y - line.from.y) / (line.to.y - line.from.y);
      scans[static_cast<std::size_t>(k)].push_back(
          {line.from.x + t * (line.to.x - line.from.x), direction});
    }
  }
  for (std::size_t k = 0; k < scans.size(); ++k) {
    std::vector<Crossing>& scan = scans[k];
    std::sort(scan.begin(), scan.end(),
              [](const Crossing& a, const Crossing& b) { return a.x < b.x; });
    int turns = 0;
    for (std::size_t i = 0; i + 1 < scan.size(); ++i) {
      turns += scan[i].direction;
      const double value = valueOf(turns);
      if (value == 0) continue;
      addExtent(plane, runs, k / kLinesPerRow, scan[i].x, scan[i + 1].x, value / kLinesPerRow);
    }
  }
  for (std::size_t y = 0; y < height; ++y) {
    double run = 0;
    for (std::size_t x = 0; x < width; ++x) {
      run += runs.at(x, y);
      plane.at(x, y) += run;
    }
  }
  return plane;
}

}  // namespace

Plane coverage(const CGPath& path, bool evenOdd, std::size_t width, std::size_t height) {
  Plane plane = meanOf(path, width, height, [&](int turns) {
    return (evenOdd ? turns % 2 != 0 : turns != 0) ? 1.0 : 0.0;
  });
  for (double& value : plane.values) value = std::clamp(value, 0.0, 1.0);
  return plane;
}

Plane winding(const CGPath& path, std::size_t width, std::size_t height) {
  return meanOf(path, width, height, [](int turns) { return static_cast<double>(turns); });
}

Plane neighbourhood(const CGPath& path, double radius, std::size_t width, std::size_t height) {
  constexpr std::size_t kSide = 16;
  std::vector<bool> inside(width * height * kSide * kSide);
  const std::size_t columns = width * kSide;
  const std::size_t rows = height * kSide;
  for (const Line& line : flatten(path, false)) {
    const double dx = line.to.x - line.from.x;
    const double dy = line.to.y - line.from.y;
    const double length2 = dx * dx + dy * dy;
    const auto range = [&](double a, double b, std::size_t count) {
      const double low = (std::min(a, b) - radius) * kSide;
      const double high = (std::max(a, b) + radius) * kSide + 1;
      const auto limit = static_cast<double>(count);
      return std::pair(static_cast<std::size_t>(std::clamp(low, 0.0, limit)),
                       static_cast<std::size_t>(std::clamp(high, 0.0, limit)));
    };
    const auto [x0, x1] = range(line.from.x, line.to.x, columns);
    const auto [y0, y1] = range(line.from.y, line.to.y, rows);
    for (std::size_t y = y0; y < y1; ++y) {
      for (std::size_t x = x0; x < x1; ++x) {
        const double px = (static_cast<double>(x) + 0.5) / kSide - line.from.x;
        const double py = (static_cast<double>(y) + 0.5) / kSide - line.from.y;
        const double t = length2 > 0 ? std::clamp((px * dx + py * dy) / length2, 0.0, 1.0) : 0.0;
        const double ex = px - t * dx;
        const double ey = py - t * dy;
        if (ex * ex + ey * ey <= radius * radius) inside[y * columns + x] = true;
      }
    }
  }
  Plane plane(width, height);
  for (std::size_t i = 0; i < inside.size(); ++i) {
    if (inside[i]) plane.at(i % columns / kSide, i / columns / kSide) += 1.0 / (kSide * kSide);
  }
  return plane;
}

Plane gaussian(const Plane& plane, double sigma) {
  const int reach = static_cast<int>(std::ceil(2 * sigma));
  Plane blurred(plane.width, plane.height);
  double sum = 0;
  std::vector<double> kernel;
  for (int dy = -reach; dy <= reach; ++dy) {
    for (int dx = -reach; dx <= reach; ++dx) {
      const bool near = std::abs(dx) <= 2 * sigma && std::abs(dy) <= 2 * sigma;
      kernel.push_back(near ? std::exp(-(dx * dx + dy * dy) / (2 * sigma * sigma)) : 0);
      sum += kernel.back();
    }
  }
  const int width = static_cast<int>(plane.width);
  const int height = static_cast<int>(plane.height);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      double value = 0;
      for (int dy = std::max(-reach, -y); dy <= std::min(reach, height - 1 - y); ++dy) {
        for (int dx = std::max(-reach, -x); dx <= std::min(reach, width - 1 - x); ++dx) {
          const auto tap = static_cast<std::size_t>((dy + reach) * (2 * reach + 1) + dx + reach);
          value += kernel[tap] *
                   plane.at(static_cast<std::size_t>(x + dx), static_cast<std::size_t>(y + dy));
        }
      }
      blurred.at(static_cast<std::size_t>(x), static_cast<std::size_t>(y)) = value / sum;
    }
  }
  return blurred;
}

}  // namespace glyphwright::reference
