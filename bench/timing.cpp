#include "timing.h"

#include <algorithm>
#include <cmath>
#include <ctime>

namespace glyphwright::bench {

double processorTime() {
  timespec time{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

namespace {

double paintRound(const Renderer& renderer, const std::vector<const Icon*>& icons,
                  Operation operation, std::size_t side) {
  const double start = processorTime();
  for (const Icon* icon : icons) renderer.paint(*icon, operation, side);
  return processorTime() - start;
}

double median(std::vector<double>& values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

std::vector<const Icon*> everyNth(const std::vector<Icon>& icons, std::size_t n) {
  std::vector<const Icon*> chosen;
  for (std::size_t i = 0; i < icons.size(); i += n) chosen.push_back(&icons[i]);
  return chosen;
}

}  // namespace

std::vector<Timing> timeInterleaved(const std::vector<const Renderer*>& renderers,
                                    const std::vector<Icon>& icons, Operation operation,
                                    std::size_t side, double seconds) {
  constexpr std::size_t kLeastRounds = 5;
  // A short first pass warms caches and allocator and tells how many icons fit into a round.
  const std::vector<const Icon*> sample = everyNth(icons, icons.size() / 8);
  const double warmUp = processorTime();
  for (const Renderer* renderer : renderers) paintRound(*renderer, sample, operation, side);
  const double perIcon = (processorTime() - warmUp) / static_cast<double>(sample.size());
  const double affordable = seconds / static_cast<double>(kLeastRounds + 1) / perIcon;
  const double stride = std::ceil(static_cast<double>(icons.size()) / std::max(affordable, 8.0));
  const std::vector<const Icon*> chosen =
      everyNth(icons, static_cast<std::size_t>(std::max(stride, 1.0)));

  std::vector<std::vector<double>> times(renderers.size());
  const double start = processorTime();
  for (std::size_t round = 0; round < kLeastRounds || processorTime() - start < seconds; ++round) {
    for (std::size_t r = 0; r < renderers.size(); ++r) {
      const double time = paintRound(*renderers[r], chosen, operation, side);
      times[r].push_back(time / static_cast<double>(chosen.size()) * 1e6);
    }
  }
  std::vector<Timing> timings;
  for (std::vector<double>& values : times) {
    const std::size_t rounds = values.size();
    timings.push_back({median(values), rounds, chosen.size()});
  }
  return timings;
}

std::vector<double> medianRounds(const std::vector<std::function<void(std::size_t)>>& ways,
                                 std::size_t count, double seconds) {
  constexpr std::size_t kLeastRounds = 5;
  std::vector<std::vector<double>> times(ways.size());
  const double start = processorTime();
  // The first round warms caches and allocator and does not count.
  for (std::size_t round = 0; round <= kLeastRounds || processorTime() - start < seconds; ++round) {
    for (std::size_t w = 0; w < ways.size(); ++w) {
      const double from = processorTime();
      for (std::size_t i = 0; i < count; ++i) ways[w](i);
      if (round == 0) continue;
      times[w].push_back((processorTime() - from) / static_cast<double>(count) * 1e6);
    }
  }
  std::vector<double> medians;
  for (std::vector<double>& values : times) medians.push_back(median(values));
  return medians;
}

}  // namespace glyphwright::bench
