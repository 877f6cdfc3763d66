#include <glyphwright/platform/raster/inset_masks.h>

#include <glyphwright/platform/raster/mask_writer.h>

namespace glyphwright::raster {
namespace {

// Both masks straight from narrow cells.
class BothWriter final : public RowSink {
 public:
  BothWriter(InsetMasks& masks, const Kernels& kernels) : masks_(masks), kernels_(kernels) {}

  bool cells(int y, const CellRows& rows) override {
    for (std::size_t row = 0; row < rows.rows; ++row) {
      const int at = y + static_cast<int>(row);
      kernels_.sumInset(rows.cells + row * rows.stride, rows.stride, rows.rule,
                        masks_.around.row(at), masks_.inside.row(at));
    }
    return true;
  }
  void row(const CoverageRow& row) override { static_cast<void>(row); }

 private:
  InsetMasks& masks_;
  const Kernels& kernels_;
};

}  // namespace

InsetMasks::InsetMasks(ShapeMemory& shape, FillRule rule, const Mask* clip, Scratch& scratch)
    : aroundMemory(scratch.lease<MaskMemory>(For::shape)),
      insideMemory(scratch.lease<MaskMemory>(For::shapeAbove)),
      around(shape.edges.region, *aroundMemory),
      inside(shape.edges.region, *insideMemory) {
  const Kernels& kernels = *scratch.kernels;
  const PixelRect& region = shape.edges.region;
  const auto width = static_cast<std::size_t>(region.width());
  const auto write = [&](FillRule by, RowSink& sink) {
    sweep(shape.edges, by, shape.cells, kernels, sink);
  };
  if (isNarrow(shape.edges)) {
    BothWriter both(*this, kernels);
    write(rule, both);
  } else {
    MaskWriter covered(around, nullptr, kernels);
    write(FillRule::evenOdd, covered);
    for (int y = region.y0; y < region.y1; ++y) {
      std::uint16_t* row = around.row(y);
      for (std::size_t x = 0; x < width; ++x) row[x] = static_cast<std::uint16_t>(kOne - row[x]);
    }
    MaskWriter shown(inside, nullptr, kernels);
    write(rule, shown);
  }
  if (clip == nullptr) return;
  const PixelRect shown = intersection(region, clip->bounds);
  for (int y = shown.y0; y < shown.y1; ++y) {
    kernels.multiplyCoverage(inside.row(y) + (shown.x0 - region.x0),
                             clip->row(y) + (shown.x0 - clip->bounds.x0),
                             static_cast<std::size_t>(shown.width()));
  }
}

}  // namespace glyphwright::raster
