#include <glyphwright/catalogue/icon_type.h>

#include <glyphwright/bezier_path.h>

namespace glyphwright {
namespace {

constexpr UIBezierPath (*iconTypeMethods[])() = {
#define GLYPHWRIGHT_ICON_TYPE(value, name, method) &UIBezierPath::method,
#include <glyphwright/catalogue/icon_types.inc>
#undef GLYPHWRIGHT_ICON_TYPE
};

constexpr bool eachAtItsNumber() {
  for (std::size_t i = 0; i < iconTypes.size(); ++i) {
    if (static_cast<std::size_t>(iconTypes[i].type) != i) return false;
  }
  return std::size(iconTypeMethods) == iconTypes.size();
}
static_assert(eachAtItsNumber(), "icon types are numbered 0, 1, 2, … in the order of the table");

}  // namespace

std::optional<UIBezierPath> UIBezierPath::pathForIcon(IconNumber icon) {
  if (!isIconType(icon)) return std::nullopt;
  return iconTypeMethods[static_cast<std::size_t>(VNTLIconType(icon))]();
}

}  // namespace glyphwright
