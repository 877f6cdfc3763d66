#include <glyphwright/platform/raster/shadow_rows.h>

#include <algorithm>

namespace glyphwright::raster {

ShadowAndCasterRows::ShadowAndCasterRows(Canvas& canvas, const PixelRect& region,
                                         const SolidColor& shadow, const Caster& caster,
                                         const Scratch& scratch)
    : rows_(canvas, region),
      shadow_(shadow),
      caster_(caster),
      kernels_(*scratch.kernels),
      from_(static_cast<std::size_t>(caster.region.x0 - region.x0)),
      until_(static_cast<std::size_t>(caster.region.x1 - region.x0)) {}

void ShadowAndCasterRows::row(const CoverageRow& row) {
  rows({row.y, 1, row.spans.back().x1, row.coverage, 0});
}

void ShadowAndCasterRows::rows(const CoverageRows& rows) {
  std::uint8_t* rgba = rows_.at(rows.y, rows.rows);
  const std::uint16_t* coverage = rows.coverage;
  const auto width = static_cast<std::size_t>(rows.width);
  const int end = rows.y + rows.rows;
  int y = rows.y;
  const auto shadowUntil = [&](int until) {
    for (; y < until; ++y, coverage += rows.stride, rgba += rows_.rowBytes()) {
      kernels_.writeSolid(rgba, coverage, width, shadow_);
    }
  };
  shadowUntil(std::min(caster_.region.y0, end));
  if (const int both = std::min(caster_.region.y1, end) - y; both > 0) {
    const auto count = static_cast<std::size_t>(both);
    const Mask& mask = caster_.mask;
    kernels_.writeTwoSolids(
        rgba, rows_.rowBytes(),
        {coverage, rows.stride, mask.row(y) + (caster_.region.x0 - mask.bounds.x0), mask.stride,
         count, width, from_, until_},
        shadow_, caster_.color);
    y += both;
    coverage += count * rows.stride;
    rgba += count * rows_.rowBytes();
  }
  shadowUntil(end);
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
