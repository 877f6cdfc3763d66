#include "page_frame.h"

#include <cstdint>
#include <map>
#include <stdexcept>

#include <nlohmann/json.hpp>

#include <glyphwright/bezier_path.h>
#include <glyphwright/paths/method_names.h>

#include "list_command.h"
#include "numbers.h"
#include "path_text.h"
#include "web_sources.h"

namespace glyphwright::cli {
namespace {

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

/// What the page's search and details read of the catalogue: of images, nothing but their keywords.
std::string searchedCatalogue(bool ofImages) {
  nlohmann::ordered_json catalogue = catalogueJson();
  for (const char* unread : {"tabs", "methods"}) catalogue.erase(unread);
  if (ofImages) {
    for (const char* unread : {"enumerations", "icons", "types"}) {
      catalogue[unread] = nlohmann::ordered_json::array();
    }
    nlohmann::ordered_json& keywords = catalogue["keywords"];
    for (const std::string_view method : iconMethodNames) keywords.erase(std::string(method));
  }
  return catalogue.dump();
}

}  // namespace

std::string framedPage(const PageFrame& frame) {
  return filled(
      galleryHtml,
      {{"title", std::string(frame.title)},
       {"kind", std::string(frame.kind)},
       {"style", std::string(galleryCss)},
       {"mark", svgElement(UIBezierPath::flamePath(), {.attributes = " aria-hidden=\"true\""})},
       {"searchLabel", std::string(frame.searchLabel)},
       {"navigation", frame.navigation},
       {"content", frame.content},
       {"footer", std::string(frame.footer)},
       {"catalogue", searchedCatalogue(!frame.kind.empty())},
       {"module", frame.module}});
}

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

std::string shortened(double length) {
  return textOf(static_cast<double>(static_cast<std::int64_t>(length * 100 + 0.5)) / 100);
}

}  // namespace glyphwright::cli
