#include <algorithm>
#include <cmath>
#include <functional>

#include <glyphwright/bezier_path.h>
#include <glyphwright/platform/context.h>
#include <glyphwright/platform/layers/gradient_layer.h>
#include <glyphwright/platform/layers/shape_layer.h>
#include <glyphwright/platform/screen.h>
#include <glyphwright/rendering/bare_strokes.h>
#include <glyphwright/rendering/icon_attributes.h>
#include <glyphwright/rendering/icon_painter.h>
#include <glyphwright/rendering/standalone_image.h>

namespace glyphwright {
namespace rendering {
namespace {

UIImage painted(const UIBezierPath& path, const IconAttributes& attributes, CGFloat scale) {
  return paintIcon(path, Placement::fromOrigin, paintOf(attributes), scale);
}

/// What `draw` puts on a clear canvas; without pixels where there is no canvas of this size.
UIImage drawn(CGSize size, CGFloat scale, const std::function<void(CGContextRef)>& draw) {
  UIGraphicsBeginImageContextWithOptions(size, false, scale);
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
UIImage strokesOfGradient(const UIBezierPath& path, const IconAttributes& attributes, CGFloat pen,
                          CGFloat scale) {
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
  return drawn(attributes.size, scale, [&](CGContextRef context) {
    const CGFloat margin = shadowRoom(attributes) / 2;
    CGContextTranslateCTM(context, margin, margin);
    layer->renderInContext(context);
  });
}

UIImage withoutBorder(const UIBezierPath& path, const IconAttributes& attributes, CGFloat scale) {
  if (!hasNoStroke(attributes) || !isBareStrokes(path.cgPath())) {
    return painted(path, attributes, scale);
  }
  const CGFloat pen = ownPenWidth(path, less(attributes.size, shadowRoom(attributes)));
  IconAttributes stroked = attributes;
  stroked.insetShadow.reset();
  stroked.gradient.reset();
  stroked.stroke = IconStroke(attributes.fillColor, pen);
  if (!attributes.gradient) return painted(path, stroked, scale);
  return drawn(attributes.size, scale, [&](CGContextRef context) {
    fillGround(context, attributes);
    if (const auto& shadow = attributes.dropShadow) {
      CGContextSetShadowWithColor(context, shadow->offset, shadow->blur, shadow->color);
    }
    CGContextDrawImage(context, {CGPoint{}, attributes.size},
                       strokesOfGradient(path, attributes, pen, scale));
  });
}

/// The ring of bare strokes: their own pen, wider by the border on either side.
UIImage ringOfStrokes(const UIBezierPath& path, const IconAttributes& attributes, CGFloat width,
                      CGFloat scale) {
  const CGFloat pen = ownPenWidth(path, less(attributes.size, 2 * width)) + 2 * width;
  return painted(path,
                 {.fillColor = attributes.border->color,
                  .backgroundColor = UIColor::clearColor(),
                  .stroke = IconStroke(attributes.border->color, pen),
                  .size = attributes.size},
                 scale);
}

UIImage onGround(const UIBezierPath& path, const IconAttributes& attributes, CGFloat scale) {
  IconAttributes clear = attributes;
  clear.backgroundColor = UIColor::clearColor();
  const CGFloat width = std::trunc(attributes.border->width);
  const bool strokes = hasNoStroke(attributes) && isBareStrokes(path.cgPath());
  const CGRect whole{CGPoint{}, attributes.size};
  const CGRect within = CGRectInset(whole, width, width);
  return drawn(attributes.size, scale, [&](CGContextRef context) {
    fillGround(context, attributes);
    if (!strokes) return CGContextDrawImage(context, whole, painted(path, clear, scale));
    CGContextDrawImage(context, whole, ringOfStrokes(path, attributes, width, scale));
    if (CGRectIsEmpty(within)) return;
    clear.border.reset();
    clear.size = within.size;
    CGContextDrawImage(context, within, withoutBorder(path, clear, scale));
  });
}

}  // namespace

UIImage standaloneImage(const UIBezierPath& path, const IconAttributes& attributes, CGFloat scale) {
  const bool ring = attributes.border && attributes.border->width >= 1;
  return ring ? onGround(path, attributes, scale) : withoutBorder(path, attributes, scale);
}

}  // namespace rendering

UIImage UIBezierPath::makeStandaloneImage(const IconAttributes& attributes) const {
  return rendering::standaloneImage(*this, attributes, screen::scale());
}

}  // namespace glyphwright
