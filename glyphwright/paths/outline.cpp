#include <glyphwright/paths/outline.h>

#include <utility>

namespace glyphwright::paths {

UIBezierPath outline(std::span<const Step> steps) {
  CGPath path;
  path.reserve(steps.size(), steps.size() * 3);
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
  return UIBezierPath::bezierPathWithCGPath(std::move(path));
}

}  // namespace glyphwright::paths
