#include <glyphwright/platform/drawing/clip.h>

#include <glyphwright/platform/drawing/shapes.h>
#include <glyphwright/platform/raster/mask_writer.h>

namespace glyphwright::drawing {

using raster::Mask;
using raster::PixelRect;
using raster::Scratch;

ClipNode::~ClipNode() {
  std::shared_ptr<const ClipNode> next = std::move(parent_);
  while (next != nullptr && next.use_count() == 1) next = std::move(next->parent_);
}

void Clip::intersect(const PixelRect& area) {
  bounds = intersection(bounds, area);
  if (bounds.isEmpty()) *this = {};
}

void Clip::intersect(CGPath devicePath, FillRule rule) {
  bounds = pixelsTouched(raster::boxOfPoints(devicePath), bounds);
  if (bounds.isEmpty()) {
    *this = {};
    return;
  }
  node = std::make_shared<const ClipNode>(std::move(devicePath), rule, bounds, std::move(node));
}

const Mask* ClipMasks::maskOf(const Clip& clip, Scratch& scratch) {
  if (clip.node == nullptr) return nullptr;
  // Those that have no mask, from the innermost one out.
  std::vector<std::shared_ptr<const ClipNode>> missing;
  std::shared_ptr<const ClipNode> outer = clip.node;
  for (; outer != nullptr && outer->mask_ == nullptr; outer = outer->parent_) {
    missing.push_back(outer);
  }
  for (; !missing.empty(); missing.pop_back()) {
    const std::shared_ptr<const ClipNode>& inner = missing.back();
    auto mask = std::make_unique<Mask>(inner->bounds_);
    raster::MaskWriter writer(*mask, outer == nullptr ? nullptr : outer->mask_.get(),
                              *scratch.kernels);
    Shape({inner->path_, CGAffineTransformIdentity, inner->rule_}, scratch, raster::For::clip)
        .sweep(inner->bounds_, writer);
    keep(inner, std::move(mask));
    outer = inner;
  }
  return clip.node->mask_.get();
}

void ClipMasks::keep(const std::shared_ptr<const ClipNode>& node, std::unique_ptr<Mask> mask) {
  const auto hasMask = [](const auto& clip) { return clip != nullptr && clip->mask_ != nullptr; };
  kept_.push_back(node);
  node->mask_ = std::move(mask);
  keptBytes_ += node->mask_->bytes();
  if (keptBytes_ <= kKeptBytes && kept_.size() <= kMostKept) return;
  // Some may have gone with their clips; of the others the older ones go, until half is free.
  std::erase_if(kept_, [&](const auto& weak) { return !hasMask(weak.lock()); });
  keptBytes_ = 0;
  std::size_t first = kept_.size();
  do {
    keptBytes_ += kept_[--first].lock()->mask_->bytes();
  } while (first > 0 && keptBytes_ <= kKeptBytes / 2 && kept_.size() - first < kMostKept / 2);
  for (std::size_t i = 0; i < first; ++i) kept_[i].lock()->mask_.reset();
  kept_.erase(kept_.begin(), kept_.begin() + static_cast<std::ptrdiff_t>(first));
}

}  // namespace glyphwright::drawing
