#include <glyphwright/platform/raster/inset_masks.h>

#include <glyphwright/platform/raster/mask_writer.h>

namespace glyphwright::raster {
namespace {

class Writer final : public RowSink {
 public:
  Writer(InsetMasks& masks, const Kernels& kernels) : masks_(masks), kernels_(kernels) {}

  bool cells(int y, const CellRows& rows) override {
    for (std::size_t row = 0; row < rows.rows; ++row) {
      const int at = y + static_cast<int>(row);
      kernels_.sumInset(rows.cells + row * rows.stride, rows.stride, rows.rule,
                        masks_.around.row(at), masks_.inside.row(at));
    }
    return true;
  }
  // Cells that are too wide for that; the masks take two ways then.
  void row(const CoverageRow& row) override {
    static_cast<void>(row);
    masks_.isExact = false;
  }

 private:
  InsetMasks& masks_;
  const Kernels& kernels_;
};

}  // namespace

InsetMasks::InsetMasks(FillRule rule, const Mask* clip, Scratch& scratch)
    : around(scratch.edges.region, scratch.casterMask),
      inside(scratch.edges.region, scratch.insideMask) {
  const PixelRect& region = scratch.edges.region;
  const auto width = static_cast<std::size_t>(region.width());
  Writer both(*this, *scratch.kernels);
  sweep(scratch.edges, rule, scratch, both);
  if (!isExact) {
    MaskWriter shape(around, nullptr, scratch);
    sweep(scratch.edges, FillRule::evenOdd, scratch, shape);
    for (int y = region.y0; y < region.y1; ++y) {
      std::uint16_t* row = around.row(y);
      for (std::size_t x = 0; x < width; ++x) row[x] = static_cast<std::uint16_t>(kOne - row[x]);
    }
    MaskWriter cut(inside, nullptr, scratch);
    sweep(scratch.edges, rule, scratch, cut);
  }
  if (clip == nullptr) return;
  const PixelRect shown = intersection(region, clip->bounds);
  for (int y = shown.y0; y < shown.y1; ++y) {
    scratch.kernels->multiplyCoverage(inside.row(y) + (shown.x0 - region.x0),
                                      clip->row(y) + (shown.x0 - clip->bounds.x0),
                                      static_cast<std::size_t>(shown.width()));
  }
}

}  // namespace glyphwright::raster
