#pragma once

#include <cstddef>
#include <string>
#include <variant>
#include <vector>

#include "commands.h"

namespace glyphwright::cli {

/// A text asked for with --help or --version.
struct HelpText {
  std::string text;
};

/// Reads the arguments (without the program's own name). Help is wrapped to `columns`; 0 stands for
/// what fits everywhere. Throws UsageError.
std::variant<Command, HelpText> parseCommandLine(std::vector<std::string> arguments,
                                                 std::size_t columns = 0);

}  // namespace glyphwright::cli
