#include <utility>

#include <glyphwright/bezier_path.h>
#include <glyphwright/platform/math.h>

namespace glyphwright {

UIBezierPath UIBezierPath::arrowIcon(CGPoint startPoint, CGPoint endPoint, CGFloat tailWidth,
                                     CGFloat headWidth, CGFloat headLength) {
  const CGFloat dx = endPoint.x - startPoint.x;
  const CGFloat dy = endPoint.y - startPoint.y;
  const CGFloat length = math::hypot(dx, dy);
  // Negative when the head is longer than the arrow: the outline then crosses itself.
  const CGFloat tailLength = length - headLength;
  // x runs along the arrow from its tail, y across it.
  const CGPoint corners[] = {
      {0, tailWidth * 0.5},  {tailLength, tailWidth * 0.5},  {tailLength, headWidth * 0.5},
      {length, 0},           {tailLength, headWidth * -0.5}, {tailLength, tailWidth * -0.5},
      {0, tailWidth * -0.5},
  };
  const CGFloat cosine = dx / length;
  const CGFloat sine = dy / length;

  CGMutablePath polygon;
  polygon.addLines(corners, {cosine, sine, -sine, cosine, startPoint.x, startPoint.y});
  polygon.closeSubpath();
  UIBezierPath path = bezierPathWithCGPath(std::move(polygon));
  path.translateToZeroPoint();
  return path;
}

}  // namespace glyphwright
