#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <glyphwright/platform/layers/animation_value.h>
#include <glyphwright/platform/layers/media_timing.h>
#include <glyphwright/platform/layers/timing_function.h>

namespace glyphwright {

class CALayer;

/// Something that plays on a layer. Layers store copies: changing an animation after it was added
/// changes nothing.
class CAAnimation : public CAMediaTiming {
 public:
  /// A new one: no duration, begin time 0, played once.
  static std::shared_ptr<CAAnimation> animation();
  virtual ~CAAnimation();

  /// The pace of each run; linear when none.
  const std::optional<CAMediaTimingFunction>& timingFunction() const { return timingFunction_; }
  void setTimingFunction(std::optional<CAMediaTimingFunction> function) {
    timingFunction_ = function;
  }
  /// True when new. Kept for the program; nothing is removed by itself, as no clock runs.
  bool isRemovedOnCompletion() const { return removedOnCompletion_; }
  void setRemovedOnCompletion(bool removed) { removedOnCompletion_ = removed; }

  /// An independent animation of the same class with the same values. Groups are copied with what
  /// they hold: at most 16 levels and 1024 animations in all, the rest is left out, and so a group
  /// that holds itself comes to an end.
  std::shared_ptr<CAAnimation> copy() const;

 protected:
  friend class CAAnimationGroup;
  friend class CALayer;
  friend class PresentationPass;

  /// Puts the values at a time of the parent into a layer. What is not active then leaves the layer
  /// alone. The animation itself, as no more is known of it, does nothing.
  virtual void applyAtTime(CFTimeInterval parentTime, AnimationEnd end, CALayer& layer) const;

  /// Gives a duration that is not above 0 (or is NaN) this length; a group hands its own duration
  /// to what it holds.
  virtual void setDefaultDuration(CFTimeInterval duration);

  /// How much more a copy may hold.
  struct CopyAllowance {
    int levels;      ///< Groups within groups.
    int animations;  ///< In all.
  };
  /// The same object again, for `copy`; a subclass gives one of its own class.
  virtual std::shared_ptr<CAAnimation> copyWithin(CopyAllowance& allowance) const;

  /// The progress of the run after the timing function.
  double paced(double progress) const {
    return timingFunction_ ? timingFunction_->valueAt(progress) : progress;
  }

 private:
  std::optional<CAMediaTimingFunction> timingFunction_;
  bool removedOnCompletion_ = true;
};

/// Fades one state of a layer into the next. Stored and handed back; there is no earlier picture to
/// fade from, and so it changes nothing that is shown.
class CATransition : public CAAnimation {
 public:
  /// A new one, of type "fade".
  static std::shared_ptr<CATransition> animation();

  /// "fade" when new.
  const std::string& type() const { return type_; }
  void setType(std::string type) { type_ = std::move(type); }
  /// The direction, any text; none when new.
  const std::optional<std::string>& subtype() const { return subtype_; }
  void setSubtype(std::optional<std::string> subtype) { subtype_ = std::move(subtype); }

 protected:
  std::shared_ptr<CAAnimation> copyWithin(CopyAllowance& allowance) const override;

 private:
  std::string type_ = "fade";
  std::optional<std::string> subtype_;
};

/// Moves one property of a layer, named by its key path.
class CAPropertyAnimation : public CAAnimation {
 public:
  /// A key path that the layer does not know does nothing.
  const std::optional<std::string>& keyPath() const { return keyPath_; }
  void setKeyPath(std::optional<std::string> keyPath) { keyPath_ = std::move(keyPath); }
  /// Whether the value is added to the layer's own instead of taking its place.
  bool isAdditive() const { return additive_; }
  void setAdditive(bool additive) { additive_ = additive; }
  /// Whether each run starts where the one before ended.
  bool isCumulative() const { return cumulative_; }
  void setCumulative(bool cumulative) { cumulative_ = cumulative; }

  /// The value at a progress of the run. `current` is what the layer shows without this animation.
  /// Nothing when the animation has no values, or values of different kinds.
  virtual std::optional<AnimationValue> valueAt(double progress,
                                                const std::optional<AnimationValue>& current) const;

 protected:
  void applyAtTime(CFTimeInterval parentTime, AnimationEnd end, CALayer& layer) const override;
  std::shared_ptr<CAAnimation> copyWithin(CopyAllowance& allowance) const override;

