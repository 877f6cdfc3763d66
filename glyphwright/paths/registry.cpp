#include <glyphwright/paths/registry.h>

#include <glyphwright/paths/method_names.h>

namespace glyphwright {
namespace {

constexpr ClassMethod iconMethods[] = {
#define GLYPHWRIGHT_ICON(name) &UIBezierPath::name,
#include <glyphwright/paths/icon_names.inc>
#undef GLYPHWRIGHT_ICON
};
static_assert(std::size(iconMethods) == iconMethodCount);

}  // namespace

ClassMethod findClassMethod(std::string_view name) {
  const auto position = iconMethodIndex.find(name);
  return position ? iconMethods[*position] : nullptr;
}

UIBezierPath performSelector(std::string_view name) {
  const ClassMethod method = findClassMethod(name);
  if (method == nullptr) unrecognizedSelector("UIBezierPath", name);
  return method();
}

}  // namespace glyphwright
