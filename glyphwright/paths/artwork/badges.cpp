#include <glyphwright/paths/outline.h>

namespace glyphwright {

using namespace paths;

namespace {

// Soft hexagon on a point: badgeOutline is laid under peopleBadge, so both are this very outline.
constexpr Step hexagon[] = {
    move(15, 0.54),
    line(24, 5.73),
    curve(26, 9.2, 25.24, 6.45, 26, 7.77),
    line(26, 18.8),
    curve(24, 22.27, 26, 20.23, 25.24, 21.55),
    line(15, 27.46),
    curve(13, 28, 14.39, 27.82, 13.7, 28),
    curve(11, 27.46, 12.3, 28, 11.61, 27.82),
    line(2, 22.27),
    curve(0, 18.8, 0.76, 21.55, 0, 20.23),
    line(0, 9.2),
    curve(2, 5.73, 0, 7.77, 0.76, 6.45),
    line(11, 0.54),
    curve(13, 0, 11.61, 0.18, 12.3, 0),
    curve(15, 0.54, 13.7, 0, 14.39, 0.18),
    close(),
};

}  // namespace

UIBezierPath UIBezierPath::peopleBadge() {
  static constexpr Step busts[] = {
      // left head and shoulders
      move(10.8, 10),
      curve(7.9, 7.1, 10.8, 8.4, 9.5, 7.1),
      curve(5, 10, 6.3, 7.1, 5, 8.4),
      curve(7.9, 12.9, 5, 11.6, 6.3, 12.9),
      curve(10.8, 10, 9.5, 12.9, 10.8, 11.6),
      close(),
      move(7.7, 14.7),
      curve(3.7, 18.7, 5.49, 14.7, 3.7, 16.49),
      line(3.7, 19.8),
      curve(4.5, 20.6, 3.7, 20.24, 4.06, 20.6),
      line(11.3, 20.6),
      curve(12.1, 19.8, 11.74, 20.6, 12.1, 20.24),
      line(12.1, 18.7),
      curve(8.1, 14.7, 12.1, 16.49, 10.31, 14.7),
      line(7.7, 14.7),
      close(),
      // right head and shoulders
      move(21, 10),
      curve(18.1, 7.1, 21, 8.4, 19.7, 7.1),
      curve(15.2, 10, 16.5, 7.1, 15.2, 8.4),
      curve(18.1, 12.9, 15.2, 11.6, 16.5, 12.9),
      curve(21, 10, 19.7, 12.9, 21, 11.6),
      close(),
      move(17.9, 14.7),
      curve(13.9, 18.7, 15.69, 14.7, 13.9, 16.49),
      line(13.9, 19.8),
      curve(14.7, 20.6, 13.9, 20.24, 14.26, 20.6),
      line(21.5, 20.6),
      curve(22.3, 19.8, 21.94, 20.6, 22.3, 20.24),
      line(22.3, 18.7),
      curve(18.3, 14.7, 22.3, 16.49, 20.51, 14.7),
      line(17.9, 14.7),
      close(),
  };
  UIBezierPath path = outline(hexagon);
  path.appendPath(outline(busts));
  return path;
}

UIBezierPath UIBezierPath::badgeOutline() {
  return outline(hexagon);
}

}  // namespace glyphwright
