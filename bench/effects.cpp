#include "effects.h"

#include "timing.h"

namespace glyphwright::bench {

EffectsRow timeEffects(const Renderer& renderer, const std::vector<Icon>& icons, std::size_t side,
                       double seconds) {
  const auto way = [&](Operation operation) {
    return [&, operation](std::size_t i) { renderer.paint(icons[i], operation, side); };
  };
  const std::vector<double> times =
      medianRounds({way(Operation::fill), way(Operation::hairline), way(Operation::dropShadow),
                    way(Operation::insetShadow)},
                   icons.size(), seconds);
  return {side, times[1] / times[0], times[2] / times[0], times[3] / times[2]};
}

}  // namespace glyphwright::bench
