#include <optional>

#include <glyphwright/bezier_path.h>
#include <glyphwright/platform/context.h>
#include <glyphwright/platform/image.h>
#include <glyphwright/platform/shadow.h>
#include <glyphwright/platform/vantel_kit.h>

namespace glyphwright {
namespace {

UIBezierPath glyph(UIImage::Shape shape, CGSize size, CGPoint thinXOffset) {
  switch (shape) {
    case UIImage::Shape::checkmark:
      return UIBezierPath::checkmark(size);
    case UIImage::Shape::thickCheckmark:
      return UIBezierPath::thickCheckmark(size);
    case UIImage::Shape::thickX:
      return UIBezierPath::thickX(size);
    case UIImage::Shape::thinX:
      return UIBezierPath::thinX(size, thinXOffset);
  }
  return {};
}

// The room that a border and a shadow need around something of this size.
CGSize canvasAround(CGSize size, const VantelKit::Border& border, CGFloat blur) {
  return {size.width + border.width + 2 * blur, size.height + border.width + 2 * blur};
}

void castShadow(CGContext& context, Borrowed<const NSShadow> shadow) {
  if (!shadow || !shadow->shadowColor()) return;
  CGContextSetShadowWithColor(&context, shadow->shadowOffset(), shadow->shadowBlurRadius(),
                              shadow->shadowColor());
}

void fillAndOutline(UIBezierPath& path, const UIColor& fillColor, const VantelKit::Border& border) {
  fillColor.setFill();
  path.fill();
  border.color.setStroke();
  path.setLineWidth(border.width);
  path.stroke();
}

}  // namespace

std::optional<UIImage> UIImage::instagramProfileConnectButtonImage(const UIColor& withColor,
                                                                   CGSize size) {
  return render(size, std::nullopt, [&](CGContext&) {
    withColor.setFill();
    UIBezierPath path = UIBezierPath::instagramProfileConnectButtonIconPath(size);
    path.translateToZeroPoint();
    path.fill();
  });
}

std::optional<UIImage> UIImage::instagramProfileConnectButtonImageWithColor(const UIColor& color,
                                                                            CGSize size) {
  return instagramProfileConnectButtonImage(color, size);
}

std::optional<UIImage> UIImage::instagramPlaceholderImage(const UIColor& withColor,
                                                          const UIColor& backgroundColor,
                                                          CGSize size) {
  return render(size, std::nullopt, [&](CGContext& context) {
    CGContextSetFillColor(&context, backgroundColor);
    CGContextFillRect(&context, {CGPoint{}, size});
    withColor.setFill();
    UIBezierPath::instagramThumbnailPlaceholder(size).fill();
  });
}

std::optional<UIImage> UIImage::instagramPlaceholderImageWithColor(const UIColor& color,
                                                                   const UIColor& backgroundColor,
                                                                   CGSize size) {
  return instagramPlaceholderImage(color, backgroundColor, size);
}

std::optional<UIImage> UIImage::shapeIcon(CGSize withSize, Shape shape, const UIColor& fillColor,
                                          const VantelKit::Border& border,
                                          Borrowed<const NSShadow> shadow) {
  const CGFloat blur = shadow ? shadow->shadowBlurRadius() : 0;
  const CGSize offset = shadow ? shadow->shadowOffset() : CGSize{};
  return render(canvasAround(withSize, border, blur), std::nullopt, [&](CGContext& context) {
    UIBezierPath path = glyph(shape, withSize, {blur - offset.width, blur - offset.height});
    castShadow(context, shadow);
    fillAndOutline(path, fillColor, border);
  });
}

std::optional<UIImage> UIImage::circleIcon(CGSize withSize, const UIColor& fillColor,
                                           const VantelKit::Border& border,
                                           Borrowed<const NSShadow> shadow,
                                           std::optional<Shape> shape, CGSize shapeSize,
                                           const UIColor& shapeColor) {
  const CGFloat blur = shadow ? shadow->shadowBlurRadius() : 0;
  const CGSize offset = shadow ? shadow->shadowOffset() : CGSize{};
  const CGFloat halfBorder = border.width * 0.5;
  const CGPoint origin{blur - offset.width + halfBorder, blur - offset.height + halfBorder};
  return render(canvasAround(withSize, border, blur), std::nullopt, [&](CGContext& context) {
    UIBezierPath circle = UIBezierPath::bezierPathWithOvalInRect({origin, withSize});
    castShadow(context, shadow);
    fillAndOutline(circle, fillColor, border);
    if (!shape) return;
    // The shadow is still set: the glyph casts it on the circle.
    UIBezierPath inside = glyph(*shape, shapeSize, {0, 0});
    inside.applyTransform(CGAffineTransformMakeTranslation(
        (withSize.width - shapeSize.width) * 0.5 + halfBorder + blur - offset.width,
        (withSize.height - shapeSize.height) * 0.5 + halfBorder + blur - offset.height));
    shapeColor.setFill();
    inside.fill();
  });
}

}  // namespace glyphwright
