#include <glyphwright/platform/graphics_context.h>

#include <algorithm>
#include <cmath>

#include <glyphwright/platform/path_shapes.h>
#include <glyphwright/platform/raster/blur.h>
#include <glyphwright/platform/raster/mask_writer.h>
#include <glyphwright/platform/raster/shadow_rows.h>

namespace glyphwright {

using raster::Canvas;
using raster::CoverageRow;
using raster::CoverageSpan;
using raster::Mask;
using raster::MaskWriter;
using raster::Paint;
using raster::PixelRect;
using raster::Scratch;

namespace {

// Paints rows of a mask.
class MaskRows {
 public:
  MaskRows(const Mask& mask, const PixelRect& region, raster::RowSink& sink)
      : mask_(mask), region_(region), sink_(sink) {}
  void emit(int y) const {
    const CoverageSpan span{0, region_.width(), CoverageSpan::kVaries};
    sink_.row({y, {&span, 1}, mask_.row(y) + (region_.x0 - mask_.bounds.x0)});
  }
  /// Those of the region from `from` up to but not including `until`.
  void emit(int from, int until) const {
    from = std::max(from, region_.y0);
    until = std::min(until, region_.y1);
    for (int y = from; y < until; ++y) emit(y);
  }

 private:
  const Mask& mask_;
  PixelRect region_;
  raster::RowSink& sink_;
};

// Rows of a shadow, each followed by the same row of what casts it while it is at hand.
class ShadowAndCaster final : public raster::RowSink {
 public:
  ShadowAndCaster(raster::RowSink& shadow, const MaskRows& caster)
      : shadow_(shadow), caster_(caster) {}
  void row(const CoverageRow& row) override {
    shadow_.row(row);
    caster_.emit(row.y, row.y + 1);
  }

 private:
  raster::RowSink& shadow_;
  const MaskRows& caster_;
};

void emitFull(const PixelRect& region, raster::RowSink& sink) {
  const CoverageSpan span{0, region.width(), raster::kOne};
  for (int y = region.y0; y < region.y1; ++y) sink.row({y, {&span, 1}, nullptr});
}

// The alpha of a paint's pixels as coverage.
Mask alphaMask(const PixelRect& area, const raster::PixelSource& source, Scratch& scratch) {
  Mask mask(area, scratch.casterMask);
  std::vector<std::uint8_t> pixels(static_cast<std::size_t>(area.width()) * 4);
  for (int y = area.y0; y < area.y1; ++y) {
    source.pixels(area.x0, y, static_cast<std::size_t>(area.width()), pixels.data());
    std::uint16_t* to = mask.row(y);
    for (std::size_t i = 3; i < pixels.size(); i += 4) {
      *to++ = static_cast<std::uint16_t>((pixels[i] << 7) + (pixels[i] >> 1));
    }
  }
  return mask;
}

class CanvasSource final : public raster::PixelSource {
 public:
  explicit CanvasSource(Canvas& canvas) : canvas_(canvas) {}
  void pixels(int x, int y, std::size_t count, std::uint8_t* rgba) const override {
    const std::uint8_t* from =
        canvas_.rowAt(y) + static_cast<std::size_t>(x - canvas_.bounds().x0) * 4;
    std::copy_n(from, count * 4, rgba);
  }

