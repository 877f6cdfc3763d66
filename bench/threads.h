#pragma once

#include <string>
#include <vector>

#include "renderer.h"

namespace glyphwright::bench {

/// How fast several threads paint, each its own icons into its own images, beside one thread.
struct ThreadsRow {
  std::size_t side = 0;
  unsigned threads = 0;
  double perSecondAlone = 0;  // icons
  double perSecond = 0;       // of all threads together
  /// By how much the processor time of an icon grows with company: what threads share costs here,
  /// whether or not the machine has a core for each.
  double slowdown = 0;
  double scaling() const { return perSecond / perSecondAlone; }
};

/// Flat fills; one thread and all of them take turns, for about `seconds` in all.
ThreadsRow timeThreads(const Renderer& renderer, const std::vector<Icon>& icons, std::size_t side,
                       unsigned threads, double seconds);

/// All icons at 48 points and scale 2 in several paints each, by one renderer.
struct ThousandsRow {
  std::string renderer;
  unsigned threads = 0;
  double perSecondAlone = 0;  // icons
  double perSecond = 0;
};

/// One thread and all of them take turns, and so do the renderers.
std::vector<ThousandsRow> timeThousands(const std::vector<const Renderer*>& renderers,
                                        const std::vector<Icon>& icons, unsigned threads,
                                        double seconds);

}  // namespace glyphwright::bench
