#pragma once

#include <string>
#include <vector>

#include <nlohmann/json_fwd.hpp>

#include "console.h"

namespace glyphwright::cli {

struct ListOptions {
  /// Parts of names or patterns (see Glob); what fits one of them is shown. Everything when empty.
  std::vector<std::string> words;
  bool json = false;
};

/// The whole catalogue: tabs with their sections, enumerations, Icons, integer types, methods and
/// keywords.
nlohmann::ordered_json catalogueJson();

/// Writes the catalogue, as text without the keywords; method names side by side where the console
/// is a terminal. Fails when no name fits the words.
int runList(const ListOptions& options, Console& console);

}  // namespace glyphwright::cli
