#pragma once

#include <iosfwd>
#include <span>
#include <string>

namespace glyphwright {

/// Writes the facts about each icon's outline: frame, ink, contours with their winding and area,
/// counts, the least gap, and what the rules of drawing object to. `names` are method names.
/// Returns 0, or 1 when a name is no icon's (the others are still written).
int runInspect(std::span<const std::string> names, std::ostream& out);

}  // namespace glyphwright
