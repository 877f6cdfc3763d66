#pragma once

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
/// The same with the even-odd rule set.
UIBezierPath evenOddOutline(std::span<const Step> steps);

}  // namespace glyphwright::paths
