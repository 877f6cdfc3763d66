#include "list_command.h"

#include <iomanip>
#include <string>
#include <string_view>

#include <nlohmann/json.hpp>

#include <glyphwright/catalogue/catalogue.h>
#include <glyphwright/catalogue/icon_tab.h>
#include <glyphwright/catalogue/icon_type.h>
#include <glyphwright/catalogue/icons.h>
#include <glyphwright/catalogue/keywords.h>
#include <glyphwright/catalogue/words.h>
#include <glyphwright/paths/method_names.h>

namespace glyphwright::cli {

using Json = nlohmann::ordered_json;

namespace {

Json tabsJson() {
  Json tabs = Json::array();
  for (const IconTab key : IconTab::allCases) {
    Json sections = Json::array();
    for (const IconTypeSection& section : key.tab().sections()) {
      Json cases = Json::array();
      for (const Pathable& icon : section.paths) {
        cases.push_back({{"name", icon.name()}, {"rawValue", icon.rawValue()}});
      }
      sections.push_back({{"title", section.title}, {"cases", std::move(cases)}});
    }
    tabs.push_back(
        {{"key", key.rawValue()}, {"title", key.tab().title()}, {"sections", std::move(sections)}});
  }
  return tabs;
}

Json enumerationsJson() {
  Json enumerations = Json::array();
  for (const EnumerationRecord* enumeration : catalogueEnumerations) {
    Json cases = Json::array();
    for (const CaseRecord& record : enumeration->cases) {
      cases.push_back({{"name", record.name}, {"rawValue", record.rawValue}});
    }
    enumerations.push_back(
        {{"name", enumeration->name}, {"title", enumeration->title}, {"cases", std::move(cases)}});
  }
  return enumerations;
}

Json keywordsJson() {
  Json keywords = Json::object();
  for (const KeywordRecord& record : iconKeywords) {
    keywords[std::string(record.name)] = splitWords(record.keywords);
  }
  return keywords;
}

}  // namespace

Json catalogueJson() {
  Json icons = Json::array();
  for (const Icons icon : Icons::allCases) {
    icons.push_back(
        {{"index", icon.index()}, {"name", icon.name()}, {"rawValue", icon.rawValue()}});
  }
  Json types = Json::array();
  for (const IconTypeRecord& type : iconTypes) {
    types.push_back({{"value", static_cast<std::int64_t>(type.type)}, {"method", type.method}});
  }
  Json methods = Json::array();
  for (const std::string_view name : iconMethodNames) methods.push_back(name);
  return {{"tabs", tabsJson()},
          {"enumerations", enumerationsJson()},
          {"icons", std::move(icons)},
          {"types", std::move(types)},
          {"methods", std::move(methods)},
          {"keywords", keywordsJson()}};
}

namespace {

void writeRow(std::ostream& out, std::string_view name, std::string_view method) {
  constexpr int nameWidth = 46;
  out << "    " << std::left << std::setw(nameWidth) << name << ' ' << method << '\n';
}

void writeText(std::ostream& out) {
  for (const IconTab key : IconTab::allCases) {
    const GlyphwrightIconType tab = key.tab();
    out << tab.title() << '\n';
    for (const IconTypeSection& section : tab.sections()) {
      out << "  " << section.title << '\n';
      for (const Pathable& icon : section.paths) {
        const std::string name =
            std::string(icon.enumerationName()).append(".").append(icon.name());
        writeRow(out, name, icon.rawValue());
      }
    }
  }
  out << "In no section\n";
  for (const App::Shapes::Triangles icon : App::Shapes::Triangles::allCases) {
    writeRow(out, std::string("App.Shapes.Triangles.").append(icon.name()), icon.rawValue());
  }
  out << "Icons\n";
  for (const Icons icon : Icons::allCases) {
    writeRow(out, std::string("Icons.").append(icon.name()), icon.rawValue());
  }
  out << "Integer types\n";
  for (const IconTypeRecord& type : iconTypes) {
    writeRow(out, std::to_string(static_cast<std::int64_t>(type.type)), type.method);
  }
  out << "Methods\n";
  for (const std::string_view name : iconMethodNames) out << "    " << name << '\n';
}

}  // namespace

int runList(const ListOptions& options, Console& console) {
  if (options.json) {
    console.out << catalogueJson().dump(2) << '\n';
  } else {
    writeText(console.out);
  }
  return statusDone;
}

}  // namespace glyphwright::cli
