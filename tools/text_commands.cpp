#include <memory>
#include <optional>

#include "command_tree.h"

namespace glyphwright::cli {
namespace {

void addList(CLI::App& program, std::optional<Command>& command) {
  CLI::App* const app =
      program.add_subcommand("list", "Show the catalogue: tabs, sections, cases, types, methods");
  auto options = std::make_shared<ListOptions>();
  app->add_option("WORD", options->words,
                  "parts of names, or patterns such as '*Path'; everything unless given")
      ->type_name("");
  app->add_flag("--json", options->json, "as one JSON object");
  app->callback([&command, options] { command = *options; });
}

void addSearch(CLI::App& program, std::optional<Command>& command) {
  CLI::App* const app = program.add_subcommand(
      "search", "Find icons and ready-made images by what they show or are for");
  auto options = std::make_shared<SearchOptions>();
  app->add_option("WORDS", options->words, "words as they come to mind: thumbs down")
      ->required()
      ->type_name("");
  app->add_option("--limit", options->limit, "at most so many names, 10 unless given")
      ->check(CLI::Range(1, 1000).description(""))
      ->type_name("N");
  app->add_flag("--json", options->json,
                "as a JSON array: name, and whether it is a guess at a misspelt word");
  app->footer("Example:\n  glyphwright search love letter\n  glyphwright search --limit 1 trash");
  app->callback([&command, options] { command = *options; });
}

void addPath(CLI::App& program, std::optional<Command>& command) {
  CLI::App* const app = program.add_subcommand("path", "Show an icon's outline as JSON or SVG");
  auto options = std::make_shared<PathOptions>();
  app->add_option("NAME", options->name, kNameHelp)->required()->type_name("");
  CLI::Option* const json = app->add_flag("--json")->description("as a JSON object (the default)");
  app->add_flag("--svg", options->svg, "as an SVG document")->excludes(json);
  app->callback([&command, options] { command = *options; });
}

void addInspect(CLI::App& program, std::optional<Command>& command) {
  CLI::App* const app = program.add_subcommand(
      "inspect", "Show the facts about outlines that an artist looks at: frame, contours, gaps");
  auto options = std::make_shared<InspectOptions>();
  CLI::Option* const names = app->add_option("NAME", options->names, kNamesHelp)->type_name("");
  app->add_flag("--all", options->all, "every icon method, in place of names")->excludes(names);
  CLI::Option* const json = app->add_flag("--json", options->json, "as a JSON array");
  CLI::Option* const stages =
      app->add_flag("--stages", options->stages,
                    "pictures of what each stage of drawing makes of an icon, from outline to "
                    "pixels, in place of facts")
          ->excludes(json);
  app->add_option("-o,--output", options->folder, "the folder to write the pictures into")
      ->type_name("DIR")
      ->needs(stages);
  app->add_option("--size", options->size, "pixels of the icon's longer side, 24 unless given")
      ->check(CLI::Range(4, 256).description(""))
      ->type_name("N")
      ->needs(stages);
  app->footer(
      "Example:\n  glyphwright inspect heartPath\n  glyphwright inspect heartPath --stages -o "
      "stages");
  app->callback([&command, options] {
    if (options->names.empty() && !options->all) {
      throw UsageError("inspect: give at least one icon, or --all");
    }
    if (options->stages && options->folder.empty()) {
      throw UsageError("inspect: --stages needs a folder for its pictures: -o DIR");
    }
    command = *options;
  });
}

void addCompletions(CLI::App& program, std::optional<Command>& command) {
  CLI::App* const app = program.add_subcommand(
      "completions", "Write the script that completes this program's words in a shell");
  auto options = std::make_shared<CompletionsOptions>();
  addParsed(
      *app, "SHELL", "bash|zsh|fish", shellFrom, [options](Shell shell) { options->shell = shell; },
      "the shell")
      ->required();
  app->footer(
      "Example:\n  source <(glyphwright completions bash)\n  glyphwright completions fish > "
      "~/.config/fish/completions/glyphwright.fish");
  app->callback([&command, options] { command = *options; });
}

void addManual(CLI::App& program, std::optional<Command>& command) {
  CLI::App* const app =
      program.add_subcommand("manual", "Write the manual page, of the same words as the help");
  app->footer("Example:\n  glyphwright manual > glyphwright.1 && man ./glyphwright.1");
  app->callback([&command] { command = ManualOptions{}; });
}

/// For the list of commands and for completions: `help render` is read as `render --help`.
void addHelp(CLI::App& program) {
  CLI::App* const app = program.add_subcommand("help", "Show the help of a command");
  app->add_option("COMMAND", "the command; all of them unless given")->type_name("");
}

}  // namespace

void addCatalogueCommands(CLI::App& program, std::optional<Command>& chosen) {
  addList(program, chosen);
  addSearch(program, chosen);
  addPath(program, chosen);
  addInspect(program, chosen);
}

void addProgramCommands(CLI::App& program, std::optional<Command>& chosen) {
  addCompletions(program, chosen);
  addManual(program, chosen);
  addHelp(program);
}

}  // namespace glyphwright::cli
