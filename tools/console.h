#pragma once

#include <cstddef>
#include <istream>
#include <ostream>

namespace glyphwright::cli {

class PendingFiles;

/// Exit statuses of the program.
inline constexpr int statusDone = 0;
/// Some output could not be made or written.
inline constexpr int statusFailed = 1;
/// The command line is wrong; nothing was done.
inline constexpr int statusUsage = 2;

/// Where a command writes: results to `out`, messages and progress to `err`.
struct Console {
  std::ostream& out;
  std::ostream& err;
  bool outIsTerminal = false;
  bool errIsTerminal = false;
  /// The width of the terminal that `out` is; 0 when it is none.
  std::size_t columns = 0;
  /// Where names are read from that the command line refers to as "-"; null when nothing can be
  /// read.
  std::istream* in = nullptr;
  /// Files that are being written; null when nobody waits for an interruption.
  PendingFiles* pending = nullptr;
};

}  // namespace glyphwright::cli
