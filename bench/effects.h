#pragma once

#include <vector>

#include "renderer.h"

namespace glyphwright::bench {

/// What this library's own effects cost, one over the other, timed in the same rounds.
struct EffectsRow {
  std::size_t side = 0;
  double hairlineToFill = 0;
  double dropShadowToFill = 0;
  double insetToDropShadow = 0;
};

EffectsRow timeEffects(const Renderer& renderer, const std::vector<Icon>& icons, std::size_t side,
                       double seconds);

}  // namespace glyphwright::bench
