#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "console.h"
#include "paint.h"

namespace glyphwright::cli {

/// How an icon is put on a terminal.
enum class ShowForm : std::uint8_t {
  automatic,  // the best that the terminal says it has
  picture,    // the terminal's own pictures
  blocks,     // half blocks in colour
  plain,      // half blocks in the terminal's own colour
};

struct ShowOptions {
  ShowOptions();

  std::string name;
  ShowForm form = ShowForm::automatic;
  /// Characters in a line; 0 stands for 40, or the terminal's width where that is less.
  std::size_t columns = 0;
  Paint paint;
};

/// The form by its name. Throws UsageError.
ShowForm showFormFrom(const std::string& text);

/// Draws one icon on the terminal. Throws UsageError for unknown names.
int runShow(const ShowOptions& options, Console& console);

}  // namespace glyphwright::cli
