#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include <CLI/CLI.hpp>

namespace glyphwright::cli {

/// Help in two columns whose right one is wrapped.
class HelpFormatter : public CLI::Formatter {
 public:
  /// `columns` is the terminal's width; 0, and more than is good to read, stand for usual widths.
  explicit HelpFormatter(std::size_t columns);

  std::string make_help(const CLI::App* app, std::string name,
                        CLI::AppFormatMode mode) const override;
  std::string make_option_name(const CLI::Option* option, bool isPositional) const override;
  /// The form of the value alone: what excludes what is said in the descriptions.
  std::string make_option_opts(const CLI::Option* option) const override;
  std::string make_option(const CLI::Option* option, bool isPositional) const override;
  std::string make_subcommand(const CLI::App* command) const override;

 private:
  std::string row(const std::string& name, std::string_view text) const;

  std::size_t columns_;
};

}  // namespace glyphwright::cli
