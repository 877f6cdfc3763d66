#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace glyphwright {

/// Something that a search found.
struct SearchHit {
  /// An icon method ("heartPath") or a ready-made image ("PresetIcons.createLoopPlayIcon").
  std::string_view name;
  /// Whether a word was found only with a letter or two changed: a guess at what was meant.
  bool isGuess = false;

  friend bool operator==(const SearchHit&, const SearchHit&) = default;
};

/// At most `limit` icons and ready-made images for words as people type them ("thumbs down"), best
/// first; of equal ones, that with the shorter name, then the one declared first. Empty when
/// nothing comes near.
///
/// A name in a form that only one icon can have finds that icon alone: "UIBezierPath::heartPath",
/// "App::Things::gear", "App.Things.gear", "#7". Otherwise each word is looked for in the names (of
/// the method and of all its cases), in the keywords, in the names of the sections, and, only when
/// the whole catalogue has it nowhere, among words spelled nearly alike. What has all words is
/// found; when nothing has them all, what has the most of them, at least half.
///
/// Upper and lower case do not matter, nor does a plural's s. Only the first 128 bytes are read.
std::vector<SearchHit> searchIcons(std::string_view words, std::size_t limit = 10);

}  // namespace glyphwright
