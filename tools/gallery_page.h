#pragma once

#include <string>

namespace glyphwright::cli {

/// The page to browse the catalogue: tabs, sections and cases in catalogue order, then the methods
/// that no section lists. One HTML document that loads nothing. `module` holds the element of
/// moduleElement(), with which the page draws by itself, or nothing.
std::string galleryPage(std::string module = {});

}  // namespace glyphwright::cli
