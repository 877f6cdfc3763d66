#pragma once

#include <cstdint>
#include <string>

#include "console.h"

namespace glyphwright::cli {

enum class Shell : std::uint8_t { bash, zsh, fish };

struct CompletionsOptions {
  Shell shell = Shell::bash;
};

/// The shell by its name. Throws UsageError.
Shell shellFrom(const std::string& text);

/// Writes the shell's script that completes commands, options, icon names and file names.
int runCompletions(const CompletionsOptions& options, Console& console);

}  // namespace glyphwright::cli
