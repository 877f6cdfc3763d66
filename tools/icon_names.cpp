#include "icon_names.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <string_view>

#include <glyphwright/catalogue/catalogue.h>
#include <glyphwright/catalogue/icon_type.h>
#include <glyphwright/catalogue/icons.h>
#include <glyphwright/paths/method_names.h>

#include "glob.h"
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

/// Icons as they are asked for.
struct Collection {
  std::vector<NamedIcon> icons;
  std::set<std::string> known{};

  void add(const std::string& name) {
    const auto icon = resolveIcon(name);
    if (!icon) throw UsageError(unknownName(name));
    icons.push_back({name, *icon});
    known.insert(name);
  }

  void addOnce(const std::string& name) {
    if (!known.contains(name)) isGlob(name) ? addMatches(name) : add(name);
  }

  void addMatches(const std::string& pattern) {
    const Glob glob(pattern);
    const bool ofCases = pattern.find('.') != std::string::npos;
    bool any = false;
    for (const std::string& name : allIconNames()) {
      const bool isCase = name.find('.') != std::string::npos;
      if (isCase != ofCases || !glob.matches(name)) continue;
      any = true;
      if (!known.contains(name)) add(name);
    }
    if (!any) {
      throw UsageError("no icon's name matches \"" + pattern +
                       "\"; `glyphwright list` shows all names");
    }
  }
};

}  // namespace

std::vector<NamedIcon> iconsNamed(std::span<const std::string> names, std::istream* in) {
  Collection collection;
  for (const std::string& name : names) {
    if (name == "-") {
      if (in == nullptr || std::ranges::count(names, name) > 1) {
        throw UsageError("\"-\" reads names from standard input, once");
      }
      for (std::string read; *in >> read;) collection.addOnce(read);
    } else if (isGlob(name)) {
      collection.addMatches(name);
    } else {
      collection.add(name);
    }
  }
  if (collection.icons.empty() && !names.empty()) {
    throw UsageError("standard input has no name of an icon");
  }
  return std::move(collection.icons);
}

std::vector<NamedIcon> allIcons() {
  std::vector<NamedIcon> icons;
  for (const std::string_view name : iconMethodNames) {
    icons.push_back({std::string(name), {name, findClassMethod(name)}});
  }
  return icons;
}

std::vector<std::string> allIconNames() {
  std::vector<std::string> names(std::begin(iconMethodNames), std::end(iconMethodNames));
  const auto add = [&names](std::string_view enumeration, std::string_view name) {
    names.push_back(std::string(enumeration).append(".").append(name));
  };
  for (const EnumerationRecord* enumeration : catalogueEnumerations) {
    for (const CaseRecord& record : enumeration->cases) add(enumeration->name, record.name);
  }
  for (const Icons icon : Icons::allCases) add(Icons::enumeration.name, icon.name());
  return names;
}

}  // namespace glyphwright::cli
