#include <glyphwright/platform/raster/shadow_rows.h>

#include <algorithm>
#include <utility>

namespace glyphwright::raster {

ShadowAndCasterRows::ShadowAndCasterRows(Canvas& canvas, const PixelRect& region,
                                         const SolidColor& shadow, const Caster& caster,
                                         Scratch& scratch)
    : rows_(canvas, region),
      shadow_(shadow),
      caster_(caster),
      kernels_(*scratch.kernels),
      width_(static_cast<std::size_t>(region.width())),
      casterWidth_(static_cast<std::size_t>(caster.region.width())),
      casterLeft_(static_cast<std::size_t>(caster.region.x0 - region.x0)) {
  scratch.coverage.assign(2 * width_, 0);
  coverage_ = scratch.coverage.data();
  next_ = coverage_ + width_;
  placeNext(caster.region.y0);
}

void ShadowAndCasterRows::placeNext(int y) {
  if (y >= caster_.region.y1) return;
  std::copy_n(caster_.mask.row(y) + (caster_.region.x0 - caster_.mask.bounds.x0), casterWidth_,
              next_ + casterLeft_);
}

void ShadowAndCasterRows::row(const CoverageRow& row) {
  std::uint8_t* rgba = rows_.at(row.y);
  if (row.y < caster_.region.y0 || row.y >= caster_.region.y1) {
    kernels_.writeSolid(rgba, row.coverage, width_, shadow_);
    return;
  }
  std::swap(coverage_, next_);
  placeNext(row.y + 1);
  kernels_.writeTwoSolids(rgba, row.coverage, coverage_, width_, shadow_, caster_.color);
}

ShapeAndInsetRows::ShapeAndInsetRows(Canvas& canvas, const InsetMasks& masks,
                                     const SolidColor& color, const SolidColor& shade,
                                     const Scratch& scratch)
    : rows_(canvas, masks.around.bounds),
      masks_(masks),
      color_(color),
      shade_(shade),
      kernels_(*scratch.kernels) {}

void ShapeAndInsetRows::row(const CoverageRow& row) {
  kernels_.writeInset(rows_.at(row.y),
                      {masks_.around.row(row.y), row.coverage, masks_.inside.row(row.y)},
                      static_cast<std::size_t>(masks_.around.bounds.width()), color_, shade_);
}

}  // namespace glyphwright::raster
