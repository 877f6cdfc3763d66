#include "command_words.h"

#include <algorithm>
#include <string_view>

#include "icon_names.h"
#include "preset_table.h"

namespace glyphwright::cli {
namespace {

std::vector<std::string> namesFor(const CLI::App& program, const CLI::App& command,
                                  const std::string& argument) {
  std::vector<std::string> names;
  if (argument == "COMMAND") {
    for (const CLI::App* other : program.get_subcommands(nullptr)) {
      names.push_back(other->get_name());
    }
  } else if (argument == "NAME" && command.get_name() == "preset") {
    for (const Preset& preset : allPresets()) names.emplace_back(preset.name);
  } else if (argument == "NAME" || argument == "A" || argument == "B") {
    names = allIconNames();
  }
  return names;
}

std::vector<std::string> wordsIn(const std::string& form) {
  std::vector<std::string> words;
  if (form.find('|') == std::string::npos) return words;
  for (std::size_t at = 0; at <= form.size();) {
    const std::size_t end = std::min(form.find('|', at), form.size());
    words.push_back(form.substr(at, end - at));
    at = end + 1;
  }
  return words;
}

ArgumentWords argumentOf(const CLI::App& program, const CLI::App& command,
                         const CLI::Option& option) {
  ArgumentWords argument;
  for (const std::string& name : option.get_snames()) argument.names.push_back("-" + name);
  for (const std::string& name : option.get_lnames()) argument.names.push_back("--" + name);
  argument.help = option.get_description();
  if (option.get_type_size() == 0) return argument;
  argument.form = option.get_type_name();
  const std::string shown = argument.form.empty() ? option.get_name(true) : argument.form;
  argument.words = wordsIn(argument.form);
  if (argument.words.empty()) argument.words = namesFor(program, command, shown);
  argument.form = shown;
  argument.kind = shown == "FILE"           ? ArgumentKind::file
                  : shown == "DIR"          ? ArgumentKind::folder
                  : !argument.words.empty() ? ArgumentKind::words
                                            : ArgumentKind::other;
  return argument;
}

}  // namespace

std::vector<CommandWords> wordsOf(const CLI::App& program) {
  std::vector<CommandWords> commands;
  for (const CLI::App* command : program.get_subcommands(nullptr)) {
    CommandWords& words = commands.emplace_back();
    words.name = command->get_name();
    words.help = command->get_description();
    for (const CLI::Option* option : command->get_options()) {
      if (option->get_group().empty()) continue;
      (option->get_positional() ? words.positionals : words.options)
          .push_back(argumentOf(program, *command, *option));
    }
  }
  return commands;
}

}  // namespace glyphwright::cli
