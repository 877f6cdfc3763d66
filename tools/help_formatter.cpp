#include "help_formatter.h"

#include <algorithm>
#include <utility>

namespace glyphwright::cli {
namespace {

constexpr std::size_t kUsualColumns = 80;
constexpr std::size_t kMostColumns = 100;
constexpr std::size_t kFewestColumns = 50;
constexpr std::size_t kLeftColumn = 30;

}  // namespace

HelpFormatter::HelpFormatter(std::size_t columns)
    : columns_(columns == 0 ? kUsualColumns : std::clamp(columns, kFewestColumns, kMostColumns)) {}

std::string HelpFormatter::row(const std::string& name, std::string_view text) const {
  std::string out = "  " + name;
  // A long name has a line to itself.
  const bool beside = out.size() + 2 <= kLeftColumn;
  std::size_t column = out.size();
  if (!beside) {
    out += '\n';
    column = 0;
  }
  out.append(kLeftColumn - column, ' ');
  column = kLeftColumn;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(' '), text.size());
    if (column > kLeftColumn && column + 1 + end > columns_) {
      out.append("\n").append(kLeftColumn, ' ');
      column = kLeftColumn;
    }
    if (column > kLeftColumn) {
      out += ' ';
      ++column;
    }
    out.append(text.substr(0, end));
    column += end;
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return out + '\n';
}

std::string HelpFormatter::make_help(const CLI::App* app, std::string name,
                                     CLI::AppFormatMode mode) const {
  // Options that are not shown leave an empty line of their own.
  return CLI::detail::find_and_replace(CLI::Formatter::make_help(app, std::move(name), mode),
                                       "\n\n\n", "\n\n");
}

std::string HelpFormatter::make_option_name(const CLI::Option* option, bool isPositional) const {
  if (isPositional) return option->get_name(true, false);
  std::string names;
  for (const std::string& name : option->get_snames()) names += ", -" + name;
  for (const std::string& name : option->get_lnames()) names += ", --" + name;
  return names.substr(std::min<std::size_t>(2, names.size()));
}

std::string HelpFormatter::make_option_opts(const CLI::Option* option) const {
  std::string text;
  if (option->get_type_size() != 0 && !option->get_type_name().empty()) {
    text = ' ' + option->get_type_name();
  }
  if (option->get_expected_max() == CLI::detail::expected_max_vector_size) text += "...";
  if (option->get_required()) text += " (required)";
  return text;
}

std::string HelpFormatter::make_option(const CLI::Option* option, bool isPositional) const {
  return row(make_option_name(option, isPositional) + make_option_opts(option),
             make_option_desc(option));
}

std::string HelpFormatter::make_subcommand(const CLI::App* command) const {
  return row(command->get_name(), command->get_description());
}

}  // namespace glyphwright::cli
