#pragma once

#include <glyphwright/bezier_path.h>
#include <glyphwright/platform/image.h>
#include <glyphwright/rendering/icon_attributes.h>

namespace glyphwright::cli {

/// Whether the attributes leave the outline alone, as they do unless a stroke was asked for: a
/// clear stroke without width.
bool hasNoStroke(const IconAttributes& attributes);

/// What the program draws for these attributes, at the screen's scale: the library's own image but
/// for two things. A drawing of bare strokes is drawn with its own pen, in the fill's colour or
/// gradient, when no stroke is asked for; having no inside, it takes no inset shadow. And the
/// ground lies under the border's ring, too, where the library would leave a black frame round an
/// opaque one.
UIImage imageOf(const UIBezierPath& path, const IconAttributes& attributes);

}  // namespace glyphwright::cli
