#include "preset_command.h"

#include <algorithm>
#include <iomanip>
#include <set>
#include <stdexcept>
#include <string_view>

#include <nlohmann/json.hpp>

#include <glyphwright/catalogue/resolve.h>
#include <glyphwright/platform/vantel_kit.h>

#include "image_output.h"
#include "numbers.h"
#include "parallel.h"
#include "preset_table.h"
#include "suggestions.h"
#include "usage_error.h"

namespace glyphwright::cli {
namespace {

std::vector<const Preset*> presetsNamed(const std::vector<std::string>& names) {
  std::vector<std::string_view> known;
  for (const Preset& preset : allPresets()) known.push_back(preset.name);
  std::vector<const Preset*> presets;
  for (const std::string& name : names) {
    const auto found = std::ranges::find(allPresets(), name, &Preset::name);
    if (found == allPresets().end()) {
      const std::string suggestion = didYouMean(nearestNames(name, known, suggestionCount));
      throw UsageError(
          "no ready-made image is called \"" + name + '"' +
          (suggestion.empty() ? "; `glyphwright preset --list` shows all names" : suggestion));
    }
    presets.push_back(&*found);
  }
  return presets;
}

void checkOptions(const Preset& preset, const PresetOptions& options) {
  const auto refuse = [&](std::string_view option) {
    throw UsageError(std::string(preset.name).append(" takes no ").append(option));
  };
  if (options.size && !preset.usualSize) refuse("--size");
  if (options.selected && !preset.takesFlags) refuse("--selected");
  if (options.withBackground && !preset.takesFlags) refuse("--withBackground");
  if (options.backgroundColor && !preset.takesBackgroundColor) refuse("--backgroundColor");
}

void listPresets(std::ostream& out) {
  constexpr int nameWidth = 40;
  for (const Preset& preset : allPresets()) {
    // Whoever takes anything takes a size.
    out << std::left << std::setw(preset.usualSize ? nameWidth : 0) << preset.name;
    if (preset.usualSize) {
      out << " --size (" << textOf(preset.usualSize->width) << 'x'
          << textOf(preset.usualSize->height) << ')';
    }
    if (preset.takesFlags) out << " --selected --withBackground";
    if (preset.takesBackgroundColor) out << " --backgroundColor";
    out << '\n';
  }
}

void listPresetsAsJson(std::ostream& out) {
  using Json = nlohmann::ordered_json;
  Json list = Json::array();
  for (const Preset& preset : allPresets()) {
    Json options = Json::array();
    if (preset.usualSize) options.push_back("--size");
    if (preset.takesFlags) options.insert(options.end(), {"--selected", "--withBackground"});
    if (preset.takesBackgroundColor) options.push_back("--backgroundColor");
    Json entry = {{"name", preset.name}, {"options", std::move(options)}};
    if (preset.usualSize) entry["usualSize"] = {preset.usualSize->width, preset.usualSize->height};
    list.push_back(std::move(entry));
  }
  out << list.dump(2) << '\n';
}

void draw(const Preset& preset, const PresetOptions& options, Console& console) {
  PresetArguments arguments;
  arguments.size = options.size.value_or(preset.usualSize.value_or(CGSize{}));
  arguments.selected = options.selected;
  arguments.withBackground = options.withBackground;
  if (options.backgroundColor) arguments.backgroundColor = *options.backgroundColor;
  writeImage(preset.draw(arguments), preset.name,
             expandPattern(options.output, {preset.name, options.scale}), options.format, console,
             options.compression);
}

}  // namespace

int runPreset(const PresetOptions& options, Console& console) {
  if (options.list) {
    options.json ? listPresetsAsJson(console.out) : listPresets(console.out);
    return statusDone;
  }
  std::vector<const Preset*> presets = presetsNamed(options.names);
  for (const Preset* preset : presets) checkOptions(*preset, options);
  if (options.all) {
    for (const Preset& preset : allPresets()) presets.push_back(&preset);
  }
  if (options.format == OutputFormat::svg) {
    throw UsageError("a ready-made image has several colours: write a .png or .rgba file");
  }
  refuseTerminal(options.output, options.format, console);
  std::set<std::string> files;
  for (const Preset* preset : presets) {
    if (!files.insert(expandPattern(options.output, {preset->name, options.scale})).second) {
      throw UsageError("more than one image would go to " + options.output +
                       ": use {name} in the name of the output");
    }
  }
  makeFolders(std::vector(files.begin(), files.end()), options.parents);
  VantelKit::Screen::setScale(options.scale);
  std::vector<std::string> errors(presets.size());
  {
    Progress progress(console, "drawing", presets.size());
    inParallel(presets.size(), threadsFor(options.jobs), [&](std::size_t i) {
      try {
        draw(*presets[i], options, console);
      } catch (const std::exception& error) {
        errors[i] = error.what();
      }
      progress.step();
    });
  }
  std::erase(errors, "");
  for (const std::string& error : errors) console.err << "glyphwright: " << error << '\n';
  return errors.empty() ? statusDone : statusFailed;
}

}  // namespace glyphwright::cli
