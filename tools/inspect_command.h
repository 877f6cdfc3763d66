#pragma once

#include <string>
#include <vector>

#include "console.h"

namespace glyphwright::cli {

struct InspectOptions {
  std::vector<std::string> names;
  /// Every icon method, in place of names.
  bool all = false;
  bool json = false;
};

/// Writes the facts about icons' outlines that an artist looks at.
int runInspectCommand(const InspectOptions& options, Console& console);

}  // namespace glyphwright::cli
