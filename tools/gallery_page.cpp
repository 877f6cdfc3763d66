#include "gallery_page.h"

#include <algorithm>
#include <map>
#include <stdexcept>
#include <string_view>
#include <vector>

#include <glyphwright/bezier_path.h>
#include <glyphwright/catalogue/catalogue.h>
#include <glyphwright/catalogue/icon_tab.h>
#include <glyphwright/catalogue/icon_type.h>
#include <glyphwright/catalogue/icons.h>
#include <glyphwright/paths/method_names.h>
#include <glyphwright/paths/registry.h>

#include "numbers.h"
#include "path_text.h"
#include "web_sources.h"

namespace glyphwright::cli {
namespace {

std::string escaped(std::string_view text) {
  std::string result;
  for (const char c : text) {
    switch (c) {
      case '&':
        result += "&amp;";
        break;
      case '<':
        result += "&lt;";
        break;
      case '>':
        result += "&gt;";
        break;
      case '"':
        result += "&quot;";
        break;
      default:
        result += c;
    }
  }
  return result;
}

/// The name with places where a line may break before each capital that follows a small letter.
std::string breakable(std::string_view name) {
  std::string html;
  for (std::size_t i = 0; i < name.size(); ++i) {
    const bool capital = name[i] >= 'A' && name[i] <= 'Z';
    if (i > 0 && capital && name[i - 1] >= 'a' && name[i - 1] <= 'z') html += "<wbr>";
    html += name[i];
  }
  return html;
}

std::string attribute(std::string_view name, std::string_view value) {
  if (value.empty()) return {};
  return ' ' + std::string(name) + "=\"" + escaped(value) + '"';
}

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

/// A size to be read by people: at most two decimals.
std::string frameText(CGSize size) {
  const auto rounded = [](CGFloat length) {
    return textOf(static_cast<double>(static_cast<std::int64_t>(length * 100 + 0.5)) / 100);
  };
  return rounded(size.width) + " × " + rounded(size.height);
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
    picture = "<button type=\"button\" class=\"picture\"" +
              attribute("aria-label", "Details of " + std::string(shortName)) + '>' +
              svgElement(path, {.attributes = " aria-hidden=\"true\""}) + "</button>";
  }
  html += picture + "<button type=\"button\" class=\"name\" title=\"Copy the name\"" +
          attribute("data-copy", name) + '>' + breakable(shortName) +
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

/// The template with each `{{name}}` replaced; what is put in is not searched again.
std::string filled(std::string_view page, const std::map<std::string_view, std::string>& values) {
  std::string result;
  for (;;) {
    const std::size_t open = page.find("{{");
    result += page.substr(0, open);
    if (open == std::string_view::npos) return result;
    const std::size_t close = page.find("}}", open);
    const auto value = values.find(page.substr(open + 2, close - open - 2));
    if (value == values.end()) throw std::logic_error("the page asks for an unknown piece");
    result += value->second;
    page.remove_prefix(close + 2);
  }
}

}  // namespace

std::string galleryPage() {
  const std::vector<Tab> tabs = tabsOfThePage();
  return filled(
      galleryHtml,
      {{"style", std::string(galleryCss)},
       {"script", std::string(galleryJs)},
       {"mark", svgElement(UIBezierPath::flamePath(), {.attributes = " aria-hidden=\"true\""})},
       {"count", std::to_string(iconMethodCount)},
       {"navigation", navigation(tabs)},
       {"content", content(tabs)}});
}

}  // namespace glyphwright::cli
