#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <glyphwright/platform/context.h>
#include <glyphwright/platform/layers/animation.h>
#include <glyphwright/platform/layers/sublayer_list.h>

namespace glyphwright {

class PresentationPass;

/// How a layer's contents fill its bounds.
enum class CALayerContentsGravity : std::uint8_t {
  resize,            // stretched to the bounds
  resizeAspect,      // the largest that fits, centred
  resizeAspectFill,  // the smallest that covers, centred
  center,            // at its own size, centred
};

/// The separate drawing operations that one layer may need, back to front.
enum class LayerPart : std::uint8_t {
  background = 1,
  gradient = 2,
  contents = 4,
  fill = 8,
  stroke = 16,
  border = 32,
};

/// A set of parts.
class LayerParts {
 public:
  constexpr LayerParts() = default;
  /// Adding one that is there already changes nothing.
  constexpr void add(LayerPart part) { bits_ = static_cast<std::uint8_t>(bits_ | bit(part)); }
  /// Whether `part` is among them.
  constexpr bool has(LayerPart part) const { return (bits_ & bit(part)) != 0; }
  /// Whether there are none, exactly one, and no other than `part`, which is there.
  constexpr bool isEmpty() const { return bits_ == 0; }
  constexpr bool isOne() const { return bits_ != 0 && (bits_ & (bits_ - 1)) == 0; }
  constexpr bool isOnly(LayerPart part) const { return bits_ == bit(part); }

 private:
  static constexpr std::uint8_t bit(LayerPart part) { return static_cast<std::uint8_t>(part); }
  std::uint8_t bits_ = 0;
};

/// A rectangle of content in a tree of layers. An object with identity, held by std::shared_ptr
/// and made by `layer()`; a superlayer holds its sublayers and its mask.
///
/// Lengths are points, y down. The geometry that is stored is the bounds (the layer's own
/// coordinates), the anchor point (in units of the bounds), its position in the superlayer's
/// coordinates and the transform about it; the frame follows from them. A NaN in bounds, position,
/// anchor point, transform or zPosition throws std::invalid_argument and changes nothing.
class CALayer : public CAMediaTiming {
 public:
  /// A new layer of no size that shows nothing.
  static std::shared_ptr<CALayer> layer();

  /// `init`
  CALayer() = default;
  /// `initWithLayer:` a copy of `layer`'s properties for presentation: no tree and no animations.
  /// Subclasses have the same constructor, hand `layer` on and copy only what they add; `layer` may
  /// be of any class. The pass gives the presentation versions of other layers.
  CALayer(PresentationPass& pass, CALayer& layer);
  virtual ~CALayer();
  CALayer(const CALayer&) = delete;
  CALayer& operator=(const CALayer&) = delete;

  // Geometry

  /// The layer's own coordinates, in points; the zero rectangle when new.
  const CGRect& bounds() const { return model_.bounds; }
  /// A negative size is standardised.
  virtual void setBounds(const CGRect& bounds);
  /// Where the anchor point is in the superlayer's coordinates; (0, 0) when new.
  CGPoint position() const { return model_.position; }
  virtual void setPosition(CGPoint position);
  /// The box around the bounds in the superlayer's coordinates.
  CGRect frame() const;
  /// Calls setPosition and then setBounds (the old origin, a new size), also when nothing changes.
  /// Under a transform the size goes through its inverse. A negative size is standardised.
  virtual void setFrame(const CGRect& frame);
  /// (0.5, 0.5) when new: the middle of the bounds.
  CGPoint anchorPoint() const { return model_.anchorPoint; }
  void setAnchorPoint(CGPoint anchorPoint);
  /// About the anchor point; the identity when new.
  const CGAffineTransform& transform() const { return model_.transform; }
  void setTransform(const CGAffineTransform& transform);
  /// Of sublayers the higher ones are drawn later; equal ones in the order they were added.
  CGFloat zPosition() const { return model_.zPosition; }
  void setZPosition(CGFloat zPosition);

  // Tree

