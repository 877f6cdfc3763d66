#include <algorithm>
#include <optional>

#include <glyphwright/platform/drawing/cast_shadow.h>

namespace glyphwright::drawing {

using raster::Canvas;
using raster::CoverageRow;
using raster::CoverageRows;
using raster::CoverageSpan;
using raster::For;
using raster::Mask;
using raster::Paint;
using raster::PixelRect;

namespace {

// Writes rows of a shadow together with the same rows of what casts it.
class BothRows final : public raster::RowSink {
 public:
  BothRows(Canvas& canvas, const PixelRect& area, const Caster& caster, const PixelRect& region,
           const raster::SolidColor& color, const raster::Kernels& kernels)
      : rows_(canvas, area),
        mask_(caster.mask),
        shadow_(caster.paint.color),
        region_(region),
        color_(color),
        kernels_(kernels),
        from_(static_cast<std::size_t>(region.x0 - area.x0)),
        until_(static_cast<std::size_t>(region.x1 - area.x0)) {}

  void row(const CoverageRow& row) override {
    rows({row.y, 1, row.spans.back().x1, row.coverage, 0});
  }
  void rows(const CoverageRows& rows) override {
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
    shadowUntil(std::min(region_.y0, end));
    if (const int both = std::min(region_.y1, end) - y; both > 0) {
      const auto count = static_cast<std::size_t>(both);
      kernels_.writeTwoSolids(rgba, rows_.rowBytes(),
                              {coverage, rows.stride, mask_.row(y) + (region_.x0 - mask_.bounds.x0),
                               mask_.stride, count, width, from_, until_},
                              shadow_, color_);
      y += both;
      coverage += count * rows.stride;
      rgba += count * rows_.rowBytes();
    }
    shadowUntil(end);
  }
  void finish() { rows_.finish(); }

 private:
  Canvas::FreshRows rows_;
  const Mask& mask_;
  const raster::SolidColor& shadow_;
  PixelRect region_;
  const raster::SolidColor& color_;
  const raster::Kernels& kernels_;
  std::size_t from_;  // of the caster's columns, in those of the shadow's rows
  std::size_t until_;
};

// Hands rows of a shadow on, each followed by the same row of what casts it.
class RowsByTurns final : public raster::RowSink {
 public:
  RowsByTurns(const Mask& caster, const PixelRect& region, raster::RowSink& painter,
              raster::RowSink* shadow)
      : caster_(caster), region_(region), painter_(painter), shadow_(shadow) {}

  void row(const CoverageRow& row) override {
    shadow_->row(row);
    casterRows(row.y, row.y + 1);
  }
  // The caster's alone, from `from` up to but not including `until`.
  void casterRows(int from, int until) {
    from = std::max(from, region_.y0);
    until = std::min(until, region_.y1);
    const CoverageSpan span{0, region_.width(), CoverageSpan::kVaries};
    for (int y = from; y < until; ++y) {
      painter_.row({y, {&span, 1}, caster_.row(y) + (region_.x0 - caster_.bounds.x0)});
    }
  }

 private:
  const Mask& caster_;
  PixelRect region_;
  raster::RowSink& painter_;
  raster::RowSink* shadow_;
};

}  // namespace

void paintShadowWithCaster(const Target& target, const Caster& caster, const PixelRect& region,
                           const Paint& paint) {
  // Over all that either touches: the shadow is nothing outside its area.
  const PixelRect both = united(caster.area, region);
  BothRows rows(target.surface.canvasFor(both), both, caster, region, paint.color,
                *target.scratch.kernels);
  shadowRows(target, caster, both, rows);
  rows.finish();
}

void paintShadowRowsByTurns(const Target& target, const Caster& caster, const PixelRect& region,
                            const Paint& paint) {
  const bool shows = caster.shows();
  const PixelRect& area = caster.area;
  Canvas& canvas = target.surface.canvasFor(shows ? united(area, region) : region);
  const Mask* clip = target.clipMask();
  std::optional<Canvas::Painter> shadow;
  if (shows) shadow.emplace(canvas, area, caster.paint, clip, target.scratch);
  Canvas::Painter own(canvas, region, paint, clip, target.scratch, For::shapeAbove);
  RowsByTurns rows(caster.mask, region, own, shows ? &*shadow : nullptr);
  if (shows) {
    rows.casterRows(region.y0, area.y0);
    shadowRows(target, caster, area, rows);
    shadow->finish();
    rows.casterRows(area.y1, region.y1);
  } else {
    rows.casterRows(region.y0, region.y1);
  }
  own.finish();
}

}  // namespace glyphwright::drawing
