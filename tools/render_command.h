#pragma once

#include <string>
#include <vector>

#include <glyphwright/rendering/icon_attributes.h>

#include "console.h"
#include "output.h"

namespace glyphwright::cli {

/// What the painting options of the command line come to.
struct Paint {
  Paint();

  /// Black on nothing, 64 × 64 points. The library draws a hairline where no stroke is given; here
  /// a clear stroke stands unless one was asked for.
  IconAttributes attributes;
  /// Options that were given and that an outline cannot show, as the user wrote them.
  std::vector<std::string> pixelOptions;
};

struct RenderOptions {
  std::vector<std::string> names;
  /// Every icon method, in place of names.
  bool all = false;
  /// A file, a pattern with {name} and {scale}, or "-".
  std::string output;
  OutputFormat format = OutputFormat::png;
  /// Pixels per point; one file for each.
  std::vector<CGFloat> scales{1};
  Paint paint;
};

/// Renders icons to files. Throws UsageError for unknown names and for a pattern that would write
/// several images to one file.
int runRender(const RenderOptions& options, Console& console);

}  // namespace glyphwright::cli
