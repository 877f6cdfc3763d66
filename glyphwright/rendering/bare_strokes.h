#pragma once

#include <glyphwright/bezier_path.h>
#include <glyphwright/rendering/icon_attributes.h>

/// A drawing of bare strokes encloses nothing: a fill of it paints nothing. It is drawn with the
/// pen that it brings along, wherever nobody asks for another.
namespace glyphwright::rendering {

/// Whether a fill of the path paints nothing, because its outlines enclose nothing.
bool isBareStrokes(const CGPath& path);

/// The width of the path's own pen, in points, when the path is scaled so that it and the pen's
/// width around it just fit into `room` (in points). A side of the path without an extent takes no
/// part; 0 for a path without any.
CGFloat ownPenWidth(const UIBezierPath& path, CGSize room);

/// Whether the attributes leave the outline alone: a clear stroke without width.
bool hasNoStroke(const IconAttributes& attributes);

}  // namespace glyphwright::rendering
