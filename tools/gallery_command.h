#pragma once

#include <string>

#include "console.h"

namespace glyphwright::cli {

struct GalleryOptions {
  /// The folder to write into; made where it is missing.
  std::string folder;
  /// The folder of the library's modules (see moduleElement); empty: the page does without.
  std::string module;
  /// Threads; 0 for all cores.
  std::size_t jobs = 0;
  /// Only index.html, where the rest is there already.
  bool pageOnly = false;
};

/// Writes index.html, a page to browse the whole catalogue, and sheet.png, a contact sheet of all
/// icons. The page needs nothing else. Beside it stand the pages of ready-made images and of
/// animations with their pictures.
int runGallery(const GalleryOptions& options, Console& console);

}  // namespace glyphwright::cli
