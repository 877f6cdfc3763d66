#include "paintings_page.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "numbers.h"
#include "page_frame.h"

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

std::string PaintingLook::inCpp() const {
  std::string call;
  for (const char c : preset->name) call += c == '.' ? std::string("::") : std::string(1, c);
  call += '(';
  if (preset->usualSize) {
    call += '{' + textOf(preset->usualSize->width) + ", " + textOf(preset->usualSize->height) + '}';
  }
  if (preset->takesFlags) {
    for (const bool flag : {arguments.selected, arguments.withBackground}) {
      call += flag ? ", true" : ", false";
    }
  }
  if (preset->takesBackgroundColor) call += ", UIColor::clearColor()";
  return call + ')';
}

std::string PaintingLook::command() const {
  return "glyphwright preset " + std::string(preset->name) +
         (arguments.selected ? " --selected" : "") +
         (arguments.withBackground ? " --with-background" : "") + " --scale 2 -o " + fileName() +
         ".png";
}

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
