#pragma once

#include <string>
#include <vector>

#include "console.h"

namespace glyphwright::cli {

/// Runs the `glyphwright` program with these arguments (without the program's own name) and gives
/// its exit status. Never throws.
int runProgram(std::vector<std::string> arguments, Console& console);

}  // namespace glyphwright::cli
