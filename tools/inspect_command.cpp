#include "inspect_command.h"

#include "icon_names.h"
#include "inspect.h"

namespace glyphwright::cli {

int runInspectCommand(const InspectOptions& options, Console& console) {
  const std::vector<NamedIcon> icons =
      options.all ? allIcons() : iconsNamed(options.names, console.in);
  std::vector<std::string> methods;
  methods.reserve(icons.size());
  for (const NamedIcon& named : icons) methods.emplace_back(named.icon.method);
  return options.json ? runInspectJson(methods, console.out) : runInspect(methods, console.out);
}

}  // namespace glyphwright::cli
