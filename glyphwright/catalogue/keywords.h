#pragma once

#include <string_view>

namespace glyphwright {

/// What an icon or a ready-made image can be found by, beside its names.
struct KeywordRecord {
  /// An icon method ("heartPath") or a ready-made image ("PresetIcons.createLoopPlayIcon").
  std::string_view name;
  /// Two to eight words in lower case with a space between them, the most telling first.
  std::string_view keywords;

  /// The names of images are dotted, those of icon methods are not.
  constexpr bool isImage() const { return name.find('.') != std::string_view::npos; }
};

/// The icons in the order of iconMethodNames, then the images. Records only: to read them links no
/// artwork.
inline constexpr KeywordRecord iconKeywords[] = {
#define GLYPHWRIGHT_KEYWORDS(name, keywords) {name, keywords},
#include <glyphwright/catalogue/keywords.inc>
#undef GLYPHWRIGHT_KEYWORDS
};

}  // namespace glyphwright
