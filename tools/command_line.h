#pragma once

#include <string>
#include <variant>
#include <vector>

#include "animate_command.h"
#include "console.h"
#include "gallery_command.h"
#include "inspect_command.h"
#include "list_command.h"
#include "path_command.h"
#include "preset_command.h"
#include "render_command.h"
#include "search_command.h"
#include "sheet_command.h"

namespace glyphwright::cli {

/// What the user asked for.
using Command = std::variant<ListOptions, PathOptions, RenderOptions, SheetOptions, AnimateOptions,
                             GalleryOptions, PresetOptions, InspectOptions, SearchOptions>;

/// A text asked for with --help or --version.
struct HelpText {
  std::string text;
};

/// Reads the arguments (without the program's own name). Throws UsageError.
std::variant<Command, HelpText> parseCommandLine(std::vector<std::string> arguments);

}  // namespace glyphwright::cli
