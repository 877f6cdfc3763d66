#include <glyphwright/platform/raster/bent_curve.h>

#include <algorithm>
#include <cmath>

#include <glyphwright/platform/raster/chords.h>

namespace glyphwright::raster {

using namespace pen;

namespace {

// How often a curve may be halved for its bend.
constexpr int kDeepest = 10;

// What is left of a cusp has a direction as long as it is larger than this part of its coordinates,
// and has been halved so often that it may be.
constexpr double kCusp = 1e-12;
constexpr int kDeepestCusp = 40;

// Steps that can be left out at once.
constexpr int kLeastLeftOut = 16;
constexpr int kMostLeftOut = 256;

struct Sample {
  Vector at;
  Vector along;  // a third of p'
  Vector bend;   // a sixth of p''
};

Vector vectorTo(const CGPoint& p) {
  return {p.x, p.y};
}

Vector middle(Vector a, Vector b) {
  return (a + b) * 0.5;
}

}  // namespace

// A part of a cubic.
struct BentCurve::Piece {
  Vector p0, p1, p2, p3;

  // How many chords it would take for its bend; this halves with it, and so does its turn.
  double chords(double tolerance) const {
    const double bend = std::max(length(p0 - p1 * 2 + p2), length(p1 - p2 * 2 + p3));
    return chordsOf(bend, tolerance);
  }

  bool isPoint() const {
    const double size = length(p1 - p0) + length(p2 - p1) + length(p3 - p2);
    return size <= kCusp * (std::fabs(p0.x) + std::fabs(p0.y));
  }

  double turn() const {
    Vector last{};
    double sum = 0;
    for (Vector leg : {p1 - p0, p2 - p1, p3 - p2}) {
      if (!normalize(leg)) continue;
      if (last.x != 0 || last.y != 0) sum += turnBetween(last, leg);
      last = leg;
    }
    return sum;
  }

  // The area between it and its chord, to the left of that.
  double hollow() const {
    const Vector a = p1 - p0;
    const Vector b = p2 - p1;
    const Vector c = p3 - p2;
    return 0.3 * (cross(a, b) + cross(b, c)) + 0.45 * cross(a, c);
  }

