#include "command_tree.h"

#include "help_formatter.h"

namespace glyphwright::cli {

std::unique_ptr<CLI::App> commandTree(std::optional<Command>& chosen, std::size_t columns) {
  auto program = std::make_unique<CLI::App>(
      "Icons as paths and images, from artwork written as code.", "glyphwright");
  // What commands inherit comes first.
  program->formatter(std::make_shared<HelpFormatter>(columns));
  program->set_help_flag("-h,--help", "Show this help");
  program->set_help_all_flag("--help-all", "Show the help of all commands");
  program->set_version_flag("--version", "glyphwright " GLYPHWRIGHT_VERSION, "Show the version");
  program->require_subcommand(1);
  addCatalogueCommands(*program, chosen);
  addPictureCommands(*program, chosen);
  addProgramCommands(*program, chosen);
  for (CLI::App* command : program->get_subcommands(nullptr)) {
    command->get_option("--help-all")->group("");  // known to each, shown once
  }
  program->footer("Exit status: 0 done, 1 some output failed, 2 wrong usage.");
  return program;
}

}  // namespace glyphwright::cli
