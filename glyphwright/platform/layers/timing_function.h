#pragma once

#include <cstdint>

#include <glyphwright/platform/geometry.h>

namespace glyphwright {

/// The paces that have a name; defaultCurve eases in quickly and out slowly.
enum class CAMediaTimingFunctionName : std::uint8_t {
  linear,
  easeIn,
  easeOut,
  easeInEaseOut,
  defaultCurve,
};

/// The pace of a run: a cubic from (0, 0) to (1, 1) whose x is the time that has passed and whose y
/// is how far the run has come. A value.
class CAMediaTimingFunction {
 public:
  /// Linear.
  constexpr CAMediaTimingFunction() = default;
  /// `functionWithControlPoints::::` x is clamped to 0…1, so that time never turns back; y may lie
  /// outside and overshoots then. NaN counts as 0.
  static constexpr CAMediaTimingFunction functionWithControlPoints(CGFloat c1x, CGFloat c1y,
                                                                   CGFloat c2x, CGFloat c2y) {
    CAMediaTimingFunction function;
    function.c1_ = {unit(c1x), number(c1y)};
    function.c2_ = {unit(c2x), number(c2y)};
    return function;
  }
  /// `functionWithName:`
  static constexpr CAMediaTimingFunction functionWithName(CAMediaTimingFunctionName name) {
    switch (name) {
      case CAMediaTimingFunctionName::easeIn:
        return functionWithControlPoints(0.42, 0, 1, 1);
      case CAMediaTimingFunctionName::easeOut:
        return functionWithControlPoints(0, 0, 0.58, 1);
      case CAMediaTimingFunctionName::easeInEaseOut:
        return functionWithControlPoints(0.42, 0, 0.58, 1);
      case CAMediaTimingFunctionName::defaultCurve:
        return functionWithControlPoints(0.25, 0.1, 0.25, 1);
      case CAMediaTimingFunctionName::linear:
        break;
    }
    return {};
  }

  /// After clamping; (0, 0) and (1, 1) of the linear pace.
  constexpr CGPoint controlPoint1() const { return c1_; }
  constexpr CGPoint controlPoint2() const { return c2_; }

  /// How far the run has come when `time` of it has passed; both 0 at 0 and 1 at 1. Times outside
  /// 0…1 are clamped, NaN counts as 0.
  double valueAt(double time) const;

  friend constexpr bool operator==(const CAMediaTimingFunction&,
                                   const CAMediaTimingFunction&) = default;

 private:
  static constexpr CGFloat number(CGFloat value) { return value == value ? value : 0; }
  static constexpr CGFloat unit(CGFloat value) {
    if (!(value > 0)) return 0;
    return value < 1 ? value : 1;
  }

  CGPoint c1_{0, 0};
  CGPoint c2_{1, 1};
};

}  // namespace glyphwright
