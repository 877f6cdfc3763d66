#include <glyphwright/platform/context_stack.h>

#include <cmath>
#include <memory>
#include <vector>

#include <glyphwright/platform/screen.h>

namespace glyphwright {
namespace {

struct Entry {
  CGContext* context;  // null: a Begin call whose size could not be drawn
  bool endable;
  std::unique_ptr<CGContext> own;  // of a Begin call
};

std::vector<Entry>& stack() {
  thread_local std::vector<Entry> entries;
  return entries;
}

// The pixels that a size takes at a scale, or an empty rectangle when it cannot be drawn.
raster::PixelRect pixelBounds(CGSize size, CGFloat scale) {
  // The guard keeps the noise of products like 0.1 × 30 from adding a row.
  const CGFloat width = std::ceil(size.width * scale - 1e-6);
  const CGFloat height = std::ceil(size.height * scale - 1e-6);
  if (!(width > 0) || !(height > 0) || !(size.width > 0) || !(size.height > 0)) {
    // A size so small that the guard swallowed it still covers a pixel.
    if (!(size.width > 0) || !(size.height > 0) || !(scale > 0)) return {};
  }
  if (!(width <= kMaxPixelSide) || !(height <= kMaxPixelSide)) return {};
  const int w = std::max(static_cast<int>(width), 1);
  const int h = std::max(static_cast<int>(height), 1);
  if (static_cast<CGFloat>(w) * h > kMaxPixels) return {};
  return {0, 0, w, h};
}

CGContext makeContext(CGSize size, bool opaque, CGFloat scale) {
  const CGFloat pixelsPerPoint = scale == 0 ? screen::scale() : scale;
  return {pixelBounds(size, pixelsPerPoint), size, pixelsPerPoint, opaque};
}

UIImage snapshot(CGContext& context) {
  if (!context.isDrawable()) {
    const auto side = [](CGFloat v) { return v > 0 ? v : 0; };
    return UIImage(CGImage(), context.scale, {side(context.size.width), side(context.size.height)});
  }
  return UIImage(
      CGImage(static_cast<std::size_t>(context.bounds.width()),
              static_cast<std::size_t>(context.bounds.height()), context.baseCanvas().share()),
      context.scale, context.size);
}

}  // namespace

void UIGraphicsBeginImageContextWithOptions(CGSize size, bool opaque, CGFloat scale) {
  auto context = std::make_unique<CGContext>(makeContext(size, opaque, scale));
  if (!context->isDrawable()) context = nullptr;
  stack().push_back({context.get(), true, std::move(context)});
}

void UIGraphicsBeginImageContext(CGSize size) {
  UIGraphicsBeginImageContextWithOptions(size, false, 1);
}

std::optional<UIImage> UIGraphicsGetImageFromCurrentImageContext() {
  if (stack().empty() || !stack().back().endable || stack().back().context == nullptr) {
    return std::nullopt;
  }
  return snapshot(*stack().back().context);
}

void UIGraphicsEndImageContext() {
  if (stack().empty() || !stack().back().endable) return;
  stack().pop_back();
  if (stack().empty()) raster::threadScratch().trim();
}

CGContextRef UIGraphicsGetCurrentContext() {
  return stack().empty() ? nullptr : stack().back().context;
}

namespace contexts {

Scope::Scope(CGSize size, bool opaque, CGFloat scale, bool endable)
    : context_(makeContext(size, opaque, scale)), depth_(stack().size()) {
  stack().push_back({&context_, endable, nullptr});
}

Scope::~Scope() {
  if (stack().size() > depth_) {
    stack().erase(stack().begin() + static_cast<std::ptrdiff_t>(depth_), stack().end());
  }
  raster::threadScratch().trim();
}

UIImage Scope::image() {
  return snapshot(context_);
}

}  // namespace contexts
}  // namespace glyphwright
