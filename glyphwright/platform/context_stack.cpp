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

CGFloat pixelsPerPoint(CGFloat scale) {
  return scale == 0 ? screen::scale() : scale;
}

CGContext makeContext(CGSize size, bool opaque, CGFloat scale,
                      const raster::PixelMemory& memory = {}) {
  scale = pixelsPerPoint(scale);
  return {pixelBounds(size, scale), size, scale, opaque, memory};
}

CGContext makeContext(CGSize size, bool opaque, CGFloat scale, const PixelBuffer& into) {
  scale = pixelsPerPoint(scale);
  const raster::PixelRect bounds = pixelBounds(size, scale);
  const bool fits = static_cast<std::size_t>(bounds.width()) == into.width &&
                    static_cast<std::size_t>(bounds.height()) == into.height;
  return {fits ? bounds : raster::PixelRect{},
          size,
          scale,
          opaque,
          {nullptr, into.pixels, into.stride()}};
}

UIImage snapshot(CGContext& context) {
  if (!context.isDrawable()) {
    const auto side = [](CGFloat v) { return v > 0 ? v : 0; };
    return UIImage(CGImage(), context.scale(),
                   {side(context.size().width), side(context.size().height)});
  }
  return UIImage(contexts::ImageMemory::drawn(context.bounds(), context.bitmap().share()),
                 context.scale(), context.size());
}

}  // namespace

PixelSize pixelSize(CGSize size, CGFloat scale) {
  const raster::PixelRect bounds = pixelBounds(size, pixelsPerPoint(scale));
  return {static_cast<std::size_t>(bounds.width()), static_cast<std::size_t>(bounds.height())};
}

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

raster::PixelMemory ImageMemory::leftBy(UIImage&& image, CGSize size, CGFloat scale) {
  if (!image.hasPixels()) return {};
  const CGImage cgImage = image.cgImage();
  image = UIImage();
  const raster::PixelRect bounds = pixelBounds(size, pixelsPerPoint(scale));
  const std::size_t bytes =
      static_cast<std::size_t>(bounds.width()) * static_cast<std::size_t>(bounds.height()) * 4;
  if (!cgImage.isDrawn_ || cgImage.pixels_.use_count() != 1 || cgImage.rgba().size() < bytes) {
    return {};
  }
  // Letting go of a second hold makes this thread see all that others did before they let go of
  // theirs; only asking for the count does not.
  std::shared_ptr<const std::uint8_t[]>(cgImage.pixels_).reset();
  return {std::const_pointer_cast<std::uint8_t[]>(cgImage.pixels_), nullptr, 0};
}

CGImage ImageMemory::drawn(const raster::PixelRect& bounds,
                           std::shared_ptr<const std::uint8_t[]> rgba) {
  CGImage image(static_cast<std::size_t>(bounds.width()), static_cast<std::size_t>(bounds.height()),
                std::move(rgba));
  image.isDrawn_ = true;
  return image;
}

Scope::Scope(CGSize size, bool opaque, CGFloat scale, bool endable,
             const raster::PixelMemory& memory)
    : context_(makeContext(size, opaque, scale, memory)), depth_(stack().size()) {
  stack().push_back({&context_, endable, nullptr});
}

Scope::Scope(CGSize size, bool opaque, CGFloat scale, bool endable, const PixelBuffer& into)
    : context_(makeContext(size, opaque, scale, into)), depth_(stack().size()) {
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

void Scope::finish(const PixelBuffer& into) {
  raster::Canvas& canvas = context_.bitmap();
  canvas.materialize();
  if (into.format == PixelFormat::premultipliedRGBA) return;
  for (int y = context_.bounds().y0; y < context_.bounds().y1; ++y) {
    convertPixels(canvas.rowAt(y), canvas.rowAt(y), into.width, into.format);
  }
}

}  // namespace contexts
}  // namespace glyphwright
