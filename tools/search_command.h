#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "console.h"

namespace glyphwright::cli {

struct SearchOptions {
  std::vector<std::string> words;
  /// The most names to write.
  std::size_t limit = 10;
  bool json = false;
};

/// Writes the names of the icons and ready-made images that fit the words, best first, one a line.
/// Fails when nothing comes near.
int runSearch(const SearchOptions& options, Console& console);

}  // namespace glyphwright::cli
