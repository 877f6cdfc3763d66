#include "gallery_page.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

#include <glyphwright/bezier_path.h>
#include <glyphwright/catalogue/catalogue.h>
#include <glyphwright/catalogue/icon_tab.h>
#include <glyphwright/catalogue/icon_type.h>
#include <glyphwright/catalogue/icons.h>
#include <glyphwright/paths/method_names.h>
#include <glyphwright/paths/registry.h>

#include "page_frame.h"
#include "path_text.h"

namespace glyphwright::cli {
namespace {

std::string dotted(std::string_view enumeration, std::string_view name) {
  return std::string(enumeration).append(".").append(name);
}

/// The other names of an icon's drawing.
std::string iconsNameOf(std::string_view method) {
  const auto icon = Icons::fromRawValue(method);
  return icon ? dotted(Icons::enumeration.name, icon->name()) : std::string();
}

std::string typeOf(std::string_view method) {
  const auto found = std::ranges::find(iconTypes, method, &IconTypeRecord::method);
  if (found == iconTypes.end()) return {};
  return std::to_string(static_cast<std::int64_t>(found->type));
}

std::string caseNameOf(std::string_view method) {
  for (const EnumerationRecord* enumeration : catalogueEnumerations) {
    for (const CaseRecord& record : enumeration->cases) {
      if (record.rawValue == method) return dotted(enumeration->name, record.name);
    }
  }
  return std::string(method);
}

std::string frameText(CGSize size) {
  return shortened(size.width) + " × " + shortened(size.height);
}

/// What a program in C++ writes for the icon.
std::string spelledInCpp(std::string_view name, std::string_view method) {
  if (name == method) return "UIBezierPath::" + std::string(method) + "()";
  std::string spelled;
  for (const char c : name) spelled += c == '.' ? std::string("::") : std::string(1, c);
  return spelled;
}

/// `name` is the qualified case, or the method where there is none.
std::string card(std::string_view name, std::string_view method) {
  const std::string_view shortName = name.substr(name.rfind('.') + 1);
  const ClassMethod builder = findClassMethod(method);
  std::string html =
      "<li class=\"card\"" + attribute("data-name", name) + attribute("data-method", method) +
      attribute("data-icons", iconsNameOf(method)) + attribute("data-type", typeOf(method));
  std::string picture;
  std::string frame;
  if (builder == nullptr) {
    html += '>';
    picture = "<span class=\"picture none\">no drawing</span>";
  } else {
    const UIBezierPath path = builder();
    frame = frameText(path.bounds().size);
    html += attribute("data-frame", frame) +
            attribute("data-rule", path.usesEvenOddFillRule() ? "even-odd" : "non-zero") +
            attribute("data-elements", std::to_string(path.cgPath().verbs().size())) + '>';
    picture = "<button type=\"button\" class=\"picture\"" + attribute("aria-label", shortName) +
              '>' + svgElement(path, {.attributes = " aria-hidden=\"true\""}) + "</button>";
  }
  html += picture + "<button type=\"button\" class=\"name\" tabindex=\"-1\"" +
          attribute("data-copy", spelledInCpp(name, method)) +
          attribute("title", "Copy " + spelledInCpp(name, method)) + '>' + breakable(shortName) +
          "</button><span class=\"meta\">";
  if (method != shortName) html += "<b>" + breakable(method) + "</b>";
  return html + frame + "</span></li>\n";
}

struct Section {
  std::string title;
  std::vector<std::string> cards;
};

struct Tab {
  std::string id;
  std::string title;
  std::string note;
  std::vector<Section> sections;

  std::size_t count() const {
    std::size_t sum = 0;
    for (const Section& section : sections) sum += section.cards.size();
    return sum;
  }
};

std::vector<Tab> tabsOfThePage() {
  std::vector<Tab> tabs;
  std::vector<std::string_view> listed;
  for (const IconTab key : IconTab::allCases) {
    Tab tab{std::string(key.rawValue()), std::string(key.tab().title()), {}, {}};
    for (const IconTypeSection& section : key.tab().sections()) {
      tab.sections.push_back({section.title, {}});
      for (const Pathable& icon : section.paths) {
        listed.push_back(icon.rawValue());
        tab.sections.back().cards.push_back(
            card(dotted(icon.enumerationName(), icon.name()), icon.rawValue()));
      }
    }
    tabs.push_back(std::move(tab));
  }
  Section rest{"Methods", {}};
  for (const std::string_view method : iconMethodNames) {
    if (std::ranges::find(listed, method) != listed.end()) continue;
    rest.cards.push_back(card(caseNameOf(method), method));
  }
  tabs.push_back({"methods",
                  "Remaining methods",
                  "Drawings that no section lists: reached by their method, by Icons or by number.",
                  {std::move(rest)}});
  return tabs;
}

std::string navigation(const std::vector<Tab>& tabs) {
  std::string html;
  for (const Tab& tab : tabs) {
    html += "<a href=\"#" + tab.id + "\">" + escaped(tab.title) + " <small>" +
            std::to_string(tab.count()) + "</small></a>\n";
  }
  return html;
}

std::string content(const std::vector<Tab>& tabs) {
  std::string html;
  for (const Tab& tab : tabs) {
    html += "<section class=\"tab\"" + attribute("id", tab.id) +
            attribute("data-title", tab.title) + "><h2>" + escaped(tab.title) + "</h2>\n";
    if (!tab.note.empty()) html += "<p>" + escaped(tab.note) + "</p>\n";
    for (const Section& section : tab.sections) {
      html += "<section class=\"section\"" + attribute("data-title", section.title) + "><h3>" +
              escaped(section.title) + " <small>" + std::to_string(section.cards.size()) +
              "</small></h3>\n<ul class=\"grid\">\n";
      for (const std::string& one : section.cards) html += one;
      html += "</ul></section>\n";
    }
    html += "</section>\n";
  }
  return html;
}

constexpr std::string_view footer =
    "Press <kbd>/</kbd> to search, <kbd>?</kbd> for all keys. Click a name to copy it, a drawing "
    "to "
    "look closer. All icons at a glance: <a href=\"sheet.png\">contact sheet</a>. Of several "
    "colours: <a href=\"paintings.html\">ready-made images</a>. In motion: "
    "<a href=\"animations.html\">animations</a>.";

}  // namespace

std::string galleryPage(std::string module) {
  const std::vector<Tab> tabs = tabsOfThePage();
  const std::string searchLabel = "Search " + std::to_string(iconMethodCount) + " icons";
  return framedPage({.title = "Glyphwright icons",
                     .kind = {},
                     .searchLabel = searchLabel,
                     .navigation = navigation(tabs),
                     .content = content(tabs),
                     .footer = footer,
                     .module = std::move(module)});
}

}  // namespace glyphwright::cli
