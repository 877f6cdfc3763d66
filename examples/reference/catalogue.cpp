// Finds icons: by browsing, by words, by a name somebody typed, by number; and draws what it found.

#include <glyphwright/catalogue/keywords.h>
#include <glyphwright/catalogue/search.h>
#include <glyphwright/glyphwright.h>

#include <vector>

#include "../cookbook/png.h"

using namespace glyphwright;

namespace {

/// All cases of one enumeration; works for any that is in the catalogue (CatalogueEnumeration), for
/// each derives from IconEnumeration, and that from EnumerationValue.
template <CatalogueEnumeration Cases>
void addAll(std::vector<UIBezierPath>& icons) {
  for (const Cases icon : Cases::allCases) {
    if (icon.hasDrawing()) icons.push_back(icon.path());
  }
}

}  // namespace

int main() {
  std::vector<UIBezierPath> icons;
  addAll<App::Shapes::Checks>(icons);

  const GlyphwrightIconType tab = IconTab::videoChat.tab();
  for (const IconTypeSection& section : tab.sections()) {
    if (section.title == "Call") icons.push_back(section.paths.front().path());
  }
  for (const SearchHit& hit : searchIcons("thumbs down heart", 2)) {
    if (const auto found = resolveIcon(hit.name)) icons.push_back(found->builder());
  }
  const std::optional<ResolvedIcon> typed = resolveIcon("App.Things.gear");
  if (!typed || typed->builder == nullptr) return 1;
  icons.push_back(typed->builder());
  const IconTypeRecord& numbered = iconTypes[7];
  icons.push_back(*UIBezierPath::pathForIcon(numbered.type));
  for (const KeywordRecord& words : iconKeywords) {
    if (!words.isImage() && words.keywords.find("lightning") != words.keywords.npos) {
      icons.push_back(resolveIcon(words.name)->builder());
      break;
    }
  }
  // What all cases share stands in the EnumerationRecord: the name, the title, a CaseRecord each.
  const EnumerationRecord& record = App::Shapes::Checks::enumeration;
  if (record.name != "App.Shapes.Checks" || record.cases.size() != 3) return 1;

  const UIGraphicsImageRenderer renderer({CGFloat(icons.size()) * 40, 40});
  const UIImage row = renderer.image([&](const UIGraphicsImageRendererContext&) {
    for (std::size_t i = 0; i < icons.size(); ++i) {
      icons[i]
          .makeImage(plainLook({32, 32}, UIColor(0.2, 0.2, 0.3, 1)))
          .drawAtPoint({CGFloat(i) * 40 + 4, 4});
    }
  });
  return cookbook::writePng("catalogue.png", row.cgImage()) ? 0 : 1;
}
