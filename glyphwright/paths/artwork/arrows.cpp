#include <glyphwright/paths/outline_copies.h>

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

// Ahead of anchored arrows.
constexpr Step anchorBar[] = {
    move(18.35, 0),
    curve(20, 1.65, 19.26, 0, 20, 0.74),
    curve(18.35, 3.3, 20, 2.56, 19.26, 3.3),
    line(1.65, 3.3),
    curve(0, 1.65, 0.74, 3.3, 0, 2.56),
    curve(1.65, 0, 0, 0.74, 0.74, 0),
    line(18.35, 0),
    close(),
};

}  // namespace

UIBezierPath UIBezierPath::rightArrowStemPath() {
  static constexpr Step steps[] = {
      move(12, 15.2),
      line(12, 9.85),
      line(1.85, 9.85),
      curve(0, 8, 0.83, 9.85, 0, 9.02),
      curve(1.85, 6.15, 0, 6.98, 0.83, 6.15),
      line(12, 6.15),
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
  return outline<steps>();
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
  return outline<steps>();
}

UIBezierPath UIBezierPath::navigationArrowDownPath() {
  return turned(navigationArrowLeftPath(), kQuarterTurnBack);
}

UIBezierPath UIBezierPath::navigationArrowRightPath() {
  return turned(navigationArrowLeftPath(), kHalfTurn);
}

UIBezierPath UIBezierPath::dropDownArrowIcon() {
  static constexpr Step steps[] = {move(0, 0), line(6, 6), line(12, 0), line(0, 0), close()};
  return outline<steps>();
}

UIBezierPath UIBezierPath::globalTutorialUpArrowPath() {
  static constexpr Step steps[] = {
      // head and stem
      move(2, 36),
      curve(0, 34, 0.9, 36, 0, 35.1),
      curve(0.26, 33.02, 0, 33.66, 0.09, 33.32),
      line(18.26, 1.02),
      curve(20, 0, 18.61, 0.39, 19.28, 0),
      curve(21.74, 1.02, 20.72, 0, 21.39, 0.39),
      line(39.74, 33.02),
      curve(40, 34, 39.91, 33.32, 40, 33.66),
      curve(38, 36, 40, 35.1, 39.1, 36),
      line(28, 36),
      line(28, 48.5),
      curve(26.5, 50, 28, 49.33, 27.33, 50),
      line(13.5, 50),
      curve(12, 48.5, 12.67, 50, 12, 49.33),
      line(12, 36),
      line(2, 36),
      close(),
      // two blocks, each shorter than the last
      move(12, 56.5),
      curve(13.5, 55, 12, 55.67, 12.67, 55),
      line(26.5, 55),
      curve(28, 56.5, 27.33, 55, 28, 55.67),
      line(28, 64.5),
      curve(26.5, 66, 28, 65.33, 27.33, 66),
      line(13.5, 66),
      curve(12, 64.5, 12.67, 66, 12, 65.33),
      line(12, 56.5),
      close(),
      move(12, 72.5),
      curve(13.5, 71, 12, 71.67, 12.67, 71),
      line(26.5, 71),
      curve(28, 72.5, 27.33, 71, 28, 71.67),
      line(28, 78.5),
      curve(26.5, 80, 28, 79.33, 27.33, 80),
      line(13.5, 80),
      curve(12, 78.5, 12.67, 80, 12, 79.33),
      line(12, 72.5),
      close(),
  };
  return outline<steps>();
}

// A stroke look: the open head has full round ends, the stem widens into it over small fillets.
UIBezierPath UIBezierPath::arrowPath() {
  static constexpr Step steps[] = {
      move(5.87, 0.3),
      curve(7.63, 0.3, 6.35, -0.19, 7.15, -0.19),
      line(13.3, 5.97),
      curve(13.3, 7.73, 13.79, 6.45, 13.79, 7.25),
      curve(11.53, 7.73, 12.81, 8.22, 12.02, 8.22),
      line(8.18, 4.38),
      curve(8, 4.45, 8.06, 4.26, 8, 4.29),
      line(8, 15.88),
      curve(7.1, 16.78, 8, 16.38, 7.6, 16.78),
      line(6.4, 16.78),
      curve(5.5, 15.88, 5.9, 16.78, 5.5, 16.38),
      line(5.5, 4.45),
      curve(5.32, 4.38, 5.5, 4.29, 5.44, 4.26),
      line(1.97, 7.73),
      curve(0.2, 7.73, 1.48, 8.22, 0.69, 8.22),
      curve(0.2, 5.97, -0.29, 7.25, -0.29, 6.45),
      line(5.87, 0.3),
      close(),
  };
  return evenOddOutline<steps>();
}

UIBezierPath UIBezierPath::arrowUpOutPath() {
  static constexpr Step steps[] = {
      // frame, open at its upper right corner
      move(3, 2),
      line(9, 2),
      curve(10, 3, 9.55, 2, 10, 2.45),
      curve(9, 4, 10, 3.55, 9.55, 4),
      line(3, 4),
      curve(2, 5, 2.45, 4, 2, 4.45),
      line(2, 17),
      curve(3, 18, 2, 17.55, 2.45, 18),
      line(15, 18),
      curve(16, 17, 15.55, 18, 16, 17.55),
      line(16, 11),
      curve(17, 10, 16, 10.45, 16.45, 10),
      curve(18, 11, 17.55, 10, 18, 10.45),
      line(18, 17),
      curve(15, 20, 18, 18.66, 16.66, 20),
      line(3, 20),
      curve(0, 17, 1.34, 20, 0, 18.66),
      line(0, 5),
      curve(3, 2, 0, 3.34, 1.34, 2),
      close(),
      // arrow
      move(13, 0),
      line(19, 0),
      curve(20, 1, 19.55, 0, 20, 0.45),
      line(20, 7),
      curve(19, 8, 20, 7.55, 19.55, 8),
      curve(18, 7, 18.45, 8, 18, 7.55),
      line(18, 3.41),
      line(9.31, 12.11),
      curve(8.6, 12.4, 9.12, 12.29, 8.87, 12.4),
      curve(7.6, 11.4, 8.05, 12.4, 7.6, 11.95),
      curve(7.89, 10.69, 7.6, 11.13, 7.71, 10.88),
      line(16.59, 2),
      line(13, 2),
      curve(12, 1, 12.45, 2, 12, 1.55),
      curve(13, 0, 12, 0.45, 12.45, 0),
      close(),
  };
  return outline<steps>();
}

UIBezierPath UIBezierPath::undoArrowPath() {
  static constexpr Step steps[] = {
      move(7.99, 19.27),
      curve(11, 19.8, 8.95, 19.62, 9.97, 19.8),
      curve(19.8, 11, 15.86, 19.8, 19.8, 15.86),
      curve(11, 2.2, 19.8, 6.14, 15.86, 2.2),
      curve(4.49, 5.07, 8.51, 2.2, 6.15, 3.25),
      line(5.54, 6.03),
      curve(5.71, 6.4, 5.65, 6.12, 5.71, 6.26),
      curve(5.35, 6.88, 5.71, 6.62, 5.56, 6.81),
      line(0.64, 8.3),
      curve(0.5, 8.33, 0.6, 8.32, 0.55, 8.33),
      curve(0, 7.83, 0.22, 8.33, 0, 8.1),
      curve(0, 7.73, 0, 7.79, 0, 7.76),
      line(0.99, 2.91),
      curve(1.48, 2.51, 1.04, 2.67, 1.24, 2.51),
      curve(1.82, 2.64, 1.61, 2.51, 1.73, 2.55),
      line(2.87, 3.59),
      curve(11, 0, 4.94, 1.32, 7.89, 0),
      curve(22, 11, 17.08, 0, 22, 4.92),
      curve(11, 22, 22, 17.08, 17.08, 22),
      curve(7.24, 21.34, 9.72, 22, 8.44, 21.78),
      curve(6.51, 20.3, 6.8, 21.18, 6.51, 20.77),
      curve(7.61, 19.2, 6.51, 19.7, 7.01, 19.2),
      curve(7.99, 19.27, 7.74, 19.2, 7.87, 19.23),
      close(),
  };
  return outline<steps>();
}

UIBezierPath UIBezierPath::anchorArrowPath() {
  static constexpr Step steps[] = {
      // chevron
      move(2.82, 0.48),
      line(10, 7.67),
      line(17.18, 0.48),
      curve(18.35, 0, 17.49, 0.17, 17.91, 0),
      curve(20, 1.65, 19.26, 0, 20, 0.74),
      curve(19.52, 2.82, 20, 2.09, 19.83, 2.51),
      line(11.17, 11.17),
      curve(10, 11.65, 10.86, 11.48, 10.44, 11.65),
      curve(8.83, 11.17, 9.56, 11.65, 9.14, 11.48),
      line(0.48, 2.82),
      curve(0, 1.65, 0.17, 2.51, 0, 2.09),
      curve(1.65, 0, 0, 0.74, 0.74, 0),
      curve(2.82, 0.48, 2.09, 0, 2.51, 0.17),
      close(),
  };
  static constexpr auto bar = moved(anchorBar, 0, 14.7);
  return outline<steps, bar>();
}

UIBezierPath UIBezierPath::anchorArrowUpPath() {
  static constexpr Step steps[] = {
      // chevron
      move(2.82, 17.52),
      curve(1.65, 18, 2.51, 17.83, 2.09, 18),
      curve(0, 16.35, 0.74, 18, 0, 17.26),
      curve(0.48, 15.18, 0, 15.91, 0.17, 15.49),
      line(8.83, 6.83),
      curve(10, 6.35, 9.14, 6.52, 9.56, 6.35),
      curve(11.17, 6.83, 10.44, 6.35, 10.86, 6.52),
      line(19.52, 15.18),
      curve(20, 16.35, 19.83, 15.49, 20, 15.91),
      curve(18.35, 18, 20, 17.26, 19.26, 18),
      curve(17.18, 17.52, 17.91, 18, 17.49, 17.83),
      line(10, 10.33),
      line(2.82, 17.52),
      close(),
  };
  return outline<anchorBar, steps>();
}

UIBezierPath UIBezierPath::expandableArrowDownIcon() {
  static constexpr Step steps[] = {
      move(10, 7.89),
      line(17.8, 0.36),
      curve(18.7, 0, 18.04, 0.13, 18.36, 0),
      curve(20, 1.3, 19.42, 0, 20, 0.58),
      curve(19.6, 2.24, 20, 1.65, 19.86, 1.99),
      line(10.9, 10.64),
      curve(10, 11, 10.66, 10.87, 10.34, 11),
      curve(9.1, 10.64, 9.66, 11, 9.34, 10.87),
      line(0.4, 2.24),
      curve(0, 1.3, 0.14, 1.99, 0, 1.65),
      curve(1.3, 0, 0, 0.58, 0.58, 0),
      curve(2.2, 0.36, 1.64, 0, 1.96, 0.13),
      line(10, 7.89),
      close(),
  };
  return evenOddOutline<steps>();
}

UIBezierPath UIBezierPath::webViewBackIcon() {
  static constexpr Step steps[] = {
      move(0, 10.5),   line(10.67, 0),  line(12, 1.35), line(2.71, 10.5),
      line(12, 19.65), line(10.67, 21), line(0, 10.5),  close(),
  };
  return outline<steps>();
}

}  // namespace glyphwright
