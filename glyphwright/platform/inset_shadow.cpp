#include <algorithm>
#include <cmath>

#include <glyphwright/platform/graphics_context.h>
#include <glyphwright/platform/raster/blur.h>
#include <glyphwright/platform/raster/mask_writer.h>

namespace glyphwright::contexts {

using raster::CoverageRow;
using raster::CoverageSpan;
using raster::Mask;
using raster::PixelRect;
using raster::Scratch;

namespace {

// What surrounds a shape is all that the shape leaves, and so are their shadows: rows of the
// shape's own shadow, turned round and cut by the path.
class InsideOut final : public raster::RowSink {
 public:
  InsideOut(const Mask& inside, const PixelRect& region, raster::RowSink& sink, Scratch& scratch)
      : inside_(inside), region_(region), sink_(sink), scratch_(scratch) {
    if (scratch.coverage.size() < inside.stride) scratch.coverage.resize(inside.stride);
  }
  void row(const CoverageRow& row) override {
    const auto count = static_cast<std::size_t>(region_.width());
    std::uint16_t* levels = scratch_.coverage.data();
    std::transform(row.coverage, row.coverage + count, levels, [](std::uint16_t covered) {
      return static_cast<std::uint16_t>(raster::kOne - covered);
    });
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

}  // namespace

bool castInsetShadow(CGContext& context, const CGPath& path, bool evenOdd,
                     const ShadowState& shadow) {
  const GraphicsState& state = context.state;
  context.prepareClip();
  Scratch& scratch = raster::threadScratch();
  const raster::DeviceBox box = raster::mapPoints(path, state.ctm, scratch.devicePoints);
  // A box counts control points, which reach a little farther than what is seen.
  constexpr int kBeyond = 64;
  const PixelRect limit = grown(state.clip.bounds, kBeyond, kBeyond, kBeyond, kBeyond);
  if (!raster::contains(limit, box)) return false;
  const PixelRect whole = raster::pixelsTouched(box, limit);
  const PixelRect region = intersection(whole, state.clip.bounds);
  raster::Paint paint;
  paint.color = raster::solidColor(shadow.color.red(), shadow.color.green(), shadow.color.blue(),
                                   shadow.color.alpha() * state.alpha);
  if (region.isEmpty() || paint.isClear()) return true;
  Mask shape(whole, scratch.casterMask);
  raster::edgesOfPath(path, scratch.devicePoints, box, whole, raster::kFillTolerance,
                      *scratch.kernels, scratch.edges);
  const auto fillMask = [&](Mask& mask, raster::FillRule rule) {
    raster::MaskWriter writer(mask, nullptr, scratch);
    raster::sweep(scratch.edges, rule, scratch, writer);
  };
  fillMask(shape, raster::FillRule::evenOdd);
  std::optional<Mask> filled;
  if (!evenOdd) fillMask(filled.emplace(whole, scratch.insideMask), raster::FillRule::nonZero);
  const Mask* clip = state.clip.node == nullptr ? nullptr : &state.clip.node->mask(scratch);
  raster::Canvas::Painter painter(context.canvas(), region, paint, clip, scratch);
  InsideOut insideOut(filled ? *filled : shape, region, painter, scratch);
  raster::blurRows(shape, shadow.blurPixels, shadow.dx, shadow.dy, region, scratch, insideOut);
  painter.finish();
  return true;
}

}  // namespace glyphwright::contexts
