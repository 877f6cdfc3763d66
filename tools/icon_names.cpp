#include "icon_names.h"

#include <algorithm>
#include <string_view>

#include <glyphwright/catalogue/icon_type.h>
#include <glyphwright/paths/method_names.h>

#include "suggestions.h"
#include "usage_error.h"

namespace glyphwright::cli {
namespace {

bool isNumber(std::string_view text) {
  if (text.starts_with('-')) text.remove_prefix(1);
  return !text.empty() && std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

std::string unknownName(const std::string& name) {
  if (isNumber(name)) {
    const std::size_t digits = std::min(name.find_first_not_of('0'), name.size() - 1);
    if (digits > 0 && resolveIcon(name.substr(digits))) {
      return "\"" + name +
             "\" is no number of an icon: integer types are written without leading " +
             "zeros, so " + name.substr(digits);
    }
    return "no icon has the number " + name + ": integer types run from 0 to " +
           std::to_string(iconTypes.size() - 1);
  }
  const std::string suggestion = didYouMean(nearestNames(name, suggestionCount));
  return "no icon is called \"" + name + '"' +
         (suggestion.empty() ? "; `glyphwright list` shows all names" : suggestion);
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
