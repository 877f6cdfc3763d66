#pragma once

#include <glyphwright/platform/raster/canvas.h>
#include <glyphwright/platform/raster/inset_masks.h>

namespace glyphwright::raster {

/// Writes rows of a shadow together with the same rows of what casts it. Rows of the region come
/// top to bottom, each once, as whole rows of varying coverage.
class ShadowAndCasterRows final : public RowSink {
 public:
  struct Caster {
    const Mask& mask;
    PixelRect region;  // of the mask and of the rows' region; the caster shows nowhere else
    const SolidColor& color;
  };
  /// The canvas is pristine and its ground clear; `region` lies inside its bounds.
  ShadowAndCasterRows(Canvas& canvas, const PixelRect& region, const SolidColor& shadow,
                      const Caster& caster, Scratch& scratch);
  void row(const CoverageRow& row) override;
  /// Lays the ground below the region.
  void finish() { rows_.finish(); }

 private:
  void placeNext(int y);

  Canvas::FreshRows rows_;
  const SolidColor& shadow_;
  Caster caster_;
  const Kernels& kernels_;
  std::size_t width_;
  std::size_t casterWidth_;
  std::size_t casterLeft_;
  // Of the caster over the whole row, empty but for its own part. The next row is laid out while
  // this one is written: what has just been stored in one place is slow to read in another.
  std::uint16_t* coverage_;
  std::uint16_t* next_;
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
