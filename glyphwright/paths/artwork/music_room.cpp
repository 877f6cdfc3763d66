#include <glyphwright/paths/outline_copies.h>

namespace glyphwright {

using namespace paths;

// A record; the two slots of sheen are appended to the disc and its hole.
UIBezierPath UIBezierPath::vinylInputButton() {
  static constexpr Step record[] = {
      // disc
      move(15.67, 88.66),
      curve(31.34, 104.33, 24.32, 88.66, 31.34, 95.68),
      curve(15.67, 120, 31.34, 112.98, 24.32, 120),
      curve(0, 104.33, 7.02, 120, 0, 112.98),
      curve(15.67, 88.66, 0, 95.68, 7.02, 88.66),
      close(),
      // centre hole
      move(15.67, 100.93),
      curve(12.27, 104.33, 13.79, 100.93, 12.27, 102.45),
      curve(15.67, 107.73, 12.27, 106.21, 13.79, 107.73),
      curve(19.07, 104.33, 17.55, 107.73, 19.07, 106.21),
      curve(15.67, 100.93, 19.07, 102.45, 17.55, 100.93),
      close(),
  };
  static constexpr Step upperSheen[] = {
      move(18.67, 93.13),
      curve(18.26, 93.07, 18.54, 93.09, 18.4, 93.07),
      curve(16.66, 94.67, 17.37, 93.07, 16.66, 93.79),
      curve(17.84, 96.22, 16.66, 95.39, 17.14, 96.03),
      curve(23.78, 102.16, 20.74, 96.99, 23.01, 99.26),
      curve(25.33, 103.34, 23.97, 102.86, 24.61, 103.34),
      curve(26.93, 101.74, 26.21, 103.34, 26.93, 102.63),
      curve(26.87, 101.33, 26.93, 101.6, 26.91, 101.46),
      curve(18.67, 93.13, 25.8, 97.32, 22.68, 94.2),
      close(),
  };
  static constexpr auto lowerSheen = upsideDown(upperSheen, 31.34, 208.66);
  return evenOddOutline<record, upperSheen, lowerSheen>();
}

UIBezierPath UIBezierPath::vinylSendButton() {
  static constexpr Step steps[] = {
      // pill
      move(15, 90),
      line(35, 90),
      curve(50, 105, 43.28, 90, 50, 96.72),
      curve(35, 120, 50, 113.28, 43.28, 120),
      line(15, 120),
      curve(0, 105, 6.72, 120, 0, 113.28),
      curve(15, 90, 0, 96.72, 6.72, 90),
      close(),
      // upward arrow
      move(25, 96.5),
      curve(24.34, 96.76, 24.75, 96.5, 24.51, 96.59),
      line(17.29, 103.32),
      curve(17, 103.97, 17.1, 103.49, 17, 103.72),
      curve(17.95, 104.87, 17, 104.47, 17.42, 104.87),
      line(22.5, 104.87),
      line(22.5, 112.9),
      curve(23.66, 114, 22.5, 113.51, 23.02, 114),
      line(26.34, 114),
      curve(27.5, 112.9, 26.98, 114, 27.5, 113.51),
      line(27.5, 104.87),
      line(32.05, 104.87),
      curve(33, 103.97, 32.58, 104.87, 33, 104.47),
      curve(32.71, 103.32, 33, 103.72, 32.9, 103.49),
      line(25.66, 96.76),
      curve(25, 96.5, 25.49, 96.59, 25.25, 96.5),
      close(),
  };
  return evenOddOutline<steps>();
}

// Two beamed notes as one outline.
UIBezierPath UIBezierPath::vinylMusicSignIcon() {
  static constexpr Step steps[] = {
      move(7.58, 18.66),
      curve(3.16, 22, 7.58, 20.41, 5.47, 22),
      curve(0, 19.61, 1.34, 22, 0, 20.99),
      curve(4.42, 16.27, 0, 17.86, 2.11, 16.27),
      line(4.57, 16.27),
      curve(5.14, 15.76, 4.88, 16.28, 5.14, 16.05),
      line(5.14, 3.8),
      curve(5.99, 2.81, 5.14, 3.33, 5.49, 2.92),
      line(18.63, 0.03),
      curve(18.89, 0, 18.72, 0.01, 18.8, 0),
      curve(20, 1.02, 19.5, 0, 20, 0.46),
      line(20, 16.82),
      curve(15.58, 20.16, 20, 18.57, 17.89, 20.16),
      curve(12.42, 17.77, 13.76, 20.16, 12.42, 19.15),
      curve(16.84, 14.43, 12.42, 16.02, 14.53, 14.43),
      line(16.99, 14.43),
      curve(17.56, 13.92, 17.3, 14.44, 17.56, 14.21),
      line(17.56, 5.11),
      curve(17.01, 4.6, 17.56, 4.83, 17.31, 4.6),
      curve(16.85, 4.62, 16.95, 4.6, 16.9, 4.61),
      line(7.97, 7.07),
      curve(7.58, 7.56, 7.74, 7.14, 7.58, 7.34),
      line(7.58, 18.66),
      close(),
  };
  return outline<steps>();
}

}  // namespace glyphwright
