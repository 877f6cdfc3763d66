#include "paintings_page.h"

#include <algorithm>
#include <cstdint>
#include <string_view>

#include "numbers.h"
#include "web_sources.h"

namespace glyphwright::cli {
namespace {

constexpr std::string_view kStyle = R"(
.top a { color: var(--quiet); }
.paintings { display: grid; grid-template-columns: repeat(auto-fill, minmax(20rem, 1fr)); gap: .8rem; margin: 0; padding: 0; list-style: none; }
.painting { overflow: hidden; background: var(--card); border: 1px solid var(--line); border-radius: var(--radius); }
.painting .pair { display: grid; grid-template-columns: 1fr 1fr; }
.painting .pair div { display: flex; align-items: center; justify-content: space-evenly; gap: .5rem; height: 10rem; padding: .5rem; }
.painting .light { background: #e9ebf0; }
.painting .dark { background: #1c1e24; }
.painting p { margin: 0; padding: .6rem .9rem; overflow-wrap: anywhere; }
.painting small { display: block; color: var(--quiet); }
)";

std::string_view spaceOf(std::string_view name) {
  return name.substr(0, name.rfind('.'));
}

std::string_view shortNameOf(std::string_view name) {
  return name.substr(name.rfind('.') + 1);
}

/// At most two decimals.
std::string shortened(CGFloat length) {
  return textOf(static_cast<double>(static_cast<std::int64_t>(length * 100 + 0.5)) / 100);
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
  std::string html = "<li class=\"painting\"><div class=\"pair\"><div class=\"light\">" + pictures +
                     "</div><div class=\"dark\">" + pictures + "</div></div><p>" +
                     std::string(shortNameOf(look.preset->name)) + "<small>";
  if (!look.look.empty()) html += look.look + " · ";
  return html + textOf(size.width) + " × " + textOf(size.height) +
         (look.preset->usualSize ? ", size chosen by the caller" : "") + "</small></p></li>\n";
}

}  // namespace

std::string PaintingLook::fileName() const {
  std::string name(preset->name);
  if (!look.empty()) name += '-';
  for (const char c : look) {
    if (c != ',') name += c == ' ' ? '-' : c;
  }
  return name;
}

std::vector<PaintingLook> allPaintingLooks() {
  std::vector<PaintingLook> looks;
  for (const Preset& preset : allPresets()) {
    PresetArguments arguments;
    arguments.size = preset.usualSize.value_or(CGSize{});
    if (preset.takesFlags) {
      for (const bool background : {true, false}) {
        for (const bool selected : {false, true}) {
          arguments.selected = selected;
          arguments.withBackground = background;
          looks.push_back({&preset, arguments,
                           std::string(selected ? "selected" : "normal") +
                               (background ? ", on its disc" : "")});
        }
      }
    } else {
      looks.push_back({&preset, arguments, {}});
    }
  }
  return looks;
}

std::string paintingsPage() {
  std::string html =
      "<!doctype html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
      "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
      "<meta name=\"color-scheme\" content=\"light dark\">\n"
      "<title>Glyphwright ready-made images</title>\n<style>\n";
  html += galleryCss;
  html += kStyle;
  html +=
      "</style>\n</head>\n<body>\n<header class=\"top\"><h1><span>Ready-made images</span></h1>"
      "<a href=\"index.html\">All icons</a></header>\n<main>\n<div class=\"tab\">\n";
  std::string_view space;
  for (const PaintingLook& look : allPaintingLooks()) {
    if (spaceOf(look.preset->name) != space) {
      if (!space.empty()) html += "</ul></section>\n";
      space = spaceOf(look.preset->name);
      html += "<section class=\"section\"><h3>" + std::string(space) +
              "</h3>\n<ul class=\"paintings\">\n";
    }
    html += card(look);
  }
  return html + "</ul></section>\n</div>\n</main>\n</body>\n</html>\n";
}

}  // namespace glyphwright::cli
