#pragma once

#include <string_view>

#include <glyphwright/bezier_path.h>
#include <glyphwright/paths/perform_selector.h>

namespace glyphwright {

/// An icon method of UIBezierPath: no arguments, a new path from each call.
using ClassMethod = UIBezierPath (*)();

/// The icon method of this name, matched whole and case-sensitively; null for any other name.
///
/// A program that calls this links the artwork of every icon; one that calls icon methods directly
/// links only theirs.
ClassMethod findClassMethod(std::string_view name);

}  // namespace glyphwright
