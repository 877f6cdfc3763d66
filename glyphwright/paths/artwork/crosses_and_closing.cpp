#include <glyphwright/paths/artwork/shared_outlines.h>
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
  return outline<steps>();
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
  return outline<steps>();
}

UIBezierPath UIBezierPath::nopeIconStamp() {
  static constexpr Step stamp[] = {
      // disc
      move(42.4, 0.64),
      curve(84.16, 42.4, 65.46, 0.64, 84.16, 19.34),
      curve(42.4, 84.16, 84.16, 65.46, 65.46, 84.16),
      curve(0.64, 42.4, 19.34, 84.16, 0.64, 65.46),
      curve(42.4, 0.64, 0.64, 19.34, 19.34, 0.64),
      close(),
      // N
      move(14.4, 27.6),
      line(14.4, 57.2),
      curve(15.6, 58.4, 14.4, 57.86, 14.94, 58.4),
      line(20.2, 58.4),
      curve(21.4, 57.2, 20.86, 58.4, 21.4, 57.86),
      line(21.4, 41),
      line(29.77, 57.74),
      curve(30.84, 58.4, 29.97, 58.14, 30.39, 58.4),
      line(37.2, 58.4),
      curve(38.4, 57.2, 37.86, 58.4, 38.4, 57.86),
      line(38.4, 27.6),
      curve(37.2, 26.4, 38.4, 26.94, 37.86, 26.4),
      line(32.6, 26.4),
      curve(31.4, 27.6, 31.94, 26.4, 31.4, 26.94),
      line(31.4, 43.8),
      line(23.03, 27.06),
      curve(21.96, 26.4, 22.83, 26.66, 22.41, 26.4),
      line(15.6, 26.4),
      curve(14.4, 27.6, 14.94, 26.4, 14.4, 26.94),
      close(),
      // outside of the O
      move(57.15, 25.76),
      curve(43.9, 42.4, 49.2, 25.76, 43.9, 32.42),
      curve(57.15, 59.04, 43.9, 52.38, 49.2, 59.04),
      curve(70.4, 42.4, 65.1, 59.04, 70.4, 52.38),
      curve(57.15, 25.76, 70.4, 32.42, 65.1, 25.76),
      close(),
  };
  static constexpr Step counterOfTheO[] = {
      move(57.15, 32.3),
      curve(63.4, 42.4, 60.78, 32.3, 63.4, 36.54),
      curve(57.15, 52.5, 63.4, 48.26, 60.78, 52.5),
      curve(50.9, 42.4, 53.53, 52.5, 50.9, 48.26),
      curve(57.15, 32.3, 50.9, 36.54, 53.53, 32.3),
      close(),
  };
  return evenOddOutline<stamp, counterOfTheO>();
}

UIBezierPath UIBezierPath::webViewCloseIcon() {
  static constexpr Step steps[] = {
      move(14.92, 0),   line(15.9, 1),    line(8.95, 7.8), line(15.9, 14.6), line(14.92, 15.6),
      line(7.95, 8.78), line(0.98, 15.6), line(0, 14.6),   line(6.95, 7.8),  line(0, 1),
      line(0.98, 0),    line(7.95, 6.82), line(14.92, 0),  close(),
  };
  return outline<steps>();
}

UIBezierPath UIBezierPath::clearLocationIconPath() {
  static constexpr Step cross[] = {
      // cross, counter-wound
      move(11.29, 5.29),
      line(9, 7.59),
      line(6.71, 5.29),
      curve(6, 5, 6.52, 5.11, 6.27, 5),
      curve(5, 6, 5.45, 5, 5, 5.45),
      curve(5.29, 6.71, 5, 6.27, 5.11, 6.52),
      line(7.59, 9),
      line(5.29, 11.29),
      curve(5, 12, 5.11, 11.48, 5, 11.73),
      curve(6, 13, 5, 12.55, 5.45, 13),
      curve(6.71, 12.71, 6.27, 13, 6.52, 12.89),
      line(9, 10.41),
      line(11.29, 12.71),
      curve(12, 13, 11.48, 12.89, 11.73, 13),
      curve(13, 12, 12.55, 13, 13, 12.55),
      curve(12.71, 11.29, 13, 11.73, 12.89, 11.48),
      line(10.41, 9),
      line(12.71, 6.71),
      curve(13, 6, 12.89, 6.52, 13, 6.27),
      curve(12, 5, 13, 5.45, 12.55, 5),
      curve(11.29, 5.29, 11.73, 5, 11.48, 5.11),
      close(),
  };
  return evenOddOutline<mapPin, cross>();
}

// The arms run into the corners of the box and are clipped by it.
UIBezierPath UIBezierPath::upsellX() {
  static constexpr Step steps[] = {
      move(0, 0),    line(1.84, 0),   line(8, 6.16), line(14.16, 0),  line(16, 0),   line(16, 1.84),
      line(9.84, 8), line(16, 14.16), line(16, 16),  line(14.16, 16), line(8, 9.84), line(1.84, 16),
      line(0, 16),   line(0, 14.16),  line(6.16, 8), line(0, 1.84),   line(0, 0),    close(),
  };
  return evenOddOutline<steps>();
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

// Reads filled, stroked or both: the cross is thick enough for the stroke to eat from it.
UIBezierPath UIBezierPath::liveOpsMoodraPromptCloseButton() {
  static constexpr Step cross[] = {
      // cross, counter-wound
      move(14.44, 7.44),
      line(12, 9.88),
      line(9.56, 7.44),
      curve(8.5, 7, 9.28, 7.16, 8.9, 7),
      curve(7, 8.5, 7.67, 7, 7, 7.67),
      curve(7.44, 9.56, 7, 8.9, 7.16, 9.28),
      line(9.88, 12),
      line(7.44, 14.44),
      curve(7, 15.5, 7.16, 14.72, 7, 15.1),
      curve(8.5, 17, 7, 16.33, 7.67, 17),
      curve(9.56, 16.56, 8.9, 17, 9.28, 16.84),
      line(12, 14.12),
      line(14.44, 16.56),
      curve(15.5, 17, 14.72, 16.84, 15.1, 17),
      curve(17, 15.5, 16.33, 17, 17, 16.33),
      curve(16.56, 14.44, 17, 15.1, 16.84, 14.72),
      line(14.12, 12),
      line(16.56, 9.56),
      curve(17, 8.5, 16.84, 9.28, 17, 8.9),
      curve(15.5, 7, 17, 7.67, 16.33, 7),
      curve(14.44, 7.44, 15.1, 7, 14.72, 7.16),
      close(),
  };
  UIBezierPath path = outline<signDisc, cross>();
  path.setLineWidth(1);
  path.setLineCapStyle(CGLineCap::round);
  path.setLineJoinStyle(CGLineJoin::round);
  return path;
}

}  // namespace glyphwright
