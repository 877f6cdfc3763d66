#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>

#include <glyphwright/bezier_path.h>

/// The words in which the artwork is written: an outline is a constant list of steps, read top to
/// bottom like the calls that would draw it, and becomes a path in one go.
namespace glyphwright::paths {

/// One drawing step with literal coordinates in the icon's own frame, in points, y down.
struct Step {
  PathVerb verb;
  CGPoint end;
  CGPoint control1;
  CGPoint control2;
};

constexpr Step move(CGFloat x, CGFloat y) {
  return {PathVerb::move, {x, y}, {}, {}};
}
constexpr Step line(CGFloat x, CGFloat y) {
  return {PathVerb::line, {x, y}, {}, {}};
}
/// A cubic to (x, y): the end first, then the two control points.
constexpr Step curve(CGFloat x, CGFloat y, CGFloat control1X, CGFloat control1Y, CGFloat control2X,
                     CGFloat control2Y) {
  return {PathVerb::cubic, {x, y}, {control1X, control1Y}, {control2X, control2Y}};
}
constexpr Step close() {
  return {PathVerb::close, {}, {}, {}};
}

/// A new path drawn by `steps`, non-zero rule, default stroke attributes.
UIBezierPath outline(std::span<const Step> steps);

/// Verbs and points side by side, as a path keeps them.
template <std::size_t verbTotal, std::size_t pointTotal>
struct Elements {
  std::array<PathVerb, verbTotal> verbs;
  std::array<CGPoint, pointTotal> points;
};

/// The elements of constant steps, worked out by the compiler. A move must come first and after
/// every close.
template <const auto& steps>
constexpr auto elementsOf() {
  constexpr std::size_t pointTotal = [] {
    std::size_t total = 0;
    for (const Step& step : steps) total += pointCount(step.verb);
    return total;
  }();
  Elements<std::size(steps), pointTotal> elements{};
  std::size_t verb = 0;
  std::size_t point = 0;
  for (const Step& step : steps) {
    elements.verbs[verb++] = step.verb;
    const std::size_t count = pointCount(step.verb);
    if (count > 1) elements.points[point++] = step.control1;
    if (count > 2) elements.points[point++] = step.control2;
    if (count > 0) elements.points[point++] = step.end;
  }
  return elements;
}

/// True when a move comes first and after every close.
constexpr bool isComplete(std::span<const Step> steps) {
  PathVerb before = PathVerb::close;
  return std::all_of(steps.begin(), steps.end(), [&before](const Step& step) {
    const bool follows = before != PathVerb::close || step.verb == PathVerb::move;
    before = step.verb;
    return follows;
  });
}

/// The same for steps that the compiler knows: building the path is then copying its elements.
template <const auto& steps>
UIBezierPath outline() {
  static_assert(isComplete(steps), "a move is missing at the start or after a close");
  static constexpr auto elements = elementsOf<steps>();
  return UIBezierPath::bezierPathWithCGPath(
      CGPath({elements.verbs.begin(), elements.verbs.end()},
             {elements.points.begin(), elements.points.end()}));
}
/// The same with the even-odd rule set.
template <const auto& steps>
UIBezierPath evenOddOutline() {
  UIBezierPath path = outline<steps>();
  path.setUsesEvenOddFillRule(true);
  return path;
}

}  // namespace glyphwright::paths
