#include <algorithm>

#include <glyphwright/platform/graphics_context.h>
#include <glyphwright/platform/path_shapes.h>
#include <glyphwright/platform/raster/blur.h>
#include <glyphwright/platform/raster/inset_masks.h>
#include <glyphwright/platform/raster/shadow_rows.h>

namespace glyphwright::contexts {

using raster::CoverageRow;
using raster::InsetMasks;
using raster::Mask;
using raster::PixelRect;
using raster::Scratch;
using raster::SolidColor;

namespace {

// Rows of a shadow, cut by a mask.
class CutRows final : public raster::RowSink {
 public:
  CutRows(const Mask& inside, const PixelRect& region, raster::RowSink& sink, Scratch& scratch)
      : inside_(inside), region_(region), sink_(sink), scratch_(scratch) {
    if (scratch.coverage.size() < inside.stride) scratch.coverage.resize(inside.stride);
  }
  void row(const CoverageRow& row) override {
    const auto count = static_cast<std::size_t>(region_.width());
    std::uint16_t* levels = scratch_.coverage.data();
    std::copy_n(row.coverage, count, levels);
    scratch_.kernels->multiplyCoverage(
        levels, inside_.row(row.y) + (region_.x0 - inside_.bounds.x0), count);
    sink_.row({row.y, row.spans, levels});
  }

 private:
  const Mask& inside_;
  PixelRect region_;
  raster::RowSink& sink_;
  Scratch& scratch_;
};

// Whether the surroundings are there for all that the shadow in a region takes from.
bool castsEverywhere(const CGContext& context, const InsetShadow& inset, const PixelRect& region) {
  const CGRect around = CGRectApplyAffineTransform(inset.around, context.state.ctm);
  const ShadowState& shadow = inset.shadow;
  const int reach = static_cast<int>(shadow.blurPixels);
  return CGRectGetMinX(around) <= region.x0 - shadow.dx - reach &&
         CGRectGetMinY(around) <= region.y0 - shadow.dy - reach &&
         CGRectGetMaxX(around) >= region.x1 - shadow.dx + reach &&
         CGRectGetMaxY(around) >= region.y1 - shadow.dy + reach;
}

InsetMasks masksOf(const CGPath& path, bool evenOdd, const raster::DeviceBox& box,
                   const PixelRect& region, const Mask* clip, Scratch& scratch) {
  raster::edgesOfPath(path, scratch.devicePoints, box, region, raster::kFillTolerance,
                      *scratch.kernels, scratch.edges);
  return {evenOdd ? raster::FillRule::evenOdd : raster::FillRule::nonZero, clip, scratch};
}

void blurAround(const InsetMasks& masks, const ShadowState& shadow, const PixelRect& region,
                Scratch& scratch, raster::RowSink& sink) {
  raster::blurRows(masks.around, raster::kOne, shadow.blurPixels, shadow.dx, shadow.dy, region,
                   scratch, sink);
}

}  // namespace

bool castInsetShadow(CGContext& context, const CGPath& path, const InsetShadow& inset) {
  const GraphicsState& state = context.state;
  const ShadowState& shadow = inset.shadow;
  context.clipMask();
  Scratch& scratch = raster::threadScratch();
  const raster::DeviceBox box = raster::mapPoints(path, state.ctm, scratch.devicePoints);
  // What lies outside the clip casts a shadow inside it, if it is not too much of the path. A box
  // counts control points, which reach a little farther than what is seen.
  PixelRect limit = state.clip.bounds;
  if (!raster::contains(limit, box)) {
    constexpr int kBeyond = 64;
    limit = grown(limit, kBeyond, kBeyond, kBeyond, kBeyond);
    if (!raster::contains(limit, box)) return false;
  }
  const PixelRect whole = raster::pixelsTouched(box, limit);
  const PixelRect region = intersection(whole, state.clip.bounds);
  const raster::Paint paint = solidPaint(shadow.color, state.alpha);
  if (region.isEmpty() || paint.isClear()) return true;
  if (!castsEverywhere(context, inset, region)) return false;
  const Mask* clip = context.clipMask();
  const InsetMasks masks = masksOf(path, inset.evenOdd, box, whole, clip, scratch);
  raster::Canvas::Painter painter(context.canvasFor(region), region, paint, nullptr, scratch);
  CutRows rows(masks.inside, region, painter, scratch);
  blurAround(masks, shadow, region, scratch, rows);
  painter.finish();
  return true;
}

bool fillWithInsetShadow(CGContext& context, const CGPath& path, const InsetShadow& inset) {
  const GraphicsState& state = context.state;
  const ShadowState& shadow = inset.shadow;
  if (state.shadow || state.clip.node != nullptr || state.clip.bounds.isEmpty()) return false;
  if (!raster::filtersDirectly(shadow.blurPixels)) return false;
  const SolidColor color = solidColor(state.fillColor, state.alpha);
  const SolidColor shade = solidColor(shadow.color, state.alpha);
  if (color.isClear() || shade.isClear()) return false;
  Scratch& scratch = raster::threadScratch();
  const raster::DeviceBox box = raster::mapPoints(path, state.ctm, scratch.devicePoints);
  if (!raster::contains(state.clip.bounds, box)) return false;
  const PixelRect region = raster::pixelsTouched(box, state.clip.bounds);
  if (region.isEmpty() || !castsEverywhere(context, inset, region)) return false;
  raster::Canvas& canvas = context.canvasFor(region);
  if (!canvas.isUntouched()) return false;
  const InsetMasks masks = masksOf(path, inset.evenOdd, box, region, nullptr, scratch);
  if (!masks.isExact) return false;
  context.pendingPath = {};
  raster::ShapeAndInsetRows rows(canvas, masks, color, shade, scratch);
  blurAround(masks, shadow, region, scratch, rows);
  rows.finish();
  return true;
}

}  // namespace glyphwright::contexts