  /// Back to front; nothing when there never was one. Valid until the tree changes.
  std::optional<std::span<const std::shared_ptr<CALayer>>> sublayers() const;
  /// Appends after removing the layer from where it was; a layer added again moves to the end. Null
  /// is ignored. Throws std::invalid_argument, and changes nothing, for this layer itself or one
  /// above it (a circle), and for a tree more than kMaxLayerLevels deep.
  virtual void addSublayer(std::shared_ptr<CALayer> layer);
  /// Leaves the superlayer's sublayers or stops being its mask; without one, nothing happens.
  virtual void removeFromSuperlayer();
  /// The layer this one is a sublayer or the mask of, or null. Not owned.
  CALayer* superlayer() const { return superlayer_; }
  /// Null when new.
  const std::shared_ptr<CALayer>& mask() const { return mask_; }
  /// A layer whose alpha shows through to this one and its sublayers: it stands in this layer's
  /// coordinates and is not drawn itself; a mask that shows nothing hides all. It is taken out of
  /// the tree it was in. Null for none. Throws like addSublayer.
  void setMask(std::shared_ptr<CALayer> mask);

  // Look

  /// A picture above the background; none when new.
  const CGImage& contents() const { return model_.contents; }
  void setContents(CGImage contents) { model_.contents = std::move(contents); }
  /// Resize when new. What is larger than the bounds shows beyond them unless the layer
  /// masks to them.
  CALayerContentsGravity contentsGravity() const { return model_.contentsGravity; }
  void setContentsGravity(CALayerContentsGravity gravity) { model_.contentsGravity = gravity; }
  /// Pixels of the contents for each point; 1 when new. Not above 0 or not finite reads as 1.
  CGFloat contentsScale() const { return model_.contentsScale; }
  void setContentsScale(CGFloat scale) { model_.contentsScale = scale; }
  /// Of the layer and its sublayers as one, 1 when new; clamped to 0…1 when drawn, NaN counts as 0.
  CGFloat opacity() const { return model_.opacity; }
  void setOpacity(CGFloat opacity) { model_.opacity = opacity; }
  /// Hides the sublayers too; false when new.
  bool isHidden() const { return model_.hidden; }
  void setHidden(bool hidden) { model_.hidden = hidden; }
  /// Rounds background, gradient, border and the clip of masksToBounds. Negative or NaN counts as
  /// 0; at most half of the shorter side.
  CGFloat cornerRadius() const { return model_.cornerRadius; }
  void setCornerRadius(CGFloat radius) { model_.cornerRadius = radius; }
  /// A line just inside the bounds, above the sublayers; none unless above 0.
  CGFloat borderWidth() const { return model_.borderWidth; }
  void setBorderWidth(CGFloat width) { model_.borderWidth = width; }
  /// Opaque black when new.
  const std::optional<CGColor>& borderColor() const { return model_.borderColor; }
  void setBorderColor(std::optional<CGColor> color) { model_.borderColor = color; }
  /// None when new: nothing is painted behind the contents.
  const std::optional<CGColor>& backgroundColor() const { return model_.backgroundColor; }
  void setBackgroundColor(std::optional<CGColor> color) { model_.backgroundColor = color; }
  /// Whether the layer and its sublayers are cut off at the bounds, all as one, as a mask of that
  /// shape does.
  bool masksToBounds() const { return model_.masksToBounds; }
  void setMasksToBounds(bool masks) { model_.masksToBounds = masks; }

  /// Draws the layer and its sublayers as they are set, whatever animates them. In the layer's own
  /// coordinates: its position, anchor point and transform do not count, and bounds.origin is where
  /// it is. The context's state is left as it was.
  void renderInContext(CGContextRef context) const;

  // Animations

