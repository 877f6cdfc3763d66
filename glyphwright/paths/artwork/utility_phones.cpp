#include <glyphwright/paths/outline_copies.h>

namespace glyphwright {

using namespace paths;

namespace {

// The home button of both smartphones, counter-wound.
constexpr Step homeButton[] = {
    move(8.1, 20.75),
    curve(7, 19.65, 8.1, 20.14, 7.61, 19.65),
    curve(5.9, 20.75, 6.39, 19.65, 5.9, 20.14),
    curve(7, 21.85, 5.9, 21.36, 6.39, 21.85),
    curve(8.1, 20.75, 7.61, 21.85, 8.1, 21.36),
    close(),
};

}  // namespace

UIBezierPath UIBezierPath::phoneIcon() {
  static constexpr Step slab[] = {
      // slab
      move(3, 0),
      line(11, 0),
      curve(14, 3, 12.66, 0, 14, 1.34),
      line(14, 21),
      curve(11, 24, 14, 22.66, 12.66, 24),
      line(3, 24),
      curve(0, 21, 1.34, 24, 0, 22.66),
      line(0, 3),
      curve(3, 0, 0, 1.34, 1.34, 0),
      close(),
      // screen
      move(3, 3),
      curve(2, 4, 2.45, 3, 2, 3.45),
      line(2, 17),
      curve(3, 18, 2, 17.55, 2.45, 18),
      line(11, 18),
      curve(12, 17, 11.55, 18, 12, 17.55),
      line(12, 4),
      curve(11, 3, 12, 3.45, 11.55, 3),
      line(3, 3),
      close(),
  };
  return outline<slab, homeButton>();
}

UIBezierPath UIBezierPath::smsIcon() {
  static constexpr Step slab[] = {
      // slab with an open screen, cut back round the bubble
      move(3, 0),
      line(7.39, 0),
      curve(7.89, 0.5, 7.67, 0, 7.89, 0.22),
      curve(7.81, 0.77, 7.89, 0.6, 7.86, 0.69),
      curve(7.08, 2.59, 7.45, 1.33, 7.2, 1.94),
      curve(6.59, 3, 7.04, 2.83, 6.83, 3),
      line(3, 3),
      curve(2, 4, 2.45, 3, 2, 3.45),
      line(2, 17),
      curve(3, 18, 2, 17.55, 2.45, 18),
      line(11, 18),
      curve(12, 17, 11.55, 18, 12, 17.55),
      line(12, 13.69),
      curve(12.26, 13.26, 12, 13.51, 12.1, 13.34),
      curve(12.92, 12.68, 12.52, 13.11, 12.75, 12.92),
      curve(13.11, 12.43, 12.98, 12.59, 13.05, 12.51),
      curve(13.5, 12.24, 13.21, 12.31, 13.35, 12.24),
      curve(14, 12.74, 13.78, 12.24, 14, 12.46),
      line(14, 21),
      curve(11, 24, 14, 22.66, 12.66, 24),
      line(3, 24),
      curve(0, 21, 1.34, 24, 0, 22.66),
      line(0, 3),
      curve(3, 0, 0, 1.34, 1.34, 0),
      close(),
  };
  static constexpr Step bubble[] = {
      // bubble
      move(12, 0),
      line(18.5, 0),
      curve(22, 3.5, 20.43, 0, 22, 1.57),
      line(22, 5.5),
      curve(18.5, 9, 22, 7.43, 20.43, 9),
      line(15.86, 9),
      curve(15.11, 9.14, 15.6, 9, 15.35, 9.05),
      curve(11.71, 11.79, 13.75, 9.69, 12.57, 10.61),
      curve(11.3, 12, 11.61, 11.92, 11.46, 12),
      curve(10.81, 11.57, 11.05, 12, 10.84, 11.82),
      line(10.42, 8.76),
      curve(10.27, 8.54, 10.41, 8.67, 10.35, 8.59),
      curve(8.5, 5.5, 9.18, 7.92, 8.5, 6.76),
      line(8.5, 3.5),
      curve(12, 0, 8.5, 1.57, 10.07, 0),
      close(),
  };
  return outline<slab, homeButton, bubble>();
}

UIBezierPath UIBezierPath::smsChatBubbleIcon() {
  static constexpr Step bubble[] = {
      // bubble
      move(5.83, 0),
      line(22.17, 0),
      curve(28, 5.83, 25.39, 0, 28, 2.61),
      line(28, 15.17),
      curve(22.17, 21, 28, 18.39, 25.39, 21),
      line(13.38, 21),
      curve(12.97, 21.04, 13.28, 21, 13.08, 21.02),
      curve(7.22, 24.29, 10.37, 21.33, 8.97, 22.72),
      curve(6.65, 24.79, 7.03, 24.46, 6.84, 24.63),
      curve(6.07, 25, 6.49, 24.92, 6.28, 25),
      curve(5.25, 24.3, 5.61, 25, 5.25, 24.68),
      line(5.25, 21.89),
      curve(4.83, 21.07, 5.25, 21.58, 5.1, 21.28),
      curve(4.25, 20.78, 4.67, 20.93, 4.46, 20.84),
      curve(0, 15.17, 1.73, 20.07, 0, 17.78),
      line(0, 5.83),
      curve(5.83, 0, 0, 2.61, 2.61, 0),
      close(),
  };
  static constexpr Step s[] = {
      // S M S
      move(4.2, 6),     curve(2.2, 8, 3.1, 6, 2.2, 6.9),
      line(2.2, 9.4),   curve(4.2, 11.4, 2.2, 10.5, 3.1, 11.4),
      line(5.4, 11.4),  curve(5.9, 11.9, 5.68, 11.4, 5.9, 11.62),
      line(5.9, 12.7),  curve(5.4, 13.2, 5.9, 12.98, 5.68, 13.2),
      line(2.74, 13.2), curve(2.2, 13.74, 2.44, 13.2, 2.2, 13.44),
      line(2.2, 14.46), curve(2.74, 15, 2.2, 14.76, 2.44, 15),
      line(5.7, 15),    curve(7.7, 13, 6.8, 15, 7.7, 14.1),
      line(7.7, 11.6),  curve(5.7, 9.6, 7.7, 10.5, 6.8, 9.6),
      line(4.5, 9.6),   curve(4, 9.1, 4.22, 9.6, 4, 9.38),
      line(4, 8.3),     curve(4.5, 7.8, 4, 8.02, 4.22, 7.8),
      line(7.16, 7.8),  curve(7.7, 7.26, 7.46, 7.8, 7.7, 7.56),
      line(7.7, 6.54),  curve(7.16, 6, 7.7, 6.24, 7.46, 6),
      line(4.2, 6),     close(),
  };
  static constexpr Step m[] = {
      move(9.8, 6),
      curve(9.5, 6.3, 9.63, 6, 9.5, 6.13),
      line(9.5, 14.7),
      curve(9.8, 15, 9.5, 14.87, 9.63, 15),
      line(11, 15),
      curve(11.3, 14.7, 11.17, 15, 11.3, 14.87),
      line(11.3, 9.6),
      line(13.76, 13.04),
      curve(14, 13.16, 13.81, 13.12, 13.9, 13.16),
      curve(14.24, 13.04, 14.1, 13.16, 14.19, 13.12),
      line(16.7, 9.6),
      line(16.7, 14.7),
      curve(17, 15, 16.7, 14.87, 16.83, 15),
      line(18.2, 15),
      curve(18.5, 14.7, 18.37, 15, 18.5, 14.87),
      line(18.5, 6.3),
      curve(18.2, 6, 18.5, 6.13, 18.37, 6),
      line(16.42, 6),
      curve(16.16, 6.15, 16.32, 6, 16.22, 6.06),
      line(14, 9.96),
      line(11.84, 6.15),
      curve(11.58, 6, 11.78, 6.06, 11.68, 6),
      line(9.8, 6),
      close(),
  };
  static constexpr auto lastS = moved(s, 18.1, 0);
  return evenOddOutline<bubble, s, m, lastS>();
}

}  // namespace glyphwright
