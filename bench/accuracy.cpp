#include "accuracy.h"

#include <algorithm>
#include <cmath>

#include "tests/reference/plane.h"

namespace glyphwright::bench {

namespace {

struct Sums {
  double worst = 0;
  double total = 0;
  std::size_t pixels = 0;
};

void add(Sums& sums, const reference::Plane& expected, const Pixels& actual) {
  for (std::size_t i = 0; i < expected.values.size(); ++i) {
    const double value = expected.values[i];
    if (value < 1e-9 || value > 1 - 1e-9) continue;
    const double error = std::abs(actual.bytes[4 * i + actual.alphaByte] - 255 * value);
    sums.worst = std::max(sums.worst, error);
    sums.total += error;
    ++sums.pixels;
  }
}

}  // namespace

std::optional<std::vector<Accuracy>> measureAccuracy(const std::vector<const Renderer*>& renderers,
                                                     const std::vector<Icon>& icons,
                                                     std::size_t side) {
  if (side > 512) return std::nullopt;
  std::vector<Sums> sums(renderers.size());
  for (std::size_t i = 0; i<icons.size(); i += side> 192 ? 12 : 1) {
    CGPath path = icons[i].path;
    path.applyTransform(fitting(path, Operation::fill, side));
    const reference::Plane expected = reference::coverage(path, true, side, side);
    for (std::size_t r = 0; r < renderers.size(); ++r) {
      Pixels pixels;
      renderers[r]->paint(icons[i], Operation::fill, side, &pixels);
      add(sums[r], expected, pixels);
    }
  }
  std::vector<Accuracy> accuracies;
  for (const Sums& s : sums) {
    accuracies.push_back(
        {s.worst, s.total / static_cast<double>(std::max<std::size_t>(s.pixels, 1))});
  }
  return accuracies;
}

}  // namespace glyphwright::bench
