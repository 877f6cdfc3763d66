#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "pending_files.h"

namespace glyphwright::cli {

/// Writes a whole file or leaves what was there: the bytes go to a file beside it, which then takes
/// its name. What is no plain file (a device, a pipe) is written to as it stands, and so is a file
/// in a folder that takes no new ones. A file that was there keeps its permissions; a symbolic link
/// stays and its target changes. `pending` may be null. Throws std::runtime_error with the file's
/// name and the reason.
void writeWholeFile(const std::string& file, std::span<const std::uint8_t> bytes,
                    PendingFiles* pending);

}  // namespace glyphwright::cli
