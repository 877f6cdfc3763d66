#pragma once

#include <string>

namespace glyphwright::cli {

/// The page to browse the catalogue: tabs, sections and cases in catalogue order, then the methods
/// that no section lists. One HTML document that loads nothing.
std::string galleryPage();

}  // namespace glyphwright::cli
