#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

#include <CLI/CLI.hpp>

#include "commands.h"
#include "usage_error.h"

namespace glyphwright::cli {

/// Every command with its options and their words: the one source of parsing, help, completions and
/// the manual page. Parsing stores what was asked for in `chosen`, which must outlive the tree.
///
/// An option's type name says what may stand there: FILE or DIR, words parted by | or anything
/// else, which is a form to be read by people.
std::unique_ptr<CLI::App> commandTree(std::optional<Command>& chosen, std::size_t columns = 0);

// The parts of the tree.

/// Commands that answer questions about icons, in text.
void addCatalogueCommands(CLI::App& program, std::optional<Command>& chosen);
/// Commands that draw.
void addPictureCommands(CLI::App& program, std::optional<Command>& chosen);
/// Commands about the program itself.
void addProgramCommands(CLI::App& program, std::optional<Command>& chosen);
/// The options that say how to paint.
void addPaint(CLI::App& command, Paint& paint);

/// How icons are named, for the help of every command that takes some.
inline constexpr const char* kNameHelp =
    "icon: a method (checkmarkPath), a case (App.Shapes.Checks.checkmark or Icons.checkmark) or an "
    "integer type (7)";
/// The same where several can be named.
inline constexpr const char* kNamesHelp =
    "icons: methods (checkmarkPath), cases (App.Shapes.Checks.checkmark or Icons.checkmark), "
    "integer "
    "types (7), patterns of methods ('*heart*', '{play,stop}Path') or of cases ('Icons.*'); - "
    "reads "
    "names from standard input";

/// An option whose text `read` turns into a value; `store` takes the value.
template <class Read, class Store>
CLI::Option* addParsed(CLI::App& app, const std::string& name, const std::string& form, Read read,
                       Store store, const std::string& help) {
  const auto callback = [name, read, store](const std::string& text) {
    try {
      store(read(text));
    } catch (const UsageError& error) {
      throw UsageError(name + ": " + error.what());
    }
  };
  return app.add_option_function<std::string>(name, callback, help)->type_name(form);
}

}  // namespace glyphwright::cli
