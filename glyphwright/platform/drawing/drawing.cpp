#include <glyphwright/platform/drawing/drawing.h>

#include <algorithm>
#include <cmath>

#include <glyphwright/platform/drawing/cast_shadow.h>
#include <glyphwright/platform/drawing/stroke_with_fill.h>
#include <glyphwright/platform/raster/blur.h>
#include <glyphwright/platform/raster/mask_writer.h>

namespace glyphwright::drawing {

using raster::Canvas;
using raster::CoverageSpan;
using raster::DeviceBox;
using raster::For;
using raster::Mask;
using raster::Paint;
using raster::PixelRect;

namespace {

// The plain way to paint a shape.
void sweepShape(const Target& target, Shape& shape, const PixelRect& region, const Paint& paint,
                const Mask* clip) {
  if (region.isEmpty()) return;
  Canvas::Painter painter(target.surface.canvasFor(region), region, paint, clip, target.scratch);
  shape.sweep(region, painter);
  painter.finish();
}

void paintShape(const Target& target, Shape& shape, const Paint& paint) {
  const PixelRect region = pixelsTouched(shape.box(), target.clip.bounds);
  PixelRect casting;
  if (target.shadow && paint.source == nullptr) {
    casting = pixelsTouched(shape.box(), casterArea(*target.shadow, target.clip.bounds));
  }
  if (casting.isEmpty()) {
    if (!region.isEmpty()) sweepShape(target, shape, region, paint, target.clipMask());
    return;
  }
  const auto memory = target.scratch.lease<raster::MaskMemory>();
  Mask mask(casting, *memory);
  raster::MaskWriter writer(mask, nullptr, *target.scratch.kernels);
  shape.sweep(casting, writer);
  const Caster caster(target, mask, static_cast<double>(paint.color.alpha) / raster::kOne);
  const Way way = choose(target.plans, Task::caster, [&](Fact fact) {
    switch (fact) {
      case Fact::masked:
        return !region.isEmpty() && casting.covers(region);
      case Fact::shadowShows:
        return caster.shows();
      case Fact::directBlur:
        return raster::filtersDirectly(target.shadow->blurPixels);
      default:
        return target.holds(fact);
    }
  });
  switch (way) {
    case Way::shadowWithCaster:
      return paintShadowWithCaster(target, caster, region, paint);
    case Way::shadowRowsByTurns:
      return paintShadowRowsByTurns(target, caster, region, paint);
    default:
      castShadow(target, caster);
      sweepShape(target, shape, region, paint, target.clipMask());
  }
}

DeviceBox deviceBox(const CGRect& rect, const CGAffineTransform& toDevice) {
  const CGRect box = CGRectApplyAffineTransform(rect, toDevice);
  return {CGRectGetMinX(box), CGRectGetMinY(box), CGRectGetMaxX(box), CGRectGetMaxY(box)};
}

// The alpha of a paint's pixels as coverage.
void writeAlpha(Mask& mask, const raster::PixelSource& source) {
  const PixelRect& area = mask.bounds;
  std::vector<std::uint8_t> pixels(static_cast<std::size_t>(area.width()) * 4);
  for (int y = area.y0; y < area.y1; ++y) {
    source.pixels(area.x0, y, static_cast<std::size_t>(area.width()), pixels.data());
    std::uint16_t* to = mask.row(y);
    for (std::size_t i = 3; i < pixels.size(); i += 4) {
      *to++ = static_cast<std::uint16_t>((pixels[i] << 7) + (pixels[i] >> 1));
    }
  }
}

}  // namespace

void paintFill(const Target& target, const Fill& fill, const Paint& paint) {
  if (paint.isClear() || fill.path.isEmpty() || target.clip.bounds.isEmpty()) return;
  Shape shape(fill, target.scratch);
  paintShape(target, shape, paint);
}

void paintStroke(const Target& target, const Stroke& stroke, const Paint& paint) {
  if (paint.isClear() || stroke.path.isEmpty() || target.clip.bounds.isEmpty()) return;
  Shape shape(stroke, target.scratch);
  paintShape(target, shape, paint);
}

void paintFillAndStroke(const Target& target, const FillAndStroke& both) {
  const Stroke stroke{both.path, both.style, both.toDevice, both.bitmap, both.reach};
  const auto seen = [&](const Shape& s) { return pixelsTouched(s.box(), target.clip.bounds); };
  std::optional<Shape> filled;
  std::optional<Shape> stroked;
  std::optional<SolidShape> below;
  std::optional<SolidShape> above;
  const auto bothShow = [&] {
    if (above) return true;
    if (filled || both.path.isEmpty() || both.fill.isClear() || both.stroke.isClear()) return false;
    filled.emplace(Fill{both.path, CGAffineTransformConcat(both.placing, both.toDevice), both.rule},
                   target.scratch);
    if (seen(*filled).isEmpty()) return false;
    stroked.emplace(stroke, target.scratch, For::shapeAbove, &*filled);
    if (seen(*stroked).isEmpty()) return false;
    below.emplace(
        SolidShape{filled->edgesWithin(seen(*filled)), filled->box(), both.rule, both.fill});
    above.emplace(SolidShape{stroked->edgesWithin(seen(*stroked)), stroked->box(), stroked->rule(),
                             both.stroke});
    return true;
  };
  const Way way = choose(target.plans, Task::fillAndStroke, [&](Fact fact) {
    switch (fact) {
      case Fact::roundPen:
        return stroke.staysRound();
      case Fact::bothShow:
        return bothShow();
      case Fact::narrow:
        return raster::isNarrow(below->shape.edges) && raster::isNarrow(above->shape.edges);
      case Fact::uncut:
        return areUncut(*below, *above);
      default:
        return target.holds(fact);
    }
  });
  switch (way) {
    case Way::strokeWithFill:
      return paintStrokeWithFill(target, *below, *above);
    case Way::strokeRowsByTurns:
      return paintStrokeRowsByTurns(target, *below, *above);
    default:
      stroked.reset();
      filled.reset();
      CGPath placed = both.path;
      placed.applyTransform(both.placing);
      paintFill(target, {placed, both.toDevice, both.rule}, both.fill);
      paintStroke(target, {placed, both.style, both.toDevice, both.bitmap, both.reach},
                  both.stroke);
  }
}

std::optional<PixelRect> wholePixels(const CGRect& rect, const CGAffineTransform& toDevice,
                                     const PixelRect& limit) {
  if (toDevice.b != 0 || toDevice.c != 0) return std::nullopt;
  const DeviceBox device = deviceBox(rect, toDevice);
  const auto isWhole = [](double v, int from, int to) {
    return v <= from || v >= to || v == std::floor(v);
  };
  if (!isWhole(device.minX, limit.x0, limit.x1) || !isWhole(device.maxX, limit.x0, limit.x1) ||
      !isWhole(device.minY, limit.y0, limit.y1) || !isWhole(device.maxY, limit.y0, limit.y1)) {
    return std::nullopt;
  }
  return pixelsTouched(device, limit);
}

void paintRect(const Target& target, const CGRect& rect, const CGAffineTransform& toDevice,
               const Paint& paint) {
  const PixelRect& bounds = target.clip.bounds;
  if (paint.isClear() || bounds.isEmpty()) return;
  const std::optional<PixelRect> area = wholePixels(rect, toDevice, bounds);
  const Way way = choose(target.plans, Task::rectangle, [&](Fact fact) {
    switch (fact) {
      case Fact::onWholePixels:
        return area.has_value();
      case Fact::coversAll:
        return !area->isEmpty() && area->covers(target.surface.canvasFor(*area).bounds());
      case Fact::hidesAll:
        return paint.color.isOpaque() || target.surface.isUntouched();
      default:
        return target.holds(fact);
    }
  });
  switch (way) {
    case Way::groundAlone:
      return target.surface.canvasFor(*area).setGround(paint.color);
    case Way::pixelsAlone:
      return paintArea(target, *area, paint);
    default:
      CGPath path;
      path.addRect(rect);
      paintFill(target, {path, toDevice, FillRule::nonZero}, paint);
  }
}

void paintArea(const Target& target, const PixelRect& area, const Paint& paint) {
  const PixelRect region = intersection(area, target.clip.bounds);
  if (region.isEmpty() || paint.isClear()) return;
  const ClipNode* node = target.clip.node.get();
  const Way way = choose(target.plans, Task::area, [&](Fact fact) {
    if (fact == Fact::noOtherClips) return node->isSingle();
    return fact == Fact::pathClips && node != nullptr && region.covers(node->bounds());
  });
  if (way == Way::clipFilled) {
    // Painting through one clip is filling the clip's own path.
    Shape shape({node->path(), CGAffineTransformIdentity, node->rule()}, target.scratch);
    return sweepShape(target, shape, pixelsTouched(shape.box(), region), paint, nullptr);
  }
  Canvas::Painter painter(target.surface.canvasFor(region), region, paint, target.clipMask(),
                          target.scratch);
  const CoverageSpan span{0, region.width(), raster::kOne};
  for (int y = region.y0; y < region.y1; ++y) painter.row({y, {&span, 1}, nullptr});
  painter.finish();
}

void paintAreaWithShadow(const Target& target, const PixelRect& area, const Paint& paint) {
  if (target.shadow && !paint.isClear() && !target.clip.bounds.isEmpty()) {
    const PixelRect casting = intersection(area, casterArea(*target.shadow, target.clip.bounds));
    if (!casting.isEmpty()) {
      const auto memory = target.scratch.lease<raster::MaskMemory>();
      Mask mask(casting, *memory);
      writeAlpha(mask, *paint.source);
      castShadow(target, {target, mask, static_cast<double>(paint.sourceAlpha) / raster::kOne});
    }
  }
  paintArea(target, area, paint);
}

}  // namespace glyphwright::drawing