 private:
  std::optional<std::string> keyPath_;
  bool additive_ = false;
  bool cumulative_ = false;
};

/// From one value to another. What is not given comes from the layer:
///
///     from, to      from … to              from          from … current
///     from, by      from … from + by       to            current … to
///     by, to        to − by … to           by            current … current + by
class CABasicAnimation : public CAPropertyAnimation {
 public:
  /// A new one without values. A key path says what it moves; without one it does nothing.
  static std::shared_ptr<CABasicAnimation> animation();
  static std::shared_ptr<CABasicAnimation> animationWithKeyPath(std::string keyPath);

  /// Each none when new. Values of a kind that the property does not have move nothing.
  const std::optional<AnimationValue>& fromValue() const { return from_; }
  void setFromValue(std::optional<AnimationValue> value);
  const std::optional<AnimationValue>& toValue() const { return to_; }
  void setToValue(std::optional<AnimationValue> value);
  const std::optional<AnimationValue>& byValue() const { return by_; }
  void setByValue(std::optional<AnimationValue> value);

  std::optional<AnimationValue> valueAt(
      double progress, const std::optional<AnimationValue>& current) const override;

 protected:
  std::shared_ptr<CAAnimation> copyWithin(CopyAllowance& allowance) const override;

 private:
  std::optional<AnimationValue> from_;
  std::optional<AnimationValue> to_;
  std::optional<AnimationValue> by_;
};

/// How keyframes are joined: by moving between them, or by standing still on each.
enum class CAAnimationCalculationMode : std::uint8_t { linear, discrete };

/// Through a list of values.
class CAKeyframeAnimation : public CAPropertyAnimation {
 public:
  /// A new one without values. A key path says what it moves; without one it does nothing.
  static std::shared_ptr<CAKeyframeAnimation> animation();
  static std::shared_ptr<CAKeyframeAnimation> animationWithKeyPath(std::string keyPath);

  /// In the order in which they are reached, one alone stands; without any, nothing moves.
  const std::vector<AnimationValue>& values() const { return values_; }
  void setValues(std::vector<AnimationValue> values);
  /// When each value is reached, in parts of the run from 0 to 1, never falling; for the discrete
  /// mode when each value starts, with one more entry allowed for the end. Other lists are ignored
  /// and, as without one, the values are spread evenly.
  const std::optional<std::vector<double>>& keyTimes() const { return keyTimes_; }
  void setKeyTimes(std::optional<std::vector<double>> times);
  /// In braces.
  template <std::size_t count>
  void setKeyTimes(const double (&times)[count]) {
    setKeyTimes(std::vector<double>(times, times + count));
  }
  /// The pace between one value and the next; linear where one is missing.
  const std::vector<CAMediaTimingFunction>& timingFunctions() const { return timingFunctions_; }
  void setTimingFunctions(std::vector<CAMediaTimingFunction> functions);
  /// Linear when new.
  CAAnimationCalculationMode calculationMode() const { return calculationMode_; }
  void setCalculationMode(CAAnimationCalculationMode mode) { calculationMode_ = mode; }

  std::optional<AnimationValue> valueAt(
      double progress, const std::optional<AnimationValue>& current) const override;

 protected:
  std::shared_ptr<CAAnimation> copyWithin(CopyAllowance& allowance) const override;

 private:
  bool keyTimesCount() const;

  std::vector<AnimationValue> values_;
  std::optional<std::vector<double>> keyTimes_;
  std::vector<CAMediaTimingFunction> timingFunctions_;
  CAAnimationCalculationMode calculationMode_ = CAAnimationCalculationMode::linear;
};

/// Several animations on one layer that play together within the group's own time. Their times are
/// the group's local time, cut off at its duration; one without a duration takes the group's.
class CAAnimationGroup : public CAAnimation {
 public:
  /// A new one that holds nothing.
  static std::shared_ptr<CAAnimationGroup> animation();

  /// `init` of a group that holds nothing.
  CAAnimationGroup() = default;
  /// Holds the same animations.
  CAAnimationGroup(const CAAnimationGroup&) = default;
  CAAnimationGroup& operator=(const CAAnimationGroup&) = delete;
  /// Lets go of groups within groups one after the other, however deep they are.
  ~CAAnimationGroup() override;

  /// In the order in which they apply: of two on one property the later one shows,
  /// unless it is additive.
  const std::vector<std::shared_ptr<CAAnimation>>& animations() const { return animations_; }
  /// Null entries are left out.
  void setAnimations(std::vector<std::shared_ptr<CAAnimation>> animations);

 protected:
  void applyAtTime(CFTimeInterval parentTime, AnimationEnd end, CALayer& layer) const override;
  void setDefaultDuration(CFTimeInterval duration) override;
  std::shared_ptr<CAAnimation> copyWithin(CopyAllowance& allowance) const override;

 private:
  std::vector<std::shared_ptr<CAAnimation>> animations_;
};

}  // namespace glyphwright
