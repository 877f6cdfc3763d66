#include <glyphwright/platform/raster/stroke_curves.h>

#include <algorithm>
#include <cmath>

namespace glyphwright::raster {

using namespace pen;

namespace {

constexpr int kMaxSamples = 1024;

// The direction in which a cubic leaves its first point.
Vector endDirection(Vector p, Vector c1, Vector c2, Vector to, Vector fallback) {
  for (const Vector& target : {c1, c2, to}) {
    Vector d = target - p;
    if (normalize(d)) return d;
  }
  return fallback;
}

// The angle between two unit vectors from its chord: exact at 0, 10 % low at a right angle,
// where the joining steps are short anyway.
double turnBetween(Vector a, Vector b) {
  const double chord = length(b - a);
  return chord + chord * chord * chord / 24;
}

struct FloatVector {
  float x;
  float y;
};
FloatVector narrow(Vector v) {
  return {static_cast<float>(v.x), static_cast<float>(v.y)};
}
FloatVector operator-(FloatVector a, FloatVector b) {
  return {a.x - b.x, a.y - b.y};
}
float dot(FloatVector a, FloatVector b) {
  return a.x * b.x + a.y * b.y;
}
FloatVector operator*(FloatVector a, float k) {
  return {a.x * k, a.y * k};
}
Vector widened(FloatVector v) {
  return {v.x, v.y};
}

}  // namespace

StrokeCurves::StrokeCurves(const StrokePen& pen, double tolerance, const Kernels* kernels)
    : pen_(pen),
      kernels_(kernels),
      tolerance_(tolerance),
      bendFactor_(static_cast<float>(6.0 / 8.0 / tolerance)),
      turnFactor_(static_cast<float>(std::min(pen.half(), 1e9) / (8 * tolerance))) {}

bool StrokeCurves::begin(Vector p0, Vector p1, Vector p2, Vector p3) {
  p_[0] = p0;
  p_[1] = p1;
  p_[2] = p2;
  p_[3] = p3;
  isFast_ = kernels_ != nullptr && prepareFast();
  return isFast_ || prepareCareful();
}

void StrokeCurves::draw() {
  if (!isFast_ || !drawFast()) drawCareful();
}

// The side of a curve that bends by p'' strays from a chord over the parameter step h by h²/8 ·
// (|p''| + half·θ'²), where θ is the direction and |p''| is at most six times the bend. The legs'
// turns stand for θ; the square of their sum is at most twice the sum of their squares.
bool StrokeCurves::prepareFast() {
  const FloatVector l0 = narrow(p_[1] - p_[0]);
  const FloatVector l1 = narrow(p_[2] - p_[1]);
  const FloatVector l2 = narrow(p_[3] - p_[2]);
  const float dot01 = dot(l0, l1);
  const float dot12 = dot(l1, l2);
  const float square0 = dot(l0, l0);
  const float length0 = std::sqrt(square0);
  const float length1 = std::sqrt(dot(l1, l1));
  const float length2 = std::sqrt(dot(l2, l2));
  const float length01 = length0 * length1;
  const float length12 = length1 * length2;
  // All of the curve's directions within a third of a turn: it has no cusp.
  if (!(dot01 > 0 && dot12 > 0 && dot(l0, l2) > -0.5F * length0 * length2)) return false;
  const float inverse = 1.0F / (length01 * length2);
  const FloatVector e0 = l0 * (length12 * inverse);
  const FloatVector e2 = l2 * (length01 * inverse);
  const FloatVector u = l1 - l0;
  const FloatVector v = l2 - l1;
  const FloatVector a = v - u;
  // A pen beyond all pictures; with a wider one the corners would leave the floats' range.
  if (!(pen_.half() < 1e9)) return false;
  const auto half = static_cast<float>(pen_.half());
  // Tight from the start on?
  const float turnAtStart = half * (2.0F / 3.0F) * (u.x * e0.y - u.y * e0.x);
  if (!(std::fabs(turnAtStart) <= square0)) return false;

  const float bend = std::sqrt(std::max(dot(u, u), dot(v, v)));
  // The square of a small angle is twice what its cosine lacks to one.
  const float lacking = ((length01 - dot01) * length2 + (length12 - dot12) * length0) * inverse;
  const float turnSquare = 4.0F * std::max(lacking, 0.0F);
  const float wanted = std::sqrt(bend * bendFactor_ + turnSquare * turnFactor_);
  const int count = wanted < kMaxChords - 1 ? static_cast<int>(wanted) + 1 : kMaxChords;
  const StrokeOutline& out = pen_.outline();
  const FloatVector start = narrow(p_[0] - Vector{out.originX, out.originY});
  curve_ = {start.x, start.y, l0.x, l0.y, u.x, u.y, a.x, a.y, half, count};
  const float step = 3.0F / static_cast<float>(count);
  start_ = {widened(e0), {widened(e0), length0 * step}, false};
  end_ = {widened(e2), {widened(e2), length2 * step}, false};
  return true;
}

bool StrokeCurves::drawFast() {
  OutlineSide& left = pen_.outline().left;
  OutlineSide& right = pen_.outline().right;
  const auto count = static_cast<std::size_t>(curve_.count);
  left.makeRoom(count + 8);
  right.makeRoom(count + 8);
  const StrokeCorners corners{left.x.data() + left.count, left.y.data() + left.count,
                              right.x.data() + right.count, right.y.data() + right.count};
  if (!kernels_->strokeCurve(curve_, corners)) {
    prepareCareful();
    return false;
  }
  left.count += count - 1;
  right.count += count - 1;
  return true;
}

int StrokeCurves::carefulCount() const {
  const Vector u = p_[0] - p_[1] * 2 + p_[2];
  const Vector v = p_[1] - p_[2] * 2 + p_[3];
  const double bend = std::max(length(u), length(v));
  // As for the others; the control polygon's turning bounds the angle.
  double turn = 0;
  Vector last{};
  bool hasLast = false;
  for (Vector leg : {p_[1] - p_[0], p_[2] - p_[1], p_[3] - p_[2]}) {
    if (!normalize(leg)) continue;
    if (hasLast) turn += turnBetween(last, leg);
    last = leg;
    hasLast = true;
  }
  const double chords = std::sqrt(bend * (6.0 / 8.0) / tolerance_);
  const double count = chords + turn * std::sqrt(pen_.half() / (8 * tolerance_));
  return count < kMaxSamples ? static_cast<int>(count) + 1 : kMaxSamples;
}

// Samples the curve.
bool StrokeCurves::prepareCareful() {
  const Vector p = p_[0];
  const Vector to = p_[3];
  if (length(to - p) == 0 && length(p_[1] - p) == 0 && length(p_[2] - p) == 0) return false;
  const int count = carefulCount();
  const double h = 1.0 / count;
  const Vector u = p - p_[1] * 2 + p_[2];
  const Vector v = p_[1] - p_[2] * 2 + to;
  const Vector a = v - u;
  const Vector b = u * 3;
  const Vector c = (p_[1] - p) * 3;
  Vector chord = to - p;
  if (!normalize(chord)) chord = {1, 0};
  std::vector<Node>& nodes = pen_.outline().nodes;
  nodes.clear();
  nodes.push_back({p, endDirection(p, p_[1], p_[2], to, chord)});
  for (int k = 1; k < count; ++k) {
    const double t = k * h;
    // Inner samples move out of the hollow by h²·p''/12, as in filling, so that the area stays.
    const Vector bulge = (a * (6 * t) + b * 2) * (h * h / 12);
    const Vector at = ((a * t + b) * t + c) * t + p - bulge;
    Vector direction = (a * (3 * t) + b * 2) * t + c;
    if (!normalize(direction)) direction = nodes.back().direction;
    nodes.push_back({at, direction});
  }
  nodes.push_back({to, -endDirection(to, p_[2], p_[1], p, -chord)});
  const std::size_t last = nodes.size() - 1;
  start_ = {nodes[0].direction, legBetween(nodes[0].at, nodes[1].at), true};
  end_ = {nodes[last].direction, legBetween(nodes[last - 1].at, nodes[last].at), true};
  return true;
}

void StrokeCurves::drawCareful() {
  const std::vector<Node>& nodes = pen_.outline().nodes;
  Leg in = start_.leg;
  for (std::size_t i = 1; i + 1 < nodes.size(); ++i) {
    const Leg out = legBetween(nodes[i].at, nodes[i + 1].at);
    pen_.bend(nodes[i].at, leftOf(nodes[i].direction), in, out);
    in = out;
  }
}

}  // namespace glyphwright::raster
