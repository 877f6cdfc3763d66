#pragma once

#include <optional>
#include <vector>

#include <glyphwright/platform/context.h>
#include <glyphwright/platform/contexts/graphics_state.h>
#include <glyphwright/platform/drawing/inset_shadow.h>

namespace glyphwright {

namespace contexts {

/// An inset shadow as it is asked for: cast by what lies around a path, up to a rectangle, from a
/// place to the left of it where it does not show.
struct InsetShadow {
  CGRect around;
  CGFloat aside;  // to the left
  CGSize offset;  // of the shadow, from there
  CGFloat blur;
  CGColor color;
};

}  // namespace contexts

/// The object behind a CGContextRef: a stack of surfaces to draw on and the state to draw with.
/// Points are those of user space unless something else is said.
class CGContext {
 public:
  /// `pixelBounds` empty: drawing is ignored.
  CGContext(const raster::PixelRect& pixelBounds, CGSize size, CGFloat scale, bool opaque,
            const raster::PixelMemory& memory = {});

  bool isDrawable() const { return !bounds_.isEmpty(); }
  /// In pixels.
  const raster::PixelRect& bounds() const { return bounds_; }
  CGSize size() const { return size_; }
  CGFloat scale() const { return scale_; }
  /// The bitmap, without what open groups hold. It must be drawable.
  raster::Canvas& bitmap() { return *base_->canvas(); }

  // State
  void save() { saved_.push_back(state_); }
  void restore();
  const CGAffineTransform& transform() const { return state_.transform; }
  void concat(const CGAffineTransform& transform);
  const raster::PixelRect& clipBounds() const { return state_.clip.bounds; }
  /// Tells whether what is left may be cut through pixels there.
  bool clipTo(const CGPath& path, FillRule rule);
  bool clipTo(const CGRect& rect);
  void setFillColor(const CGColor& color) { state_.fillColor = color; }
  void setStrokeColor(const CGColor& color) { state_.strokeColor = color; }
  CGFloat alpha() const { return state_.alpha; }
  void setAlpha(CGFloat alpha) { state_.alpha = alpha; }
  void setShadow(CGSize offset, CGFloat blur, const std::optional<CGColor>& color);

  // Groups: the clip of what is outside cuts one when it ends, once.
  bool isInGroup() const { return !groups_.empty(); }
  void beginGroup();
  void endGroup();
  /// Ends a group that is the mask of the one around it, whose pixels it multiplies by its alpha.
  void endGroupAsMask();

  // The pending path, which every other drawing drops
  void addToPath(const CGPath& path);
  void fillPendingPath(FillRule rule);
  void clipToPendingPath(FillRule rule);

  // Drawing
  void fill(const CGPath& path, FillRule rule);
  void fill(const CGRect& rect);
  void stroke(const CGPath& path, const StrokeStyle& style);
  /// Fills the path mapped through `placing`, and strokes it so mapped. The pen is not.
  void fillAndStroke(const CGPath& path, const CGAffineTransform& placing, FillRule rule,
                     const StrokeStyle& style);
  /// Casts an inset shadow into the path, which shows inside of it by the rule.
  void castInset(const CGPath& path, FillRule rule, const contexts::InsetShadow& shadow);
  /// The same after filling the path even-odd.
  void fillWithInset(const CGPath& path, FillRule rule, const contexts::InsetShadow& shadow);
  /// Clipping to the path mapped through `placing`, drawing the gradient and taking the clip off
  /// again.
  void fillWithLinearGradient(const CGPath& path, const CGAffineTransform& placing, FillRule rule,
                              const CGGradient& gradient, CGPoint start, CGPoint end,
                              CGGradientDrawingOptions options);
  void drawLinearGradient(const CGGradient& gradient, CGPoint start, CGPoint end,
                          CGGradientDrawingOptions options);
  void drawRadialGradient(const CGGradient& gradient, CGPoint center, CGFloat radius);
  void drawConicGradient(const CGGradient& gradient, CGPoint center, CGFloat angle);
  void drawImage(const CGRect& rect, const UIImage& image, CGFloat alpha);

  /// Draws with another transform, which acts before the current one.
  template <typename Draw>
  void withTransform(const CGAffineTransform& transform, Draw draw) {
    const TransformScope scope(*this, transform);
    draw();
  }

  /// The ways that drawings may take from now on. For comparing them: all give the same picture.
  void usePlans(drawing::Plans plans) { plans_ = plans; }

 private:
  struct TransformScope {
    TransformScope(CGContext& of, const CGAffineTransform& transform)
        : context(of), outer(of.state_.transform) {
      of.concat(transform);
    }
    TransformScope(const TransformScope&) = delete;
    TransformScope& operator=(const TransformScope&) = delete;
    ~TransformScope() { context.state_.transform = outer; }
    CGContext& context;
    CGAffineTransform outer;
  };
  struct Group {
    drawing::Surface surface;
    contexts::GraphicsState outer;
    std::size_t savedDepth;
  };

  bool canPaint() const { return !state_.clip.bounds.isEmpty(); }
  /// As far as anything painted can matter: the clip's bounds, and what casts a shadow into them.
  raster::PixelRect reach() const;
  raster::Paint fillPaint() const;
  raster::Paint strokePaint() const;
  raster::Paint sourcePaint(const raster::PixelSource& source, CGFloat alpha) const;
  drawing::Target target();
  std::optional<drawing::Shadow> shadowOf(CGSize offset, CGFloat blur, const CGColor& color) const;
  drawing::Inset insetOf(const CGPath& path, FillRule rule,
                         const contexts::InsetShadow& shadow) const;
  template <typename Source>
  void paintSource(const Source& source);
  drawing::Surface endSurface();

  raster::PixelRect bounds_;
  CGSize size_;
  CGFloat scale_;
  std::optional<drawing::Surface> base_;
  std::vector<Group> groups_;
  contexts::GraphicsState state_;
  std::vector<contexts::GraphicsState> saved_;
  CGPath pendingPath_;  // in device pixels
  drawing::ClipMasks clipMasks_;
  drawing::Plans plans_ = drawing::kPlans;
};

}  // namespace glyphwright
