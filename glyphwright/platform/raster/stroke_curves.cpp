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

}  // namespace

StrokeCurves::StrokeCurves(const StrokePen& pen, double tolerance, const Kernels* kernels)
    : pen_(pen),
      // A wider pen is beyond all pictures, and its corners would leave the floats' range.
      kernels_(pen.half() < 1e9 ? kernels : nullptr),
      tolerance_(tolerance) {}

void StrokeCurves::prepare() {
  StrokeOutline& out = pen_.outline();
  if (kernels_ == nullptr || out.curves.empty()) return;
  const CurvePen pen{out.originX, out.originY, static_cast<float>(pen_.half()),
                     static_cast<float>(6.0 / 8.0 / tolerance_),
                     static_cast<float>(pen_.half() / (8 * tolerance_))};
  const std::size_t wanted = out.curves.size() + 8;
  if (out.prepared.size() < wanted) out.prepared.resize(2 * wanted);
  kernels_->prepareCurves(out.curves.data(), out.curves.size(), pen, out.prepared.data());
}

bool StrokeCurves::begin(std::size_t index) {
  const StrokeOutline& out = pen_.outline();
  points_ = out.curves[index];
  if (kernels_ == nullptr || out.prepared[index].tightCount == 0) {
    way_ = Way::careful;
    return prepareCareful();
  }
  prepared_ = &out.prepared[index];
  if (prepared_->count == 0) {
    prepareBent();
    return true;
  }
  way_ = Way::fast;
  const Vector from{prepared_->startAlongX, prepared_->startAlongY};
  const Vector to{prepared_->endAlongX, prepared_->endAlongY};
  start_ = {from, {from, prepared_->startLength}, false};
  end_ = {to, {to, prepared_->endLength}, false};
  return true;
}

void StrokeCurves::draw() {
  if (way_ == Way::fast) {
    if (drawFast()) return;
    prepareBent();
  }
  if (way_ == Way::bent) {
    drawBent();
  } else {
    drawCareful();
  }
}

// False when the curve turns out to be bent more tightly than the pen.
bool StrokeCurves::drawFast() {
  OutlineSide& left = pen_.outline().left;
  OutlineSide& right = pen_.outline().right;
  const auto count = static_cast<std::size_t>(prepared_->count);
  left.makeRoom(count + 8);
  right.makeRoom(count + 8);
  const StrokeCorners corners{left.x.data() + left.count, left.y.data() + left.count,
                              right.x.data() + right.count, right.y.data() + right.count};
  const StrokeCurve curve{prepared_->cubic(), static_cast<float>(pen_.half()), prepared_->count};
  if (!kernels_->strokeCurve(curve, corners)) return false;
  left.count += count - 1;
  right.count += count - 1;
  return true;
}

void StrokeCurves::prepareBent() {
  way_ = Way::bent;
  const auto count = static_cast<std::size_t>(prepared_->tightCount);
  const std::size_t samples = count + 16;
  const std::size_t corners = 3 * count + 16;
  std::vector<float>& memory = pen_.outline().bent;
  if (memory.size() < 4 * (samples + corners)) memory.resize(4 * (samples + corners));
  float* sample = memory.data();
  float* corner = sample + 4 * samples;
  bent_ = {sample, sample + samples, sample + 2 * samples, sample + 3 * samples,
           corner, corner + corners, corner + 2 * corners, corner + 3 * corners};
  kernels_->bendCurve({prepared_->cubic(), static_cast<float>(pen_.half()), prepared_->tightCount},
                      bent_);
  const auto legAfter = [&](std::size_t i) {
    return legBetween({bent_.x[i], bent_.y[i]}, {bent_.x[i + 1], bent_.y[i + 1]});
  };
  start_ = {{prepared_->startAlongX, prepared_->startAlongY}, legAfter(0), true};
  end_ = {{prepared_->endAlongX, prepared_->endAlongY}, legAfter(count - 1), true};
}

void StrokeCurves::drawBent() {
  pen_.outline().left.put(bent_.leftX, bent_.leftY, bent_.leftCount);
  pen_.outline().right.put(bent_.rightX, bent_.rightY, bent_.rightCount);
}

int StrokeCurves::carefulCount() const {
  const Vector u = point(0) - point(1) * 2 + point(2);
  const Vector v = point(1) - point(2) * 2 + point(3);
  const double bend = std::max(length(u), length(v));
  // As for the others; the control polygon's turning bounds the angle.
  double turn = 0;
  Vector last{};
  bool hasLast = false;
  for (Vector leg : {point(1) - point(0), point(2) - point(1), point(3) - point(2)}) {
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
  const Vector p = point(0);
  const Vector control1 = point(1);
  const Vector control2 = point(2);
  const Vector to = point(3);
  if (length(to - p) == 0 && length(control1 - p) == 0 && length(control2 - p) == 0) return false;
  const int count = carefulCount();
  const double h = 1.0 / count;
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
  for (int k = 1; k < count; ++k) {
    const double t = k * h;
    // Inner samples move out of the hollow by h²·p''/12, as in filling, so that the area stays.
    const Vector bulge = (a * (6 * t) + b * 2) * (h * h / 12);
    const Vector at = ((a * t + b) * t + c) * t + p - bulge;
    Vector direction = (a * (3 * t) + b * 2) * t + c;
    if (!normalize(direction)) direction = nodes.back().direction;
    nodes.push_back({at, direction});
  }
  nodes.push_back({to, -endDirection(to, control2, control1, p, -chord)});
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
