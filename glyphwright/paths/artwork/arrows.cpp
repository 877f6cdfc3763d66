#include <glyphwright/paths/outline.h>

namespace glyphwright {

using namespace paths;

namespace {

// The turns are the nearest single-precision values of a quarter and a half turn.
constexpr CGFloat kQuarterTurnBack = -1.570796251296997;
constexpr CGFloat kHalfTurn = 3.141592502593994;

UIBezierPath turned(UIBezierPath path, CGFloat angle) {
  path.applyTransform(CGAffineTransformMakeRotation(angle));
  return path;
}

}  // namespace

UIBezierPath UIBezierPath::rightArrowStemPath() {
  static constexpr Step steps[] = {
      move(12, 15.2),
      line(12, 10),
      line(2, 10),
      curve(0, 8, 0.9, 10, 0, 9.1),
      curve(2, 6, 0, 6.9, 0.9, 6),
      line(12, 6),
      line(12, 0.8),
      curve(12.8, 0, 12, 0.36, 12.36, 0),
      curve(13.32, 0.19, 12.99, 0, 13.18, 0.07),
      line(21.72, 7.39),
      curve(22, 8, 21.9, 7.54, 22, 7.77),
      curve(21.72, 8.61, 22, 8.23, 21.9, 8.46),
      line(13.32, 15.81),
      curve(12.8, 16, 13.18, 15.93, 12.99, 16),
      curve(12, 15.2, 12.36, 16, 12, 15.64),
      close(),
  };
  return outline(steps);
}

UIBezierPath UIBezierPath::disclosureArrowPath() {
  return rightArrowStemPath();
}

UIBezierPath UIBezierPath::leftArrowStemPath() {
  return turned(rightArrowStemPath(), kHalfTurn);
}

UIBezierPath UIBezierPath::navigationArrowLeftPath() {
  static constexpr Step steps[] = {
      move(5.16, 12),
      line(13.44, 20.61),
      curve(14, 22, 13.8, 20.99, 14, 21.48),
      curve(12, 24, 14, 23.1, 13.1, 24),
      curve(10.56, 23.39, 11.46, 24, 10.94, 23.78),
      line(0.28, 12.69),
      curve(0, 12, 0.1, 12.51, 0, 12.26),
      curve(0.28, 11.31, 0, 11.74, 0.1, 11.49),
      line(10.56, 0.61),
      curve(12, 0, 10.94, 0.22, 11.46, 0),
      curve(14, 2, 13.1, 0, 14, 0.9),
      curve(13.44, 3.39, 14, 2.52, 13.8, 3.01),
      line(5.16, 12),
      close(),
  };
  return outline(steps);
}

UIBezierPath UIBezierPath::navigationArrowDownPath() {
  return turned(navigationArrowLeftPath(), kQuarterTurnBack);
}

UIBezierPath UIBezierPath::navigationArrowRightPath() {
  return turned(navigationArrowLeftPath(), kHalfTurn);
}

UIBezierPath UIBezierPath::dropDownArrowIcon() {
  static constexpr Step steps[] = {move(0, 0), line(6, 6), line(12, 0), line(0, 0), close()};
  return outline(steps);
}

}  // namespace glyphwright
