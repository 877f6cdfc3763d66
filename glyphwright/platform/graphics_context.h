#pragma once

#include <optional>
#include <vector>

#include <glyphwright/platform/context.h>
#include <glyphwright/platform/graphics_state.h>

namespace glyphwright {

/// The object behind a CGContextRef.
struct CGContext {
  /// `pixelBounds` empty: drawing is ignored.
  CGContext(const raster::PixelRect& pixelBounds, CGSize size, CGFloat scale, bool opaque,
            const raster::PixelMemory& memory = {});

  bool isDrawable() const { return !bounds.isEmpty(); }
  /// Where drawing in a region goes now: the innermost open group, or the bitmap. The region lies
  /// inside the clip's bounds.
  raster::Canvas& canvasFor(const raster::PixelRect& region);
  raster::Canvas& baseCanvas() { return *base_; }

  /// As far as anything painted can matter: the clip's bounds, and what casts a shadow into them.
  raster::PixelRect reach() const;

  /// Something with edges, whose points stand in the thread's scratch.
  struct Shape {
    /// Writes the edges inside a region into the scratch.
    virtual void edges(const raster::PixelRect& region, raster::Scratch& scratch) const = 0;
    raster::DeviceBox box;
    raster::FillRule rule = raster::FillRule::nonZero;

   protected:
    ~Shape() = default;
  };
  /// A shadow as the state keeps it, offset and blur given in points; none when it would not show.
  std::optional<ShadowState> shadowState(CGSize offset, CGFloat blur, const CGColor& color) const;

  /// The clip's mask, or null where whole pixels are the clip. Comes before a shape's points are
  /// gathered, since both use the thread's scratch.
  const raster::Mask* clipMask();
  /// Paints a shape with the shadow and through the clip of the current state.
  void paintShape(const Shape& shape, const raster::Paint& paint);
  /// Paints a source over a rectangle of whole pixels.
  void paintArea(const raster::PixelRect& area, const raster::Paint& paint, bool castsShadow);
  void clipTo(CGPath devicePath, raster::FillRule rule);
  void clipTo(const raster::PixelRect& area);

  /// A transparency layer: its pixels, made when something is painted, and the state to go back to.
  struct Group {
    std::optional<raster::Canvas> canvas;
    /// As far as it can matter.
    raster::PixelRect reach;
    GraphicsState outer;
    std::size_t savedDepth;
  };
  void beginGroup();
  void endGroup();
  /// Ends a group that is the mask of the one around it, whose pixels it multiplies by its alpha.
  void endGroupAsMask();

  raster::PixelRect bounds;
  CGSize size;
  CGFloat scale;
  bool opaque;
  GraphicsState state;
  std::vector<GraphicsState> saved;
  std::vector<Group> groups;
  CGPath pendingPath;  // in device pixels

 private:
  /// What a caster's own pixels are painted with, within a region that its mask covers.
  struct CasterPaint {
    raster::PixelRect region;
    const raster::Paint& paint;
  };
  /// Paints the shadow and then, where given, the caster itself.
  void castShadow(const raster::Mask& caster, double casterAlpha, const CasterPaint* own);
  raster::PixelRect casterArea() const;
  Group takeGroup();

  std::optional<raster::Canvas> base_;
  ClipMasks clipMasks_;
};

namespace contexts {

/// The same as clipping to the path, mapped through `placing` first, drawing the gradient and
/// taking the clip off again.
void fillWithLinearGradient(CGContext& context, const CGPath& path,
                            const CGAffineTransform& placing, bool evenOdd,
                            const CGGradient& gradient, CGPoint start, CGPoint end,
                            CGGradientDrawingOptions options);

/// The same as filling the path, mapped through `placing`, with the fill colour and then stroking
/// it with the stroke colour. The pen is not mapped.
void fillAndStroke(CGContext& context, const CGPath& path, const CGAffineTransform& placing,
                   bool evenOdd, const StrokeStyle& style);

/// The shadow that what surrounds a path casts into it. It needs a device whose axes are those of
/// the path's space.
struct InsetShadow {
  ShadowState shadow;
  /// Where the surroundings end, in the path's space; filling the path even-odd cuts it out of
  /// them.
  CGRect around;
  /// The rule for where the shadow shows.
  bool evenOdd;
};

/// Paints the shadow. False, and nothing done, when the path reaches far beyond the clip's bounds
/// or the surroundings end where they could still cast.
bool castInsetShadow(CGContext& context, const CGPath& path, const InsetShadow& inset);

/// The same as filling the path even-odd with the fill colour and casting its inset shadow then, in
/// one pass. False, and nothing done, but where that is simple: all of the path inside the clip's
/// bounds, no clip beyond those, and nothing painted yet.
bool fillWithInsetShadow(CGContext& context, const CGPath& path, const InsetShadow& inset);

}  // namespace contexts

}  // namespace glyphwright
