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

void fill(const Shape& shape, const UIColor& color) {
  color.setFill();
  pathOf(shape).fill();
}

/// Paints one piece after the other into the current context.
class Painter {
 public:
  Painter(CGContextRef context, const CGGradient* gradient)
      : context_(context), gradient_(gradient) {}

  void operator()(std::monostate) const {}

  void operator()(const Fill& piece) const { fill(piece.shape, piece.color); }

  void operator()(const Stroke& piece) const {
    piece.color.setStroke();
    UIBezierPath path = pathOf(piece.shape);
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
    fill(piece.shape, piece.color);
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
    fill(piece.shape, piece.color);
  }

  void operator()(const Turned& piece) const {
    const SavedState state(context_);
    CGContextTranslateCTM(context_, piece.origin.x, piece.origin.y);
    CGContextRotateCTM(context_, piece.angle);
    fill(piece.shape, piece.color);
  }

  void operator()(const Ground& piece) const {
    piece.color.setFill();
    CGContextFillRect(context_, {CGPoint{}, piece.size});
  }

  void operator()(const LastingClip& piece) const { pathOf(piece.shape).addClip(); }

  void operator()(EndImageContext) const { UIGraphicsEndImageContext(); }

 private:
  CGContextRef context_;
  const CGGradient* gradient_;
};

}  // namespace

UIBezierPath pathOf(const Shape& shape) {
  UIBezierPath path;
  switch (shape.kind) {
    case Shape::Kind::outline:
      path = paths::outline(shape.steps);
      break;
    case Shape::Kind::oval:
      path = UIBezierPath::bezierPathWithOvalInRect(shape.rect);
      break;
    case Shape::Kind::rect:
      path = UIBezierPath::bezierPathWithRect(shape.rect);
      break;
    case Shape::Kind::roundedRect:
      path = UIBezierPath::bezierPathWithRoundedRect(shape.rect, shape.cornerRadius);
      break;
  }
  path.setUsesEvenOddFillRule(shape.evenOdd);
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
    std::visit(Painter(context, gradient ? &*gradient : nullptr), piece);
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
