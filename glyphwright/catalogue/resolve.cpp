#include <glyphwright/catalogue/resolve.h>

#include <glyphwright/catalogue/catalogue.h>
#include <glyphwright/catalogue/icon_type.h>
#include <glyphwright/catalogue/icons.h>
#include <glyphwright/paths/method_names.h>

namespace glyphwright {
namespace {

std::optional<ResolvedIcon> method(std::string_view name) {
  const auto position = iconMethodIndex.find(name);
  if (!position) return std::nullopt;
  return ResolvedIcon{iconMethodNames[*position], findClassMethod(name)};
}

/// Decimal digits without sign, space or leading zero.
std::optional<ResolvedIcon> iconType(std::string_view text) {
  if (text.empty() || text.size() > 3 || (text.size() > 1 && text[0] == '0')) return std::nullopt;
  std::size_t number = 0;
  for (const char c : text) {
    if (c < '0' || c > '9') return std::nullopt;
    number = number * 10 + static_cast<std::size_t>(c - '0');
  }
  if (number >= iconTypes.size()) return std::nullopt;
  return method(iconTypes[number].method);
}

std::optional<ResolvedIcon> caseOf(const EnumerationRecord& enumeration, std::string_view name) {
  for (const CaseRecord& record : enumeration.cases) {
    if (record.name == name) {
      return ResolvedIcon{record.rawValue, findClassMethod(record.rawValue)};
    }
  }
  return std::nullopt;
}

std::optional<ResolvedIcon> qualifiedCase(std::string_view text) {
  const std::size_t dot = text.rfind('.');
  if (dot == std::string_view::npos) return std::nullopt;
  const std::string_view enumerationName = text.substr(0, dot);
  const std::string_view caseName = text.substr(dot + 1);
  if (enumerationName == Icons::enumeration.name) return caseOf(Icons::enumeration, caseName);
  for (const EnumerationRecord* enumeration : catalogueEnumerations) {
    if (enumeration->name == enumerationName) return caseOf(*enumeration, caseName);
  }
  return std::nullopt;
}

}  // namespace

std::optional<ResolvedIcon> resolveIcon(std::string_view text) {
  if (auto icon = method(text)) return icon;
  if (auto icon = iconType(text)) return icon;
  return qualifiedCase(text);
}

}  // namespace glyphwright
