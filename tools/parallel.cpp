#include "parallel.h"

#include <algorithm>
#include <atomic>
#include <system_error>
#include <thread>
#include <vector>

namespace glyphwright::cli {

std::size_t threadsFor(std::size_t asked) {
  return asked > 0 ? asked : std::max(1U, std::thread::hardware_concurrency());
}

void inParallel(std::size_t count, std::size_t threads,
                const std::function<void(std::size_t)>& work) {
  std::atomic<std::size_t> next = 0;
  const auto share = [&] {
    for (std::size_t i = next++; i < count; i = next++) work(i);
  };
  std::vector<std::jthread> helpers;
  try {
    while (helpers.size() + 1 < std::min(threads, count)) helpers.emplace_back(share);
  } catch (const std::system_error&) {
    // With fewer threads than asked for it only takes longer.
  }
  share();
}

}  // namespace glyphwright::cli
