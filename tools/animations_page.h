#pragma once

#include <string>
#include <vector>

#include "animate_command.h"

namespace glyphwright::cli {

/// One of the animations that the gallery shows.
struct Showpiece {
  AnimateOptions options;
  std::string caption;
  /// The moment that stands for the whole where pictures should not move, as a share of it.
  double still;

  /// Names the files, without folder and ending.
  std::string fileName() const;
};

std::vector<Showpiece> showpieces();

/// The page that shows them. Its pictures are `animations/NAME.png` beside it and, for whoever
/// wants pictures to stand still, `animations/NAME-still.png`.
std::string animationsPage();

}  // namespace glyphwright::cli
