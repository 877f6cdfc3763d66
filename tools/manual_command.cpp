#include "manual_command.h"

#include <sstream>
#include <string>
#include <string_view>

#include "command_tree.h"
#include "help_formatter.h"

namespace glyphwright::cli {
namespace {

/// Text as the macros of `man` take it: no character of it is an instruction.
std::string roff(std::string_view text) {
  std::string out;
  bool lineStarts = true;
  for (const char c : text) {
    if (lineStarts && (c == '.' || c == '\'')) out += "\\&";
    if (c == '\\') {
      out += "\\e";
    } else if (c == '-') {
      out += "\\-";
    } else if (c == '\'') {
      out += "\\(aq";
    } else {
      out += c;
    }
    lineStarts = c == '\n';
  }
  return out;
}

/// A quoted argument of a macro.
std::string macroArgument(std::string_view text) {
  std::string out = "\"";
  for (const char c : roff(text)) out += c == '"' ? std::string("\\(dq") : std::string(1, c);
  return out + '"';
}

void writeOption(const CLI::Option& option, std::ostream& out) {
  const HelpFormatter words(0);
  const bool positional = option.get_positional();
  out << ".TP\n\\fB" << roff(words.make_option_name(&option, positional)) << "\\fR"
      << roff(words.make_option_opts(&option)) << '\n'
      << roff(option.get_description()) << '\n';
}

/// A footer is a title, indented lines that are shown as they stand, and other text.
void writeFooter(const std::string& footer, std::ostream& out) {
  std::istringstream lines(footer);
  bool literal = false;
  for (std::string line; std::getline(lines, line);) {
    const bool indented = line.starts_with("  ");
    if (indented != literal) out << (indented ? ".RS\n.nf\n" : ".fi\n.RE\n");
    if (!indented) out << ".PP\n";
    literal = indented;
    out << roff(indented ? line.substr(2) : line) << '\n';
  }
  if (literal) out << ".fi\n.RE\n";
}

void writeCommand(const CLI::App& command, std::ostream& out) {
  const HelpFormatter words(0);
  out << ".SS " << macroArgument(command.get_name()) << '\n'
      << roff(command.get_description()) << '\n';
  std::istringstream usage(words.make_usage(&command, "glyphwright " + command.get_name()));
  std::string line;
  std::getline(usage, line);
  out << ".PP\n" << roff(line) << '\n';
  for (const CLI::Option* option : command.get_options()) {
    if (!option->get_group().empty()) writeOption(*option, out);
  }
  if (!command.get_footer().empty()) writeFooter(command.get_footer(), out);
}

}  // namespace

int runManual(const ManualOptions&, Console& console) {
  std::optional<Command> ignored;
  const auto program = commandTree(ignored);
  std::ostream& out = console.out;
  out << ".TH GLYPHWRIGHT 1 \"\" " << macroArgument("glyphwright " GLYPHWRIGHT_VERSION)
      << " \"User Commands\"\n.SH NAME\nglyphwright \\- icons as paths and images\n"
         ".SH SYNOPSIS\n.B glyphwright\n.I COMMAND\n[\\fIOPTIONS\\fR] [\\fINAME\\fR...]\n"
         ".SH DESCRIPTION\n"
      << roff(program->get_description()) << "\n.SH OPTIONS\n";
  for (const CLI::Option* option : program->get_options()) writeOption(*option, out);
  out << ".SH COMMANDS\n";
  for (const CLI::App* command : program->get_subcommands(nullptr)) writeCommand(*command, out);
  out << ".SH NOTES\n";
  writeFooter(program->get_footer(), out);
  return statusDone;
}

}  // namespace glyphwright::cli
