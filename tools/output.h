#pragma once

#include <cstddef>
#include <cstdint>
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

/// The pattern with every `{name}` and `{scale}` replaced. Throws UsageError for other braces.
std::string expandPattern(std::string_view pattern, std::string_view name, double scale);

/// Writes to the file, whose folders are made where they are missing, or to standard output for
/// "-". A file that cannot be written is left out or incomplete. Throws std::runtime_error.
void writeOutput(const std::string& file, std::span<const std::uint8_t> bytes, Console& console);
void writeOutput(const std::string& file, std::string_view text, Console& console);

/// A line on stderr that counts up, while it is a terminal and there is more than one step.
class Progress {
 public:
  Progress(Console& console, std::string_view doing, std::size_t steps);
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  /// Says that one more step begins.
  void step();
  /// Takes the line away, so that a message can stand in its place.
  void clear();

 private:
  Console& console_;
  std::string doing_;
  std::size_t steps_;
  std::size_t done_ = 0;
  bool shown_;
};

}  // namespace glyphwright::cli
