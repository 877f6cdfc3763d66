#pragma once

#include <iosfwd>
#include <span>
#include <string>

namespace glyphwright {

/// Writes the facts about each icon's outline: frame, ink, contours with their winding and area,
/// counts, the least gap, and what the rules of drawing object to. `names` are method names.
/// Returns 0, or 1 when a name is no icon's (the others are still written).
int runInspect(std::span<const std::string> names, std::ostream& out);

/// The same facts as a JSON array of objects: name, fillRule, frame and ink [x, y, w, h], unit,
/// lines, curves, leastGap (in units, or null), contours, and what the rules object to, by its name
/// and number.
int runInspectJson(std::span<const std::string> names, std::ostream& out);

}  // namespace glyphwright