  /// Stores a copy, replacing the one under the same key (which moves to the end); without a key it
  /// is always one more. A transition goes under "transition" whatever the key. A duration that is
  /// not above 0 becomes 0.25 s in the copy. Null is ignored.
  virtual void addAnimation(const std::shared_ptr<CAAnimation>& animation,
                            const std::optional<std::string>& forKey = std::nullopt);
  /// The stored copy, or null.
  virtual std::shared_ptr<const CAAnimation> animationForKey(std::string_view key) const;
  /// The keys in the order in which the animations apply; nothing when there is no animation. Those
  /// without a key are not listed.
  virtual std::optional<std::vector<std::string>> animationKeys() const;
  /// An unknown key does nothing; those without a key go only with all.
  virtual void removeAnimationForKey(std::string_view key);
  virtual void removeAllAnimations();

  /// A copy of the layer and its tree as they are set, of the same classes; it can be read, changed
  /// and rendered without touching this one.
  std::shared_ptr<CALayer> presentationLayer();
  /// The same with every animation of the tree at a time of the host, in seconds on the scale of
  /// the topmost layer. NaN leaves the animations out.
  std::shared_ptr<CALayer> presentationLayerAtTime(CFTimeInterval time);

  /// A new layer of this object's class from `initWithLayer:`. A subclass that wants to be
  /// presented as itself overrides this.
  virtual std::shared_ptr<CALayer> newWithLayer(PresentationPass& pass, CALayer& layer) const;

  /// A property by its name, or a part of it as in "position.x" (see partOfValue). Nothing for an
  /// unknown name and for a property that is not set.
  std::optional<AnimationValue> valueForKeyPath(std::string_view keyPath) const;
  /// Stores an animated value as it is, without the setters. Unknown names, values of another kind
  /// and NaN change nothing.
  void setAnimatedValue(const AnimationValue& value, std::string_view keyPath);

 protected:
  /// The parts that would draw something now.
  virtual LayerParts visibleParts() const;
  /// Draws one part with its alpha multiplied. A gradient is drawn all over the clip, which then
  /// lies inside the bounds. Clip and transform may change only between a save and a restore.
  virtual void drawPart(LayerPart part, CGContextRef context, CGFloat alpha) const;
  /// A whole property by its name.
  virtual std::optional<AnimationValue> valueForKey(std::string_view key) const;
  virtual void setAnimatedValueForKey(const AnimationValue& value, std::string_view key);

  /// The bounds with their rounded corners.
  CGPath boundsPath() const;
  /// The corner radius as it is drawn.
  CGFloat boundsRadius() const;

 private:
  friend class LayerRenderer;
  friend class PresentationPass;

  struct Model {
    CGRect bounds;
    CGPoint position;
    CGPoint anchorPoint{0.5, 0.5};
    CGAffineTransform transform;
    CGFloat zPosition = 0;
    CGImage contents;
    CGFloat contentsScale = 1;
    CGFloat opacity = 1;
    CGFloat cornerRadius = 0;
    CGFloat borderWidth = 0;
    std::optional<CGColor> borderColor = CGColor::blackColor();
    std::optional<CGColor> backgroundColor;
    CALayerContentsGravity contentsGravity = CALayerContentsGravity::resize;
    bool hidden = false;
    bool masksToBounds = false;
  };
  template <typename Fields, typename Visit>
  static void visitAnimatable(Fields& model, std::string_view key, Visit visit);

  struct StoredAnimation {
    std::optional<std::string> key;
    std::shared_ptr<const CAAnimation> animation;
  };

  void adopt(CALayer& child);
  CGRect contentsRect(const UIImage& image) const;
  void drawBackground(CGContextRef context, CGFloat alpha, const CGPath& outside) const;
  void drawBorder(CGContextRef context, CGFloat alpha, CGPath outside) const;

  Model model_;
  CALayer* superlayer_ = nullptr;
  std::shared_ptr<CALayer> mask_;
  SublayerList<std::shared_ptr<CALayer>> sublayers_;
  bool hadSublayers_ = false;
  std::vector<StoredAnimation> animations_;
};

/// The deepest tree that may be built: far beyond any real one, and safe to walk by recursion.
inline constexpr int kMaxLayerLevels = 128;

}  // namespace glyphwright
