#include "completions_command.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "command_tree.h"
#include "command_words.h"

namespace glyphwright::cli {
namespace {

std::string joined(const std::vector<std::string>& words, std::string_view separator) {
  std::string text;
  for (const std::string& word : words) {
    if (!text.empty()) text += separator;
    text += word;
  }
  return text;
}

/// The text with a backslash before each of the characters.
std::string escaped(std::string_view text, std::string_view characters) {
  std::string out;
  for (const char c : text) {
    if (characters.find(c) != std::string_view::npos) out += '\\';
    out += c;
  }
  return out;
}

/// In single quotes, as every shell here reads them.
std::string singleQuoted(std::string_view text) {
  std::string out = "'";
  for (const char c : text) {
    if (c == '\'') {
      out += "'\\''";
    } else {
      out += c;
    }
  }
  return out + "'";
}

/// The names of icons, which many commands share, stand once in each script.
bool areIcons(const ArgumentWords& argument) {
  return argument.words.size() > 100;
}

const std::vector<std::string>& iconsAmong(const std::vector<CommandWords>& commands) {
  for (const CommandWords& command : commands) {
    for (const ArgumentWords& argument : command.positionals) {
      if (areIcons(argument)) return argument.words;
    }
  }
  static const std::vector<std::string> none;
  return none;
}

// bash

std::string bashReply(const ArgumentWords& argument) {
  switch (argument.kind) {
    case ArgumentKind::file:
      return "compopt -o filenames 2>/dev/null; COMPREPLY=($(compgen -f -- \"$cur\"))";
    case ArgumentKind::folder:
      return "compopt -o filenames 2>/dev/null; COMPREPLY=($(compgen -d -- \"$cur\"))";
    case ArgumentKind::words: {
      const std::string words = areIcons(argument) ? "$icons" : joined(argument.words, " ");
      return "COMPREPLY=($(compgen -W \"" + words + "\" -- \"$cur\"))";
    }
    default:
      return "COMPREPLY=()";
  }
}

void writeBashCommand(const CommandWords& command, std::ostream& out) {
  std::vector<std::string> options;
  out << "    " << command.name << ")\n      case $prev in\n";
  for (const ArgumentWords& option : command.options) {
    options.insert(options.end(), option.names.begin(), option.names.end());
    if (option.kind == ArgumentKind::none) continue;
    out << "        " << joined(option.names, "|") << ") " << bashReply(option) << "; return ;;\n";
  }
  out << "      esac\n      if [[ $cur == -* ]]; then\n        COMPREPLY=($(compgen -W \""
      << joined(options, " ") << "\" -- \"$cur\"))\n";
  if (!command.positionals.empty()) {
    out << "      else\n        " << bashReply(command.positionals.front()) << '\n';
  }
  out << "      fi ;;\n";
}

void writeBash(const std::vector<CommandWords>& commands, std::ostream& out) {
  std::string names;
  for (const CommandWords& command : commands) names += command.name + ' ';
  out << "# bash completion for glyphwright\n_glyphwright() {\n"
         "  local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD-1]} icons=\""
      << joined(iconsAmong(commands), " ")
      << "\"\n  COMPREPLY=()\n  if ((COMP_CWORD == 1)); then\n    COMPREPLY=($(compgen -W \""
      << names
      << "--help --version\" -- \"$cur\"))\n    return\n  fi\n  case ${COMP_WORDS[1]} in\n";
  for (const CommandWords& command : commands) writeBashCommand(command, out);
  out << "  esac\n}\ncomplete -F _glyphwright glyphwright\n";
}

// zsh

std::string zshAction(const ArgumentWords& argument) {
  switch (argument.kind) {
    case ArgumentKind::file:
      return "_files";
    case ArgumentKind::folder:
      return "_files -/";
    case ArgumentKind::words:
      return areIcons(argument) ? "($icons)" : "(" + joined(argument.words, " ") + ")";
    default:
      return " ";
  }
}

void writeZshCommand(const CommandWords& command, std::ostream& out) {
  out << "    " << command.name << ")\n      _arguments -s";
  for (const ArgumentWords& option : command.options) {
    const std::string rest = "[" + escaped(option.help, "[]\\:") + "]";
    for (const std::string& name : option.names) {
      std::string spec = name + rest;
      if (option.kind != ArgumentKind::none) {
        spec += ":" + escaped(option.form, "[]\\:") + ":" + zshAction(option);
      }
      out << " \\\n        "
          << (areIcons(option) ? '"' + escaped(spec, "\"`") + '"' : singleQuoted(spec));
    }
  }
  for (const ArgumentWords& argument : command.positionals) {
    const std::string spec = "*:" + escaped(argument.form, "[]\\:") + ":" + zshAction(argument);
    out << " \\\n        " << (areIcons(argument) ? '"' + spec + '"' : singleQuoted(spec));
  }
  out << " ;;\n";
}

void writeZsh(const std::vector<CommandWords>& commands, std::ostream& out) {
  out << "#compdef glyphwright\n_glyphwright() {\n  local icons="
      << singleQuoted(joined(iconsAmong(commands), " ")) << "\n  local -a commands=(\n";
  for (const CommandWords& command : commands) {
    out << "    " << singleQuoted(command.name + ":" + escaped(command.help, ":")) << '\n';
  }
  out << "  )\n  if ((CURRENT == 2)); then\n    _describe command commands\n    return\n  fi\n"
         "  local name=$words[2]\n  shift words\n  ((CURRENT--))\n  case $name in\n";
  for (const CommandWords& command : commands) writeZshCommand(command, out);
  out << "  esac\n}\nif [[ $zsh_eval_context[-1] == loadautofunc ]]; then\n  _glyphwright \"$@\"\n"
         "elif (($+functions[compdef])); then\n  compdef _glyphwright glyphwright\nfi\n";
}

// fish

void writeFishArgument(const std::string& condition, const ArgumentWords& argument,
                       std::ostream& out) {
  out << "complete -c glyphwright -n " << singleQuoted(condition);
  for (const std::string& name : argument.names) {
    out << (name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1));
  }
  if (!argument.names.empty() && argument.kind != ArgumentKind::none) {
    out << (argument.kind == ArgumentKind::file ? " -r -F" : " -x");
  }
  if (argument.kind == ArgumentKind::folder) out << " -a '(__fish_complete_directories)'";
  if (argument.kind == ArgumentKind::words) {
    out << " -a "
        << (areIcons(argument) ? "\"$__glyphwright_icons\""
                               : singleQuoted(joined(argument.words, " ")));
  }
  if (!argument.names.empty()) out << " -d " << singleQuoted(argument.help);
  out << '\n';
}

void writeFish(const std::vector<CommandWords>& commands, std::ostream& out) {
  out << "# fish completion for glyphwright\nset -g __glyphwright_icons "
      << joined(iconsAmong(commands), " ") << "\ncomplete -c glyphwright -f\n";
  for (const CommandWords& command : commands) {
    out << "complete -c glyphwright -n __fish_use_subcommand -a " << command.name << " -d "
        << singleQuoted(command.help) << '\n';
  }
  for (const CommandWords& command : commands) {
    const std::string condition = "__fish_seen_subcommand_from " + command.name;
    for (const ArgumentWords& option : command.options) writeFishArgument(condition, option, out);
    for (const ArgumentWords& argument : command.positionals) {
      writeFishArgument(condition, argument, out);
    }
  }
}

}  // namespace

Shell shellFrom(const std::string& text) {
  if (text == "bash") return Shell::bash;
  if (text == "zsh") return Shell::zsh;
  if (text == "fish") return Shell::fish;
  throw UsageError("\"" + text + "\" is none of bash, zsh and fish");
}

int runCompletions(const CompletionsOptions& options, Console& console) {
  std::optional<Command> ignored;
  const std::vector<CommandWords> commands = wordsOf(*commandTree(ignored));
  switch (options.shell) {
    case Shell::bash:
      writeBash(commands, console.out);
      break;
    case Shell::zsh:
      writeZsh(commands, console.out);
      break;
    case Shell::fish:
      writeFish(commands, console.out);
      break;
  }
  return statusDone;
}

}  // namespace glyphwright::cli
