#include <glyphwright/paths/outline.h>

namespace glyphwright {

using namespace paths;

UIBezierPath UIBezierPath::closedEnvelopePath() {
  static constexpr Step steps[] = {
      // flap
      move(2, 0),
      line(22, 0),
      curve(24, 2, 23.1, 0, 24, 0.9),
      line(24, 2.33),
      curve(23.78, 2.75, 24, 2.5, 23.92, 2.66),
      line(12.89, 10.01),
      curve(12, 10.28, 12.62, 10.18, 12.32, 10.28),
      curve(11.11, 10.01, 11.68, 10.28, 11.38, 10.18),
      line(0.22, 2.75),
      curve(0, 2.33, 0.08, 2.66, 0, 2.5),
      line(0, 2),
      curve(2, 0, 0, 0.9, 0.9, 0),
      close(),
      // body
      move(0.78, 5.04),
      line(11.45, 12.15),
      curve(12, 12.32, 11.61, 12.26, 11.8, 12.32),
      curve(12.55, 12.15, 12.2, 12.32, 12.39, 12.26),
      line(23.22, 5.04),
      curve(23.5, 4.96, 23.3, 4.99, 23.4, 4.96),
      curve(24, 5.46, 23.78, 4.96, 24, 5.18),
      line(24, 16),
      curve(22, 18, 24, 17.1, 23.1, 18),
      line(2, 18),
      curve(0, 16, 0.9, 18, 0, 17.1),
      line(0, 5.46),
      curve(0.5, 4.96, 0, 5.18, 0.22, 4.96),
      curve(0.78, 5.04, 0.6, 4.96, 0.7, 4.99),
      close(),
  };
  return outline(steps);
}

// Solid clock at three.
UIBezierPath UIBezierPath::clockIcon() {
  static constexpr Step steps[] = {
      // disc
      move(64, 32),
      curve(32, 64, 64, 49.67, 49.67, 64),
      curve(0, 32, 14.33, 64, 0, 49.67),
      curve(32, 0, 0, 14.33, 14.33, 0),
      curve(64, 32, 49.67, 0, 64, 14.33),
      close(),
      // minute hand up, hour hand right, counter-wound
      move(32, 12),
      curve(28.5, 15.5, 30.07, 12, 28.5, 13.57),
      line(28.5, 32),
      curve(32, 35.5, 28.5, 33.93, 30.07, 35.5),
      line(44.5, 35.5),
      curve(48, 32, 46.43, 35.5, 48, 33.93),
      curve(44.5, 28.5, 48, 30.07, 46.43, 28.5),
      line(38, 28.5),
      curve(35.5, 26, 36.62, 28.5, 35.5, 27.38),
      line(35.5, 15.5),
      curve(32, 12, 35.5, 13.57, 33.93, 12),
      close(),
  };
  return outline(steps);
}

// Closed outlines that read when filled and soften when stroked.
UIBezierPath UIBezierPath::shareIcon() {
  static constexpr Step steps[] = {
      // tray
      move(1, 9),
      curve(2, 10, 1.55, 9, 2, 9.45),
      line(2, 21.5),
      curve(2.5, 22, 2, 21.78, 2.22, 22),
      line(17.5, 22),
      curve(18, 21.5, 17.78, 22, 18, 21.78),
      line(18, 10),
      curve(19, 9, 18, 9.45, 18.45, 9),
      curve(20, 10, 19.55, 9, 20, 9.45),
      line(20, 21.5),
      curve(17.5, 24, 20, 22.88, 18.88, 24),
      line(2.5, 24),
      curve(0, 21.5, 1.12, 24, 0, 22.88),
      line(0, 10),
      curve(1, 9, 0, 9.45, 0.45, 9),
      close(),
      // arrow
      move(10.35, 0.15),
      line(14.39, 4.19),
      curve(14.69, 4.89, 14.58, 4.37, 14.69, 4.63),
      curve(14.39, 5.6, 14.69, 5.16, 14.58, 5.41),
      curve(13.69, 5.89, 14.21, 5.79, 13.95, 5.89),
      curve(12.98, 5.6, 13.42, 5.89, 13.17, 5.79),
      line(11, 3.62),
      line(11, 16),
      curve(10, 17, 11, 16.55, 10.55, 17),
      curve(9, 16, 9.45, 17, 9, 16.55),
      line(9, 3.62),
      line(7.02, 5.6),
      curve(6.31, 5.89, 6.83, 5.79, 6.58, 5.89),
      curve(5.61, 5.6, 6.05, 5.89, 5.79, 5.79),
      curve(5.31, 4.89, 5.42, 5.41, 5.31, 5.16),
      curve(5.61, 4.19, 5.31, 4.63, 5.42, 4.37),
      line(9.65, 0.15),
      curve(10, 0, 9.74, 0.05, 9.87, 0),
      curve(10.35, 0.15, 10.13, 0, 10.26, 0.05),
      close(),
  };
  UIBezierPath path = outline(steps);
  path.setLineWidth(1);
  path.setLineCapStyle(CGLineCap::round);
  path.setLineJoinStyle(CGLineJoin::round);
  return path;
}

UIBezierPath UIBezierPath::boltPath() {
  static constexpr Step steps[] = {
      move(8.9, 0.55),
      line(8.05, 9.25),
      line(13.5, 9.25),
      curve(14, 9.75, 13.78, 9.25, 14, 9.47),
      curve(13.93, 10.01, 14, 9.84, 13.97, 9.93),
      line(5.59, 23.76),
      curve(5.16, 24, 5.5, 23.91, 5.34, 24),
      curve(4.66, 23.5, 4.89, 24, 4.66, 23.78),
      curve(4.67, 23.43, 4.66, 23.48, 4.67, 23.46),
      line(5.94, 13.81),
      line(0.5, 13.81),
      curve(0, 13.31, 0.22, 13.81, 0, 13.59),
      curve(0.07, 13.05, 0, 13.22, 0.03, 13.13),
      line(7.98, 0.24),
      curve(8.4, 0, 8.07, 0.09, 8.23, 0),
      curve(8.9, 0.5, 8.68, 0, 8.9, 0.22),
      curve(8.9, 0.55, 8.9, 0.52, 8.9, 0.53),
      close(),
  };
  return outline(steps);
}

}  // namespace glyphwright
