#pragma once

#include <string>

namespace glyphwright::cli {

/// The page that shows the looks on light and dark ground, at their own size and enlarged. Its
/// pictures are `paintings/NAME.png` beside it.
std::string paintingsPage();

}  // namespace glyphwright::cli
