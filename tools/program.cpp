#include "program.h"

#include <cerrno>
#include <exception>
#include <utility>

#include "command_line.h"
#include "usage_error.h"

namespace glyphwright::cli {
namespace {

struct Runner {
  Console& console;

  int operator()(const ListOptions& options) const { return runList(options, console); }
  int operator()(const SearchOptions& options) const { return runSearch(options, console); }
  int operator()(const PathOptions& options) const { return runPath(options, console); }
  int operator()(const RenderOptions& options) const { return runRender(options, console); }
  int operator()(const SheetOptions& options) const { return runSheet(options, console); }
  int operator()(const AnimateOptions& options) const { return runAnimate(options, console); }
  int operator()(const GalleryOptions& options) const { return runGallery(options, console); }
  int operator()(const PresetOptions& options) const { return runPreset(options, console); }
  int operator()(const ShowOptions& options) const { return runShow(options, console); }
  int operator()(const DiffOptions& options) const { return runDiff(options, console); }
  int operator()(const CompletionsOptions& options) const {
    return runCompletions(options, console);
  }
  int operator()(const ManualOptions& options) const { return runManual(options, console); }
  int operator()(const InspectOptions& options) const {
    return runInspectCommand(options, console);
  }
};

int run(std::vector<std::string> arguments, Console& console) {
  const auto parsed = parseCommandLine(std::move(arguments), console.columns);
  int status = statusDone;
  if (const auto* help = std::get_if<HelpText>(&parsed)) {
    console.out << help->text;
  } else {
    status = std::visit(Runner{console}, std::get<Command>(parsed));
  }
  console.out.flush();
  if (!console.out) {
    // A reader who has seen enough, such as `head`, needs no telling.
    if (errno != EPIPE) console.err << "glyphwright: cannot write to standard output\n";
    return statusFailed;
  }
  return status;
}

}  // namespace

int runProgram(std::vector<std::string> arguments, Console& console) {
  try {
    return run(std::move(arguments), console);
  } catch (const UsageError& error) {
    console.err << "glyphwright: " << error.what() << '\n';
    return statusUsage;
  } catch (const std::exception& error) {
    console.err << "glyphwright: " << error.what() << '\n';
    return statusFailed;
  }
}

}  // namespace glyphwright::cli
