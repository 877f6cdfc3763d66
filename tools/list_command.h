#pragma once

#include <nlohmann/json_fwd.hpp>

#include "console.h"

namespace glyphwright::cli {

struct ListOptions {
  bool json = false;
};

/// The whole catalogue: tabs with their sections, enumerations, Icons, integer types, methods and
/// keywords.
nlohmann::ordered_json catalogueJson();

/// Writes the whole catalogue, as text without the keywords.
int runList(const ListOptions& options, Console& console);

}  // namespace glyphwright::cli
