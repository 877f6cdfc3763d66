#include "icon_names.h"

#include <algorithm>
#include <string_view>

#include <glyphwright/catalogue/icon_type.h>
#include <glyphwright/paths/method_names.h>

#include "usage_error.h"

namespace glyphwright::cli {
namespace {

constexpr std::size_t suggestionCount = 3;

bool isNumber(std::string_view text) {
  if (text.starts_with('-')) text.remove_prefix(1);
  return !text.empty() && std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

std::string unknownName(const std::string& name) {
  if (isNumber(name)) {
    return "no icon has the number " + name + ": integer types run from 0 to " +
           std::to_string(iconTypes.size() - 1);
  }
  std::string message = "no icon is called \"" + name + "\"";
  const std::vector<std::string> near = nearestNames(name, suggestionCount);
  if (near.empty()) return message + "; `glyphwright list` shows all names";
  message += "; did you mean ";
  for (std::size_t i = 0; i < near.size(); ++i) {
    if (i > 0) message += i + 1 == near.size() ? " or " : ", ";
    message += near[i];
  }
  return message + "?";
}

}  // namespace

std::vector<NamedIcon> iconsNamed(std::span<const std::string> names) {
  std::vector<NamedIcon> icons;
  for (const std::string& name : names) {
    const auto icon = resolveIcon(name);
    if (!icon) throw UsageError(unknownName(name));
    icons.push_back({name, *icon});
  }
  return icons;
}

std::vector<NamedIcon> allIcons() {
  std::vector<NamedIcon> icons;
  for (const std::string_view name : iconMethodNames) {
    icons.push_back({std::string(name), {name, findClassMethod(name)}});
  }
  return icons;
}

}  // namespace glyphwright::cli
