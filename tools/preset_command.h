#pragma once

#include <optional>
#include <string>
#include <vector>

#include <glyphwright/platform/color.h>

#include "console.h"
#include "output.h"
#include "png.h"

namespace glyphwright::cli {

struct PresetOptions {
  std::vector<std::string> names;
  /// Every ready-made image, in place of names.
  bool all = false;
  /// Show the names in place of drawing.
  bool list = false;
  /// The list as JSON.
  bool json = false;
  /// A file, a pattern with {name} and {scale}, or "-".
  std::string output;
  OutputFormat format = OutputFormat::png;
  /// Pixels per point.
  CGFloat scale = 1;
  Compression compression = Compression::quick;
  /// Threads; 0 for all cores.
  std::size_t jobs = 0;
  /// Folders that are missing are made without a word.
  bool parents = false;
  /// Absent: each image's own.
  std::optional<CGSize> size;
  bool selected = false;
  bool withBackground = false;
  std::optional<UIColor> backgroundColor;
};

/// Writes ready-made images to files, or lists them. Throws UsageError for unknown names and, when
/// images are named, for options that one of them does not take.
int runPreset(const PresetOptions& options, Console& console);

}  // namespace glyphwright::cli
