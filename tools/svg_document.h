#pragma once

#include <string>

#include <glyphwright/bezier_path.h>

#include "paint.h"

namespace glyphwright::cli {

/// Throws UsageError when stroke and shadow leave no room for the icon in a document of this size.
void requireRoomInDocument(const IconAttributes& attributes);

/// An SVG document of `attributes.size` with all the paint: a plain outline in the icon's own
/// coordinates where fill and stroke are all there is, otherwise one in points with its ground,
/// ring, gradient and shadows (as filters) where the program's images have them. A shadow's
/// softness is the viewer's own.
std::string svgDocument(const UIBezierPath& path, const Paint& paint);

}  // namespace glyphwright::cli
