#include <glyphwright/paths/outline_copies.h>

namespace glyphwright {

using namespace paths;

namespace {

// The disc that the plus and the cross are cut from.
constexpr Step itemDisc[] = {
    move(14, 0),
    curve(28, 14, 21.73, 0, 28, 6.27),
    curve(14, 28, 28, 21.73, 21.73, 28),
    curve(0, 14, 6.27, 28, 0, 21.73),
    curve(14, 0, 0, 6.27, 6.27, 0),
    close(),
};

// A plus about (20, 20), counter-wound.
constexpr Step roundPlus[] = {
    move(18, 12),
    line(18, 18),
    line(12, 18),
    curve(10, 20, 10.9, 18, 10, 18.9),
    curve(12, 22, 10, 21.1, 10.9, 22),
    line(18, 22),
    line(18, 28),
    curve(20, 30, 18, 29.1, 18.9, 30),
    curve(22, 28, 21.1, 30, 22, 29.1),
    line(22, 22),
    line(28, 22),
    curve(30, 20, 29.1, 22, 30, 21.1),
    curve(28, 18, 30, 18.9, 29.1, 18),
    line(22, 18),
    line(22, 12),
    curve(20, 10, 22, 10.9, 21.1, 10),
    curve(18, 12, 18.9, 10, 18, 10.9),
    close(),
};

}  // namespace

UIBezierPath UIBezierPath::plusInSquirclePath() {
  static constexpr Step squircle[] = {
      move(16, 0),
      line(24, 0),
      curve(40, 16, 34.56, 0, 40, 5.44),
      line(40, 24),
      curve(24, 40, 40, 34.56, 34.56, 40),
      line(16, 40),
      curve(0, 24, 5.44, 40, 0, 34.56),
      line(0, 16),
      curve(16, 0, 0, 5.44, 5.44, 0),
      close(),
  };
  return outline<squircle, roundPlus>();
}

UIBezierPath UIBezierPath::plusIconPath() {
  static constexpr Step steps[] = {
      move(18.35, 8.35),
      curve(20, 10, 19.26, 8.35, 20, 9.09),
      curve(18.35, 11.65, 20, 10.91, 19.26, 11.65),
      line(11.65, 11.65),
      line(11.65, 18.35),
      curve(10, 20, 11.65, 19.26, 10.91, 20),
      curve(8.35, 18.35, 9.09, 20, 8.35, 19.26),
      line(8.35, 11.65),
      line(1.65, 11.65),
      curve(0, 10, 0.74, 11.65, 0, 10.91),
      curve(1.65, 8.35, 0, 9.09, 0.74, 8.35),
      line(8.35, 8.35),
      line(8.35, 1.65),
      curve(10, 0, 8.35, 0.74, 9.09, 0),
      curve(11.65, 1.65, 10.91, 0, 11.65, 0.74),
      line(11.65, 8.35),
      line(18.35, 8.35),
      close(),
  };
  return evenOddOutline<steps>();
}

UIBezierPath UIBezierPath::pencilPath() {
  static constexpr Step steps[] = {
      // shaft and point
      move(12.78, 3.26),
      curve(12.99, 3.17, 12.83, 3.21, 12.91, 3.17),
      curve(13.2, 3.26, 13.07, 3.17, 13.15, 3.21),
      line(16.74, 6.8),
      curve(16.83, 7.01, 16.79, 6.85, 16.83, 6.93),
      curve(16.74, 7.22, 16.83, 7.09, 16.79, 7.17),
      line(5.41, 18.55),
      curve(5.19, 18.68, 5.35, 18.61, 5.27, 18.66),
      line(0.64, 19.98),
      curve(0.5, 20, 0.59, 20, 0.55, 20),
      curve(0, 19.5, 0.22, 20, 0, 19.78),
      curve(0.02, 19.36, 0, 19.45, 0, 19.41),
      line(1.32, 14.81),
      curve(1.45, 14.59, 1.34, 14.73, 1.39, 14.65),
      line(12.78, 3.26),
      close(),
      // eraser cap
      move(15.75, 0.29),
      curve(16.46, 0, 15.94, 0.1, 16.19, 0),
      curve(17.16, 0.29, 16.73, 0, 16.98, 0.11),
      line(19.71, 2.84),
      curve(20, 3.54, 19.89, 3.02, 20, 3.27),
      curve(19.71, 4.25, 20, 3.81, 19.9, 4.06),
      line(18.08, 5.88),
      curve(17.87, 5.97, 18.02, 5.94, 17.95, 5.97),
      curve(17.66, 5.88, 17.79, 5.97, 17.71, 5.94),
      line(14.12, 2.34),
      curve(14.03, 2.13, 14.06, 2.29, 14.03, 2.21),
      curve(14.12, 1.92, 14.03, 2.05, 14.06, 1.98),
      line(15.75, 0.29),
      close(),
  };
  return outline<steps>();
}

UIBezierPath UIBezierPath::pencilPathInCircle() {
  static constexpr Step steps[] = {
      // disc
      move(18, 0),
      curve(36, 18, 27.94, 0, 36, 8.06),
      curve(18, 36, 36, 27.94, 27.94, 36),
      curve(0, 18, 8.06, 36, 0, 27.94),
      curve(18, 0, 0, 8.06, 8.06, 0),
      close(),
      // shaft and point, counter-wound
      move(20.09, 11.66),
      line(9.84, 21.92),
      curve(9.69, 22.18, 9.77, 21.99, 9.72, 22.08),
      line(8.33, 26.93),
      curve(8.31, 27.09, 8.32, 26.98, 8.31, 27.04),
      curve(8.91, 27.69, 8.31, 27.42, 8.58, 27.69),
      curve(9.07, 27.67, 8.96, 27.69, 9.02, 27.68),
      line(13.82, 26.31),
      curve(14.08, 26.16, 13.92, 26.28, 14.01, 26.23),
      line(24.34, 15.91),
      curve(24.44, 15.65, 24.4, 15.84, 24.44, 15.75),
      curve(24.34, 15.4, 24.44, 15.56, 24.4, 15.46),
      line(20.6, 11.66),
      curve(20.35, 11.56, 20.54, 11.6, 20.44, 11.56),
      curve(20.09, 11.66, 20.25, 11.56, 20.16, 11.6),
      close(),
      // eraser cap, counter-wound
      move(23.74, 8.01),
      line(22.23, 9.53),
      curve(22.12, 9.78, 22.16, 9.6, 22.12, 9.69),
      curve(22.23, 10.04, 22.12, 9.88, 22.16, 9.97),
      line(25.96, 13.77),
      curve(26.22, 13.88, 26.03, 13.84, 26.12, 13.88),
      curve(26.47, 13.77, 26.31, 13.88, 26.4, 13.84),
      line(27.99, 12.26),
      curve(28.31, 11.47, 28.19, 12.05, 28.31, 11.77),
      curve(27.99, 10.7, 28.31, 11.18, 28.19, 10.91),
      line(25.3, 8.01),
      curve(24.51, 7.69, 25.09, 7.81, 24.81, 7.69),
      curve(23.74, 8.01, 24.22, 7.69, 23.95, 7.81),
      close(),
  };
  return outline<steps>();
}

UIBezierPath UIBezierPath::addItemPath() {
  static constexpr auto plus = scaled(roundPlus, 0.7, 0.7);
  return evenOddOutline<itemDisc, plus>();
}

// addItemPath with its cross turned by 45°.
UIBezierPath UIBezierPath::removeItemPath() {
  static constexpr Step cross[] = {
      // the same cross turned, counter-wound
      move(11.03, 9.05),
      curve(10.04, 8.64, 10.77, 8.79, 10.41, 8.64),
      curve(8.64, 10.04, 9.27, 8.64, 8.64, 9.27),
      curve(9.05, 11.03, 8.64, 10.41, 8.79, 10.77),
      line(12.02, 14),
      line(9.05, 16.97),
      curve(8.64, 17.96, 8.79, 17.23, 8.64, 17.59),
      curve(10.04, 19.36, 8.64, 18.73, 9.27, 19.36),
      curve(11.03, 18.95, 10.41, 19.36, 10.77, 19.21),
      line(14, 15.98),
      line(16.97, 18.95),
      curve(17.96, 19.36, 17.23, 19.21, 17.59, 19.36),
      curve(19.36, 17.96, 18.73, 19.36, 19.36, 18.73),
      curve(18.95, 16.97, 19.36, 17.59, 19.21, 17.23),
      line(15.98, 14),
      line(18.95, 11.03),
      curve(19.36, 10.04, 19.21, 10.77, 19.36, 10.41),
      curve(17.96, 8.64, 19.36, 9.27, 18.73, 8.64),
      curve(16.97, 9.05, 17.59, 8.64, 17.23, 8.79),
      line(14, 12.02),
      line(11.03, 9.05),
      close(),
  };
  return evenOddOutline<itemDisc, cross>();
}

UIBezierPath UIBezierPath::clearStatusIconPath() {
  static constexpr Step steps[] = {
      // chip
      move(10, 0),
      line(22, 0),
      curve(32, 10, 27.52, 0, 32, 4.48),
      curve(22, 20, 32, 15.52, 27.52, 20),
      line(10, 20),
      curve(0, 10, 4.48, 20, 0, 15.52),
      curve(10, 0, 0, 4.48, 4.48, 0),
      close(),
      // lines of text, counter-wound
      move(6.15, 6.05),
      curve(5, 7.2, 5.51, 6.05, 5, 6.56),
      curve(6.15, 8.35, 5, 7.84, 5.51, 8.35),
      line(14.35, 8.35),
      curve(15.5, 7.2, 14.99, 8.35, 15.5, 7.84),
      curve(14.35, 6.05, 15.5, 6.56, 14.99, 6.05),
      line(6.15, 6.05),
      close(),
      move(6.15, 11.65),
      curve(5, 12.8, 5.51, 11.65, 5, 12.16),
      curve(6.15, 13.95, 5, 13.44, 5.51, 13.95),
      line(10.85, 13.95),
      curve(12, 12.8, 11.49, 13.95, 12, 13.44),
      curve(10.85, 11.65, 12, 12.16, 11.49, 11.65),
      line(6.15, 11.65),
      close(),
      // cross, counter-wound
      move(21.83, 6.67),
      curve(20.95, 6.3, 21.6, 6.43, 21.28, 6.3),
      curve(19.7, 7.55, 20.26, 6.3, 19.7, 6.86),
      curve(20.07, 8.43, 19.7, 7.88, 19.83, 8.2),
      line(21.63, 10),
      line(20.07, 11.57),
      curve(19.7, 12.45, 19.83, 11.8, 19.7, 12.12),
      curve(20.95, 13.7, 19.7, 13.14, 20.26, 13.7),
      curve(21.83, 13.33, 21.28, 13.7, 21.6, 13.57),
      line(23.4, 11.77),
      line(24.97, 13.33),
      curve(25.85, 13.7, 25.2, 13.57, 25.52, 13.7),
      curve(27.1, 12.45, 26.54, 13.7, 27.1, 13.14),
      curve(26.73, 11.57, 27.1, 12.12, 26.97, 11.8),
      line(25.17, 10),
      line(26.73, 8.43),
      curve(27.1, 7.55, 26.97, 8.2, 27.1, 7.88),
      curve(25.85, 6.3, 27.1, 6.86, 26.54, 6.3),
      curve(24.97, 6.67, 25.52, 6.3, 25.2, 6.43),
      line(23.4, 8.23),
      line(21.83, 6.67),
      close(),
  };
  return evenOddOutline<steps>();
}

UIBezierPath UIBezierPath::contactCardEditButtonIcon() {
  static constexpr Step steps[] = {
      // card, cut back round the pencil
      move(2.6, 0),
      line(21.4, 0),
      curve(24, 2.6, 22.84, 0, 24, 1.16),
      line(24, 8.23),
      curve(23.35, 8.93, 24, 8.62, 23.72, 8.87),
      curve(21.95, 9.63, 22.82, 9.01, 22.33, 9.25),
      line(21.02, 10.56),
      curve(20.57, 11.27, 20.82, 10.76, 20.67, 11),
      curve(20.13, 11.69, 20.49, 11.47, 20.33, 11.61),
      curve(19.44, 12.14, 19.88, 11.79, 19.64, 11.94),
      line(14.3, 17.28),
      curve(13.83, 17.98, 14.1, 17.48, 13.95, 17.72),
      curve(13.19, 18.4, 13.72, 18.23, 13.47, 18.4),
      line(2.6, 18.4),
      curve(0, 15.8, 1.16, 18.4, 0, 17.24),
      line(0, 2.6),
      curve(2.6, 0, 0, 1.16, 1.16, 0),
      close(),
      // head, counter-wound
      move(7.6, 3.8),
      curve(5.4, 6, 6.38, 3.8, 5.4, 4.78),
      curve(7.6, 8.2, 5.4, 7.22, 6.38, 8.2),
      curve(9.8, 6, 8.82, 8.2, 9.8, 7.22),
      curve(7.6, 3.8, 9.8, 4.78, 8.82, 3.8),
      close(),
      // shoulders, counter-wound
      move(4.27, 13.2),
      line(10.93, 13.2),
      curve(11.73, 12.4, 11.37, 13.2, 11.73, 12.84),
      curve(11.35, 11.43, 11.73, 12.1, 11.51, 11.67),
      curve(7.6, 9.85, 10.54, 10.25, 8.95, 9.85),
      curve(3.85, 11.43, 6.25, 9.85, 4.66, 10.25),
      curve(3.47, 12.4, 3.69, 11.67, 3.47, 12.1),
      curve(4.27, 13.2, 3.47, 12.84, 3.83, 13.2),
      close(),
      // pencil
      move(20.64, 13.34),
      curve(20.85, 13.26, 20.7, 13.29, 20.77, 13.26),
      curve(21.06, 13.34, 20.93, 13.26, 21.01, 13.29),
      line(23.26, 15.54),
      curve(23.34, 15.75, 23.31, 15.59, 23.34, 15.67),
      curve(23.26, 15.96, 23.34, 15.83, 23.31, 15.9),
      line(18.13, 21.09),
      curve(17.91, 21.22, 18.07, 21.15, 17.99, 21.19),
      line(15.24, 21.98),
      curve(15.1, 22, 15.19, 22, 15.15, 22),
      curve(14.6, 21.5, 14.82, 22, 14.6, 21.78),
      curve(14.62, 21.36, 14.6, 21.45, 14.61, 21.41),
      line(15.38, 18.69),
      curve(15.51, 18.47, 15.41, 18.61, 15.45, 18.53),
      line(20.64, 13.34),
      close(),
      // eraser cap
      move(23.15, 10.83),
      curve(23.71, 10.6, 23.3, 10.69, 23.5, 10.6),
      curve(24.28, 10.83, 23.92, 10.6, 24.13, 10.68),
      line(25.77, 12.32),
      curve(26, 12.88, 25.91, 12.47, 26, 12.67),
      curve(25.77, 13.45, 26, 13.09, 25.92, 13.3),
      line(24.85, 14.37),
      curve(24.63, 14.46, 24.79, 14.43, 24.71, 14.46),
      curve(24.42, 14.37, 24.55, 14.46, 24.48, 14.43),
      line(22.23, 12.18),
      curve(22.14, 11.97, 22.17, 12.12, 22.14, 12.05),
      curve(22.23, 11.75, 22.14, 11.89, 22.17, 11.81),
      line(23.15, 10.83),
      close(),
  };
  return outline<steps>();
}

UIBezierPath UIBezierPath::ctaPlusIcon() {
  static constexpr Step steps[] = {
      move(7, 0),  line(9, 0), line(9, 7), line(16, 7), line(16, 9), line(9, 9), line(9, 16),
      line(7, 16), line(7, 9), line(0, 9), line(0, 7),  line(7, 7),  line(7, 0), close(),
  };
  UIBezierPath path = outline<steps>();
  path.setLineWidth(1);
  path.setLineCapStyle(CGLineCap::round);
  path.setLineJoinStyle(CGLineJoin::round);
  return path;
}

}  // namespace glyphwright
