#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace glyphwright::cli {

enum class TerminalColors : std::uint8_t { none, indexed, full };
/// Ways of sending a picture to a terminal: as an application command with a key and values, or as
/// an operating system command with a file.
enum class TerminalPictures : std::uint8_t { none, graphicsCommand, inlineFile };

/// What a terminal says of itself in the environment.
struct Terminal {
  TerminalColors colors = TerminalColors::none;
  TerminalPictures pictures = TerminalPictures::none;
};

/// Reads the variables that terminals set. Where NO_COLOR is set to anything, there are no colours,
/// and no pictures either.
Terminal terminalFrom(const std::function<std::optional<std::string>(const char*)>& variable);

}  // namespace glyphwright::cli
