#pragma once

#include <utility>

#include <glyphwright/platform/path.h>

namespace glyphwright::cli {

/// Two outlines with the same elements, so that an animation can move one into the other point by
/// point. Each shows the shape it came from: corners exactly, curves as chains of short lines.
///
/// Contours are paired by the way they turn and by size; one without a partner grows out of, or
/// shrinks to, a point in its middle. Contours are closed. A path that is not finite counts as
/// empty.
std::pair<CGPath, CGPath> morphable(const CGPath& from, const CGPath& to);

}  // namespace glyphwright::cli
