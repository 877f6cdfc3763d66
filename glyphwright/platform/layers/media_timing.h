#pragma once

#include <cstdint>
#include <optional>

namespace glyphwright {

/// A time or a length of time, in seconds.
using CFTimeInterval = double;

/// What an animation shows outside its active time: nothing, its last value afterwards, its first
/// value before, or both.
enum class CAMediaTimingFillMode : std::uint8_t { removed, forwards, backwards, both };

/// When something plays within its parent's time. Layers and animations have it; nothing here runs
/// by itself: the program hands in a time and reads what is shown then.
class CAMediaTiming {
 public:
  /// Where in the parent's time it starts, in seconds; 0 when new.
  CFTimeInterval beginTime() const { return values_.beginTime; }
  void setBeginTime(CFTimeInterval time) { values_.beginTime = time; }
  /// Length of one run in seconds of local time; 0 when new.
  CFTimeInterval duration() const { return values_.duration; }
  void setDuration(CFTimeInterval duration) { values_.duration = duration; }
  /// Seconds of local time for each second of the parent's, 1 when new. 0 stands still at the time
  /// offset, negative runs backwards.
  double speed() const { return values_.speed; }
  void setSpeed(double speed) { values_.speed = speed; }
  /// Added to the local time, in seconds; 0 when new.
  CFTimeInterval timeOffset() const { return values_.timeOffset; }
  void setTimeOffset(CFTimeInterval offset) { values_.timeOffset = offset; }
  /// Number of runs, fractions allowed, infinity for ever. 0, negative and NaN play once.
  double repeatCount() const { return values_.repeatCount; }
  void setRepeatCount(double count) { values_.repeatCount = count; }
  /// Seconds of local time to repeat for; above 0 it takes the place of the repeat count.
  CFTimeInterval repeatDuration() const { return values_.repeatDuration; }
  void setRepeatDuration(CFTimeInterval duration) { values_.repeatDuration = duration; }
  /// Whether each run is followed by the same run backwards.
  bool autoreverses() const { return values_.autoreverses; }
  void setAutoreverses(bool autoreverses) { values_.autoreverses = autoreverses; }
  /// Removed when new.
  CAMediaTimingFillMode fillMode() const { return values_.fillMode; }
  void setFillMode(CAMediaTimingFillMode mode) { values_.fillMode = mode; }

  /// (parent − beginTime) · speed + timeOffset.
  CFTimeInterval localTime(CFTimeInterval parentTime) const {
    return (parentTime - values_.beginTime) * values_.speed + values_.timeOffset;
  }

 protected:
  CAMediaTiming() = default;
  CAMediaTiming(const CAMediaTiming&) = default;
  CAMediaTiming& operator=(const CAMediaTiming&) = default;
  ~CAMediaTiming() = default;

 private:
  struct Values {
    CFTimeInterval beginTime = 0;
    CFTimeInterval duration = 0;
    double speed = 1;
    CFTimeInterval timeOffset = 0;
    double repeatCount = 0;
    CFTimeInterval repeatDuration = 0;
    bool autoreverses = false;
    CAMediaTimingFillMode fillMode = CAMediaTimingFillMode::removed;
  };
  Values values_;
};

/// Where an animation stands at some moment.
struct AnimationPhase {
  /// How far through the present run, 0 to 1, falling while it runs backwards.
  double progress = 0;
  /// Whole cycles (there and back counts as one) that lie behind.
  double cycle = 0;

  friend constexpr bool operator==(const AnimationPhase&, const AnimationPhase&) = default;
};

/// Whether the last moment of the active time still belongs to it.
enum class AnimationEnd : std::uint8_t { excluded, included };

/// The phase at a time of the parent, or nothing when nothing is shown then: before or after the
/// active time without a fill mode for it, for a duration that is not above 0, or a time that is
/// not a number.
std::optional<AnimationPhase> phaseAtTime(const CAMediaTiming& timing, CFTimeInterval parentTime,
                                          AnimationEnd end);

}  // namespace glyphwright
