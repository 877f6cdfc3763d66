#pragma once

#include <cstddef>
#include <cstdint>

#include <glyphwright/platform/raster/kernels.h>
#include <glyphwright/platform/raster/kernels/rows.h>

/// Eight edges at a time.
namespace glyphwright::raster::loops {
namespace {

template <typename L>
struct EdgeEight {
  using Ints = typename L::Ints;
  using Floats = typename L::Floats;

  static EdgeEight load(const Edge* edges) {
    // Edges i and i + 4 come together.
    const auto pair = [&](int i) {
      return L::template loadHalves<Floats>(edges + i, edges + i + 4);
    };
    const Floats x01 = weaveLow(pair(0), pair(1));
    const Floats y01 = weaveHigh(pair(0), pair(1));
    const Floats x23 = weaveLow(pair(2), pair(3));
    const Floats y23 = weaveHigh(pair(2), pair(3));
    return {weavePairsLow(x01, x23), weavePairsHigh(x01, x23), as<Ints>(weavePairsLow(y01, y23)),
            as<Ints>(weavePairsHigh(y01, y23))};
  }
  void put(Edge* edges) const {
    const Ints x01 = as<Ints>(weaveLow(x0, x1));
    const Ints x23 = as<Ints>(weaveHigh(x0, x1));
    const Ints y01 = weaveLow(y0, y1);
    const Ints y23 = weaveHigh(y0, y1);
    storeHalves(edges, edges + 4, weavePairsLow(x01, y01));
    storeHalves(edges + 1, edges + 5, weavePairsHigh(x01, y01));
    storeHalves(edges + 2, edges + 6, weavePairsLow(x23, y23));
    storeHalves(edges + 3, edges + 7, weavePairsHigh(x23, y23));
  }

  Floats x0;
  Floats x1;
  Ints y0;
  Ints y1;
};

/// Counts the runs downwards among edges that come by eights.
class DownRuns {
 public:
  /// A bit for each edge that runs down, of which `left` exist.
  void add(unsigned isDown, std::size_t left) {
    if (left < 8) isDown &= (1U << left) - 1;
    count_ += __builtin_popcount(isDown & ~(isDown << 1 | wasDown_));
    wasDown_ = isDown >> 7;
  }
  int count() const { return count_; }

 private:
  int count_ = 0;
  unsigned wasDown_ = 0;
};

}  // namespace
}  // namespace glyphwright::raster::loops
