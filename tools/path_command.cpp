#include "path_command.h"

#include <glyphwright/bezier_path.h>

#include "icon_names.h"
#include "path_text.h"

namespace glyphwright::cli {

int runPath(const PathOptions& options, Console& console) {
  const NamedIcon named = iconsNamed({&options.name, 1}).front();
  if (named.icon.builder == nullptr) {
    console.err << "glyphwright: " << named.name << " has no drawing\n";
    return statusFailed;
  }
  const UIBezierPath path = named.icon.builder();
  if (options.svg) {
    console.out << svgElement(path, {.hasOwnSize = true}) << '\n';
  } else {
    console.out << pathJson(named.icon.method, path);
  }
  return statusDone;
}

}  // namespace glyphwright::cli
