#include <glyphwright/platform/layers/media_timing.h>

#include <cmath>
#include <limits>

namespace glyphwright {
namespace {

// A run count this close to a whole number is that number: ten runs of 0.1 s end with the tenth.
constexpr double kRunNoise = 1e-9;

double progressWithin(double time, double duration) {
  const double progress = time / duration;
  const double folded = progress > 1 ? 2 - progress : progress;
  if (!(folded > 0)) return 0;
  return folded < 1 ? folded : 1;
}

// The phase in which the last run ends: a whole number of cycles ends at the end of the last one,
// not at the start of another.
AnimationPhase lastPhase(double cycles, double cycleLength, double duration) {
  const double whole = std::floor(cycles + kRunNoise);
  const double rest = cycles - whole;
  if (rest <= kRunNoise && whole >= 1) {
    return {progressWithin(cycleLength, duration), whole - 1};
  }
  return {progressWithin(rest * cycleLength, duration), whole};
}

}  // namespace

std::optional<AnimationPhase> phaseAtTime(const CAMediaTiming& timing, CFTimeInterval parentTime,
                                          AnimationEnd end) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  const double duration = timing.duration();
  const double time = timing.localTime(parentTime);
  if (!(duration > 0) || std::isnan(time)) return std::nullopt;
  if (duration == infinity) {
    // A run without an end never gets anywhere.
    const bool shown = time >= 0 || timing.fillMode() == CAMediaTimingFillMode::backwards ||
                       timing.fillMode() == CAMediaTimingFillMode::both;
    return shown ? std::optional(AnimationPhase{}) : std::nullopt;
  }

  const double cycleLength = timing.autoreverses() ? duration * 2 : duration;
  const double cycles = timing.repeatDuration() > 0 ? timing.repeatDuration() / cycleLength
                        : timing.repeatCount() > 0  ? timing.repeatCount()
                                                    : 1;
  const double active =
      timing.repeatDuration() > 0 ? timing.repeatDuration() : cycles * cycleLength;
  const CAMediaTimingFillMode fill = timing.fillMode();
  if (time < 0) {
    const bool shown =
        fill == CAMediaTimingFillMode::backwards || fill == CAMediaTimingFillMode::both;
    return shown ? std::optional(AnimationPhase{}) : std::nullopt;
  }
  if (time >= active) {
    const bool shown = fill == CAMediaTimingFillMode::forwards ||
                       fill == CAMediaTimingFillMode::both ||
                       (end == AnimationEnd::included && time == active);
    if (!shown) return std::nullopt;
    // Only an endless animation at an endless time has no last run.
    if (!std::isfinite(cycles)) return AnimationPhase{};
    return lastPhase(cycles, cycleLength, duration);
  }
  // A remainder is exact, and so the last of many runs is as true as the first.
  const double within = std::fmod(time, cycleLength);
  return AnimationPhase{progressWithin(within, duration),
                        std::floor((time - within) / cycleLength + 0.5)};
}

}  // namespace glyphwright
