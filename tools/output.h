#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <span>
#include <string>
#include <string_view>

#include "console.h"

namespace glyphwright::cli {

enum class OutputFormat : std::uint8_t {
  png,
  svg,
  /// Premultiplied pixels and nothing else, rows top to bottom, four bytes a pixel.
  rgba,
};

/// The format that a file name's ending stands for; "-" (standard output) is PNG. Throws UsageError
/// for other endings.
OutputFormat formatOf(std::string_view file);

/// What the words in braces of an output pattern stand for; an empty one is not known.
struct PatternWords {
  std::string_view name;
  double scale = 1;
  std::string_view size{};
};

/// The pattern with every `{name}`, `{scale}` and `{size}` replaced. Throws UsageError for other
/// braces.
std::string expandPattern(std::string_view pattern, const PatternWords& words);

/// Writes to the file, whose folders are made where they are missing, or to standard output for
/// "-". A file is written whole or stays as it was (writeWholeFile). Throws std::runtime_error. May
/// be used from several threads for several files.
void writeOutput(const std::string& file, std::span<const std::uint8_t> bytes, Console& console);
void writeOutput(const std::string& file, std::string_view text, Console& console);

/// Makes the folder of each file that is missing if `asked`, and otherwise throws: a folder that is
/// not there may be a slip of the keyboard. Throws std::runtime_error, too, where it cannot.
void makeFolders(std::span<const std::string> files, bool asked);

/// A line on stderr that counts up and says how much longer it will take, while it is a terminal
/// and there is more than one step. May be used from several threads.
class Progress {
 public:
  Progress(Console& console, std::string_view doing, std::size_t steps);
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  /// Says that one more step is done.
  void step();

 private:
  using Clock = std::chrono::steady_clock;

  void write(Clock::time_point now);

  Console& console_;
  std::string doing_;
  std::size_t steps_;
  std::size_t done_ = 0;
  bool shown_;
  Clock::time_point begin_;
  Clock::time_point written_;
  std::mutex mutex_;
};

/// "about 5 s", "about 3 min": how long the rest takes if it goes on as it went.
std::string estimateText(double secondsGone, std::size_t done, std::size_t steps);

}  // namespace glyphwright::cli
