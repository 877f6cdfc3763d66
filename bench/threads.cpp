#include "threads.h"

#include <algorithm>
#include <chrono>
#include <span>
#include <thread>

#include "timing.h"

namespace glyphwright::bench {

namespace {

struct Work {
  double icons = 0;
  double processorSeconds = 0;
  double seconds = 0;

  double perSecond() const { return icons / seconds; }
  void add(const Work& more) {
    icons += more.icons;
    processorSeconds += more.processorSeconds;
    seconds += more.seconds;
  }
};

struct Pictures {
  const std::vector<Icon>& icons;
  std::span<const Operation> operations;  // each icon in all of them
  std::size_t side;
};

/// Paints for `seconds`, beginning with another picture on each thread.
Work paintFor(const Renderer& renderer, const Pictures& pictures, unsigned threads,
              double seconds) {
  using Clock = std::chrono::steady_clock;
  const auto start = Clock::now();
  const auto elapsed = [&] { return std::chrono::duration<double>(Clock::now() - start).count(); };
  std::vector<Work> works(threads);
  const auto paint = [&](unsigned thread) {
    const std::size_t count = pictures.icons.size() * pictures.operations.size();
    std::size_t next = thread * count / threads;
    Work work;
    const double from = processorTime();
    while ((work.seconds = elapsed()) < seconds) {
      renderer.paint(pictures.icons[next % pictures.icons.size()],
                     pictures.operations[next / pictures.icons.size()], pictures.side);
      next = (next + 1) % count;
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
  constexpr Operation kFill[] = {Operation::fill};
  const Pictures pictures{icons, kFill, side};
  Work alone;
  Work together;
  for (int turn = 0; turn < kTurns; ++turn) {
    alone.add(paintFor(renderer, pictures, 1, seconds / (2 * kTurns)));
    together.add(paintFor(renderer, pictures, threads, seconds / (2 * kTurns)));
  }
  return {side, threads, alone.perSecond(), together.perSecond(),
          together.processorSeconds / together.icons / (alone.processorSeconds / alone.icons)};
}

std::vector<ThousandsRow> timeThousands(const std::vector<const Renderer*>& renderers,
                                        const std::vector<Icon>& icons, unsigned threads,
                                        double seconds) {
  constexpr int kTurns = 4;
  constexpr Operation kPaints[] = {Operation::fill, Operation::hairline, Operation::slanted,
                                   Operation::dropShadow};
  const Pictures pictures{icons, kPaints, 96};
  std::vector<Work> alone(renderers.size());
  std::vector<Work> together(renderers.size());
  const double share = seconds / (2 * kTurns * static_cast<double>(renderers.size()));
  for (int turn = 0; turn < kTurns; ++turn) {
    for (std::size_t r = 0; r < renderers.size(); ++r) {
      alone[r].add(paintFor(*renderers[r], pictures, 1, share));
      together[r].add(paintFor(*renderers[r], pictures, threads, share));
    }
  }
  std::vector<ThousandsRow> rows;
  for (std::size_t r = 0; r < renderers.size(); ++r) {
    rows.push_back({std::string(renderers[r]->name()), threads, alone[r].perSecond(),
                    together[r].perSecond()});
  }
  return rows;
}

}  // namespace glyphwright::bench
