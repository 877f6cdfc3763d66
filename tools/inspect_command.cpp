#include "inspect_command.h"

#include <exception>
#include <ostream>
#include <stdexcept>

#include "icon_names.h"
#include "inspect.h"
#include "output.h"
#include "png.h"
#include "stage_pictures.h"

namespace glyphwright::cli {
namespace {

void writeStages(const NamedIcon& icon, const InspectOptions& options, Console& console) {
  if (icon.icon.builder == nullptr) throw std::runtime_error("it has no drawing");
  const Stages stages = stagesOf(icon.icon.builder(), options.size);
  for (std::size_t i = 0; i < kStages; ++i) {
    const StagePicture& picture = stagePicture(i);
    const std::string file = options.folder + '/' + std::string(icon.icon.method) + '-' +
                             std::to_string(i + 1) + '-' + std::string(picture.name) + ".png";
    const PixelSheet sheet = picture.draw(stages);
    writeOutput(file, encodePng(sheet.width(), sheet.height(), sheet.rgba()), console);
    console.out << file << "  " << picture.explanation << '\n';
  }
}

int writeAllStages(const std::vector<NamedIcon>& icons, const InspectOptions& options,
                   Console& console) {
  int status = statusDone;
  for (const NamedIcon& icon : icons) {
    try {
      writeStages(icon, options, console);
    } catch (const std::exception& error) {
      console.err << icon.name << ": " << error.what() << '\n';
      status = statusFailed;
    }
  }
  return status;
}

}  // namespace

int runInspectCommand(const InspectOptions& options, Console& console) {
  const std::vector<NamedIcon> icons =
      options.all ? allIcons() : iconsNamed(options.names, console.in);
  if (options.stages) return writeAllStages(icons, options, console);
  std::vector<std::string> methods;
  methods.reserve(icons.size());
  for (const NamedIcon& named : icons) methods.emplace_back(named.icon.method);
  return options.json ? runInspectJson(methods, console.out) : runInspect(methods, console.out);
}

}  // namespace glyphwright::cli
