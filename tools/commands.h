#pragma once

#include <variant>

#include "animate_command.h"
#include "completions_command.h"
#include "diff_command.h"
#include "gallery_command.h"
#include "inspect_command.h"
#include "list_command.h"
#include "manual_command.h"
#include "path_command.h"
#include "preset_command.h"
#include "render_command.h"
#include "search_command.h"
#include "sheet_command.h"
#include "show_command.h"

namespace glyphwright::cli {

/// What the user asked for.
using Command = std::variant<ListOptions, SearchOptions, PathOptions, RenderOptions, SheetOptions,
                             AnimateOptions, GalleryOptions, PresetOptions, InspectOptions,
                             ShowOptions, DiffOptions, CompletionsOptions, ManualOptions>;

}  // namespace glyphwright::cli
