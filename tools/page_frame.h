#pragma once

#include <string>
#include <string_view>

namespace glyphwright::cli {

/// What sets one page of the gallery apart from the others.
struct PageFrame {
  std::string_view title;
  /// The class of the body; empty for the page of the icons.
  std::string_view kind;
  std::string_view searchLabel;
  std::string navigation;
  std::string content;
  std::string_view footer;
  /// The element with the library's compressed module; empty where the page does without.
  std::string module;
};

/// The whole document: header with search, content and the catalogue that the script searches,
/// which both pages load from `gallery.js` beside them.
std::string framedPage(const PageFrame& frame);

/// The text with &, <, > and " as HTML wants them.
std::string escaped(std::string_view text);
/// The name with places where a line may break before each capital that follows a small letter.
std::string breakable(std::string_view name);
/// ` name="value"`, or nothing without a value.
std::string attribute(std::string_view name, std::string_view value);
/// At most two decimals.
std::string shortened(double length);

}  // namespace glyphwright::cli
