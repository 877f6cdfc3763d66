#pragma once

#include <glyphwright/platform/path.h>

namespace glyphwright {

/// The length of a path in points along all its subpaths, closing edges included; curves within
/// about one part in a million. Not finite for a path that is not.
CGFloat pathLength(const CGPath& path);

/// What lies between two fractions of the path's length, 0 to 1 (clamped, NaN counts as 0).
/// Subpaths that lie wholly between stay closed where they were; a cut one is open. A start that is
/// not below the end, and a path without a finite length, give an empty path; the whole path comes
/// back as it was.
CGPath trimmedPath(const CGPath& path, CGFloat start, CGFloat end);

}  // namespace glyphwright
