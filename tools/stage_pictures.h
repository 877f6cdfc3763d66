#pragma once

#include <cstddef>
#include <string_view>

#include "pixel_sheet.h"
#include "stages.h"

namespace glyphwright::cli {

/// A picture of one stage. All pictures of an icon show the same pixels, magnified, in the same
/// places.
struct StagePicture {
  std::string_view name;  // as a file's name has it
  std::string_view explanation;
  PixelSheet (*draw)(const Stages&);
};

/// In the order in which drawing goes through them.
inline constexpr std::size_t kStages = 7;
const StagePicture& stagePicture(std::size_t index);

}  // namespace glyphwright::cli
