#pragma once

#include <optional>
#include <string>

#include "console.h"
#include "paint.h"

namespace glyphwright::cli {

struct DiffOptions {
  /// Each the name of an icon, or a file ending in .png.
  std::string a;
  std::string b;
  /// A .png file for the picture of the difference, or nothing.
  std::string output;
  /// Pixels per point of what is rendered.
  CGFloat scale = 1;
  /// The largest difference that counts as none, in levels of 255.
  unsigned tolerance = 0;
  bool json = false;
  bool parents = false;
  Paint paint;
  /// Absent: a render beside a PNG file takes on the file's size.
  bool sizeIsGiven = false;
};

/// Compares two pictures pixel by pixel, in premultiplied colour, and writes the worst and the mean
/// difference of a channel and how many pixels differ. Fails when the sizes or a channel differ.
/// Throws UsageError for a name that is none.
int runDiff(const DiffOptions& options, Console& console);

}  // namespace glyphwright::cli
