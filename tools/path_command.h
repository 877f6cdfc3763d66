#pragma once

#include <string>

#include "console.h"

namespace glyphwright::cli {

struct PathOptions {
  std::string name;
  /// An SVG document in place of JSON.
  bool svg = false;
};

/// Writes one icon's outline.
int runPath(const PathOptions& options, Console& console);

}  // namespace glyphwright::cli
