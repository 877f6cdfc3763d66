#include "command_line.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <sstream>
#include <string_view>
#include <utility>

#include <CLI/CLI.hpp>

#include <glyphwright/catalogue/resolve.h>

#include "paint_text.h"
#include "suggestions.h"
#include "usage_error.h"

namespace glyphwright::cli {
namespace {

constexpr const char* nameHelp =
    "icon: a method (checkmarkPath), a case (App.Shapes.Checks.checkmark or Icons.checkmark) or an "
    "integer type (7)";

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

/// The options that say how to paint.
void addPaint(CLI::App& app, Paint& paint) {
  IconAttributes& attributes = paint.attributes;
  // What an outline cannot show is noted by the name of its option.
  const auto pixels = [&paint](const char* name, auto& field) {
    return [&paint, name, &field](auto value) {
      field = std::move(value);
      paint.pixelOptions.emplace_back(name);
    };
  };
  const auto plain = [](auto& field) { return [&field](auto value) { field = std::move(value); }; };

  addParsed(app, "--size", "W[xH]", sizeFrom, plain(attributes.size),
            "size of the image in points; the icon fits into it");
  addParsed(app, "--fill", "C", colorFrom, plain(attributes.fillColor),
            "fill colour, black unless given: #RGB, #RGBA, #RRGGBB, #RRGGBBAA or a CSS name");
  addParsed(app, "--background", "C", colorFrom, pixels("--background", attributes.backgroundColor),
            "colour behind the icon");
  CLI::Option* const stroke = addParsed(app, "--stroke", "C:W", strokeFrom,
                                        plain(attributes.stroke), "outline: colour and width");
  addParsed(app, "--border", "C:W", borderFrom, pixels("--border", attributes.border),
            "ring around the icon: colour and width (whole points)");
  addParsed(app, "--drop-shadow", "C:DX,DY:BLUR", shadowFrom,
            pixels("--drop-shadow", attributes.dropShadow),
            "shadow outside the shape: colour, offset, blur; the icon shrinks to make room");
  addParsed(app, "--inset-shadow", "C:DX,DY:BLUR", shadowFrom,
            pixels("--inset-shadow", attributes.insetShadow), "shadow inside the shape");
  addParsed(app, "--gradient", "C,C[,C...][:DIRECTION]", gradientFrom,
            pixels("--gradient", attributes.gradient),
            "fill with a gradient; the direction is topToBottom (unless given), leftToRight, "
            "topLeftToBottomRight or bottomLeftToTopRight");
  app.add_flag_callback(
         "--hairline",
         [&paint] {
           paint.attributes.stroke.reset();
           paint.pixelOptions.emplace_back("--hairline");
         },
         "without a stroke, the thin black outline that the library draws by default")
      ->excludes(stroke);
}

void addList(CLI::App& program, std::optional<Command>& command) {
  CLI::App* const app =
      program.add_subcommand("list", "Show the catalogue: tabs, sections, cases, types, methods");
  auto options = std::make_shared<ListOptions>();
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
      ->check(CLI::Range(1, 1000))
      ->type_name("N");
  app->add_flag("--json", options->json,
                "as a JSON array: name, and whether it is a guess at a misspelt word");
  app->footer("Example:\n  glyphwright search love letter\n  glyphwright search --limit 1 trash");
  app->callback([&command, options] { command = *options; });
}

void addPath(CLI::App& program, std::optional<Command>& command) {
  CLI::App* const app = program.add_subcommand("path", "Show an icon's outline as JSON or SVG");
  auto options = std::make_shared<PathOptions>();
  app->add_option("NAME", options->name, nameHelp)->required()->type_name("");
  CLI::Option* const json = app->add_flag("--json")->description("as a JSON object (the default)");
  app->add_flag("--svg", options->svg, "as an SVG document")->excludes(json);
  app->callback([&command, options] { command = *options; });
}

void addRender(CLI::App& program, std::optional<Command>& command) {
  CLI::App* const app = program.add_subcommand("render", "Render icons to image files");
  auto options = std::make_shared<RenderOptions>();
  CLI::Option* const names = app->add_option("NAME", options->names, nameHelp)->type_name("");
  app->add_flag("--all", options->all, "every icon method, in place of names")->excludes(names);
  app->add_option("-o,--output", options->output,
                  "output ending in .png, .svg (the outline) or .rgba (premultiplied pixels); - is "
                  "PNG on standard output; {name} and {scale} are replaced")
      ->required()
      ->type_name("FILE");
  addParsed(
      *app, "--scale", "S[,S...]", scalesFrom,
      [options](std::vector<CGFloat> scales) { options->scales = std::move(scales); },
      "pixels per point, 1 unless given; several make a file for each");
  addPaint(*app, options->paint);
  app->footer(
      "Example:\n  glyphwright render facebookLogo -o logo.png --size 64 --scale 2 --fill "
      "'#3355ff' --drop-shadow '#0008:0,3:4'\n  glyphwright render --all -o "
      "'out/{name}@{scale}x.png' --scale 1,2,3");
  app->callback([&command, options] {
    if (options->names.empty() && !options->all) {
      throw UsageError("render: give at least one icon, or --all");
    }
    options->format = formatOf(options->output);
    command = *options;
  });
}

void addSheet(CLI::App& program, std::optional<Command>& command) {
  CLI::App* const app =
      program.add_subcommand("sheet", "Render many icons into one labelled contact sheet");
  auto options = std::make_shared<SheetOptions>();
  app->add_option("NAME", options->names, std::string(nameHelp) + "; all methods unless given")
      ->type_name("");
  app->add_option("-o,--output", options->output, "a .png file, or - for standard output")
      ->required()
      ->type_name("FILE");
  addParsed(
      *app, "--scale", "S", scaleFrom, [options](CGFloat scale) { options->scale = scale; },
      "pixels per point, 2 unless given");
  app->add_option("--columns", options->columns, "icons in a row")
      ->check(CLI::Range(1, 1000))
      ->type_name("N");
  addPaint(*app, options->paint);
  app->callback([&command, options] { command = *options; });
}

void addAnimate(CLI::App& program, std::optional<Command>& command) {
  CLI::App* const app = program.add_subcommand(
      "animate", "Render an animated picture of an icon: a gradient sweep, a stroke, a morph");
  auto options = std::make_shared<AnimateOptions>();
  const auto store = [options](auto AnimateOptions::*field) {
    return [options, field](auto value) { (*options).*field = std::move(value); };
  };
  const auto storeNoted = [options, store](const char* name, auto AnimateOptions::*field) {
    return [options, name, keep = store(field)](auto value) {
      keep(std::move(value));
      options->kindOptions.emplace_back(name);
    };
  };
  app->add_option("NAME", options->name, nameHelp)->required()->type_name("");
  app->add_option(
         "-o,--output", options->output,
         "output ending in .png or .apng (animated) or .gif, or a folder for a file a frame; - is "
         "PNG on standard output")
      ->required()
      ->type_name("FILE");
  addParsed(*app, "--kind", "KIND", animationKindFrom, store(&AnimateOptions::kind),
            "sweep (a gradient running through the icon, unless given), stroke (the outline being "
            "drawn) or morph (the icon turning into another one and back)");
  app->add_option("--to", options->to, "the other icon of a morph")->type_name("NAME");
  app->add_option("--fps", options->framesPerSecond, "frames in a second, 20 unless given")
      ->check(CLI::Range(0.1, 100.0))
      ->type_name("N");
  app->add_option("--duration", options->duration, "length in seconds, 2 unless given")
      ->check(CLI::Range(0.01, 600.0))
      ->type_name("S");
  addParsed(*app, "--size", "W[xH]", sizeFrom, store(&AnimateOptions::size),
            "size of the picture in points, 96 unless given; the icon fits into it");
  addParsed(*app, "--scale", "S", scaleFrom, store(&AnimateOptions::scale),
            "pixels per point, 1 unless given");
  addParsed(*app, "--color", "C", colorFrom, storeNoted("--color", &AnimateOptions::color),
            "colour of a stroke or a morph, black unless given");
  addParsed(*app, "--gradient", "C,C[,C...][:DIRECTION]", gradientFrom,
            storeNoted("--gradient", &AnimateOptions::gradient),
            "colours and direction of a sweep");
  addParsed(*app, "--background", "C", colorFrom, store(&AnimateOptions::background),
            "colour behind the icon");
  app->footer(
      "Example:\n  glyphwright animate heartPath -o heart.png --gradient "
      "'#ff2d6b,#ff9e33:leftToRight'\n  glyphwright animate heartPath -o change.gif --kind morph "
      "--to checkmarkPath --duration 3");
  app->callback([&command, options] { command = *options; });
}

void addGallery(CLI::App& program, std::optional<Command>& command) {
  CLI::App* const app = program.add_subcommand(
      "gallery", "Write a page to browse all icons (index.html) and a contact sheet (sheet.png)");
  auto options = std::make_shared<GalleryOptions>();
  app->add_option("-o,--output", options->folder, "the folder to write into")
      ->required()
      ->type_name("DIR");
  app->callback([&command, options] { command = *options; });
}

void addPreset(CLI::App& program, std::optional<Command>& command) {
  CLI::App* const app = program.add_subcommand(
      "preset",
      "Render ready-made images of several colours, such as PresetIcons.createLoopPlayIcon");
  auto options = std::make_shared<PresetOptions>();
  CLI::Option* const names =
      app->add_option("NAME", options->names, "the images, by their dotted names; see --list")
          ->type_name("");
  app->add_flag("--all", options->all, "every ready-made image, in place of names")
      ->excludes(names);
  app->add_flag("--list", options->list, "show the names and what each takes");
  app->add_option("-o,--output", options->output,
                  "output ending in .png or .rgba; - is PNG on standard output; {name} and {scale} "
                  "are replaced")
      ->type_name("FILE");
  addParsed(
      *app, "--scale", "S", scaleFrom, [options](CGFloat scale) { options->scale = scale; },
      "pixels per point, 1 unless given");
  addParsed(
      *app, "--size", "W[xH]", sizeFrom, [options](CGSize size) { options->size = size; },
      "size of the image in points, for those that take one");
  app->add_flag("--selected", options->selected, "the selected look (createSafebeamIcon)");
  app->add_flag("--withBackground,--with-background", options->withBackground,
                "on its disc (createSafebeamIcon)");
  addParsed(
      *app, "--backgroundColor,--background-color", "C", colorFrom,
      [options](const UIColor& color) { options->backgroundColor = color; },
      "colour of the ground (shareIcon), clear unless given");
  app->callback([&command, options] {
    if (!options->list) {
      if (options->names.empty() && !options->all) {
        throw UsageError("preset: give at least one image, --all or --list");
      }
      if (options->output.empty()) throw UsageError("preset: --output is required");
      options->format = formatOf(options->output);
    }
    command = *options;
  });
}

void addInspect(CLI::App& program, std::optional<Command>& command) {
  CLI::App* const app = program.add_subcommand(
      "inspect", "Show the facts about outlines that an artist looks at: frame, contours, gaps");
  auto options = std::make_shared<InspectOptions>();
  CLI::Option* const names = app->add_option("NAME", options->names, nameHelp)->type_name("");
  app->add_flag("--all", options->all, "every icon method, in place of names")->excludes(names);
  app->callback([&command, options] {
    if (options->names.empty() && !options->all) {
      throw UsageError("inspect: give at least one icon, or --all");
    }
    command = *options;
  });
}

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

}  // namespace

std::variant<Command, HelpText> parseCommandLine(std::vector<std::string> arguments) {
  std::optional<Command> command;
  CLI::App program("Icons as paths and images, from artwork written as code.", "glyphwright");
  program.set_version_flag("--version", "glyphwright " GLYPHWRIGHT_VERSION);
  program.require_subcommand(1);
  program.set_help_all_flag("--help-all", "Show the help of all commands");
  program.footer("Exit status: 0 done, 1 some output failed, 2 wrong usage.");
  addList(program, command);
  addSearch(program, command);
  addPath(program, command);
  addRender(program, command);
  addSheet(program, command);
  addAnimate(program, command);
  addGallery(program, command);
  addPreset(program, command);
  addInspect(program, command);
  checkCommand(program, arguments);
  try {
    std::reverse(arguments.begin(), arguments.end());
    program.parse(std::move(arguments));
  } catch (const CLI::ParseError& error) {
    std::ostringstream text;
    std::ostringstream ignored;
    if (program.exit(error, text, ignored) == 0) return HelpText{text.str()};
    throw UsageError(error.what() + helpHint(program));
  }
  return *command;
}

}  // namespace glyphwright::cli
