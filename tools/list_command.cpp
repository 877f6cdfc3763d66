#include "list_command.h"

#include <algorithm>
#include <iomanip>
#include <iterator>
#include <span>
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

#include "glob.h"

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

/// Which names were asked for.
class NameFilter {
 public:
  explicit NameFilter(const std::vector<std::string>& words) {
    for (const std::string& word : words)
      globs_.emplace_back(isGlob(word) ? word : '*' + word + '*');
  }

  bool fits(std::string_view name) const {
    return globs_.empty() ||
           std::ranges::any_of(globs_, [&](const Glob& glob) { return glob.matches(name); });
  }
  bool isOpen() const { return globs_.empty(); }

 private:
  std::vector<Glob> globs_;
};

struct Row {
  std::string name;
  std::string_view method;
};

/// Headings and rows; what is left of them after filtering is written.
class Listing {
 public:
  Listing(std::ostream& out, const NameFilter& filter) : out_(out), filter_(filter) {}

  /// Stands until one of its own level, 0 or 1, follows.
  void heading(std::size_t level, std::string_view text) {
    pending_.resize(level);
    pending_.emplace_back(text);
  }

  void row(const std::string& name, std::string_view method) {
    if (!filter_.fits(name) && !filter_.fits(method)) return;
    constexpr int nameWidth = 46;
    writeHeadings();
    out_ << "    " << std::left << std::setw(nameWidth) << name << ' ' << method << '\n';
  }

  /// In as many columns as there is room for.
  void names(std::span<const std::string_view> all, std::size_t width) {
    std::vector<std::string_view> fitting;
    std::ranges::copy_if(all, std::back_inserter(fitting),
                         [&](std::string_view name) { return filter_.fits(name); });
    if (fitting.empty()) return;
    writeHeadings();
    std::size_t longest = 0;
    for (const std::string_view name : fitting) longest = std::max(longest, name.size());
    const std::size_t columns =
        std::max<std::size_t>(1, (std::max(width, std::size_t{4}) - 4 + 2) / (longest + 2));
    const std::size_t rows = (fitting.size() + columns - 1) / columns;
    for (std::size_t row = 0; row < rows; ++row) {
      std::string line = "    ";
      for (std::size_t i = row; i < fitting.size(); i += rows) {
        line.append(fitting[i]);
        if (i + rows < fitting.size()) line.append(longest + 2 - fitting[i].size(), ' ');
      }
      out_ << line << '\n';
    }
  }

  bool isEmpty() const { return isEmpty_; }

 private:
  void writeHeadings() {
    isEmpty_ = false;
    for (std::size_t level = 0; level < pending_.size(); ++level) {
      if (!pending_[level].empty()) out_ << std::string(2 * level, ' ') << pending_[level] << '\n';
      pending_[level].clear();
    }
  }

  std::ostream& out_;
  const NameFilter& filter_;
  std::vector<std::string> pending_;
  bool isEmpty_ = true;
};

void writeCatalogue(Listing& listing, std::size_t width) {
  for (const IconTab key : IconTab::allCases) {
    const GlyphwrightIconType tab = key.tab();
    listing.heading(0, tab.title());
    for (const IconTypeSection& section : tab.sections()) {
      listing.heading(1, section.title);
      for (const Pathable& icon : section.paths) {
        listing.row(std::string(icon.enumerationName()).append(".").append(icon.name()),
                    icon.rawValue());
      }
    }
  }
  listing.heading(0, "In no section");
  for (const App::Shapes::Triangles icon : App::Shapes::Triangles::allCases) {
    listing.row(std::string("App.Shapes.Triangles.").append(icon.name()), icon.rawValue());
  }
  listing.heading(0, "Icons");
  for (const Icons icon : Icons::allCases) {
    listing.row(std::string("Icons.").append(icon.name()), icon.rawValue());
  }
  listing.heading(0, "Integer types");
  for (const IconTypeRecord& type : iconTypes) {
    listing.row(std::to_string(static_cast<std::int64_t>(type.type)), type.method);
  }
  listing.heading(0, "Methods");
  listing.names(iconMethodNames, width);
}

bool fits(const Json& entry, const std::string& enumeration, const NameFilter& filter) {
  const auto field = [&](const char* key) { return entry.value(key, std::string()); };
  if (entry.is_string()) return filter.fits(entry.get<std::string>());
  return (entry.contains("name") && filter.fits(enumeration + field("name"))) ||
         filter.fits(field("rawValue")) || filter.fits(field("method"));
}

/// Keeps the entries that fit.
void keep(Json& entries, const std::string& enumeration, const NameFilter& filter) {
  Json kept = Json::array();
  for (const Json& entry : entries) {
    if (fits(entry, enumeration, filter)) kept.push_back(entry);
  }
  entries = std::move(kept);
}

/// The same catalogue with what fits; groups that are left with nothing go.
Json filtered(Json catalogue, const NameFilter& filter) {
  const auto dropEmpty = [](Json& groups, const char* list) {
    Json kept = Json::array();
    for (const Json& group : groups) {
      if (!group.at(list).empty()) kept.push_back(group);
    }
    groups = std::move(kept);
  };
  for (Json& tab : catalogue["tabs"]) {
    for (Json& section : tab["sections"]) keep(section["cases"], "", filter);
    dropEmpty(tab["sections"], "cases");
  }
  dropEmpty(catalogue["tabs"], "sections");
  for (Json& enumeration : catalogue["enumerations"]) {
    keep(enumeration["cases"], enumeration["name"].get<std::string>() + '.', filter);
  }
  dropEmpty(catalogue["enumerations"], "cases");
  keep(catalogue["icons"], "Icons.", filter);
  keep(catalogue["types"], "", filter);
  keep(catalogue["methods"], "", filter);
  Json keywords = Json::object();
  for (const auto& [name, words] : catalogue["keywords"].items()) {
    if (filter.fits(name)) keywords[name] = words;
  }
  catalogue["keywords"] = std::move(keywords);
  return catalogue;
}

}  // namespace

int runList(const ListOptions& options, Console& console) {
  const NameFilter filter(options.words);
  bool isEmpty = false;
  if (options.json) {
    const Json catalogue = filter.isOpen() ? catalogueJson() : filtered(catalogueJson(), filter);
    console.out << catalogue.dump(2) << '\n';
    isEmpty = catalogue.at("enumerations").empty() && catalogue.at("icons").empty() &&
              catalogue.at("methods").empty();
  } else {
    Listing listing(console.out, filter);
    writeCatalogue(listing, console.columns);
    isEmpty = listing.isEmpty();
  }
  if (!isEmpty) return statusDone;
  console.err
      << "glyphwright: no name has this in it; `glyphwright search` finds icons by what they "
         "show\n";
  return statusFailed;
}

}  // namespace glyphwright::cli
