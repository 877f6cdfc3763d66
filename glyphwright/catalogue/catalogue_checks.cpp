// Compile-time checks that the catalogue and the icon methods agree; no code.

#include <algorithm>

#include <glyphwright/catalogue/catalogue.h>
#include <glyphwright/catalogue/icons.h>
#include <glyphwright/catalogue/keywords.h>
#include <glyphwright/paths/method_names.h>

namespace glyphwright {
namespace {

constexpr bool isDrawn(const CaseRecord& record) {
  return isIconMethod(record.rawValue);
}

/// Every raw value names a method, except the one given.
constexpr bool allDrawnExcept(const EnumerationRecord& enumeration, std::string_view rawValue) {
  return std::ranges::all_of(enumeration.cases, [&](const CaseRecord& record) {
    return isDrawn(record) != (record.rawValue == rawValue);
  });
}

constexpr bool distinctRawValues(const EnumerationRecord& enumeration) {
  for (std::size_t i = 0; i < enumeration.cases.size(); ++i) {
    for (std::size_t j = 0; j < i; ++j) {
      if (enumeration.cases[i].rawValue == enumeration.cases[j].rawValue) return false;
    }
  }
  return true;
}

// Two cases have no drawing, and are meant to have none: the cat is an easter egg that only the
// catalogue knows, and the shield of Icons names a method of its own that does not exist (it is not
// shieldIcon).
constexpr std::string_view undrawnInCatalogue = App::Things::magicCatEasterEgg.rawValue();
constexpr std::string_view undrawnInIcons = Icons::shieldIcon.rawValue();
static_assert(undrawnInCatalogue == "magicCatEasterEgg" && !isIconMethod(undrawnInCatalogue));
static_assert(undrawnInIcons == "safetyCenterShield" && !isIconMethod(undrawnInIcons));
static_assert(std::size(detail::kUndrawn) == 2 && !detail::hasDrawing(undrawnInCatalogue) &&
              !detail::hasDrawing(undrawnInIcons));

static_assert(std::ranges::all_of(catalogueEnumerations,
                                  [](const EnumerationRecord* enumeration) {
                                    return allDrawnExcept(*enumeration, undrawnInCatalogue);
                                  }),
              "a raw value of the catalogue names no icon method");
static_assert(allDrawnExcept(Icons::enumeration, undrawnInIcons),
              "a raw value of Icons names no icon method");
static_assert(distinctRawValues(Icons::enumeration) &&
                  std::ranges::all_of(catalogueEnumerations,
                                      [](const EnumerationRecord* enumeration) {
                                        return distinctRawValues(*enumeration);
                                      }),
              "an enumeration has the same raw value twice");

// Every icon has its keywords, in the order of declaration; the images follow.
constexpr bool keywordsFollowTheIcons() {
  for (std::size_t i = 0; i < std::size(iconKeywords); ++i) {
    const bool isImage = i >= iconMethodCount;
    if (iconKeywords[i].isImage() != isImage) return false;
    if (!isImage && iconKeywords[i].name != iconMethodNames[i]) return false;
  }
  return true;
}
static_assert(keywordsFollowTheIcons(), "keywords.inc and icon_names.inc name different icons");

}  // namespace
}  // namespace glyphwright
