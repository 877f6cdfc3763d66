#include <glyphwright/paths/outline.h>

namespace glyphwright {

using namespace paths;

// The big friendly cross: full round ends, softened inner corners.
UIBezierPath UIBezierPath::xPath() {
  static constexpr Step steps[] = {
      move(46.01, 2.79),
      curve(50.61, 0.89, 47.23, 1.57, 48.89, 0.89),
      curve(57.11, 7.39, 54.2, 0.89, 57.11, 3.8),
      curve(55.21, 11.99, 57.11, 9.11, 56.43, 10.77),
      line(39.32, 27.87),
      curve(39.32, 30.13, 38.7, 28.49, 38.7, 29.51),
      line(55.21, 46.01),
      curve(57.11, 50.61, 56.43, 47.23, 57.11, 48.89),
      curve(50.61, 57.11, 57.11, 54.2, 54.2, 57.11),
      curve(46.01, 55.21, 48.89, 57.11, 47.23, 56.43),
      line(30.13, 39.32),
      curve(27.87, 39.32, 29.51, 38.7, 28.49, 38.7),
      line(11.99, 55.21),
      curve(7.39, 57.11, 10.77, 56.43, 9.11, 57.11),
      curve(0.89, 50.61, 3.8, 57.11, 0.89, 54.2),
      curve(2.79, 46.01, 0.89, 48.89, 1.57, 47.23),
      line(18.68, 30.13),
      curve(18.68, 27.87, 19.3, 29.51, 19.3, 28.49),
      line(2.79, 11.99),
      curve(0.89, 7.39, 1.57, 10.77, 0.89, 9.11),
      curve(7.39, 0.89, 0.89, 3.8, 3.8, 0.89),
      curve(11.99, 2.79, 9.11, 0.89, 10.77, 1.57),
      line(27.87, 18.68),
      curve(30.13, 18.68, 28.49, 19.3, 29.51, 19.3),
      line(46.01, 2.79),
      close(),
  };
  return outline(steps);
}

// Blockier and heavier: flat ends between small roundings, sharp inner corners.
UIBezierPath UIBezierPath::gamepadNopeXPath() {
  static constexpr Step steps[] = {
      move(20.26, 1.22),
      curve(21.95, 1.22, 20.72, 0.75, 21.48, 0.75),
      line(24.78, 4.05),
      curve(24.78, 5.74, 25.25, 4.52, 25.25, 5.28),
      line(17.53, 13),
      line(24.78, 20.26),
      curve(24.78, 21.95, 25.25, 20.72, 25.25, 21.48),
      line(21.95, 24.78),
      curve(20.26, 24.78, 21.48, 25.25, 20.72, 25.25),
      line(13, 17.53),
      line(5.74, 24.78),
      curve(4.05, 24.78, 5.28, 25.25, 4.52, 25.25),
      line(1.22, 21.95),
      curve(1.22, 20.26, 0.75, 21.48, 0.75, 20.72),
      line(8.47, 13),
      line(1.22, 5.74),
      curve(1.22, 4.05, 0.75, 5.28, 0.75, 4.52),
      line(4.05, 1.22),
      curve(5.74, 1.22, 4.52, 0.75, 5.28, 0.75),
      line(13, 8.47),
      line(20.26, 1.22),
      close(),
  };
  return outline(steps);
}

// Two bare strokes: shows only when stroked.
UIBezierPath UIBezierPath::chatActionBarCloseIcon() {
  UIBezierPath path;
  path.moveToPoint({0, 0});
  path.addLineToPoint({12, 12});
  path.moveToPoint({12, 0});
  path.addLineToPoint({0, 12});
  path.setLineWidth(2);
  path.setLineCapStyle(CGLineCap::round);
  path.setLineJoinStyle(CGLineJoin::round);
  return path;
}

}  // namespace glyphwright
