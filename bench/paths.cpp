#include "paths.h"

#include <algorithm>

#include "timing.h"

namespace glyphwright::bench {

namespace {

/// The median time that `work` takes, in seconds, repeated for `seconds` and at least ten times.
template <typename Work>
double medianTime(double seconds, Work work) {
  constexpr int kLeastRounds = 10;
  std::vector<double> times;
  const double start = processorTime();
  double from = start;
  for (int round = 0; round < kLeastRounds || from - start < seconds; ++round) {
    work();
    const double to = processorTime();
    times.push_back(to - from);
    from = to;
  }
  const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
  std::nth_element(times.begin(), middle, times.end());
  return *middle;
}

/// Otherwise the compiler sees that nobody looks.
void use(const void* value) {
  __asm__ volatile("" : : "r"(value) : "memory");
}

}  // namespace

PathTimes timePaths(const Renderer& renderer, const std::vector<Icon>& icons, double seconds) {
  const auto count = static_cast<double>(icons.size());
  PathTimes times;
  constexpr int kRepeats = 50;  // reading the clock takes as long as a path
  const double find = medianTime(seconds / 3, [&] {
    for (int i = 0; i < kRepeats; ++i) {
      for (const Icon& icon : icons) {
        const ClassMethod method = findClassMethod(icon.name);
        use(&method);
      }
    }
  });
  times.findNanoseconds = find / kRepeats / count * 1e9;

  std::vector<double> each;
  for (const Icon& icon : icons) {
    const double build = medianTime(seconds / 3 / count, [&] {
      for (int i = 0; i < kRepeats; ++i) {
        const UIBezierPath path = icon.method();
        use(&path);
      }
    });
    each.push_back(build / kRepeats * 1e6);
  }
  std::sort(each.begin(), each.end());
  times.medianMicroseconds = each[each.size() / 2];
  times.slowestMicroseconds = each.back();

  constexpr std::size_t kPixels = 96;
  const double all = medianTime(seconds / 3, [&] {
    for (const Icon& icon : icons) renderer.paint(icon, Operation::fill, kPixels);
  });
  times.catalogueMilliseconds = all * 1e3;
  return times;
}

}  // namespace glyphwright::bench
