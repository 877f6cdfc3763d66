#pragma once

#include <string_view>

namespace glyphwright {

class UIBezierPath;

/// Calls the icon method of this name and gives its new path. A name that no icon method has is a
/// fault of the program: the process ends with a message on stderr that names the selector.
///
/// Include glyphwright/bezier_path.h to use the result.
UIBezierPath performSelector(std::string_view name);

}  // namespace glyphwright
