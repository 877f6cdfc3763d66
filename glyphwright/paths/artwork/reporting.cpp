#include <glyphwright/paths/outline_copies.h>

namespace glyphwright {

using namespace paths;

namespace {

// A notice: a disc with ! cut out.
constexpr Step noticeDisc[] = {
    move(32, 28),
    curve(44, 40, 38.63, 28, 44, 33.37),
    curve(32, 52, 44, 46.63, 38.63, 52),
    curve(20, 40, 25.37, 52, 20, 46.63),
    curve(32, 28, 20, 33.37, 25.37, 28),
    close(),
    move(31.7, 32.3),
    curve(29.7, 34.3, 30.6, 32.3, 29.7, 33.2),
    curve(29.71, 34.53, 29.7, 34.38, 29.7, 34.46),
    line(30.31, 39.6),
    curve(32, 41.1, 30.41, 40.46, 31.14, 41.1),
    curve(33.69, 39.6, 32.86, 41.1, 33.59, 40.46),
    line(34.29, 34.53),
    curve(34.3, 34.3, 34.3, 34.46, 34.3, 34.38),
    curve(32.3, 32.3, 34.3, 33.2, 33.4, 32.3),
    line(31.7, 32.3),
    close(),
    move(32, 44.3),
    curve(30.1, 46.2, 30.95, 44.3, 30.1, 45.15),
    curve(32, 48.1, 30.1, 47.25, 30.95, 48.1),
    curve(33.9, 46.2, 33.05, 48.1, 33.9, 47.25),
    curve(32, 44.3, 33.9, 45.15, 33.05, 44.3),
    close(),
};

}  // namespace

UIBezierPath UIBezierPath::imNotInterestedIcon() {
  static constexpr Step steps[] = {
      // heart, a lobe on either side of the bar
      move(24.35, 10.26),
      curve(35.4, 2, 26.39, 5.28, 30.41, 2),
      curve(48, 15.2, 42.4, 2, 48, 8.4),
      curve(41.77, 27.27, 48, 18.41, 46.2, 21.83),
      curve(41.31, 27.49, 41.66, 27.41, 41.49, 27.49),
      curve(40.88, 27.31, 41.15, 27.49, 41, 27.43),
      line(24.48, 10.91),
      curve(24.31, 10.49, 24.37, 10.8, 24.31, 10.65),
      curve(24.35, 10.26, 24.31, 10.41, 24.32, 10.33),
      close(),
      move(34.36, 35.74),
      curve(25.46, 45.36, 31.82, 38.54, 28.86, 41.71),
      curve(24, 46, 25.08, 45.76, 24.56, 46),
      curve(22.54, 45.36, 23.44, 46, 22.92, 45.76),
      curve(0, 15.2, 5.9, 27.52, 0, 21),
      curve(4.15, 5.56, 0, 11.57, 1.6, 8.05),
      curve(4.57, 5.39, 4.26, 5.45, 4.41, 5.39),
      curve(5, 5.57, 4.73, 5.39, 4.88, 5.45),
      line(34.34, 34.92),
      curve(34.52, 35.34, 34.46, 35.03, 34.52, 35.18),
      curve(34.36, 35.74, 34.52, 35.49, 34.46, 35.63),
      close(),
      // bar
      move(44.41, 35.09),
      curve(45, 36.5, 44.79, 35.46, 45, 35.97),
      curve(43, 38.5, 45, 37.6, 44.1, 38.5),
      curve(41.59, 37.91, 42.47, 38.5, 41.96, 38.29),
      line(7.09, 3.41),
      curve(6.5, 2, 6.71, 3.04, 6.5, 2.53),
      curve(8.5, 0, 6.5, 0.9, 7.4, 0),
      curve(9.91, 0.59, 9.03, 0, 9.54, 0.21),
      line(44.41, 35.09),
      close(),
  };
  return outline<steps>();
}

UIBezierPath UIBezierPath::inappropriateBiographyIcon() {
  static constexpr Step page[] = {
      // page, cut back round the disc
      move(5, 0),
      line(33, 0),
      curve(38, 5, 35.76, 0, 38, 2.24),
      line(38, 24.49),
      curve(37, 25.49, 38, 25.04, 37.55, 25.49),
      curve(36.69, 25.44, 36.9, 25.49, 36.79, 25.47),
      curve(32, 24.7, 35.18, 24.95, 33.59, 24.7),
      curve(16.7, 40, 23.55, 24.7, 16.7, 31.55),
      curve(17.44, 44.69, 16.7, 41.59, 16.95, 43.18),
      curve(17.49, 45, 17.47, 44.79, 17.49, 44.9),
      curve(16.49, 46, 17.49, 45.55, 17.04, 46),
      line(5, 46),
      curve(0, 41, 2.24, 46, 0, 43.76),
      line(0, 5),
      curve(5, 0, 0, 2.24, 2.24, 0),
      close(),
  };
  static constexpr Step row[] = {
      // text, counter-wound
      move(10, 8.5),
      curve(8, 10.5, 8.9, 8.5, 8, 9.4),
      curve(10, 12.5, 8, 11.6, 8.9, 12.5),
      line(28, 12.5),
      curve(30, 10.5, 29.1, 12.5, 30, 11.6),
      curve(28, 8.5, 30, 9.4, 29.1, 8.5),
      line(10, 8.5),
      close(),
  };
  static constexpr auto secondRow = moved(row, 0, 8.5);
  static constexpr Step lastRow[] = {
      move(10, 25.5),
      curve(8, 27.5, 8.9, 25.5, 8, 26.4),
      curve(10, 29.5, 8, 28.6, 8.9, 29.5),
      line(15.5, 29.5),
      curve(17.5, 27.5, 16.6, 29.5, 17.5, 28.6),
      curve(15.5, 25.5, 17.5, 26.4, 16.6, 25.5),
      line(10, 25.5),
      close(),
  };
  return outline<page, row, secondRow, lastRow, noticeDisc>();
}

UIBezierPath UIBezierPath::inappropriatePhotosIcon() {
  static constexpr Step picture[] = {
      // picture, cut back round the disc
      move(5, 0),
      line(41, 0),
      curve(46, 5, 43.76, 0, 46, 2.24),
      line(46, 18.49),
      curve(45, 19.49, 46, 19.04, 45.55, 19.49),
      curve(44.69, 19.44, 44.9, 19.49, 44.79, 19.47),
      curve(40, 18.7, 43.18, 18.95, 41.59, 18.7),
      curve(24.7, 34, 31.55, 18.7, 24.7, 25.55),
      curve(25.17, 37.75, 24.7, 35.27, 24.86, 36.53),
      curve(25.2, 38, 25.19, 37.83, 25.2, 37.92),
      curve(24.2, 39, 25.2, 38.55, 24.75, 39),
      line(5, 39),
      curve(0, 34, 2.24, 39, 0, 36.76),
      line(0, 5),
      curve(5, 0, 0, 2.24, 2.24, 0),
      close(),
      // sun, counter-wound
      move(12, 8),
      curve(8, 12, 9.79, 8, 8, 9.79),
      curve(12, 16, 8, 14.21, 9.79, 16),
      curve(16, 12, 14.21, 16, 16, 14.21),
      curve(12, 8, 16, 9.79, 14.21, 8),
      close(),
      // mountains, counter-wound
      move(6.46, 34),
      line(21.1, 34),
      curve(31.6, 17.07, 21.1, 26.82, 25.17, 20.26),
      line(29.66, 14.84),
      curve(28.61, 14.36, 29.4, 14.53, 29.01, 14.36),
      curve(27.47, 14.94, 28.16, 14.36, 27.73, 14.58),
      line(18.5, 27.5),
      line(14.23, 22.84),
      curve(13.2, 22.39, 13.96, 22.55, 13.59, 22.39),
      curve(12.02, 23.03, 12.72, 22.39, 12.28, 22.63),
      line(5.79, 32.77),
      curve(5.66, 33.2, 5.71, 32.9, 5.66, 33.05),
      curve(6.46, 34, 5.66, 33.64, 6.02, 34),
      close(),
  };
  static constexpr auto disc = moved(noticeDisc, 8, -6);
  return outline<picture, disc>();
}

// Slim and crisp: sharp tip, ends cut upright.
UIBezierPath UIBezierPath::reportingDownArrowIcon() {
  static constexpr Step steps[] = {
      move(0, 0), line(7, 5.68), line(14, 0), line(14, 2.32),
      line(7, 8), line(0, 2.32), line(0, 0),  close(),
  };
  return evenOddOutline<steps>();
}

UIBezierPath UIBezierPath::reportingUpArrowIcon() {
  static constexpr Step steps[] = {
      move(0, 8),  line(0, 5.68), line(7, 0), line(14, 5.68),
      line(14, 8), line(7, 2.32), line(0, 8), close(),
  };
  return evenOddOutline<steps>();
}

UIBezierPath UIBezierPath::reportingRightArrowIcon() {
  static constexpr Step steps[] = {
      move(0, 0),  line(2.32, 0), line(8, 7), line(2.32, 14),
      line(0, 14), line(5.68, 7), line(0, 0), close(),
  };
  return evenOddOutline<steps>();
}

}  // namespace glyphwright
