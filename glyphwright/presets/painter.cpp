#include <glyphwright/presets/painter.h>

#include <optional>

#include <glyphwright/bezier_path.h>
#include <glyphwright/platform/context.h>
#include <glyphwright/platform/fatal.h>
#include <glyphwright/platform/image_renderer.h>

namespace glyphwright::presets {
namespace {

/// Saves the graphics state and restores it at the end of a scope.
class SavedState {
 public:
  explicit SavedState(CGContextRef context) : context_(context) { CGContextSaveGState(context); }
  ~SavedState() { CGContextRestoreGState(context_); }
  SavedState(const SavedState&) = delete;
  SavedState& operator=(const SavedState&) = delete;

 private:
  CGContextRef context_;
};

void fill(const Area& area, const UIColor& color) {
  color.setFill();
  pathOf(area).fill();
}

/// Paints one piece after the other into the current context.
class PieceByPiece {
 public:
  PieceByPiece(CGContextRef context, const CGGradient* gradient)
      : context_(context), gradient_(gradient) {}

  void operator()(std::monostate) const {}

  void operator()(const Fill& piece) const { fill(piece.area, piece.color); }

  void operator()(const Stroke& piece) const {
    piece.color.setStroke();
    UIBezierPath path = pathOf(piece.area);
    path.setLineWidth(piece.width);
    path.setMiterLimit(piece.miterLimit);
    path.setLineCapStyle(piece.cap);
    path.stroke();
  }

  void operator()(const ClippedGradient& piece) const {
    if (gradient_ == nullptr) return;
    const SavedState state(context_);
    pathOf(piece.clip).addClip();
    CGContextDrawLinearGradient(context_, *gradient_, piece.start, piece.end,
                                CGGradientDrawingOptions::drawsBeforeAndAfter);
  }

  void operator()(const ClippedFill& piece) const {
    const SavedState state(context_);
    pathOf(piece.clip).addClip();
    fill(piece.area, piece.color);
  }

  void operator()(const Group& piece) const {
    const SavedState state(context_);
    CGContextBeginTransparencyLayer(context_);
    pathOf(piece.clip).addClip();
    std::visit(*this, piece.content);
    CGContextEndTransparencyLayer(context_);
  }

  void operator()(const Translucent& piece) const {
    const SavedState state(context_);
    CGContextSetAlpha(context_, piece.alpha);
    fill(piece.area, piece.color);
  }

  void operator()(const Turned& piece) const {
    const SavedState state(context_);
    CGContextTranslateCTM(context_, piece.origin.x, piece.origin.y);
    CGContextRotateCTM(context_, piece.angle);
    fill(piece.area, piece.color);
  }

  void operator()(const Ground& piece) const {
    piece.color.setFill();
    CGContextFillRect(context_, {CGPoint{}, piece.size});
  }

  void operator()(const LastingClip& piece) const { pathOf(piece.area).addClip(); }

  void operator()(EndImageContext) const { UIGraphicsEndImageContext(); }

 private:
  CGContextRef context_;
  const CGGradient* gradient_;
};

}  // namespace

UIBezierPath pathOf(const Area& area) {
  UIBezierPath path;
  switch (area.kind) {
    case Area::Kind::outline:
      path = paths::outline(area.steps);
      break;
    case Area::Kind::oval:
      path = UIBezierPath::bezierPathWithOvalInRect(area.rect);
      break;
    case Area::Kind::rect:
      path = UIBezierPath::bezierPathWithRect(area.rect);
      break;
    case Area::Kind::roundedRect:
      path = UIBezierPath::bezierPathWithRoundedRect(area.rect, area.cornerRadius);
      break;
  }
  path.setUsesEvenOddFillRule(area.rule == FillRule::evenOdd);
  return path;
}

void paint(const Painting& painting, FailedGradient failedGradient) {
  if (UIGraphicsGetCurrentContext() == nullptr) return;
  std::optional<CGGradient> gradient;
  if (painting.gradient != nullptr) {
    gradient = CGGradientCreateWithColors(std::nullopt, painting.gradient->colors,
                                          painting.gradient->locations);
    if (!gradient && failedGradient == FailedGradient::leavesCanvas) return;
    if (!gradient) fatal("the gradient of a ready-made image cannot be created");
  }
  for (const Piece& piece : painting.pieces) {
    // Asked for anew, since a piece may have closed it.
    CGContextRef context = UIGraphicsGetCurrentContext();
    if (context == nullptr) return;
    std::visit(PieceByPiece(context, gradient ? &*gradient : nullptr), piece);
  }
}

UIImage imageOf(const Painting& painting, CGSize size, FailedGradient failedGradient) {
  return UIGraphicsImageRenderer(size).image(
      [&](const UIGraphicsImageRendererContext&) { paint(painting, failedGradient); });
}

UIImage imageOf(const Painting& painting) {
  return imageOf(painting, painting.frame);
}

}  // namespace glyphwright::presets
