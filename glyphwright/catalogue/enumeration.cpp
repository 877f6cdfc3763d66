#include <glyphwright/catalogue/enumeration.h>

#include <ostream>

namespace glyphwright::detail {

std::ostream& writeCase(std::ostream& stream, std::string_view enumeration, std::string_view name) {
  return stream << enumeration << '.' << name;
}

}  // namespace glyphwright::detail
