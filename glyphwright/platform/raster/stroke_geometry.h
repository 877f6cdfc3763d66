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

// The angle between two unit vectors from its chord: exact at 0, 10 % low at a right angle, where
// the joining steps are short anyway.
inline double turnBetween(Vector a, Vector b) {
  const double chord = length(b - a);
  return chord + chord * chord * chord / 24;
}

// To the left of a direction on screen.
inline Vector leftOf(Vector direction) {
  return {direction.y, -direction.x};
}

// Where a pen stands on a curve, and the unit direction in which it goes on.
struct PenPlace {
  Vector at;
  Vector direction;
};

}  // namespace glyphwright::raster::pen
