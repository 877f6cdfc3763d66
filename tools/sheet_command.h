#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "console.h"
#include "paint.h"
#include "png.h"

namespace glyphwright::cli {

struct SheetOptions {
  /// All icon methods when empty.
  std::vector<std::string> names;
  /// A .png file or "-".
  std::string output;
  /// Icons in a row; 0 chooses a sheet about as wide as high.
  std::size_t columns = 0;
  CGFloat scale = 2;
  Compression compression = Compression::quick;
  /// Threads; 0 stands for all cores.
  std::size_t jobs = 0;
  /// A folder that is missing is made without a word.
  bool parents = false;
  /// The background is the sheet's ground, white unless given.
  Paint paint;

  SheetOptions();
};

/// Writes one image with many icons, each over its name.
int runSheet(const SheetOptions& options, Console& console);

}  // namespace glyphwright::cli
