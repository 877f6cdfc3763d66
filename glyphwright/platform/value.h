#pragma once

#include <concepts>
#include <cstdint>
#include <limits>
#include <type_traits>
#include <variant>

#include <glyphwright/platform/geometry.h>

namespace glyphwright {

/// A boxed number, made implicitly from any arithmetic value. It reads as any numeric kind by the
/// rules of C: towards zero to a whole number, rounded to 32 bits as a float.
class NSNumber {
 public:
  /// Whole numbers up to 2⁶³ − 1 are kept to the last digit, all others as a double.
  template <typename Number>
  requires std::is_arithmetic_v<Number>
  constexpr NSNumber(Number value) {
    if (isWhole(value)) {
      value_ = static_cast<std::int64_t>(value);
    } else {
      value_ = static_cast<double>(value);
    }
  }

  /// A whole number beyond 2⁵³ is rounded to the nearest double.
  constexpr double doubleValue() const {
    const double* real = std::get_if<double>(&value_);
    return real ? *real : static_cast<double>(std::get<std::int64_t>(value_));
  }
  /// Beyond the range of a float: infinity.
  constexpr float floatValue() const {
    const double value = doubleValue();
    constexpr double limit = 3.4028235677973366e38;  // from here on the nearest float is infinity
    constexpr float infinity = std::numeric_limits<float>::infinity();
    if (value >= limit) return infinity;
    if (value <= -limit) return -infinity;
    return static_cast<float>(value);
  }
  /// NaN gives 0; a value out of range the nearest that is in range.
  constexpr std::int64_t integerValue() const {
    const double* real = std::get_if<double>(&value_);
    if (!real) return std::get<std::int64_t>(value_);
    constexpr double limit = 9223372036854775808.0;  // 2^63
    if (*real >= limit) return kLargest;
    if (*real < -limit) return std::numeric_limits<std::int64_t>::min();
    return *real == *real ? static_cast<std::int64_t>(*real) : 0;
  }
  /// True for all but 0, NaN included.
  constexpr bool boolValue() const { return doubleValue() != 0; }

 private:
  // Whole numbers stay whole, except those beyond the signed range.
  template <typename Number>
  static constexpr bool isWhole(Number value) {
    if constexpr (std::floating_point<Number>) return false;
    return value <= 0 || static_cast<std::uint64_t>(value) <= kLargest;
  }

  static constexpr std::int64_t kLargest = std::numeric_limits<std::int64_t>::max();

  std::variant<std::int64_t, double> value_;
};

/// A boxed point, size or rectangle, made implicitly. Reading another kind than the boxed one gives
/// zeros.
class NSValue {
 public:
  /// Kept as given, not finite numbers too.
  constexpr NSValue(CGPoint point) : value_(point) {}
  constexpr NSValue(CGSize size) : value_(size) {}
  constexpr NSValue(const CGRect& rect) : value_(rect) {}

  /// Whether the boxed kind is `Kind`: CGPoint, CGSize or CGRect.
  template <typename Kind>
  constexpr bool holds() const {
    return std::holds_alternative<Kind>(value_);
  }

  /// Of another kind than the boxed one: zeros.
  constexpr CGPoint CGPointValue() const { return read<CGPoint>(); }
  constexpr CGSize CGSizeValue() const { return read<CGSize>(); }
  constexpr CGRect CGRectValue() const { return read<CGRect>(); }

 private:
  template <typename Kind>
  constexpr Kind read() const {
    const Kind* value = std::get_if<Kind>(&value_);
    return value ? *value : Kind{};
  }

  std::variant<CGPoint, CGSize, CGRect> value_;
};

}  // namespace glyphwright
