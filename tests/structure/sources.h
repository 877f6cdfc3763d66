#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace glyphwright::structure {

/// One line of the form #include <…> or #include "…".
struct Include {
  std::string file;  // the file that includes, relative to the repository
  std::string target;
  bool quoted = false;
};

/// The repository's own files below `folder`, relative and sorted; build results and other people's
/// packages are left out. An empty `endings` takes every file.
std::vector<std::string> filesBelow(std::string_view folder,
                                    const std::vector<std::string_view>& endings = {});

std::string readText(std::string_view file);

std::vector<Include> includesOf(const std::string& file, std::string_view text);

/// How an #include line of `file` in the house reads against the direction of use, or nothing.
/// Rooms: platform ← paths ← catalogue, platform ← layers, rendering on all of these, presets on
/// rendering; programs see the public headers only; the library needs the standard library only.
std::string directionFault(const Include& include);

/// Files that include each other in a circle, in order, or nothing.
std::vector<std::string> findCircle(const std::vector<Include>& includes);

}  // namespace glyphwright::structure
