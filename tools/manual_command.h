#pragma once

#include "console.h"

namespace glyphwright::cli {

struct ManualOptions {};

/// Writes the manual page, in the macros of `man`.
int runManual(const ManualOptions& options, Console& console);

}  // namespace glyphwright::cli
