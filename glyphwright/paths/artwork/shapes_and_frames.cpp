#include <glyphwright/paths/outline.h>

namespace glyphwright {

using namespace paths;

// The folded corner that completes recWithRoundedCutCornerSlice, in the coordinates of that card.
UIBezierPath UIBezierPath::cornerCutTriangle() {
  static constexpr Step steps[] = {
      move(116.45, 55.61), curve(118.45, 53.61, 116.45, 54.51, 117.35, 53.61),
      line(127, 53.61),    line(116.45, 65),
      line(116.45, 55.61), close(),
  };
  return evenOddOutline<steps>();
}

UIBezierPath UIBezierPath::roundedButtonBackground() {
  UIBezierPath path = bezierPathWithRoundedRect({0, 0, 160, 48}, 24);
  path.setUsesEvenOddFillRule(true);
  return path;
}

UIBezierPath UIBezierPath::recWithRoundedCutCornerSlice() {
  static constexpr Step steps[] = {
      move(0, 6),       curve(6, 0, 0, 2.69, 2.69, 0),
      line(121, 0),     curve(127, 6, 124.31, 0, 127, 2.69),
      line(127, 53.61), line(116.45, 65),
      line(6, 65),      curve(0, 59, 2.69, 65, 0, 62.31),
      line(0, 6),       close(),
  };
  return outline<steps>();
}

// A portrait of 3 : 4; the foot stays square because text is set right below it.
UIBezierPath UIBezierPath::profilePhotoMask() {
  static constexpr Step steps[] = {
      move(0, 12),   curve(12, 0, 0, 5.37, 5.37, 0),
      line(84, 0),   curve(96, 12, 90.63, 0, 96, 5.37),
      line(96, 128), line(0, 128),
      line(0, 12),   close(),
  };
  return outline<steps>();
}

UIBezierPath UIBezierPath::circlePath() {
  return bezierPathWithOvalInRect({0, 0, 50, 50});
}

UIBezierPath UIBezierPath::loadingPartialCircleIcon() {
  static constexpr Step steps[] = {
      move(25, 0),
      curve(50, 25, 38.81, 0, 50, 11.19),
      curve(25, 50, 50, 38.81, 38.81, 50),
      curve(0, 25, 11.19, 50, 0, 38.81),
      line(6, 25),
      curve(25, 44, 6, 35.49, 14.51, 44),
      curve(44, 25, 35.49, 44, 44, 35.49),
      curve(25, 6, 44, 14.51, 35.49, 6),
      line(25, 0),
      close(),
  };
  return outline<steps>();
}

// The ground that other glyphs stand on: a bare arc, left open.
UIBezierPath UIBezierPath::homeCircleIcon() {
  UIBezierPath path;
  path.addArcWithCenter({50, 50}, 50, 0, 6.283185307179586, true);
  path.setUsesEvenOddFillRule(true);
  return path;
}

UIBezierPath UIBezierPath::ellipsisPath() {
  UIBezierPath path = bezierPathWithOvalInRect({0, 0, 6, 6});
  path.appendPath(bezierPathWithOvalInRect({11, 0, 6, 6}));
  path.appendPath(bezierPathWithOvalInRect({22, 0, 6, 6}));
  return path;
}

// Upright, so that it is never taken for the ellipsis.
UIBezierPath UIBezierPath::showMoreIconPath() {
  UIBezierPath path = bezierPathWithOvalInRect({0, 0, 5, 5});
  path.appendPath(bezierPathWithOvalInRect({0, 9, 5, 5}));
  path.appendPath(bezierPathWithOvalInRect({0, 18, 5, 5}));
  return path;
}

}  // namespace glyphwright
