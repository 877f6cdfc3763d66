#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "renderer.h"

namespace glyphwright::bench {

/// The time of one renderer for one operation at one size.
struct Timing {
  /// Median over the rounds of the mean over a round's icons, in microseconds an icon.
  double microseconds = 0;
  std::size_t rounds = 0;
  std::size_t iconsPerRound = 0;
};

/// Lets the renderers paint the same icons in turn, a round each, for about `seconds` of processor
/// time in all and at least five rounds. A round is every icon once where that is quick, else every
/// n-th.
std::vector<Timing> timeInterleaved(const std::vector<const Renderer*>& renderers,
                                    const std::vector<Icon>& icons, Operation operation,
                                    std::size_t side, double seconds);

/// Lets ways of drawing `count` pictures each, called with 0…count − 1, take turns like that; the
/// median of each in microseconds a picture.
std::vector<double> medianRounds(const std::vector<std::function<void(std::size_t)>>& ways,
                                 std::size_t count, double seconds);

/// The processor time of this thread in seconds: what others do on the machine does not count.
double processorTime();

}  // namespace glyphwright::bench
