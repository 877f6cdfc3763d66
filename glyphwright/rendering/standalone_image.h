#pragma once

#include <glyphwright/bezier_path.h>
#include <glyphwright/platform/image.h>

namespace glyphwright {
struct IconAttributes;
}

namespace glyphwright::rendering {

/// What UIBezierPath::makeStandaloneImage draws, at a scale in pixels per point above 0.
UIImage standaloneImage(const UIBezierPath& path, const IconAttributes& attributes, CGFloat scale);

}  // namespace glyphwright::rendering
