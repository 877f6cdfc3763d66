#include "plain_icon_renderer.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include <glyphwright/platform/context.h>
#include <glyphwright/platform/vantel_kit.h>

namespace glyphwright::plain {
namespace {

CGFloat floatOf(const AttributeDictionary& attributes, VNTLGlyphwright key) {
  const NSNumber* number = attributes.number(key);
  return number ? static_cast<CGFloat>(number->floatValue()) : 0;
}

UIImage endedImage() {
  const UIImage image = UIGraphicsGetImageFromCurrentImageContext().value_or(UIImage());
  UIGraphicsEndImageContext();
  return image;
}

UIImage withBorder(const UIBezierPath& receiver, const AttributeDictionary& attributes,
                   bool opaque) {
  const CGSize size = attributes.size(VNTLGlyphwrightSize).value_or(CGSize{});
  const NSNumber width = *attributes.number(VNTLGlyphwrightBorderWidth);
  const UIColor* asked = attributes.color(VNTLGlyphwrightBorderColor);
  const UIColor color = asked ? *asked : UIColor::whiteColor();
  const UIImage outer = imageWithAttributes(receiver, {{VNTLGlyphwrightSize, size},
                                                       {VNTLGlyphwrightFillColor, color},
                                                       {VNTLGlyphwrightStrokeWidth, width},
                                                       {VNTLGlyphwrightStrokeColor, color}});
  const CGFloat b = static_cast<CGFloat>(width.integerValue());
  AttributeDictionary innerAttributes = attributes;
  innerAttributes.removeValue(VNTLGlyphwrightBorderWidth);
  innerAttributes.setValue(VNTLGlyphwrightSize, CGSize{size.width - 2 * b, size.height - 2 * b});
  const UIImage inner = imageWithAttributes(receiver, innerAttributes);
  UIGraphicsBeginImageContextWithOptions(size, opaque, VantelKit::Screen::scale());
  const CGRect whole(CGPoint{}, size);
  outer.drawInRect(whole);
  inner.drawInRect(CGRectInset(whole, b, b));
  return endedImage();
}

void fillWithGradient(CGContextRef context, const UIBezierPath& path,
                      const AttributeDictionary& attributes, CGSize size, CGFloat d) {
  const std::vector<UIColor>& colors = *attributes.colors(VNTLGlyphwrightGradientColors);
  std::vector<CGFloat> stops;
  if (const auto* locations = attributes.numbers(VNTLGlyphwrightGradientLocations)) {
    for (const NSNumber& location : *locations) {
      stops.push_back(static_cast<CGFloat>(location.floatValue()));
    }
  } else {
    for (std::size_t i = 0; i < colors.size(); ++i) {
      stops.push_back(colors.size() == 1 ? 0 : static_cast<CGFloat>(i / (colors.size() - 1)));
    }
  }
  CGContextSaveGState(context);
  CGContextAddPath(context, path.cgPath());
  CGContextEOClip(context);
  const CGPoint start =
      attributes.point(VNTLGlyphwrightGradientStartPoint).value_or(CGPoint{0.5, 0});
  const CGPoint end = attributes.point(VNTLGlyphwrightGradientEndPoint).value_or(CGPoint{0.5, 1});
  const auto gradient = CGGradientCreateWithColors(CGColorSpaceCreateDeviceRGB(), colors, stops);
  if (gradient) {
    CGContextDrawLinearGradient(
        context, *gradient,
        {d / 2 + start.x * (size.width - d), d / 2 + start.y * (size.height - d)},
        {d / 2 + end.x * (size.width - d), d / 2 + end.y * (size.height - d)},
        CGGradientDrawingOptions::drawsBeforeStartLocation);
  }
  CGContextRestoreGState(context);
}

}  // namespace

UIImage imageWithAttributes(const UIBezierPath& receiver, const AttributeDictionary& attributes) {
  const CGSize size = attributes.size(VNTLGlyphwrightSize).value_or(CGSize{});
  const UIColor* background = attributes.color(VNTLGlyphwrightBackgroundColor);
  CGFloat alpha = 0;
  if (background) background->getRed(nullptr, nullptr, nullptr, &alpha);
  const bool opaque = alpha == 1;
  const NSNumber* border = attributes.number(VNTLGlyphwrightBorderWidth);
  if (border && border->integerValue() >= 1) return withBorder(receiver, attributes, opaque);

  UIGraphicsBeginImageContextWithOptions(size, opaque, VantelKit::Screen::scale());
  const CGContextRef context = UIGraphicsGetCurrentContext();
  if (background) {
    CGContextSaveGState(context);
    background->set();
    CGContextFillRect(context, {CGPoint{}, size});
    CGContextRestoreGState(context);
  }
  const NSShadow* dropShadow = attributes.shadow(VNTLGlyphwrightDropShadow);
  CGFloat d = floatOf(attributes, VNTLGlyphwrightStrokeWidth);
  if (dropShadow) {
    d +=
        dropShadow->shadowBlurRadius() + std::max(2 * std::fabs(dropShadow->shadowOffset().width),
                                                  2 * std::fabs(dropShadow->shadowOffset().height));
  }
  UIBezierPath path = receiver;
  path.scaleToFitSize({size.width - d, size.height - d});
  path.centerAlignWithinSize(size);

  CGContextSaveGState(context);
  if (attributes.colors(VNTLGlyphwrightGradientColors)) {
    fillWithGradient(context, path, attributes, size, d);
  } else {
    if (const UIColor* fill = attributes.color(VNTLGlyphwrightFillColor)) fill->set();
    CGContextAddPath(context, path.cgPath());
    CGContextEOFillPath(context);
  }
  CGContextRestoreGState(context);
  CGContextAddPath(context, path.cgPath());
  if (const NSShadow* inset = attributes.shadow(VNTLGlyphwrightInsetShadow)) {
    drawInsetShadow(path, *inset);
  }
  if (path.lineWidth() > 0) {
    CGContextSaveGState(context);
    path.setLineWidth(floatOf(attributes, VNTLGlyphwrightStrokeWidth));
    if (const UIColor* stroke = attributes.color(VNTLGlyphwrightStrokeColor)) stroke->set();
    path.stroke();
    CGContextRestoreGState(context);
  }
  const UIImage image = endedImage();
  return dropShadow ? imageWithDropShadow(*dropShadow, image) : image;
}

UIImage imageWithDropShadow(const NSShadow& shadow, const UIImage& image) {
  UIGraphicsBeginImageContextWithOptions(image.size(), false, VantelKit::Screen::scale());
  CGContextSetShadowWithColor(UIGraphicsGetCurrentContext(), shadow.shadowOffset(),
                              shadow.shadowBlurRadius(), shadow.shadowColor());
  image.drawInRect({CGPoint{}, image.size()});
  return endedImage();
}

void drawInsetShadow(const UIBezierPath& path, const NSShadow& shadow) {
  const CGContextRef context = UIGraphicsGetCurrentContext();
  const CGFloat dx = shadow.shadowOffset().width;
  const CGFloat dy = shadow.shadowOffset().height;
  const CGFloat r = shadow.shadowBlurRadius();
  CGRect around = CGRectInset(path.bounds(), -r, -r);
  around = CGRectOffset(around, -dx, -dy);
  around = CGRectInset(CGRectUnion(around, path.bounds()), -1, -1);
  UIBezierPath negative = UIBezierPath::bezierPathWithRect(around);
  negative.appendPath(path);
  negative.setUsesEvenOddFillRule(true);
  CGContextSaveGState(context);
  const CGFloat w = std::round(around.size.width);
  CGContextSetShadowWithColor(context,
                              {dx + w + std::copysign(0.1, dx + w), dy + std::copysign(0.1, dy)}, r,
                              shadow.shadowColor());
  path.addClip();
  negative.applyTransform(CGAffineTransformMakeTranslation(-w, 0));
  UIColor::grayColor().setFill();
  negative.fill();
  CGContextRestoreGState(context);
}

}  // namespace glyphwright::plain
