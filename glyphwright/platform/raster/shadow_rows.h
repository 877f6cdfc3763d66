#pragma once

#include <glyphwright/platform/raster/canvas.h>
#include <glyphwright/platform/raster/inset_masks.h>

namespace glyphwright::raster {

/// Writes rows of a shadow together with the same rows of what casts it. Rows of the region come
/// top to bottom, each once, as whole rows of varying coverage, several at a time.
class ShadowAndCasterRows final : public RowSink {
 public:
  struct Caster {
    const Mask& mask;  // with a block to spare on either side
    PixelRect region;  // of the mask and of the rows' region; the caster shows nowhere else
    const SolidColor& color;
  };
  /// The canvas is pristine and its ground clear; `region` lies inside its bounds.
  ShadowAndCasterRows(Canvas& canvas, const PixelRect& region, const SolidColor& shadow,
                      const Caster& caster, const Scratch& scratch);
  void row(const CoverageRow& row) override;
  void rows(const CoverageRows& rows) override;
  /// Lays the ground below the region.
  void finish() { rows_.finish(); }

 private:
  Canvas::FreshRows rows_;
  const SolidColor& shadow_;
  Caster caster_;
  const Kernels& kernels_;
  std::size_t from_;  // of the caster's columns, in those of the region
  std::size_t until_;
};

/// Writes rows of a shape together with the same rows of its inset shadow, which come top to
/// bottom, each once, as whole rows of varying coverage.
class ShapeAndInsetRows final : public RowSink {
 public:
  /// The canvas is pristine and its ground clear; the masks' bounds lie inside its own.
  ShapeAndInsetRows(Canvas& canvas, const InsetMasks& masks, const SolidColor& color,
                    const SolidColor& shade, const Scratch& scratch);
  void row(const CoverageRow& row) override;
  /// Lays the ground below the region.
  void finish() { rows_.finish(); }

 private:
  Canvas::FreshRows rows_;
  const InsetMasks& masks_;
  const SolidColor& color_;
  const SolidColor& shade_;
  const Kernels& kernels_;
};

}  // namespace glyphwright::raster
