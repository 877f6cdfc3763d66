// A tag cut out of elements, the box of each of its curves, and the same tag turned.

#include <glyphwright/glyphwright.h>

#include <numbers>

#include "../cookbook/png.h"

using namespace glyphwright;

namespace {

/// The same path as a constant of the program: nothing is copied until it changes (LiteralList).
constexpr PathVerb kTriangleVerbs[] = {PathVerb::move, PathVerb::line, PathVerb::line,
                                       PathVerb::close};
constexpr CGPoint kTrianglePoints[] = {{46, 18}, {54, 24}, {46, 30}};
constexpr CGPath::Literal kTriangle{
    kTriangleVerbs, kTrianglePoints, {46, 18}, {46, 18}, {46, 18, 8, 12}};

}  // namespace

int main() {
  UIBezierPath tag = UIBezierPath::bezierPathWithRoundedRect(
      CGRect{8, 8, 48, 32}, UIRectCorner::topLeft | UIRectCorner::bottomLeft, CGSize{12, 12});
  const CGPoint hole{20, 24};
  tag.moveToPoint({hole.x + 5, hole.y});
  tag.addArcWithCenter(hole, 5, 0, 2 * std::numbers::pi, true);
  tag.appendPath(UIBezierPath::bezierPathWithCGPath(CGPath(kTriangle)));
  tag.setUsesEvenOddFillRule(true);

  std::size_t curves = 0;
  for (const PathVerb verb : tag.cgPath().verbs()) curves += verb == PathVerb::cubic;
  if (curves == 0 || tag.bounds() != CGRect{8, 8, 48, 32}) return 1;

  // About its middle: there and back again around the turn.
  const CGAffineTransform turn = CGAffineTransformConcat(
      CGAffineTransformConcat(CGAffineTransformMakeTranslation(-32, -24),
                              CGAffineTransformMakeRotation(-std::numbers::pi / 8)),
      CGAffineTransformMakeTranslation(100, 30));
  UIBezierPath turned = tag;
  turned.applyTransform(turn);

  const UIGraphicsImageRenderer renderer({136, 56});
  const UIImage image = renderer.image([&](const UIGraphicsImageRendererContext& canvas) {
    CGContextSetFillColor(canvas.cgContext(), UIColor(0.15, 0.35, 0.85, 1));
    tag.fill();
    CGContextSetStrokeColor(canvas.cgContext(), UIColor(0.9, 0.3, 0.2, 1));
    const StrokeStyle line{.width = 2, .cap = CGLineCap::round, .join = CGLineJoin::round};
    CGContextStrokePath(canvas.cgContext(), turned.cgPath(), line);
  });
  return cookbook::writePng("paths.png", image.cgImage()) ? 0 : 1;
}
