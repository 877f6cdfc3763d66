#pragma once

#include <string>

#include "paint.h"

namespace glyphwright::cli {

/// Reads a JSON object of attributes into the paint; what it does not name stays. Its keys are the
/// fields of IconAttributes:
///
///     {"size": [48, 24], "fillColor": "#ff2d6b", "backgroundColor": "white",
///      "stroke": {"color": "black", "width": 2}, "border": {"color": "white", "width": 3},
///      "dropShadow": {"color": "#0008", "offset": [0, 3], "blur": 4}, "insetShadow": {…},
///      "gradient": {"colors": ["red", "blue"], "direction": "leftToRight"}}
///
/// A size may be one number; a value that the command line writes as text ("black:2", "48x24") may
/// be that text; a gradient may have "locations" [[x, y], …] and "points" in place of a direction.
/// Throws UsageError, with the file's name and the key, for anything else.
void readAttributes(const std::string& file, Paint& paint);

}  // namespace glyphwright::cli
