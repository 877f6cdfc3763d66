#include <glyphwright/glyphwright.h>
#include <glyphwright/paths/registry.h>

#include <cmath>
#include <vector>

#include "png.h"

using namespace glyphwright;

int main() {
  std::vector<UIBezierPath> icons;
  for (const IconTypeSection& section : IconTab::recs.tab().sections()) {
    for (const Pathable& icon : section.paths) {
      // A case may name a method that nobody has drawn.
      if (findClassMethod(icon.rawValue()) != nullptr) icons.push_back(icon.path());
    }
  }

  constexpr std::size_t columns = 8;
  constexpr CGFloat cell = 48;
  const std::size_t rows = (icons.size() + columns - 1) / columns;
  const UIGraphicsImageRenderer renderer({columns * cell, CGFloat(rows) * cell});
  const UIImage sheet = renderer.image([&](const UIGraphicsImageRendererContext&) {
    for (std::size_t i = 0; i < icons.size(); ++i) {
      const UIImage icon = icons[i].makeImage({.fillColor = UIColor(0.2, 0.2, 0.3, 1),
                                               .backgroundColor = UIColor::clearColor(),
                                               .stroke = IconStroke(UIColor::clearColor(), 0),
                                               .size = {32, 32}});
      icon.drawAtPoint({CGFloat(i % columns) * cell + 8, CGFloat(i / columns) * cell + 8});
    }
  });
  return cookbook::writePng("icons_of_a_tab.png", sheet.cgImage()) ? 0 : 1;
}
