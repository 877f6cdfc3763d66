#pragma once

#include <array>
#include <cstddef>
#include <span>

#include <glyphwright/paths/outline.h>

/// Copies of an outline at another place, size or angle, made while the program is compiled, so
/// that a sign which stands in several places is written down once.
namespace glyphwright::paths {

/// To the nearest hundredth of a point, the grid that all artwork lies on.
constexpr CGFloat onGrid(CGFloat value) {
  const CGFloat hundredths = value * 100;
  const auto whole = static_cast<long long>(hundredths < 0 ? hundredths - 0.5 : hundredths + 0.5);
  return static_cast<CGFloat>(whole) / 100;
}

/// Every point through `transform`, to the nearest hundredth.
template <std::size_t count>
constexpr std::array<Step, count> copied(const Step (&steps)[count],
                                         const CGAffineTransform& transform) {
  const auto map = [&](CGPoint p) {
    return CGPoint{onGrid(transform.a * p.x + transform.c * p.y + transform.tx),
                   onGrid(transform.b * p.x + transform.d * p.y + transform.ty)};
  };
  std::array<Step, count> copy{};
  for (std::size_t i = 0; i < count; ++i) {
    copy[i] = {steps[i].verb, map(steps[i].end), map(steps[i].control1), map(steps[i].control2)};
  }
  return copy;
}

/// The outline moved.
template <std::size_t count>
constexpr auto moved(const Step (&steps)[count], CGFloat dx, CGFloat dy) {
  return copied(steps, {1, 0, 0, 1, dx, dy});
}

/// The outline upside down: the origin comes to lie at (x, y).
template <std::size_t count>
constexpr auto upsideDown(const Step (&steps)[count], CGFloat x, CGFloat y) {
  return copied(steps, {-1, 0, 0, -1, x, y});
}

/// The outline scaled about the origin, then moved.
template <std::size_t count>
constexpr auto scaled(const Step (&steps)[count], CGFloat sx, CGFloat sy, CGFloat dx = 0,
                      CGFloat dy = 0) {
  return copied(steps, {sx, 0, 0, sy, dx, dy});
}

/// The steps up to the first close, and those after it: a sign taken apart.
constexpr std::span<const Step> firstContour(std::span<const Step> steps) {
  std::size_t count = 0;
  while (count < steps.size() && steps[count].verb != PathVerb::close) ++count;
  return steps.first(count < steps.size() ? count + 1 : count);
}
constexpr std::span<const Step> afterFirstContour(std::span<const Step> steps) {
  return steps.subspan(firstContour(steps).size());
}

}  // namespace glyphwright::paths
