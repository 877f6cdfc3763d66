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

/// What a path of constant steps is made of, worked out by the compiler.
template <std::size_t verbTotal, std::size_t pointTotal>
struct Elements {
  std::array<PathVerb, verbTotal> verbs;
  std::array<CGPoint, pointTotal> points;
  CGPoint subpathStart;

  constexpr CGPath::Literal literal() const {
    const bool isClosed = verbs.back() == PathVerb::close;
    return {verbs, points, isClosed ? subpathStart : points.back(), subpathStart, box()};
  }
  constexpr CGRect box() const {
    CGPoint low = points.front();
    CGPoint high = low;
    for (const CGPoint& p : points) {
      low = {std::min(low.x, p.x), std::min(low.y, p.y)};
      high = {std::max(high.x, p.x), std::max(high.y, p.y)};
    }
    return {low.x, low.y, high.x - low.x, high.y - low.y};
  }
};

/// The elements of constant steps. A move must come first and after every close, and a segment
/// after every move.
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
    if (step.verb == PathVerb::move) elements.subpathStart = step.end;
    if (count > 1) elements.points[point++] = step.control1;
    if (count > 2) elements.points[point++] = step.control2;
    if (count > 0) elements.points[point++] = step.end;
  }
  return elements;
}

/// True when a move comes first and after every close, and a segment after every move.
constexpr bool isComplete(std::span<const Step> steps) {
  PathVerb before = PathVerb::close;
  for (const Step& step : steps) {
    const bool isMove = step.verb == PathVerb::move;
    if (before == PathVerb::close && !isMove) return false;
    if (before == PathVerb::move && (isMove || step.verb == PathVerb::close)) return false;
    before = step.verb;
  }
  return before != PathVerb::move;
}

/// Several constant lists one after the other: what icons share is written down once.
template <const auto&... lists>
inline constexpr auto joined = [] {
  std::array<Step, (std::size(lists) + ...)> all{};
  Step* next = all.data();
  ((next = std::copy(std::begin(lists), std::end(lists), next)), ...);
  return all;
}();

/// The same for steps that the compiler knows, of one list or several: the path then refers to
/// them, and building it costs no more than copying a few numbers.
template <const auto&... lists>
UIBezierPath outline() {
  static_assert(isComplete(joined<lists...>), "a move or a segment is missing");
  static constexpr auto elements = elementsOf<joined<lists...>>();
  static constexpr CGPath::Literal literal = elements.literal();
  return UIBezierPath::bezierPathWithCGPath(CGPath(literal));
}
/// The same with the even-odd rule set.
template <const auto&... lists>
UIBezierPath evenOddOutline() {
  UIBezierPath path = outline<lists...>();
  path.setUsesEvenOddFillRule(true);
  return path;
}

}  // namespace glyphwright::paths
