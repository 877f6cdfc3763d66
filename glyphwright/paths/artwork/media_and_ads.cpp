#include <glyphwright/paths/outline_copies.h>

namespace glyphwright {

using namespace paths;

namespace {

// The disc that the signs of the ads are cut from.
constexpr Step adDisc[] = {
    move(24, 0),
    curve(48, 24, 37.25, 0, 48, 10.75),
    curve(24, 48, 48, 37.25, 37.25, 48),
    curve(0, 24, 10.75, 48, 0, 37.25),
    curve(24, 0, 0, 10.75, 10.75, 0),
    close(),
};

}  // namespace

UIBezierPath UIBezierPath::playPath() {
  static constexpr Step steps[] = {
      move(3.06, 0.3),
      line(19.06, 10.3),
      curve(20, 12, 19.64, 10.67, 20, 11.31),
      curve(19.06, 13.7, 20, 12.69, 19.64, 13.33),
      line(3.06, 23.7),
      curve(2, 24, 2.74, 23.89, 2.37, 24),
      curve(0, 22, 0.9, 24, 0, 23.1),
      line(0, 2),
      curve(2, 0, 0, 0.9, 0.9, 0),
      curve(3.06, 0.3, 2.37, 0, 2.74, 0.11),
      close(),
  };
  return outline<steps>();
}

UIBezierPath UIBezierPath::stopPath() {
  return bezierPathWithRoundedRect({0, 0, 20, 20}, 3);
}

UIBezierPath UIBezierPath::adPlayIcon() {
  static constexpr Step triangle[] = {
      // triangle, counter-wound, centred by area
      move(20.45, 15.24),
      curve(19.6, 15, 20.2, 15.08, 19.9, 15),
      curve(18, 16.6, 18.72, 15, 18, 15.72),
      line(18, 31.4),
      curve(19.6, 33, 18, 32.28, 18.72, 33),
      curve(20.45, 32.76, 19.9, 33, 20.2, 32.92),
      line(32.25, 25.36),
      curve(33, 24, 32.72, 25.06, 33, 24.55),
      curve(32.25, 22.64, 33, 23.45, 32.72, 22.94),
      line(20.45, 15.24),
      close(),
  };
  return outline<adDisc, triangle>();
}

UIBezierPath UIBezierPath::adPauseIcon() {
  static constexpr Step bar[] = {
      // bars, counter-wound
      move(16, 16),
      line(16, 32),
      curve(17.5, 33.5, 16, 32.83, 16.67, 33.5),
      line(19.5, 33.5),
      curve(21, 32, 20.33, 33.5, 21, 32.83),
      line(21, 16),
      curve(19.5, 14.5, 21, 15.17, 20.33, 14.5),
      line(17.5, 14.5),
      curve(16, 16, 16.67, 14.5, 16, 15.17),
      close(),
  };
  static constexpr auto otherBar = moved(bar, 11, 0);
  return outline<adDisc, bar, otherBar>();
}

UIBezierPath UIBezierPath::adArrowIcon() {
  static constexpr Step arrow[] = {
      // arrow, counter-wound
      move(24.5, 30.8),
      curve(25.7, 32, 24.5, 31.46, 25.04, 32),
      curve(26.44, 31.74, 25.97, 32, 26.23, 31.91),
      line(35.04, 24.94),
      curve(35.5, 24, 35.33, 24.71, 35.5, 24.37),
      curve(35.04, 23.06, 35.5, 23.63, 35.33, 23.29),
      line(26.44, 16.26),
      curve(25.7, 16, 26.23, 16.09, 25.97, 16),
      curve(24.5, 17.2, 25.04, 16, 24.5, 16.54),
      line(24.5, 21.5),
      line(13, 21.5),
      curve(10.5, 24, 11.62, 21.5, 10.5, 22.62),
      curve(13, 26.5, 10.5, 25.38, 11.62, 26.5),
      line(24.5, 26.5),
      line(24.5, 30.8),
      close(),
  };
  return outline<adDisc, arrow>();
}

UIBezierPath UIBezierPath::replayArrowIconPath() {
  static constexpr Step steps[] = {
      move(10.5, 1),
      line(10.5, 4.6),
      curve(24, 19.4, 19.2, 4.6, 24, 10.2),
      curve(23.4, 20, 24, 19.73, 23.73, 20),
      curve(23.03, 19.87, 23.27, 20, 23.14, 19.96),
      curve(10.5, 11.4, 19.72, 17.29, 16.2, 11.4),
      line(10.5, 15),
      curve(9.5, 16, 10.5, 15.55, 10.05, 16),
      curve(8.86, 15.77, 9.27, 16, 9.04, 15.92),
      line(0.36, 8.77),
      curve(0, 8, 0.13, 8.58, 0, 8.3),
      curve(0.36, 7.23, 0, 7.7, 0.13, 7.42),
      line(8.86, 0.23),
      curve(9.5, 0, 9.04, 0.08, 9.27, 0),
      curve(10.5, 1, 10.05, 0, 10.5, 0.45),
      close(),
  };
  return outline<steps>();
}

}  // namespace glyphwright
