#pragma once

#include <string>
#include <string_view>

#include <glyphwright/platform/image.h>

#include "console.h"
#include "output.h"
#include "png.h"

namespace glyphwright::cli {

/// Writes the image's pixels as PNG or raw. `name` is what the image shows. Throws
/// std::runtime_error for an image without pixels.
void writeImage(const UIImage& image, std::string_view name, const std::string& file,
                OutputFormat format, Console& console,
                Compression compression = Compression::quick);

/// Throws UsageError when standard output, asked for with "-", is a terminal: pixels there help
/// nobody.
void refuseTerminal(std::string_view file, OutputFormat format, const Console& console);

}  // namespace glyphwright::cli
