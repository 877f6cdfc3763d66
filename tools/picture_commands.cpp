#include <memory>
#include <optional>
#include <utility>

#include "command_tree.h"
#include "paint_text.h"

namespace glyphwright::cli {
namespace {

Compression compressionFrom(const std::string& text) {
  if (text == "quick") return Compression::quick;
  if (text == "small") return Compression::small;
  throw UsageError("\"" + text + "\" is neither quick nor small");
}

template <class Options>
void addParents(CLI::App& app, const std::shared_ptr<Options>& options) {
  app.add_flag("--parents", options->parents, "make the folders of the output that are missing");
}

/// How files are written.
template <class Options>
void addWriting(CLI::App& app, const std::shared_ptr<Options>& options) {
  addParsed(
      app, "--compression", "quick|small", compressionFrom,
      [options](Compression compression) { options->compression = compression; },
      "PNG files made quickly, unless given, or as small as can be, which takes many times as "
      "long");
  addParents(app, options);
}

template <class Options>
void addJobs(CLI::App& app, const std::shared_ptr<Options>& options) {
  app.add_option("--jobs", options->jobs,
                 "threads, as many as cores unless given; the files are the "
                 "same with any number")
      ->check(CLI::Range(1, 1024).description(""))
      ->type_name("N");
}

void addRender(CLI::App& program, std::optional<Command>& command) {
  CLI::App* const app = program.add_subcommand("render", "Render icons to image files");
  auto options = std::make_shared<RenderOptions>();
  CLI::Option* const names = app->add_option("NAME", options->names, kNamesHelp)->type_name("");
  app->add_flag("--all", options->all, "every icon method, in place of names")->excludes(names);
  app->add_option("-o,--output", options->output,
                  "output ending in .png, .svg (the outline) or .rgba (premultiplied pixels); - is "
                  "PNG on standard output; {name}, {size} and {scale} are replaced")
      ->required()
      ->type_name("FILE");
  addParsed(
      *app, "--scale", "S[,S...]", scalesFrom,
      [options](std::vector<CGFloat> scales) { options->scales = std::move(scales); },
      "pixels per point, 1 unless given; several make a file for each");
  addPaint(*app, options->paint);
  app->get_option("--size")->type_name("W[xH][,...]");
  addWriting(*app, options);
  addJobs(*app, options);
  app->footer(
      "Example:\n  glyphwright render facebookLogo -o logo.png --size 64 --scale 2 --fill "
      "'#3355ff' --drop-shadow '#0008:0,3:4'\n  glyphwright render --all -o "
      "'out/{name}@{scale}x.png' --scale 1,2,3 --parents");
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
  app->add_option("NAME", options->names, std::string(kNamesHelp) + "; all methods unless given")
      ->type_name("");
  app->add_option("-o,--output", options->output, "a .png file, or - for standard output")
      ->required()
      ->type_name("FILE");
  addParsed(
      *app, "--scale", "S", scaleFrom, [options](CGFloat scale) { options->scale = scale; },
      "pixels per point, 2 unless given");
  app->add_option("--columns", options->columns, "icons in a row")
      ->check(CLI::Range(1, 1000).description(""))
      ->type_name("N");
  addPaint(*app, options->paint);
  addWriting(*app, options);
  addJobs(*app, options);
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
  app->add_option("NAME", options->name, kNameHelp)->required()->type_name("");
  app->add_option(
         "-o,--output", options->output,
         "output ending in .png or .apng (animated) or .gif, or a folder for a file a frame; - is "
         "PNG on standard output")
      ->required()
      ->type_name("FILE");
  addParsed(*app, "--kind", "sweep|stroke|morph", animationKindFrom, store(&AnimateOptions::kind),
            "sweep (a gradient running through the icon, unless given), stroke (the outline being "
            "drawn) or morph (the icon turning into another one and back)");
  app->add_option("--to", options->to, "the other icon of a morph")->type_name("NAME");
  app->add_option("--fps", options->framesPerSecond, "frames in a second, 20 unless given")
      ->check(CLI::Range(0.1, 100.0).description(""))
      ->type_name("N");
  app->add_option("--duration", options->duration, "length in seconds, 2 unless given")
      ->check(CLI::Range(0.01, 600.0).description(""))
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
  addJobs(*app, options);
  addParents(*app, options);
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
  app->add_option("--module", options->module,
                  "a folder with the library as WebAssembly, with which the page draws by itself; "
                  "scripts/gallery makes it")
      ->type_name("DIR");
  app->add_flag("--page-only", options->pageOnly,
                "only index.html, where the rest is there already");
  addJobs(*app, options);
  app->callback([&command, options] {
    if (options->folder.empty()) throw UsageError("gallery: --output is empty: name a folder");
    command = *options;
  });
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
  CLI::Option* const list =
      app->add_flag("--list", options->list, "show the names and what each takes");
  app->add_flag("--json", options->json, "with --list, as a JSON array")->needs(list);
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
  addJobs(*app, options);
  addWriting(*app, options);
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

void addShow(CLI::App& program, std::optional<Command>& command) {
  CLI::App* const app = program.add_subcommand("show", "Draw an icon in the terminal");
  auto options = std::make_shared<ShowOptions>();
  app->add_option("NAME", options->name, kNameHelp)->required()->type_name("");
  addParsed(
      *app, "--as", "auto|picture|blocks|plain", showFormFrom,
      [options](ShowForm form) { options->form = form; },
      "the terminal's own picture, half blocks in colour or half blocks alone; unless given, the "
      "best "
      "that the terminal says it has");
  app->add_option("--columns", options->columns,
                  "width in characters, 40 unless given or the terminal is narrower")
      ->check(CLI::Range(1, 1000).description(""))
      ->type_name("N");
  addPaint(*app, options->paint);
  app->footer(
      "Where the environment variable NO_COLOR is set, nothing is coloured.\n"
      "Example:\n  glyphwright show heartPath --fill gold");
  app->callback([&command, options] { command = *options; });
}

void addDiff(CLI::App& program, std::optional<Command>& command) {
  CLI::App* const app = program.add_subcommand(
      "diff", "Compare two icons, or an icon and a PNG file, pixel by pixel");
  auto options = std::make_shared<DiffOptions>();
  app->add_option("A", options->a, "the name of an icon, or a file ending in .png")
      ->required()
      ->type_name("");
  app->add_option("B", options->b, "what to compare it with")->required()->type_name("");
  app->add_option("-o,--output", options->output,
                  "a .png file to show A, B and where they differ, side by side")
      ->type_name("FILE");
  app->add_option("--tolerance", options->tolerance,
                  "the largest difference that counts as none, of 255; 0 unless given")
      ->check(CLI::Range(0, 255).description(""))
      ->type_name("N");
  app->add_flag("--json", options->json, "the figures as a JSON object");
  addParents(*app, options);
  addParsed(
      *app, "--scale", "S", scaleFrom, [options](CGFloat scale) { options->scale = scale; },
      "pixels per point of what is rendered, 1 unless given");
  addPaint(*app, options->paint);
  app->footer(
      "A render beside a file takes on the file's size unless --size is given. Exit status: 0 the "
      "same, "
      "1 different.\nExample:\n  glyphwright diff heartPath heart.png --fill red -o changed.png");
  app->callback([&command, options, app] {
    options->sizeIsGiven = app->count("--size") > 0 || app->count("--attributes") > 0;
    command = *options;
  });
}

}  // namespace

void addPictureCommands(CLI::App& program, std::optional<Command>& chosen) {
  addRender(program, chosen);
  addSheet(program, chosen);
  addAnimate(program, chosen);
  addGallery(program, chosen);
  addPreset(program, chosen);
  addShow(program, chosen);
  addDiff(program, chosen);
}

}  // namespace glyphwright::cli
