#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

namespace glyphwright::cli {

/// What may stand as an argument, as far as a shell can help with it.
enum class ArgumentKind : std::uint8_t {
  none,  // a flag
  file,
  folder,
  words,  // one of the words that are listed
  other,
};

struct ArgumentWords {
  /// With their dashes; none for a positional argument.
  std::vector<std::string> names;
  std::string help;
  ArgumentKind kind = ArgumentKind::none;
  /// How the value is written, for people.
  std::string form;
  std::vector<std::string> words;
};

struct CommandWords {
  std::string name;
  std::string help;
  std::vector<ArgumentWords> options;
  std::vector<ArgumentWords> positionals;
};

/// All commands of the tree as plain words. Names of icons and of ready-made images are listed
/// where an argument takes them.
std::vector<CommandWords> wordsOf(const CLI::App& program);

}  // namespace glyphwright::cli
