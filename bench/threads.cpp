#include "threads.h"

#include <algorithm>
#include <chrono>
#include <thread>

#include "timing.h"

namespace glyphwright::bench {

namespace {

struct Work {
  double icons = 0;
  double processorSeconds = 0;
  double seconds = 0;
};

/// Paints for `seconds`, beginning with another icon on each thread.
Work paintFor(const Renderer& renderer, const std::vector<Icon>& icons, std::size_t side,
              unsigned threads, double seconds) {
  using Clock = std::chrono::steady_clock;
  const auto start = Clock::now();
  const auto elapsed = [&] { return std::chrono::duration<double>(Clock::now() - start).count(); };
  std::vector<Work> works(threads);
  const auto paint = [&](unsigned thread) {
    std::size_t next = thread * icons.size() / threads;
    Work work;
    const double from = processorTime();
    while ((work.seconds = elapsed()) < seconds) {
      renderer.paint(icons[next], Operation::fill, side);
      next = (next + 1) % icons.size();
      work.icons += 1;
    }
    work.processorSeconds = processorTime() - from;
    works[thread] = work;
  };
  std::vector<std::thread> others;
  for (unsigned t = 1; t < threads; ++t) others.emplace_back(paint, t);
  paint(0);
  for (std::thread& other : others) other.join();
  Work all;
  for (const Work& work : works) {
    all.icons += work.icons;
    all.processorSeconds += work.processorSeconds;
    all.seconds = std::max(all.seconds, work.seconds);
  }
  return all;
}

}  // namespace

ThreadsRow timeThreads(const Renderer& renderer, const std::vector<Icon>& icons, std::size_t side,
                       unsigned threads, double seconds) {
  constexpr int kTurns = 4;
  Work alone;
  Work together;
  const auto add = [](Work& sum, const Work& work) {
    sum.icons += work.icons;
    sum.processorSeconds += work.processorSeconds;
    sum.seconds += work.seconds;
  };
  for (int turn = 0; turn < kTurns; ++turn) {
    add(alone, paintFor(renderer, icons, side, 1, seconds / (2 * kTurns)));
    add(together, paintFor(renderer, icons, side, threads, seconds / (2 * kTurns)));
  }
  return {side, threads, alone.icons / alone.seconds, together.icons / together.seconds,
          together.processorSeconds / together.icons / (alone.processorSeconds / alone.icons)};
}

}  // namespace glyphwright::bench
