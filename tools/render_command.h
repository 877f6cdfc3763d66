#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "console.h"
#include "output.h"
#include "paint.h"
#include "png.h"

namespace glyphwright::cli {

struct RenderOptions {
  std::vector<std::string> names;
  /// Every icon method, in place of names.
  bool all = false;
  /// A file, a pattern with {name}, {size} and {scale}, or "-".
  std::string output;
  OutputFormat format = OutputFormat::png;
  /// Pixels per point; one file for each.
  std::vector<CGFloat> scales{1};
  Compression compression = Compression::quick;
  /// Threads; 0 stands for all cores.
  std::size_t jobs = 0;
  /// Folders that are missing are made without a word.
  bool parents = false;
  Paint paint;
};

/// Renders icons to files, one for each size and scale. Throws UsageError for unknown names and for
/// a pattern that would write several images to one file.
int runRender(const RenderOptions& options, Console& console);

}  // namespace glyphwright::cli
