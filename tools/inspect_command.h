#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "console.h"

namespace glyphwright::cli {

struct InspectOptions {
  std::vector<std::string> names;
  /// Every icon method, in place of names.
  bool all = false;
  bool json = false;
  /// Pictures of the stages of drawing, in place of facts.
  bool stages = false;
  /// Where they go.
  std::string folder;
  /// Of an icon's longer side, in pixels.
  std::size_t size = 24;
};

/// Writes the facts about icons' outlines that an artist looks at, or pictures of the stages of
/// their drawing and what each shows.
int runInspectCommand(const InspectOptions& options, Console& console);

}  // namespace glyphwright::cli
