#pragma once

#include <vector>

#include "renderer.h"

namespace glyphwright::bench {

/// What comes before any drawing, and what all drawing comes to.
struct PathTimes {
  double findNanoseconds = 0;     // the builder of a name, mean over all names in turn
  double medianMicroseconds = 0;  // building and dropping one icon's path, the median icon
  double slowestMicroseconds = 0;
  double catalogueMilliseconds = 0;  // every icon filled once, at 48 points and scale 2
};

/// The median of many rounds each; `seconds` in all.
PathTimes timePaths(const Renderer& renderer, const std::vector<Icon>& icons, double seconds);

}  // namespace glyphwright::bench
