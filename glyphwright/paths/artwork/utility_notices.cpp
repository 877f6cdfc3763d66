#include <glyphwright/paths/outline.h>

namespace glyphwright {

using namespace paths;

UIBezierPath UIBezierPath::infoIconPath() {
  static constexpr Step steps[] = {
      // disc
      move(24, 12),
      curve(12, 24, 24, 18.63, 18.63, 24),
      curve(0, 12, 5.37, 24, 0, 18.63),
      curve(12, 0, 0, 5.37, 5.37, 0),
      curve(24, 12, 18.63, 0, 24, 5.37),
      close(),
      // dot
      move(13.5, 6.9),
      curve(12, 5.4, 13.5, 6.07, 12.83, 5.4),
      curve(10.5, 6.9, 11.17, 5.4, 10.5, 6.07),
      curve(12, 8.4, 10.5, 7.73, 11.17, 8.4),
      curve(13.5, 6.9, 12.83, 8.4, 13.5, 7.73),
      close(),
      // stem with flag and foot
      move(9.4, 10),
      curve(8.9, 10.5, 9.12, 10, 8.9, 10.22),
      line(8.9, 11.7),
      curve(9.4, 12.2, 8.9, 11.98, 9.12, 12.2),
      line(10.3, 12.2),
      curve(10.7, 12.6, 10.52, 12.2, 10.7, 12.38),
      line(10.7, 16),
      curve(10.3, 16.4, 10.7, 16.22, 10.52, 16.4),
      line(9, 16.4),
      curve(8.5, 16.9, 8.72, 16.4, 8.5, 16.62),
      line(8.5, 18.1),
      curve(9, 18.6, 8.5, 18.38, 8.72, 18.6),
      line(15, 18.6),
      curve(15.5, 18.1, 15.28, 18.6, 15.5, 18.38),
      line(15.5, 16.9),
      curve(15, 16.4, 15.5, 16.62, 15.28, 16.4),
      line(13.7, 16.4),
      curve(13.3, 16, 13.48, 16.4, 13.3, 16.22),
      line(13.3, 10.5),
      curve(12.8, 10, 13.3, 10.22, 13.08, 10),
      line(9.4, 10),
      close(),
  };
  return evenOddOutline(steps);
}

}  // namespace glyphwright
