#pragma once

#include <string_view>

namespace glyphwright::cli {

// The files of web/, put into the program when it is built.
extern const std::string_view galleryHtml;
extern const std::string_view galleryCss;
extern const std::string_view galleryJs;

}  // namespace glyphwright::cli