  // Where it leads to at its start and its end; `fallback` where that cannot be told.
  Vector startDirection(Vector fallback) const {
    for (const Vector& to : {p1, p2, p3}) {
      Vector d = to - p0;
      if (normalize(d)) return d;
    }
    return fallback;
  }
  Vector endDirection(Vector fallback) const {
    for (const Vector& from : {p2, p1, p0}) {
      Vector d = p3 - from;
      if (normalize(d)) return d;
    }
    return fallback;
  }
};

BentCurve::BentCurve(const StrokePen& pen, double tolerance)
    : pen_(pen), tolerance_(tolerance), mostTurn_(pen.bendTurn()) {}

void BentCurve::halve(const Piece& piece, int depth) const {
  const double turn = piece.turn();
  const double chords = depth < kDeepest ? piece.chords(tolerance_) : 0;
  if (chords + turn / mostTurn_ <= 1 || depth == kDeepestCusp || piece.isPoint()) {
    return endPiece(piece);
  }
  const Vector p01 = middle(piece.p0, piece.p1);
  const Vector p12 = middle(piece.p1, piece.p2);
  const Vector p23 = middle(piece.p2, piece.p3);
  const Vector p012 = middle(p01, p12);
  const Vector p123 = middle(p12, p23);
  const Vector at = middle(p012, p123);
  halve({piece.p0, p01, p012, at}, depth + 1);
  halve({at, p123, p23, piece.p3}, depth + 1);
}

// Inner nodes move out of the hollow, so that the area between the curve and its chords is kept.
void BentCurve::endPiece(const Piece& piece) const {
  std::vector<PieceEnd>& ends = pen_.outline().pieceEnds;
  const double chord = length(piece.p3 - piece.p0);
  if (!(chord > 0)) return;
  const Vector last = ends.back().place.direction;
  const Vector start = piece.startDirection(last);
  // At a cusp the pen turns where it stands.
  if (turnBetween(last, start) > mostTurn_) ends.push_back({{piece.p0, start}, 0, 0});
  const double hollow = piece.hollow();
  PieceEnd& before = ends.back();
  if (before.chord > 0) {
    const double move = (before.hollow + hollow) / (before.chord + chord);
    before.place.at = before.place.at + leftOf(before.place.direction) * move;
  }
  ends.push_back({{piece.p3, piece.endDirection(before.place.direction)}, hollow, chord});
}

// Whether both sides of a piece, wherever they are lifted to, lie on one side of what can show.
bool BentCurve::isBeyond(const Piece& piece) const {
  const auto least = [](double a, double b, double c, double d) {
    return std::min(std::min(a, b), std::min(c, d));
  };
  const auto [p0, p1, p2, p3] = piece;
  const Vector low{least(p0.x, p1.x, p2.x, p3.x), least(p0.y, p1.y, p2.y, p3.y)};
  const Vector high{-least(-p0.x, -p1.x, -p2.x, -p3.x), -least(-p0.y, -p1.y, -p2.y, -p3.y)};
  return pen_.isBeyond(low, high, 1.1 * pen_.half() + length(high - low));
}

// Inner samples move out of the hollow by h²·p''/12. A step in which the curve turns by too much is
// cut on.
void BentCurve::cutEvenly(const Piece& whole, Vector direction) const {
  std::vector<PieceEnd>& ends = pen_.outline().pieceEnds;
  // A side strays by what bends the curve and by what turns the pen, each with the step's square.
  const double ofBend = whole.chords(tolerance_);
  const double ofTurn = whole.turn() / mostTurn_;
  const double wanted = std::sqrt(ofBend * ofBend + ofTurn * ofTurn);
  const int count = wholeChords(wanted);
  const double h = 1.0 / count;
  const Vector u = whole.p0 - whole.p1 * 2 + whole.p2;
  const Vector a = whole.p3 - whole.p2 * 3 + whole.p1 * 3 - whole.p0;
  const Vector leg = whole.p1 - whole.p0;
  const auto sampleAt = [&](double t) {
    const Vector bend = a * t + u;
    const Vector along = (bend + u) * t + leg;
    return Sample{(along + leg + u * t + leg) * t + whole.p0, along, bend};
  };
  Vector lastAt = whole.p0;
  Vector lastAlong = leg;
  // What leads to and from places that may be seen stays as it is.
  const auto leaveOut = [&](int k, int steps) {
    if (k - 1 + steps > count) return 0;
    const Sample end = sampleAt((k - 1 + steps) * h);
    const double part = steps * h;
    if (!isBeyond({lastAt, lastAt + lastAlong * part, end.at - end.along * part, end.at})) return 0;
    const Sample last = sampleAt((k + steps - 4) * h);
    lastAt = last.at;
    lastAlong = last.along;
    Vector along = last.along;
    if (normalize(along)) direction = along;
    return steps - 3;
  };
  for (int k = 1; k <= count; ++k) {
    for (int steps = kMostLeftOut; k % kLeastLeftOut == 1 && steps >= kLeastLeftOut; steps /= 4) {
      k += leaveOut(k, steps);
    }
    const auto [at, along, bend] = sampleAt(k * h);
    Vector next = along;
    if (normalize(next) && dot(direction, next) > pen_.smoothCosine()) {
      ends.push_back({{at - bend * (h * h / 2), next}, 0, 0});
    } else {
      halve({lastAt, lastAt + lastAlong * h, at - along * h, at}, 0);
      next = ends.back().place.direction;
    }
    direction = next;
    lastAt = at;
    lastAlong = along;
  }
}

std::span<const PieceEnd> BentCurve::places(const CGPoint* points, const Known& known) const {
  std::vector<PieceEnd>& nodes = pen_.outline().pieceEnds;
  const Piece whole{vectorTo(points[0]), vectorTo(points[1]), vectorTo(points[2]),
                    vectorTo(points[3])};
  nodes.clear();
  nodes.push_back({{whole.p0, known.first}, 0, 0});
  cutEvenly(whole, known.first);
  // What a neighbour's corner reaches into stays one piece.
  std::size_t begin = 1;
  std::size_t end = std::max<std::size_t>(nodes.size(), 2) - 1;
  nodes.resize(std::max<std::size_t>(nodes.size(), 2));
  while (begin < end && length(nodes[begin].place.at - whole.p0) < known.firstReach) ++begin;
  while (begin < end && length(nodes[end - 1].place.at - whole.p3) < known.lastReach) --end;
  nodes[begin - 1] = nodes.front();
  nodes[end].place = {whole.p3, known.last};
  return {&nodes[begin - 1], end - begin + 2};
}

}  // namespace glyphwright::raster
