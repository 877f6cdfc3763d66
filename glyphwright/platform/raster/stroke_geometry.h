#pragma once

#include <cmath>

/// The plane geometry that strokes are made of.
namespace glyphwright::raster::pen {

struct Vector {
  double x = 0;
  double y = 0;
};

inline Vector operator+(Vector a, Vector b) {
  return {a.x + b.x, a.y + b.y};
}
inline Vector operator-(Vector a, Vector b) {
  return {a.x - b.x, a.y - b.y};
}
inline Vector operator*(Vector a, double k) {
  return {a.x * k, a.y * k};
}
inline Vector operator-(Vector a) {
  return {-a.x, -a.y};
}
inline double dot(Vector a, Vector b) {
  return a.x * b.x + a.y * b.y;
}
inline double cross(Vector a, Vector b) {
  return a.x * b.y - a.y * b.x;
}
inline double length(Vector a) {
  return std::sqrt(dot(a, a));
}

// The unit vector along `a`; false when `a` has no direction.
inline bool normalize(Vector& a) {
  const double l = length(a);
  if (!(l > 0)) return false;
  a = {a.x / l, a.y / l};
  return true;
}

// To the left of a direction on screen.
inline Vector leftOf(Vector direction) {
  return {direction.y, -direction.x};
}

// A point on the centre line with the unit direction in which it is left behind. `smooth` points
// lie inside a curve and need no join.
struct Node {
  Vector at;
  Vector in;
  Vector out;
  bool smooth;
  Vector normal = {};  // to the left, halfway between both directions
  Vector along = {};   // the direction of the leg to the next node, where that has a length
  double legLength = 0;
};

// The straight way between two nodes.
struct Leg {
  Vector along;
  double length;

  bool hasDirection() const { return length > 0; }
};

// Two directions closer than this (cosine of about 0.5°) meet without a join.
inline constexpr double kSameDirection = 0.99996;

}  // namespace glyphwright::raster::pen
