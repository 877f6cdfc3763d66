#include <glyphwright/platform/drawing/inset_shadow.h>

#include <algorithm>

#include <glyphwright/platform/drawing/drawing.h>
#include <glyphwright/platform/raster/blur.h>
#include <glyphwright/platform/raster/inset_masks.h>

namespace glyphwright::drawing {

using raster::Canvas;
using raster::CoverageRow;
using raster::InsetMasks;
using raster::Kernels;
using raster::Mask;
using raster::Paint;
using raster::PixelRect;
using raster::SolidColor;

namespace {

// Rows of a shadow, cut by a mask.
class CutRows final : public raster::RowSink {
 public:
  CutRows(const Mask& inside, const PixelRect& region, raster::RowSink& sink,
          const Kernels& kernels)
      : inside_(inside),
        region_(region),
        sink_(sink),
        kernels_(kernels),
        cut_(raster::cellStride(region.width())) {}
  void row(const CoverageRow& row) override {
    const auto count = static_cast<std::size_t>(region_.width());
    std::copy_n(row.coverage, count, cut_.data());
    kernels_.multiplyCoverage(cut_.data(), inside_.row(row.y) + (region_.x0 - inside_.bounds.x0),
                              count);
    sink_.row({row.y, row.spans, cut_.data()});
  }

 private:
  const Mask& inside_;
  PixelRect region_;
  raster::RowSink& sink_;
  const Kernels& kernels_;
  std::vector<std::uint16_t> cut_;
};

// Writes rows of a shape together with the same rows of its inset shadow.
class BothRows final : public raster::RowSink {
 public:
  BothRows(Canvas& canvas, const InsetMasks& masks, const SolidColor& color,
           const SolidColor& shade, const Kernels& kernels)
      : rows_(canvas, masks.around.bounds),
        masks_(masks),
        color_(color),
        shade_(shade),
        kernels_(kernels) {}
  void row(const CoverageRow& row) override {
    kernels_.writeInset(rows_.at(row.y),
                        {masks_.around.row(row.y), row.coverage, masks_.inside.row(row.y)},
                        static_cast<std::size_t>(masks_.around.bounds.width()), color_, shade_);
  }
  void finish() { rows_.finish(); }

 private:
  Canvas::FreshRows rows_;
  const InsetMasks& masks_;
  const SolidColor& color_;
  const SolidColor& shade_;
  const Kernels& kernels_;
};

// The path, and the shadow as it is cast from where the surroundings are.
struct InPlace {
  // What lies outside the clip casts a shadow inside it, if it is not too much of the path. A box
  // counts control points, which reach a little farther than what is seen.
  static constexpr int kBeyond = 64;

  InPlace(const Target& target, const Inset& inset)
      : shape({inset.path, inset.toDevice, FillRule::evenOdd}, target.scratch),
        shadow(*inset.shadow),
        shade(solidPaint(shadow.color, inset.alpha)),
        isInside(raster::contains(target.clip.bounds, shape.box())) {
    shadow.dx -= *inset.wholeSteps;
    PixelRect limit = target.clip.bounds;
    if (!isInside) limit = grown(limit, kBeyond, kBeyond, kBeyond, kBeyond);
    isNear = isInside || raster::contains(limit, shape.box());
    whole = raster::pixelsTouched(shape.box(), limit);
    region = intersection(whole, target.clip.bounds);
  }

  // Whether the surroundings are there for all that the shadow takes from.
  bool isSurrounded(const Inset& inset) const {
    const CGRect around = CGRectApplyAffineTransform(inset.around, inset.toDevice);
    const int reach = static_cast<int>(shadow.blurPixels);
    return CGRectGetMinX(around) <= region.x0 - shadow.dx - reach &&
           CGRectGetMinY(around) <= region.y0 - shadow.dy - reach &&
           CGRectGetMaxX(around) >= region.x1 - shadow.dx + reach &&
           CGRectGetMaxY(around) >= region.y1 - shadow.dy + reach;
  }

