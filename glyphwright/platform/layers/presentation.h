#pragma once

#include <memory>
#include <optional>
#include <unordered_map>

#include <glyphwright/platform/layers/layer.h>

namespace glyphwright {

/// One copying of a tree for presentation. It remembers which copy stands for which layer, so that
/// a subclass which holds other layers of the tree gets the very copies that are in the copied
/// tree.
class PresentationPass {
 public:
  /// Of the layers as they are set.
  PresentationPass() = default;
  /// With the animations at a time of the host; NaN leaves them out.
  explicit PresentationPass(CFTimeInterval time);

  /// The presentation version of a layer and its tree, the same one each time. Null for null, for a
  /// layer that is just being copied and asked for by what it holds, and for one of a class that
  /// does not present itself as `Layer`.
  template <typename Layer>
  std::shared_ptr<Layer> presentationOf(const std::shared_ptr<Layer>& layer) {
    return layer ? std::dynamic_pointer_cast<Layer>(copyOf(*layer)) : nullptr;
  }

  std::shared_ptr<CALayer> copyOf(CALayer& layer);

 private:
  void applyAnimations(const CALayer& layer, CALayer& copy) const;
  void copyTree(const CALayer& layer, CALayer& copy);

  std::optional<CFTimeInterval> time_;
  int levels_ = 0;
  std::unordered_map<const CALayer*, std::shared_ptr<CALayer>> copies_;
};

}  // namespace glyphwright
