#include <glyphwright/platform/layers/animation.h>

#include <algorithm>
#include <utility>

#include <glyphwright/platform/layers/flat_release.h>
#include <glyphwright/platform/layers/layer.h>

namespace glyphwright {
namespace {

// Deep enough for any real animation, small enough that one which holds itself stays harmless.
constexpr int kMaxGroupLevels = 16;
constexpr int kMaxGroupedAnimations = 1024;

template <typename Animation>
std::shared_ptr<Animation> animationFor(std::string keyPath) {
  auto animation = Animation::animation();
  animation->setKeyPath(std::move(keyPath));
  return animation;
}

}  // namespace

CAAnimation::~CAAnimation() = default;

std::shared_ptr<CAAnimation> CAAnimation::animation() {
  return std::make_shared<CAAnimation>();
}

std::shared_ptr<CATransition> CATransition::animation() {
  return std::make_shared<CATransition>();
}

std::shared_ptr<CABasicAnimation> CABasicAnimation::animation() {
  return std::make_shared<CABasicAnimation>();
}

std::shared_ptr<CAKeyframeAnimation> CAKeyframeAnimation::animation() {
  return std::make_shared<CAKeyframeAnimation>();
}

std::shared_ptr<CAAnimationGroup> CAAnimationGroup::animation() {
  return std::make_shared<CAAnimationGroup>();
}

std::shared_ptr<CAAnimation> CAAnimation::copy() const {
  CopyAllowance allowance{kMaxGroupLevels, kMaxGroupedAnimations};
  return copyWithin(allowance);
}

std::shared_ptr<CAAnimation> CAAnimation::copyWithin(CopyAllowance& /*allowance*/) const {
  return std::make_shared<CAAnimation>(*this);
}

void CAAnimation::applyAtTime(CFTimeInterval /*parentTime*/, AnimationEnd /*end*/,
                              CALayer& /*layer*/) const {}

void CAAnimation::setDefaultDuration(CFTimeInterval duration) {
  if (!(this->duration() > 0)) setDuration(duration);
}

std::shared_ptr<CAAnimation> CATransition::copyWithin(CopyAllowance& /*allowance*/) const {
  return std::make_shared<CATransition>(*this);
}

std::shared_ptr<CAAnimation> CAPropertyAnimation::copyWithin(CopyAllowance& /*allowance*/) const {
  return std::make_shared<CAPropertyAnimation>(*this);
}

std::optional<AnimationValue> CAPropertyAnimation::valueAt(
    double /*progress*/, const std::optional<AnimationValue>& /*current*/) const {
  return std::nullopt;
}

void CAPropertyAnimation::applyAtTime(CFTimeInterval parentTime, AnimationEnd end,
                                      CALayer& layer) const {
  if (!keyPath_) return;
  const std::optional<AnimationPhase> phase = phaseAtTime(*this, parentTime, end);
  if (!phase) return;
  const std::optional<AnimationValue> current = layer.valueForKeyPath(*keyPath_);
  std::optional<AnimationValue> value = valueAt(paced(phase->progress), current);
  if (cumulative_ && value && phase->cycle > 0) {
    if (const auto reached = valueAt(1, current)) {
      value = accumulate(*value, *reached, phase->cycle);
    }
  }
  if (additive_ && value && current) value = accumulate(*current, *value, 1);
  if (value) layer.setAnimatedValue(*value, *keyPath_);
}

std::shared_ptr<CABasicAnimation> CABasicAnimation::animationWithKeyPath(std::string keyPath) {
  return animationFor<CABasicAnimation>(std::move(keyPath));
}

void CABasicAnimation::setFromValue(std::optional<AnimationValue> value) {
  from_ = std::move(value);
}

void CABasicAnimation::setToValue(std::optional<AnimationValue> value) {
  to_ = std::move(value);
}

void CABasicAnimation::setByValue(std::optional<AnimationValue> value) {
  by_ = std::move(value);
}

std::shared_ptr<CAAnimation> CABasicAnimation::copyWithin(CopyAllowance& /*allowance*/) const {
  return std::make_shared<CABasicAnimation>(*this);
}

std::optional<AnimationValue> CABasicAnimation::valueAt(
    double progress, const std::optional<AnimationValue>& current) const {
  if (from_ && to_) return interpolate(*from_, *to_, progress);
  if (by_) {
    const std::optional<AnimationValue>& start = from_ ? from_ : current;
    if (to_) {
      const auto before = accumulate(*to_, *by_, -1);
      return before ? interpolate(*before, *to_, progress) : std::nullopt;
    }
    if (!start) return std::nullopt;
    const auto after = accumulate(*start, *by_, 1);
    return after ? interpolate(*start, *after, progress) : std::nullopt;
  }
  // A property that has no value now stays at the one end that is known.
  if (from_) return interpolate(*from_, current ? *current : *from_, progress);
  if (to_) return interpolate(current ? *current : *to_, *to_, progress);
  return std::nullopt;
}

std::shared_ptr<CAKeyframeAnimation> CAKeyframeAnimation::animationWithKeyPath(
    std::string keyPath) {
  return animationFor<CAKeyframeAnimation>(std::move(keyPath));
}

void CAKeyframeAnimation::setValues(std::vector<AnimationValue> values) {
  values_ = std::move(values);
}

void CAKeyframeAnimation::setKeyTimes(std::optional<std::vector<double>> times) {
  keyTimes_ = std::move(times);
}

void CAKeyframeAnimation::setTimingFunctions(std::vector<CAMediaTimingFunction> functions) {
  timingFunctions_ = std::move(functions);
}

std::shared_ptr<CAAnimation> CAKeyframeAnimation::copyWithin(CopyAllowance& /*allowance*/) const {
  return std::make_shared<CAKeyframeAnimation>(*this);
}

bool CAKeyframeAnimation::keyTimesCount() const {
  if (!keyTimes_) return false;
  const bool discrete = calculationMode_ == CAAnimationCalculationMode::discrete;
  const std::size_t count = keyTimes_->size();
  if (count != values_.size() && !(discrete && count == values_.size() + 1)) return false;
  double last = 0;
  for (const double time : *keyTimes_) {
    // Also false for NaN.
    if (!(time >= last && time <= 1)) return false;
    last = time;
  }
  return true;
}

std::optional<AnimationValue> CAKeyframeAnimation::valueAt(
    double progress, const std::optional<AnimationValue>& /*current*/) const {
  if (values_.empty()) return std::nullopt;
  const bool discrete = calculationMode_ == CAAnimationCalculationMode::discrete;
  const bool timed = keyTimesCount();
  const auto keyTime = [&](std::size_t index) {
    if (timed) return (*keyTimes_)[index];
    const std::size_t steps = discrete ? values_.size() : values_.size() - 1;
    return static_cast<double>(index) / static_cast<double>(steps);
  };
  std::size_t index = 0;
  while (index + 1 < values_.size() && progress >= keyTime(index + 1)) ++index;
  if (discrete || index + 1 == values_.size()) return values_[index];
  const double start = keyTime(index);
  // Before the first key time, or a pace that goes back behind the start.
  if (!(progress > start)) return values_[index];
  const double within = (progress - start) / (keyTime(index + 1) - start);
  return interpolate(
      values_[index], values_[index + 1],
      index < timingFunctions_.size() ? timingFunctions_[index].valueAt(within) : within);
}

CAAnimationGroup::~CAAnimationGroup() {
  releaseFlat(std::move(animations_), [](CAAnimation& animation) {
    auto* group = dynamic_cast<CAAnimationGroup*>(&animation);
    return group ? &group->animations_ : nullptr;
  });
}

void CAAnimationGroup::setAnimations(std::vector<std::shared_ptr<CAAnimation>> animations) {
  std::erase(animations, nullptr);
  animations_ = std::move(animations);
}

std::shared_ptr<CAAnimation> CAAnimationGroup::copyWithin(CopyAllowance& allowance) const {
  auto copy = std::make_shared<CAAnimationGroup>(*this);
  copy->animations_.clear();
  if (allowance.levels == 0) return copy;
  --allowance.levels;
  for (const auto& animation : animations_) {
    if (allowance.animations == 0) break;
    --allowance.animations;
    copy->animations_.push_back(animation->copyWithin(allowance));
  }
  ++allowance.levels;
  return copy;
}

void CAAnimationGroup::setDefaultDuration(CFTimeInterval duration) {
  CAAnimation::setDefaultDuration(duration);
  for (const auto& animation : animations_) animation->setDefaultDuration(this->duration());
}

void CAAnimationGroup::applyAtTime(CFTimeInterval parentTime, AnimationEnd end,
                                   CALayer& layer) const {
  const std::optional<AnimationPhase> phase = phaseAtTime(*this, parentTime, end);
  if (!phase) return;
  const CFTimeInterval time = paced(phase->progress) * duration();
  // A group that holds its end shows the end of animations that last as long as it does.
  for (const auto& animation : animations_) {
    animation->applyAtTime(time, AnimationEnd::included, layer);
  }
}

}  // namespace glyphwright
