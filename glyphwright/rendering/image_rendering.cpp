#include <vector>

#include <glyphwright/bezier_path.h>
#include <glyphwright/catalogue/icon_type.h>
#include <glyphwright/platform/context.h>
#include <glyphwright/platform/context_stack.h>
#include <glyphwright/platform/screen.h>
#include <glyphwright/rendering/attribute_dictionary.h>
#include <glyphwright/rendering/icon_painter.h>

namespace glyphwright {
namespace {

using rendering::IconPaint;
using rendering::Placement;

CGFloat widened(const NSNumber* number) {
  return number ? static_cast<CGFloat>(number->floatValue()) : 0;
}

// Renders what the dictionary says. Every key is read once.
UIImage paintIcon(const UIBezierPath& path, Placement placement,
                  const AttributeDictionary& attributes) {
  IconPaint paint;
  paint.shadowTime = IconPaint::ShadowTime::onFinishedImage;
  paint.size = attributes.size(VNTLGlyphwrightSize).value_or(CGSize{});
  paint.fill = attributes.color(VNTLGlyphwrightFillColor);
  paint.background = attributes.color(VNTLGlyphwrightBackgroundColor);
  paint.strokeColor = attributes.color(VNTLGlyphwrightStrokeColor);
  paint.strokeWidth = widened(attributes.number(VNTLGlyphwrightStrokeWidth));
  if (const NSNumber* width = attributes.number(VNTLGlyphwrightBorderWidth)) {
    const UIColor* color = attributes.color(VNTLGlyphwrightBorderColor);
    paint.border = {width->integerValue(), widened(width), color ? *color : UIColor::whiteColor()};
  }
  if (const NSShadow* shadow = attributes.shadow(VNTLGlyphwrightDropShadow)) {
    paint.dropShadow = {shadow->shadowOffset(), shadow->shadowBlurRadius(), shadow->shadowColor()};
  }
  paint.insetShadow = attributes.shadow(VNTLGlyphwrightInsetShadow);
  std::vector<CGFloat> stops;
  if (const std::vector<UIColor>* colors = attributes.colors(VNTLGlyphwrightGradientColors)) {
    rendering::GradientFill& gradient = paint.gradient.emplace();
    gradient.colors = *colors;
    if (const auto* locations = attributes.numbers(VNTLGlyphwrightGradientLocations)) {
      stops.reserve(locations->size());
      for (const NSNumber& location : *locations) stops.push_back(widened(&location));
      gradient.stops = stops;
    }
    gradient.start = attributes.point(VNTLGlyphwrightGradientStartPoint).value_or(gradient.start);
    gradient.end = attributes.point(VNTLGlyphwrightGradientEndPoint).value_or(gradient.end);
  }
  return rendering::paintIcon(path, placement, paint);
}

UIBezierPath pathOrEmpty(VNTLIconType icon) {
  return UIBezierPath::pathForIcon(icon).value_or(UIBezierPath());
}

}  // namespace

UIImage UIBezierPath::imageWithAttributes(const AttributeDictionary& attributes) const {
  return paintIcon(*this, Placement::asItIs, attributes);
}

UIImage UIBezierPath::imageWithIcon(IconNumber icon, const AttributeDictionary& attributes) {
  return paintIcon(pathOrEmpty(icon), Placement::fromOrigin, attributes);
}

UIImage UIBezierPath::imageWithIcon(IconNumber icon, const std::optional<UIColor>& strokeColor,
                                    const std::optional<UIColor>& fillColor) {
  return pathOrEmpty(icon).imageWithStrokeColor(strokeColor, fillColor);
}

UIImage UIBezierPath::imageWithIcon(IconNumber icon, std::nullptr_t, const UIColor& fillColor) {
  return imageWithIcon(icon, std::nullopt, std::optional(fillColor));
}

UIImage UIBezierPath::imageWithStrokeColor(const std::optional<UIColor>& strokeColor,
                                           const std::optional<UIColor>& fillColor) const {
  const CGRect box = bounds();
  // Only the width makes room for the line, on both sides; images of this kind have always been so.
  const CGSize size{CGRectGetWidth(box) + 2 * lineWidth_, CGRectGetHeight(box)};
  contexts::Scope scope(size, false, screen::scale(), true);
  CGContextRef context = scope.context();
  CGContextTranslateCTM(context, lineWidth_, lineWidth_);
  const std::optional<UIColor>& stroke = strokeColor ? strokeColor : fillColor;
  const std::optional<UIColor>& fill = fillColor ? fillColor : strokeColor;
  if (stroke) CGContextSetStrokeColor(context, *stroke);
  if (fill) CGContextSetFillColor(context, *fill);
  CGContextFillPath(context, path_, FillRule::nonZero);
  CGContextStrokePath(context, path_, {lineWidth_, lineCapStyle_, lineJoinStyle_, miterLimit_});
  return scope.image();
}

}  // namespace glyphwright
