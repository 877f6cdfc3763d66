#pragma once

#include "console.h"

namespace glyphwright::cli {

struct ListOptions {
  bool json = false;
};

/// Writes the whole catalogue: tabs with their sections, enumerations, Icons, integer types and
/// methods.
int runList(const ListOptions& options, Console& console);

}  // namespace glyphwright::cli
