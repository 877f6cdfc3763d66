#include <glyphwright/platform/layers/layer.h>

#include <algorithm>
#include <type_traits>
#include <utility>

namespace glyphwright {
namespace {

constexpr CFTimeInterval kDefaultDuration = 0.25;
constexpr std::string_view kTransitionKey = "transition";

}  // namespace

void CALayer::addAnimation(const std::shared_ptr<CAAnimation>& animation,
                           const std::optional<std::string>& forKey) {
  if (!animation) return;
  StoredAnimation stored{forKey, nullptr};
  if (dynamic_cast<const CATransition*>(animation.get())) stored.key = std::string(kTransitionKey);
  const std::shared_ptr<CAAnimation> copy = animation->copy();
  copy->setDefaultDuration(kDefaultDuration);
  stored.animation = copy;
  if (stored.key) CALayer::removeAnimationForKey(*stored.key);
  animations_.push_back(std::move(stored));
}

std::shared_ptr<const CAAnimation> CALayer::animationForKey(std::string_view key) const {
  const auto found = std::find_if(animations_.begin(), animations_.end(),
                                  [&](const StoredAnimation& stored) { return stored.key == key; });
  return found == animations_.end() ? nullptr : found->animation;
}

std::optional<std::vector<std::string>> CALayer::animationKeys() const {
  if (animations_.empty()) return std::nullopt;
  std::vector<std::string> keys;
  for (const StoredAnimation& stored : animations_) {
    if (stored.key) keys.push_back(*stored.key);
  }
  return keys;
}

void CALayer::removeAnimationForKey(std::string_view key) {
  std::erase_if(animations_, [&](const StoredAnimation& stored) { return stored.key == key; });
}

void CALayer::removeAllAnimations() {
  animations_.clear();
}

}  // namespace glyphwright
