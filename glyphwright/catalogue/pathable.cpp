#include <glyphwright/catalogue/pathable.h>

#include <glyphwright/bezier_path.h>

namespace glyphwright {

UIBezierPath Pathable::path() const {
  return performSelector(rawValue());
}

std::ostream& operator<<(std::ostream& stream, const Pathable& value) {
  return detail::writeCase(stream, value.enumerationName(), value.name());
}

}  // namespace glyphwright
