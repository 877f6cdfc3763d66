#pragma once

#include <glyphwright/paths/outline.h>

/// Outlines that icons of several themes begin with.
namespace glyphwright::paths {

/// A still camera’s silhouette, 28 × 22.
inline constexpr Step stillCamera[] = {
    move(10.98, 0),
    line(17.02, 0),
    curve(18.45, 0.87, 17.62, 0, 18.17, 0.34),
    line(19.47, 2.85),
    curve(20.53, 3.5, 19.67, 3.25, 20.08, 3.5),
    line(25, 3.5),
    curve(28, 6.5, 26.66, 3.5, 28, 4.84),
    line(28, 19),
    curve(25, 22, 28, 20.66, 26.66, 22),
    line(3, 22),
    curve(0, 19, 1.34, 22, 0, 20.66),
    line(0, 6.5),
    curve(3, 3.5, 0, 4.84, 1.34, 3.5),
    line(7.47, 3.5),
    curve(8.53, 2.85, 7.92, 3.5, 8.33, 3.25),
    line(9.55, 0.87),
    curve(10.98, 0, 9.83, 0.34, 10.38, 0),
    close(),
};

/// A map pin, 18 × 24, its head about (9, 9).
inline constexpr Step mapPin[] = {
    move(9, 0),
    curve(18, 9.02, 13.97, 0, 18, 4.04),
    curve(9.54, 23.75, 18, 13.81, 13.6, 18.88),
    curve(9, 24, 9.4, 23.91, 9.21, 24),
    curve(8.46, 23.75, 8.79, 24, 8.6, 23.91),
    curve(0, 9.02, 4.4, 18.88, 0, 13.81),
    curve(9, 0, 0, 4.04, 4.03, 0),
    close(),
};

/// A disc of 24 for a sign to be cut from.
inline constexpr Step signDisc[] = {
    move(12, 0),
    curve(24, 12, 18.63, 0, 24, 5.37),
    curve(12, 24, 24, 18.63, 18.63, 24),
    curve(0, 12, 5.37, 24, 0, 18.63),
    curve(12, 0, 0, 5.37, 5.37, 0),
    close(),
};

}  // namespace glyphwright::paths
