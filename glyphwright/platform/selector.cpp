#include <glyphwright/platform/selector.h>

#include <glyphwright/platform/fatal.h>

namespace glyphwright {

void unrecognizedSelector(std::string_view className, std::string_view selector) {
  fatal({className, " does not recognize the selector \"", selector, "\""});
}

}  // namespace glyphwright
