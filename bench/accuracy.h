#pragma once

#include <optional>
#include <vector>

#include "renderer.h"

namespace glyphwright::bench {

/// How far a renderer's alpha is from the exact area, in levels of 255, over the pixels that the
/// edge of a shape runs through.
struct Accuracy {
  double worst = 0;
  double mean = 0;
};

/// Measures flat fills of all icons up to 192 pixels, of every twelfth up to 512; larger ones are
/// not measured.
std::optional<std::vector<Accuracy>> measureAccuracy(const std::vector<const Renderer*>& renderers,
                                                     const std::vector<Icon>& icons,
                                                     std::size_t side);

}  // namespace glyphwright::bench