 private:
  Canvas& canvas_;
};

// A path that is in device pixels already.
FilledShape onDevice(const CGPath& path, raster::FillRule rule, Scratch& scratch) {
  return {path, CGAffineTransformIdentity, rule, scratch};
}

}  // namespace

ClipNode::~ClipNode() {
  std::shared_ptr<const ClipNode> next = std::move(parent_);
  while (next != nullptr && next.use_count() == 1) next = std::move(next->parent_);
}

const Mask& ClipMasks::maskOf(const std::shared_ptr<const ClipNode>& node, Scratch& scratch) {
  // Those that have no mask, from the innermost one out.
  std::vector<std::shared_ptr<const ClipNode>> missing;
  std::shared_ptr<const ClipNode> outer = node;
  for (; outer != nullptr && outer->mask_ == nullptr; outer = outer->parent_) {
    missing.push_back(outer);
  }
  for (; !missing.empty(); missing.pop_back()) {
    const std::shared_ptr<const ClipNode>& inner = missing.back();
    auto mask = std::make_unique<Mask>(inner->bounds_);
    const FilledShape shape = onDevice(inner->path_, inner->rule_, scratch);
    shape.edges(inner->bounds_, scratch);
    MaskWriter writer(*mask, outer == nullptr ? nullptr : outer->mask_.get(), scratch);
    raster::sweep(scratch.edges, inner->rule_, scratch, writer);
    keep(inner, std::move(mask));
    outer = inner;
  }
  return *node->mask_;
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

CGContext::CGContext(const PixelRect& pixelBounds, CGSize pointSize, CGFloat pixelsPerPoint,
                     bool isOpaque, const raster::PixelMemory& memory)
    : bounds(pixelBounds), size(pointSize), scale(pixelsPerPoint), opaque(isOpaque) {
  state.ctm = CGAffineTransformMakeScale(scale, scale);
  state.clip.bounds = bounds;
  if (isDrawable()) {
    base_.emplace(bounds, raster::solidColor(0, 0, 0, opaque ? 1 : 0), memory);
  }
}

Canvas& CGContext::canvasFor(const PixelRect& region) {
  if (groups.empty()) return *base_;
  Group& group = groups.back();
  // What casts a shadow from beyond the clip is rare, and needs more pixels than what shows.
  const PixelRect& shown = group.outer.clip.bounds;
  const PixelRect& wanted = shown.covers(region) ? shown : group.reach;
  if (!group.canvas) {
    group.canvas.emplace(wanted, raster::solidColor(0, 0, 0, 0));
  } else if (!group.canvas->bounds().covers(region)) {
    group.canvas->growTo(wanted);
  }
  return *group.canvas;
}

PixelRect CGContext::casterArea() const {
  const int reach = raster::blurReach(state.shadow->blurPixels);
  const PixelRect& clip = state.clip.bounds;
  const PixelRect moved{clip.x0 - state.shadow->dx, clip.y0 - state.shadow->dy,
                        clip.x1 - state.shadow->dx, clip.y1 - state.shadow->dy};
  return grown(moved, reach, reach, reach, reach);
}

PixelRect CGContext::reach() const {
  const PixelRect& clip = state.clip.bounds;
  return state.shadow && !clip.isEmpty() ? united(clip, casterArea()) : clip;
}

void CGContext::castShadow(const Mask& caster, double casterAlpha, const CasterPaint* own) {
  const ShadowState& shadow = *state.shadow;
  Scratch& scratch = raster::threadScratch();
  const Mask* clip = clipMask();
  const int reach = raster::blurReach(shadow.blurPixels);
  const PixelRect moved{caster.bounds.x0 + shadow.dx, caster.bounds.y0 + shadow.dy,
                        caster.bounds.x1 + shadow.dx, caster.bounds.y1 + shadow.dy};
  const PixelRect area = intersection(grown(moved, reach, reach, reach, reach), state.clip.bounds);
  const Paint paint = solidPaint(shadow.color, casterAlpha);
  const bool shows = !area.isEmpty() && !paint.isClear();
  if (!shows && own == nullptr) return;
  // The shadow is nothing outside its area.
  const PixelRect both = own == nullptr ? area : shows ? united(area, own->region) : own->region;
  Canvas& canvas = canvasFor(both);
  if (shows && own != nullptr && clip == nullptr && canvas.isUntouched() &&
      raster::filtersDirectly(shadow.blurPixels)) {
    raster::ShadowAndCasterRows rows(canvas, both, paint.color,
                                     {caster, own->region, own->paint.color}, scratch);
    raster::blurRows(caster, 0, shadow.blurPixels, shadow.dx, shadow.dy, both, scratch, rows);
    rows.finish();
    return;
  }
  std::optional<Canvas::Painter> shadowPainter;
  if (shows) shadowPainter.emplace(canvas, area, paint, clip, scratch);
  const auto blurInto = [&](raster::RowSink& sink) {
    raster::blurRows(caster, 0, shadow.blurPixels, shadow.dx, shadow.dy, area, scratch, sink);
    shadowPainter->finish();
  };
  if (own == nullptr) {
    blurInto(*shadowPainter);
    return;
  }
  Canvas::Painter ownPainter(canvas, own->region, own->paint, clip, scratch);
  const MaskRows ownRows(caster, own->region, ownPainter);
  if (shows) {
    ownRows.emit(own->region.y0, area.y0);
    ShadowAndCaster turns(*shadowPainter, ownRows);
    blurInto(turns);
    ownRows.emit(area.y1, own->region.y1);
  } else {
    ownRows.emit(own->region.y0, own->region.y1);
  }
  ownPainter.finish();
}

std::optional<ShadowState> CGContext::shadowState(CGSize offset, CGFloat blur,
                                                  const CGColor& color) const {
  if (!(color.alpha() > 0)) return std::nullopt;
  if (!std::isfinite(offset.width) || !std::isfinite(offset.height)) return std::nullopt;
  if (!(blur > 0) || !std::isfinite(blur)) blur = 0;
  if (offset.width == 0 && offset.height == 0 && blur == 0) return std::nullopt;
  // Whole device pixels, truncated; no bitmap is larger than the limit, so neither is an offset
  // that can be seen.
  const auto pixels = [this](CGFloat points) {
    return static_cast<int>(std::clamp(points * scale, -4 * kMaxPixelSide, 4 * kMaxPixelSide));
  };
  return ShadowState{pixels(offset.width), pixels(offset.height),
                     std::min(blur * scale, kMaxBlurPixels), color};
}

const Mask* CGContext::clipMask() {
  const auto& node = state.clip.node;
  return node == nullptr ? nullptr : &clipMasks_.maskOf(node, raster::threadScratch());
}

void CGContext::paintShape(const Shape& shape, const Paint& paint) {
  Scratch& scratch = raster::threadScratch();
  const PixelRect region = pixelsTouched(shape.box, state.clip.bounds);
  if (state.shadow && paint.source == nullptr) {
    const PixelRect casting = pixelsTouched(shape.box, casterArea());
    if (!casting.isEmpty()) {
      Mask caster(casting, scratch.casterMask);
      shape.edges(casting, scratch);
      MaskWriter writer(caster, nullptr, scratch);
      raster::sweep(scratch.edges, shape.rule, scratch, writer);
      const double alpha = static_cast<double>(paint.color.alpha) / raster::kOne;
      if (!region.isEmpty() && casting.covers(region)) {
        const CasterPaint own{region, paint};
        castShadow(caster, alpha, &own);
        return;
      }
      castShadow(caster, alpha, nullptr);
    }
  }
  if (region.isEmpty()) return;
  const Mask* clip = clipMask();
  shape.edges(region, scratch);
  Canvas::Painter painter(canvasFor(region), region, paint, clip, scratch);
  raster::sweep(scratch.edges, shape.rule, scratch, painter);
  painter.finish();
}

void CGContext::paintArea(const PixelRect& area, const Paint& paint, bool castsShadow) {
  Scratch& scratch = raster::threadScratch();
  if (castsShadow && state.shadow && paint.source != nullptr) {
    const PixelRect casting = intersection(area, casterArea());
    if (!casting.isEmpty()) {
      castShadow(alphaMask(casting, *paint.source, scratch),
                 static_cast<double>(paint.sourceAlpha) / raster::kOne, nullptr);
    }
  }
  const PixelRect region = intersection(area, state.clip.bounds);
  if (region.isEmpty()) return;
  const ClipNode* node = state.clip.node.get();
  if (node != nullptr && node->isSingle() && region.covers(node->bounds())) {
    // Painting through one clip is filling the clip's own path.
    const FilledShape shape = onDevice(node->path(), node->rule(), scratch);
    const PixelRect touched = pixelsTouched(shape.box, region);
    if (touched.isEmpty()) return;
    shape.edges(touched, scratch);
    Canvas::Painter painter(canvasFor(touched), touched, paint, nullptr, scratch);
    raster::sweep(scratch.edges, shape.rule, scratch, painter);
    painter.finish();
    return;
  }
  const Mask* clip = clipMask();
  Canvas::Painter painter(canvasFor(region), region, paint, clip, scratch);
  emitFull(region, painter);
  painter.finish();
}

void CGContext::clipTo(CGPath devicePath, raster::FillRule rule) {
  Clip& clip = state.clip;
  const FilledShape shape = onDevice(devicePath, rule, raster::threadScratch());
  clip.bounds = pixelsTouched(shape.box, clip.bounds);
  if (clip.bounds.isEmpty()) {
    clip = {};
    return;
  }
  clip.node = std::make_shared<const ClipNode>(std::move(devicePath), rule, clip.bounds, clip.node);
}

void CGContext::clipTo(const PixelRect& area) {
  state.clip.bounds = intersection(state.clip.bounds, area);
  if (state.clip.bounds.isEmpty()) state.clip = {};
}

void CGContext::beginGroup() {
  const PixelRect& clip = state.clip.bounds;
  PixelRect far = reach();
  // Beyond this it would be larger than any bitmap may be, for a shadow from very far away.
  if (static_cast<CGFloat>(far.width()) * far.height() > kMaxPixels) far = clip;
  groups.push_back({std::nullopt, far, state, saved.size()});
  state.alpha = 1;
  state.shadow.reset();
  // The clip cuts the finished group once; applied inside as well, it would thin its edges twice.
  state.clip = {far, nullptr};
}

CGContext::Group CGContext::takeGroup() {
  Group group = std::move(groups.back());
  groups.pop_back();
  saved.erase(saved.begin() + static_cast<std::ptrdiff_t>(group.savedDepth), saved.end());
  state = std::move(group.outer);
  if (group.canvas) group.canvas->materialize();
  return group;
}

void CGContext::endGroup() {
  if (groups.empty()) return;
  Group group = takeGroup();
  if (!group.canvas) return;
  const CanvasSource source(*group.canvas);
  Paint paint;
  paint.source = &source;
  paint.sourceAlpha = static_cast<std::int16_t>(state.alpha * raster::kOne + 0.5);
  paintArea(group.canvas->bounds(), paint, true);
}

void CGContext::endGroupAsMask() {
  if (groups.size() < 2) return;
  Group mask = takeGroup();
  std::optional<Canvas>& masked = groups.back().canvas;
  if (!mask.canvas) {
    masked.reset();
  } else if (masked) {
    masked->materialize();
    masked->multiplyByAlpha(*mask.canvas);
  }
}

}  // namespace glyphwright
