#pragma once

#include <glyphwright/platform/contexts/graphics_context.h>
#include <glyphwright/platform/layers/layer.h>

namespace glyphwright {

/// Draws a tree of layers into a context. What one drawing operation can do costs one operation:
/// groups, saves and copies are made only where the picture would differ without them.
class LayerRenderer {
 public:
  explicit LayerRenderer(CGContext& context) : context_(context) {}

  /// In the layer's own coordinates, with its opacity times `alpha`.
  void render(const CALayer& layer, CGFloat alpha);

 private:
  /// What of a layer there is to draw.
  struct Content {
    const CALayer& layer;
    LayerParts parts;
    std::size_t sublayers;  // that are not hidden
    CGFloat alpha;
    /// Everything shows inside the bounds only, because of a clip that is already set.
    bool insideBounds = false;

    bool isEmpty() const { return parts.isEmpty() && sublayers == 0; }
    /// At most one operation, which can carry the alpha by itself.
    bool isOneOperation() const { return sublayers == 0 && parts.isOne(); }
    /// The same, or another layer that sees to it.
    bool isSingle() const {
      return sublayers == 0 ? parts.isOne() : sublayers == 1 && parts.isEmpty();
    }
  };

  static bool isShown(const CALayer& layer);
  static Content contentOf(const CALayer& layer, CGFloat alpha);
  static CGAffineTransform placementOf(const CALayer& layer);

  void renderInSuperlayer(const CALayer& layer, CGFloat alpha);
  void beginGroup(CGFloat alpha);
  void endGroup();
  void renderGroup(const Content& content);
  void renderContent(const Content& content);
  void renderParts(const Content& content, bool isCut);
  void renderSublayers(const Content& content);
  /// Tells whether what is left may be cut through pixels there.
  bool clipToBounds(const CALayer& layer);

  void renderMasked(const Content& content);
  /// The path that clips as the mask does, in the masked layer's coordinates, when one does.
  struct MaskClip {
    CGPath path;
    FillRule rule;
  };
  static std::optional<MaskClip> clipOf(const CALayer& mask);
  void renderThroughAlpha(const Content& content, const CALayer& mask);

  CGContext& context_;
};

}  // namespace glyphwright
