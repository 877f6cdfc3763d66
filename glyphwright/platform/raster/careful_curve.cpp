#include <glyphwright/platform/raster/careful_curve.h>

#include <algorithm>
#include <cmath>

namespace glyphwright::raster {

using namespace pen;

namespace {

constexpr int kMaxSamples = 1024;

Vector vectorTo(const CGPoint& p) {
  return {p.x, p.y};
}

// The direction in which a cubic leaves its first point.
Vector endDirection(Vector p, Vector c1, Vector c2, Vector to, Vector fallback) {
  for (const Vector& target : {c1, c2, to}) {
    Vector d = target - p;
    if (normalize(d)) return d;
  }
  return fallback;
}

// As for those that the loops take; the control polygon's turning bounds the angle.
int chordCount(const Vector* points, double half, double tolerance) {
  const Vector legs[] = {points[1] - points[0], points[2] - points[1], points[3] - points[2]};
  const double bend = std::max(length(legs[1] - legs[0]), length(legs[2] - legs[1]));
  double turn = 0;
  Vector last{};
  bool hasLast = false;
  for (Vector leg : legs) {
    if (!normalize(leg)) continue;
    if (hasLast) turn += turnBetween(last, leg);
    last = leg;
    hasLast = true;
  }
  const double chords = std::sqrt(bend * (6.0 / 8.0) / tolerance);
  const double count = chords + turn * std::sqrt(half / (8 * tolerance));
  return count < kMaxSamples ? static_cast<int>(count) + 1 : kMaxSamples;
}

}  // namespace

// Samples the curve.
bool CarefulCurve::begin(const CGPoint& first, const CGPoint& second, const CGPoint& third,
                         const CGPoint& last) {
  const Vector p = vectorTo(first);
  const Vector control1 = vectorTo(second);
  const Vector control2 = vectorTo(third);
  const Vector to = vectorTo(last);
  if (length(to - p) == 0 && length(control1 - p) == 0 && length(control2 - p) == 0) return false;
  const Vector points[] = {p, control1, control2, to};
  const int chords = chordCount(points, pen_.half(), tolerance_);
  const double h = 1.0 / chords;
  const Vector u = p - control1 * 2 + control2;
  const Vector v = control1 - control2 * 2 + to;
  const Vector a = v - u;
  const Vector b = u * 3;
  const Vector c = (control1 - p) * 3;
  Vector chord = to - p;
  if (!normalize(chord)) chord = {1, 0};
  std::vector<Node>& nodes = pen_.outline().nodes;
  nodes.clear();
  nodes.push_back({p, endDirection(p, control1, control2, to, chord)});
  for (int k = 1; k < chords; ++k) {
    const double t = k * h;
    // Inner samples move out of the hollow by h²·p''/12, as in filling, so that the area stays.
    const Vector bulge = (a * (6 * t) + b * 2) * (h * h / 12);
    const Vector at = ((a * t + b) * t + c) * t + p - bulge;
    Vector direction = (a * (3 * t) + b * 2) * t + c;
    if (!normalize(direction)) direction = nodes.back().direction;
    nodes.push_back({at, direction});
  }
  nodes.push_back({to, -endDirection(to, control2, control1, p, -chord)});
  const std::size_t end = nodes.size() - 1;
  start_ = {nodes[0].direction, legBetween(nodes[0].at, nodes[1].at), true};
  end_ = {nodes[end].direction, legBetween(nodes[end - 1].at, nodes[end].at), true};
  return true;
}

void CarefulCurve::draw() const {
  const std::vector<Node>& nodes = pen_.outline().nodes;
  Leg in = start_.leg;
  for (std::size_t i = 1; i + 1 < nodes.size(); ++i) {
    const Leg out = legBetween(nodes[i].at, nodes[i + 1].at);
    pen_.bend(nodes[i].at, leftOf(nodes[i].direction), in, out);
    in = out;
  }
}

}  // namespace glyphwright::raster
