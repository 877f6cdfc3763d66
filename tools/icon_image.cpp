#include "icon_image.h"

#include <algorithm>
#include <cmath>
#include <functional>

#include <glyphwright/platform/context.h>
#include <glyphwright/platform/layers/gradient_layer.h>
#include <glyphwright/platform/layers/shape_layer.h>

#include "bare_strokes.h"

namespace glyphwright::cli {
namespace {

/// What `draw` puts on a clear canvas at the screen's scale; without pixels where there is no
/// canvas of this size.
UIImage drawn(CGSize size, const std::function<void(CGContextRef)>& draw) {
  UIGraphicsBeginImageContextWithOptions(size, false, 0);
  if (CGContextRef context = UIGraphicsGetCurrentContext()) draw(context);
  const auto image = UIGraphicsGetImageFromCurrentImageContext();
  UIGraphicsEndImageContext();
  return image.value_or(UIImage());
}

void fillGround(CGContextRef context, const IconAttributes& attributes) {
  CGContextSetFillColor(context, attributes.backgroundColor);
  CGContextFillRect(context, {CGPoint{}, attributes.size});
}

/// The room that the drop shadow takes from each direction of the image.
CGFloat shadowRoom(const IconAttributes& attributes) {
  if (!attributes.dropShadow) return 0;
  const CGSize offset = attributes.dropShadow->offset;
  return attributes.dropShadow->blur +
         2 * std::max(std::fabs(offset.width), std::fabs(offset.height));
}

CGSize less(CGSize size, CGFloat both) {
  return {size.width - both, size.height - both};
}

/// The strokes painted with the gradient, as an image of the attributes' size.
UIImage strokesOfGradient(const UIBezierPath& path, const IconAttributes& attributes, CGFloat pen) {
  const CGSize room = less(attributes.size, shadowRoom(attributes));
  if (!(room.width > 0 && room.height > 0)) return {};  // the shadow leaves nothing
  UIBezierPath fitted = path;
  fitted.translateToZeroPoint();
  fitted.scaleToFitSize(less(room, pen));
  fitted.centerAlignWithinSize(room);
  auto strokes = CAShapeLayer::layer();
  strokes->setBounds({CGPoint{}, room});
  strokes->setFrame({CGPoint{}, room});
  strokes->setPath(fitted.cgPath());
  strokes->setFillColor(std::nullopt);
  strokes->setStrokeColor(CGColor::blackColor());
  strokes->setLineWidth(pen);
  strokes->setLineCap(path.lineCapStyle());
  strokes->setLineJoin(path.lineJoinStyle());
  strokes->setMiterLimit(path.miterLimit());
  auto layer = CAGradientLayer::layer();
  layer->setBounds({CGPoint{}, room});
  layer->setColors(attributes.gradient->colors);
  if (!attributes.gradient->points.empty()) layer->setLocations(attributes.gradient->points);
  if (!attributes.gradient->locations.empty()) {
    layer->setStartPoint(attributes.gradient->locations.front());
    layer->setEndPoint(attributes.gradient->locations.back());
  }
  layer->setMask(strokes);
  return drawn(attributes.size, [&](CGContextRef context) {
    const CGFloat margin = shadowRoom(attributes) / 2;
    CGContextTranslateCTM(context, margin, margin);
    layer->renderInContext(context);
  });
}

UIImage withoutBorder(const UIBezierPath& path, const IconAttributes& attributes) {
  if (!hasNoStroke(attributes) || !isBareStrokes(path.cgPath())) return path.makeImage(attributes);
  const CGFloat pen = ownPenWidth(path, less(attributes.size, shadowRoom(attributes)));
  IconAttributes stroked = attributes;
  stroked.insetShadow.reset();
  stroked.gradient.reset();
  stroked.stroke = IconStroke(attributes.fillColor, pen);
  if (!attributes.gradient) return path.makeImage(stroked);
  return drawn(attributes.size, [&](CGContextRef context) {
    fillGround(context, attributes);
    if (const auto& shadow = attributes.dropShadow) {
      CGContextSetShadowWithColor(context, shadow->offset, shadow->blur, shadow->color);
    }
    CGContextDrawImage(context, {CGPoint{}, attributes.size},
                       strokesOfGradient(path, attributes, pen));
  });
}

/// The ring of bare strokes: their own pen, wider by the border on either side.
UIImage ringOfStrokes(const UIBezierPath& path, const IconAttributes& attributes, CGFloat width) {
  const CGFloat pen = ownPenWidth(path, less(attributes.size, 2 * width)) + 2 * width;
  return path.makeImage({.fillColor = attributes.border->color,
                         .backgroundColor = UIColor::clearColor(),
                         .stroke = IconStroke(attributes.border->color, pen),
                         .size = attributes.size});
}

UIImage onGround(const UIBezierPath& path, const IconAttributes& attributes) {
  IconAttributes clear = attributes;
  clear.backgroundColor = UIColor::clearColor();
  const CGFloat width = std::trunc(attributes.border->width);
  const bool strokes = hasNoStroke(attributes) && isBareStrokes(path.cgPath());
  const CGRect whole{CGPoint{}, attributes.size};
  const CGRect within = CGRectInset(whole, width, width);
  return drawn(attributes.size, [&](CGContextRef context) {
    fillGround(context, attributes);
    if (!strokes) return CGContextDrawImage(context, whole, path.makeImage(clear));
    CGContextDrawImage(context, whole, ringOfStrokes(path, attributes, width));
    if (CGRectIsEmpty(within)) return;
    clear.border.reset();
    clear.size = within.size;
    CGContextDrawImage(context, within, withoutBorder(path, clear));
  });
}

}  // namespace

bool hasNoStroke(const IconAttributes& attributes) {
  const auto& stroke = attributes.stroke;
  return stroke && stroke->color.alpha() == 0 && stroke->width == 0;
}

UIImage imageOf(const UIBezierPath& path, const IconAttributes& attributes) {
  const bool ring = attributes.border && attributes.border->width >= 1;
  return ring ? onGround(path, attributes) : withoutBorder(path, attributes);
}

}  // namespace glyphwright::cli
