#pragma once

/// Elementary functions that give the same bits on every machine. The C library's sin, cos, atan2
/// and hypot differ in the last place from one version to the next, and every last place can move
/// a pixel; these use only + − × ÷ and sqrt.
namespace glyphwright::math {

inline constexpr double kPi = 3.141592653589793;

/// Sine of `radians`, within 2 units in the last place up to |x| = 1e6. NaN for a non-finite angle.
double sin(double radians);
/// Cosine, as above.
double cos(double radians);
/// The angle of (x, y) in −π…π, 0 for the origin, NaN when an argument is NaN.
double atan2(double y, double x);
/// √(x² + y²) without overflow; infinity when either is infinite, NaN when one is NaN.
double hypot(double x, double y);

/// e to the power of `x` for x ≤ 0; 0 below −700, 1 above 0, NaN for NaN.
double expNegative(double x);

}  // namespace glyphwright::math
