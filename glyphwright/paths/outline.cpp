#include <glyphwright/paths/outline.h>

#include <cstddef>
#include <utility>
#include <vector>

namespace glyphwright::paths {

namespace {

// The elements are there already; what is left is to lay their points side by side. Which step is a
// curve cannot be foretold, so every step writes three points and goes on by as many as count.
CGPath joined(std::span<const Step> steps) {
  std::size_t pointTotal = 0;
  for (const Step& step : steps) pointTotal += pointCount(step.verb);
  std::vector<PathVerb> verbs(steps.size());
  std::vector<CGPoint> points(pointTotal + 3);
  PathVerb* verb = verbs.data();
  CGPoint* to = points.data();
  for (const Step& step : steps) {
    *verb++ = step.verb;
    to[0] = step.verb >= PathVerb::quad ? step.control1 : step.end;
    to[1] = step.verb == PathVerb::quad ? step.end : step.control2;
    to[2] = step.end;
    to += pointCount(step.verb);
  }
  points.resize(pointTotal);
  return {std::move(verbs), std::move(points)};
}

CGPath drawn(std::span<const Step> steps) {
  CGPath path;
  for (const Step& step : steps) {
    switch (step.verb) {
      case PathVerb::move:
        path.moveToPoint(step.end);
        break;
      case PathVerb::line:
        path.addLineToPoint(step.end);
        break;
      case PathVerb::quad:
        path.addQuadCurveToPoint(step.end, step.control1);
        break;
      case PathVerb::cubic:
        path.addCurveToPoint(step.end, step.control1, step.control2);
        break;
      case PathVerb::close:
        path.closeSubpath();
        break;
    }
  }
  return path;
}

}  // namespace

UIBezierPath outline(std::span<const Step> steps) {
  // Steps that skip a move are filled in call by call.
  return UIBezierPath::bezierPathWithCGPath(isComplete(steps) ? joined(steps) : drawn(steps));
}

UIBezierPath evenOddOutline(std::span<const Step> steps) {
  UIBezierPath path = outline(steps);
  path.setUsesEvenOddFillRule(true);
  return path;
}

}  // namespace glyphwright::paths
