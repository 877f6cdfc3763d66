#include "paintings_page.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "numbers.h"
#include "page_frame.h"
#include "painting_looks.h"

namespace glyphwright::cli {
namespace {

std::string_view spaceOf(std::string_view name) {
  return name.substr(0, name.rfind('.'));
}

std::string_view shortNameOf(std::string_view name) {
  return name.substr(name.rfind('.') + 1);
}

/// One picture at `zoom` times its own size.
std::string picture(const PaintingLook& look, CGSize size, CGFloat zoom) {
  return "<img src=\"paintings/" + look.fileName() + ".png\" alt=\"\" width=\"" +
         shortened(size.width * zoom) + "\" height=\"" + shortened(size.height * zoom) + "\">";
}

std::string card(const PaintingLook& look) {
  const CGSize size = look.preset->draw(look.arguments).size();
  // At its own size and, where there is room beside it, enlarged.
  constexpr CGFloat room = 132;
  const CGFloat beside = std::min((room - size.width) / size.width, 3.0);
  const std::string pictures = beside > 1.5 ? picture(look, size, 1) + picture(look, size, beside)
                                            : picture(look, size, 1.75);
  const std::string name(look.preset->name);
  const std::string file = look.fileName() + ".png";
  std::string html = "<li class=\"card painting\"" + attribute("data-name", name) +
                     attribute("data-method", name) + "><div class=\"pair\"><div class=\"light\">" +
                     pictures + "</div><div class=\"dark\">" + pictures +
                     "</div></div><button type=\"button\" class=\"name\"" +
                     attribute("data-copy", look.inCpp()) +
                     attribute("title", "Copy " + look.inCpp()) + '>' +
                     breakable(shortNameOf(name)) + "</button><span class=\"meta\">";
  if (!look.look.empty()) html += look.look + " · ";
  html += textOf(size.width) + " × " + textOf(size.height) +
          (look.preset->usualSize ? ", size chosen by the caller" : "");
  return html + "</span><span class=\"take\"><a class=\"pill\" download" +
         attribute("href", "paintings/" + file) +
         attribute("aria-label", "PNG of " + look.fileName()) +
         ">PNG</a><button type=\"button\" class=\"pill\"" + attribute("data-copy", look.command()) +
         attribute("aria-label", "Copy command for " + look.fileName()) +
         ">Copy command</button></span></li>\n";
}

}  // namespace

std::string paintingsPage() {
  std::string content = "<div class=\"tab\" id=\"all\">\n";
  std::string_view space;
  for (const PaintingLook& look : allPaintingLooks()) {
    if (spaceOf(look.preset->name) != space) {
      if (!space.empty()) content += "</ul></section>\n";
      space = spaceOf(look.preset->name);
      content += "<section class=\"section\"><h2>" + std::string(space) +
                 "</h2>\n<ul class=\"paintings\">\n";
    }
    content += card(look);
  }
  content += "</ul></section>\n</div>\n";
  return framedPage(
      {.title = "Glyphwright ready-made images",
       .kind = "paintings-page",
       .searchLabel = "Search ready-made images",
       .navigation = "<a href=\"index.html\">← All icons</a>\n",
       .content = std::move(content),
       .footer = "Click a name to copy its call in C++. The PNG has three pixels a point.",
       .module = {}});
}

}  // namespace glyphwright::cli
