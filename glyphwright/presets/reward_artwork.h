#pragma once

#include <glyphwright/paths/outline.h>
#include <glyphwright/paths/outline_copies.h>

/// The gift of the reward banner, all in white; its pieces stay apart.
namespace glyphwright::presets::artwork {

using paths::close;
using paths::curve;
using paths::line;
using paths::move;
using paths::Step;

/// The body of the gift, parted by the ribbon.
inline constexpr Step rewardBodyLeft[] = {
    move(12, 24.8), curve(12.8, 24, 12, 24.36, 12.36, 24),
    line(22.2, 24), curve(23, 24.8, 22.64, 24, 23, 24.36),
    line(23, 39.2), curve(22.2, 40, 23, 39.64, 22.64, 40),
    line(15, 40),   curve(12, 37, 13.34, 40, 12, 38.66),
    line(12, 24.8), close(),
};

inline constexpr Step rewardBodyRight[] = {
    move(36, 24.8),
    line(36, 37),
    curve(33, 40, 36, 38.66, 34.66, 40),
    line(25.8, 40),
    curve(25, 39.2, 25.36, 40, 25, 39.64),
    line(25, 24.8),
    curve(25.8, 24, 25, 24.36, 25.36, 24),
    line(35.2, 24),
    curve(36, 24.8, 35.64, 24, 36, 24.36),
    close(),
};

/// Its lid.
inline constexpr Step rewardLidLeft[] = {
    move(10, 19),   curve(12, 17, 10, 17.9, 10.9, 17),
    line(22.2, 17), curve(23, 17.8, 22.64, 17, 23, 17.36),
    line(23, 21.2), curve(22.2, 22, 23, 21.64, 22.64, 22),
    line(12, 22),   curve(10, 20, 10.9, 22, 10, 21.1),
    line(10, 19),   close(),
};

inline constexpr Step rewardLidRight[] = {
    move(38, 19),
    line(38, 20),
    curve(36, 22, 38, 21.1, 37.1, 22),
    line(25.8, 22),
    curve(25, 21.2, 25.36, 22, 25, 21.64),
    line(25, 17.8),
    curve(25.8, 17, 25, 17.36, 25.36, 17),
    line(36, 17),
    curve(38, 19, 37.1, 17, 38, 17.9),
    close(),
};

/// The loops of the bow and the knot.
inline constexpr Step rewardLoopLeft[] = {
    // loop
    move(22, 14.05),
    curve(20.59, 16, 22, 15.26, 21.56, 16),
    line(18.13, 16),
    curve(13.2, 11.16, 15.49, 16, 13.2, 14.05),
    curve(15.75, 8.19, 13.2, 9.3, 14.17, 8.19),
    curve(22, 14.05, 18.74, 8.19, 22, 10.79),
    close(),
    // its inside, counter-wound
    move(19, 13.58),
    curve(19.27, 13.3, 19.15, 13.58, 19.27, 13.46),
    curve(19.25, 13.2, 19.27, 13.27, 19.27, 13.23),
    curve(15.7, 10.7, 18.65, 11.73, 17.06, 10.7),
    curve(15.06, 11.44, 15.24, 10.7, 15.06, 10.98),
    curve(17.64, 13.58, 15.06, 12.65, 16.07, 13.58),
    line(19, 13.58),
    close(),
};

inline constexpr Step rewardLoopRight[] = {
    // loop
    move(26, 14.05),
    curve(32.25, 8.19, 26, 10.79, 29.26, 8.19),
    curve(34.8, 11.16, 33.83, 8.19, 34.8, 9.3),
    curve(29.87, 16, 34.8, 14.05, 32.51, 16),
    line(27.41, 16),
    curve(26, 14.05, 26.44, 16, 26, 15.26),
    close(),
    // its inside, counter-wound
    move(29, 13.58),
    line(30.36, 13.58),
    curve(32.94, 11.44, 31.93, 13.58, 32.94, 12.65),
    curve(32.3, 10.7, 32.94, 10.98, 32.76, 10.7),
    curve(28.75, 13.2, 30.94, 10.7, 29.35, 11.73),
    curve(28.73, 13.3, 28.73, 13.23, 28.73, 13.27),
    curve(29, 13.58, 28.73, 13.46, 28.85, 13.58),
    close(),
};

inline constexpr Step rewardKnot[] = {
    move(22.9, 10.1), curve(23.6, 9.4, 22.9, 9.71, 23.21, 9.4),
    line(24.4, 9.4),  curve(25.1, 10.1, 24.79, 9.4, 25.1, 9.71),
    line(25.1, 15.3), curve(24.4, 16, 25.1, 15.69, 24.79, 16),
    line(23.6, 16),   curve(22.9, 15.3, 23.21, 16, 22.9, 15.69),
    line(22.9, 10.1), close(),
};

/// A sparkle of 8 × 8 at the origin.
inline constexpr Step rewardSparkleLarge[] = {
    move(8, 4),
    curve(7.78, 4.29, 8, 4.13, 7.91, 4.25),
    curve(4.29, 7.78, 5.96, 4.79, 4.79, 5.96),
    curve(4, 8, 4.25, 7.91, 4.13, 8),
    curve(3.71, 7.78, 3.87, 8, 3.75, 7.91),
    curve(0.22, 4.29, 3.21, 5.96, 2.04, 4.79),
    curve(0, 4, 0.09, 4.25, 0, 4.13),
    curve(0.22, 3.71, 0, 3.87, 0.09, 3.75),
    curve(3.71, 0.22, 2.04, 3.21, 3.21, 2.04),
    curve(4, 0, 3.75, 0.09, 3.87, 0),
    curve(4.29, 0.22, 4.13, 0, 4.25, 0.09),
    curve(7.78, 3.71, 4.79, 2.04, 5.96, 3.21),
    curve(8, 4, 7.91, 3.75, 8, 3.87),
    close(),
};

/// One two thirds as large, 1.5 to the right of the origin, so that it stays apart from its
/// neighbour.
inline constexpr auto rewardSparkleSmall = scaled(rewardSparkleLarge, 2.0 / 3, 2.0 / 3, 1.5);

}  // namespace glyphwright::presets::artwork
