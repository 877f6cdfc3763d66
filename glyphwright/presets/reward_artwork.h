#pragma once

#include <glyphwright/paths/outline.h>

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
    move(21.61, 14),
    curve(20.27, 16, 21.9, 15.1, 21.33, 16),
    line(17.98, 16),
    curve(13, 11.2, 15.11, 16, 13, 14),
    curve(15.58, 8, 13, 9.3, 14.05, 8),
    curve(21.61, 14, 17.69, 8, 20.27, 10.2),
    close(),
};

inline constexpr Step rewardLoopRight[] = {
    move(26.39, 14),
    curve(32.42, 8, 27.73, 10.2, 30.31, 8),
    curve(35, 11.2, 33.95, 8, 35, 9.3),
    curve(30.02, 16, 35, 14, 32.89, 16),
    line(27.73, 16),
    curve(26.39, 14, 26.67, 16, 26.1, 15.1),
    close(),
};

inline constexpr Step rewardKnot[] = {
    move(22.6, 13.5), curve(23.5, 12.6, 22.6, 13, 23, 12.6),
    line(24.5, 12.6), curve(25.4, 13.5, 25, 12.6, 25.4, 13),
    line(25.4, 14.5), curve(24.5, 15.4, 25.4, 15, 25, 15.4),
    line(23.5, 15.4), curve(22.6, 14.5, 23, 15.4, 22.6, 15),
    line(22.6, 13.5), close(),
};

/// Sparkles, each in a square of its own at the origin: 8, 6 and 4 wide.
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

inline constexpr Step rewardSparkleMiddle[] = {
    move(6, 3),
    curve(5.79, 3.29, 6, 3.13, 5.92, 3.25),
    curve(3.29, 5.79, 4.53, 3.69, 3.69, 4.53),
    curve(3, 6, 3.25, 5.92, 3.13, 6),
    curve(2.71, 5.79, 2.87, 6, 2.75, 5.92),
    curve(0.21, 3.29, 2.31, 4.53, 1.47, 3.69),
    curve(0, 3, 0.08, 3.25, 0, 3.13),
    curve(0.21, 2.71, 0, 2.87, 0.08, 2.75),
    curve(2.71, 0.21, 1.47, 2.31, 2.31, 1.47),
    curve(3, 0, 2.75, 0.08, 2.87, 0),
    curve(3.29, 0.21, 3.13, 0, 3.25, 0.08),
    curve(5.79, 2.71, 3.69, 1.47, 4.53, 2.31),
    curve(6, 3, 5.92, 2.75, 6, 2.87),
    close(),
};

inline constexpr Step rewardSparkleSmall[] = {
    move(4, 2),
    curve(3.81, 2.28, 4, 2.12, 3.92, 2.23),
    curve(2.28, 3.81, 3.08, 2.57, 2.57, 3.08),
    curve(2, 4, 2.23, 3.92, 2.12, 4),
    curve(1.72, 3.81, 1.88, 4, 1.77, 3.92),
    curve(0.19, 2.28, 1.43, 3.08, 0.92, 2.57),
    curve(0, 2, 0.08, 2.23, 0, 2.12),
    curve(0.19, 1.72, 0, 1.88, 0.08, 1.77),
    curve(1.72, 0.19, 0.92, 1.43, 1.43, 0.92),
    curve(2, 0, 1.77, 0.08, 1.88, 0),
    curve(2.28, 0.19, 2.12, 0, 2.23, 0.08),
    curve(3.81, 1.72, 2.57, 0.92, 3.08, 1.43),
    curve(4, 2, 3.92, 1.77, 4, 1.88),
    close(),
};

}  // namespace glyphwright::presets::artwork
