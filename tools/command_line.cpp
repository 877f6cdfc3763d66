#include "command_line.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <sstream>
#include <string_view>
#include <utility>

#include <glyphwright/catalogue/resolve.h>

#include "command_tree.h"
#include "suggestions.h"
#include "usage_error.h"

namespace glyphwright::cli {
namespace {

/// Throws for a first word that is no command.
void checkCommand(const CLI::App& program, const std::vector<std::string>& arguments) {
  if (arguments.empty() || arguments.front().starts_with('-')) return;
  std::vector<std::string_view> known;
  std::string all;
  for (const CLI::App* command : program.get_subcommands(nullptr)) {
    if (command->get_name() == arguments.front()) return;
    known.push_back(command->get_name());
    all += (all.empty() ? "" : ", ") + command->get_name();
  }
  const std::string suggestion = didYouMean(nearestNames(arguments.front(), known, 1));
  throw UsageError("there is no command \"" + arguments.front() + '"' +
                   (suggestion.empty() ? "; the commands are " + all : suggestion));
}

/// Where to read on after a mistake: the help of the command in question.
std::string helpHint(const CLI::App& program) {
  std::string hint = "; see `glyphwright ";
  for (const CLI::App* command : program.get_subcommands()) hint += command->get_name() + ' ';
  return hint + "--help`";
}

/// `help` is `--help`, and `help COMMAND` is `COMMAND --help`.
std::vector<std::string> withHelpAsOption(std::vector<std::string> arguments) {
  if (arguments.empty() || arguments.front() != "help") return arguments;
  if (arguments.size() == 2 && arguments.back().starts_with('-')) return arguments;
  arguments.erase(arguments.begin());
  if (arguments.size() > 1) throw UsageError("help: name one command");
  arguments.emplace_back("--help");
  return arguments;
}

}  // namespace

std::variant<Command, HelpText> parseCommandLine(std::vector<std::string> arguments,
                                                 std::size_t columns) {
  std::optional<Command> command;
  const std::unique_ptr<CLI::App> program = commandTree(command, columns);
  arguments = withHelpAsOption(std::move(arguments));
  checkCommand(*program, arguments);
  try {
    std::reverse(arguments.begin(), arguments.end());
    program->parse(std::move(arguments));
  } catch (const CLI::ParseError& error) {
    std::ostringstream text;
    std::ostringstream ignored;
    if (program->exit(error, text, ignored) == 0) return HelpText{text.str()};
    throw UsageError(error.what() + helpHint(*program));
  }
  // What `help` was given may be no command and no option either.
  if (!command) throw UsageError("help: name one command" + helpHint(*program));
  return *command;
}

}  // namespace glyphwright::cli
