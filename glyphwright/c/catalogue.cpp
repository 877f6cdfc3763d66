#include <glyphwright/c/boundary.h>
#include <glyphwright/catalogue/icon_tab.h>
#include <glyphwright/catalogue/keywords.h>
#include <glyphwright/catalogue/search.h>
#include <glyphwright/paths/method_names.h>

// All names are literals: each is followed by the zero byte that C wants.
using namespace glyphwright;

namespace {

// The sections of a tab; none of a tab that does not exist.
std::vector<IconTypeSection> sectionsOf(std::size_t tab) {
  if (tab >= IconTab::allCases.size()) return {};
  return IconTab::allCases[tab].tab().sections();
}

// Runs something that may run out of memory; then `otherwise`.
template <typename Body, typename Result>
Result quietly(Result otherwise, const Body& body) noexcept {
  try {
    return body();
  } catch (...) {
    return otherwise;
  }
}

glyphwright_icon iconOf(std::string_view method) {
  glyphwright_icon icon{};
  icon.method = method.data();
  icon.keywords = "";
  if (const auto position = iconMethodIndex.find(method)) {
    icon.has_drawing = 1;
    icon.keywords = iconKeywords[*position].keywords.data();
  }
  return icon;
}

}  // namespace

size_t glyphwright_icon_count(void) {
  return iconMethodCount;
}

glyphwright_status glyphwright_icon_info(size_t index, glyphwright_icon* icon) {
  return c::guarded(nullptr, [&] {
    if (index >= iconMethodCount) c::refuse("there are fewer icons");
    c::give(icon, "icon", iconOf(iconMethodNames[index]));
  });
}

size_t glyphwright_tab_count(void) {
  return IconTab::allCases.size();
}

const char* glyphwright_tab_title(size_t tab) {
  return tab < IconTab::allCases.size() ? IconTab::allCases[tab].tab().title().data() : nullptr;
}

size_t glyphwright_section_count(size_t tab) {
  return quietly(std::size_t{0}, [&] { return sectionsOf(tab).size(); });
}

const char* glyphwright_section_title(size_t tab, size_t section) {
  return quietly(static_cast<const char*>(nullptr), [&]() -> const char* {
    const std::vector<IconTypeSection> sections = sectionsOf(tab);
    // Each section is one enumeration, whose title is its heading.
    return section < sections.size() ? sections[section].paths.front().title().data() : nullptr;
  });
}

size_t glyphwright_case_count(size_t tab, size_t section) {
  return quietly(std::size_t{0}, [&] {
    const std::vector<IconTypeSection> sections = sectionsOf(tab);
    return section < sections.size() ? sections[section].paths.size() : 0;
  });
}

glyphwright_status glyphwright_case_info(size_t tab, size_t section, size_t index,
                                         glyphwright_icon* icon) {
  return c::guarded(nullptr, [&] {
    const std::vector<IconTypeSection> sections = sectionsOf(tab);
    if (section >= sections.size() || index >= sections[section].paths.size()) {
      c::refuse("the catalogue has no such case");
    }
    const Pathable& value = sections[section].paths[index];
    glyphwright_icon known = iconOf(value.rawValue());
    known.name = value.name().data();
    known.enumeration = value.enumerationName().data();
    c::give(icon, "icon", known);
  });
}

glyphwright_status glyphwright_search(const char* words, size_t capacity, const char** names,
                                      uint8_t* guesses, size_t* count) {
  return c::guarded(nullptr, [&] {
    c::given(words, "words");
    c::given(count, "count");
    if (capacity > 0) c::given(names, "names");
    const std::vector<SearchHit> hits = searchIcons(words, capacity);
    for (std::size_t i = 0; i < hits.size(); ++i) {
      names[i] = hits[i].name.data();
      if (guesses != nullptr) guesses[i] = hits[i].isGuess ? 1 : 0;
    }
    *count = hits.size();
  });
}