  void rows(const Target& target, const InsetMasks& masks, raster::RowSink& sink) const {
    raster::blurRows(masks.around, raster::kOne, shadow.blurPixels, shadow.dx, shadow.dy, region,
                     target.scratch, sink);
  }

  Shape shape;
  Shadow shadow;
  Paint shade;
  bool isInside;
  bool isNear;
  PixelRect whole;   // of the path, but what is too far from the clip
  PixelRect region;  // of that, within the clip's bounds
};

void castInPlace(const Target& target, const Inset& inset, InPlace& place) {
  const PixelRect& region = place.region;
  if (region.isEmpty() || place.shade.isClear()) return;
  const Mask* clip = target.clipMask();
  const InsetMasks masks(place.shape.edgesWithin(place.whole), inset.shows, clip, target.scratch);
  Canvas::Painter painter(target.surface.canvasFor(region), region, place.shade, nullptr,
                          target.scratch);
  CutRows cut(masks.inside, region, painter, *target.scratch.kernels);
  place.rows(target, masks, cut);
  painter.finish();
}

void castFromAside(const Target& target, const Inset& inset) {
  CGPath around;
  around.reserve(inset.path.verbs().size() + 5, inset.path.points().size() + 4);
  around.addRect(inset.around);
  around.addPath(inset.path);
  around.applyTransform(CGAffineTransformMakeTranslation(-inset.aside, 0));
  CGPath edge = inset.path;
  edge.applyTransform(inset.toDevice);
  Clip inside = target.clip;
  inside.intersect(std::move(edge), inset.shows);
  paintFill(target.through(inside, inset.shadow), {around, inset.toDevice, FillRule::evenOdd},
            solidPaint(UIColor::grayColor(), inset.alpha));
}

}  // namespace

void paintInset(const Target& target, const Inset& inset) {
  if (target.clip.bounds.isEmpty()) return;
  std::optional<InPlace> place;
  const Way way = choose(target.plans, Task::inset, [&](Fact fact) {
    switch (fact) {
      case Fact::wholeSteps:
        if (inset.wholeSteps) place.emplace(target, inset);
        return place.has_value();
      case Fact::nearClip:
        return place->isNear;
      case Fact::surrounded:
        return place->region.isEmpty() || place->isSurrounded(inset);
      default:
        return target.holds(fact);
    }
  });
  if (way == Way::insetInPlace) return castInPlace(target, inset, *place);
  place.reset();
  castFromAside(target, inset);
}

void paintFillAndInset(const Target& target, const Inset& inset, const Paint& paint) {
  std::optional<InPlace> place;
  raster::ShapeMemory* edges = nullptr;
  const Way way = choose(target.plans, Task::fillAndInset, [&](Fact fact) {
    switch (fact) {
      case Fact::wholeSteps:
        if (inset.wholeSteps) place.emplace(target, inset);
        return place && !place->region.isEmpty();
      case Fact::directBlur:
        return inset.shadow && raster::filtersDirectly(inset.shadow->blurPixels);
      case Fact::inside:
        return place->isInside;
      case Fact::surrounded:
        return place->isSurrounded(inset);
      case Fact::narrow:
        edges = &place->shape.edgesWithin(place->region);
        return raster::isNarrow(edges->edges);
      default:
        return target.holds(fact);
    }
  });
  if (way == Way::insetWithFill) {
    const Kernels& kernels = *target.scratch.kernels;
    const InsetMasks masks(*edges, inset.shows, nullptr, target.scratch);
    BothRows rows(target.surface.canvasFor(place->region), masks, paint.color, place->shade.color,
                  kernels);
    place->rows(target, masks, rows);
    rows.finish();
    return;
  }
  place.reset();
  paintFill(target, {inset.path, inset.toDevice, FillRule::evenOdd}, paint);
  paintInset(target, inset);
}

}  // namespace glyphwright::drawing
