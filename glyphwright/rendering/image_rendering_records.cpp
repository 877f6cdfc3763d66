#include <glyphwright/bezier_path.h>
#include <glyphwright/catalogue/icons.h>
#include <glyphwright/catalogue/pathable.h>
#include <glyphwright/platform/image.h>
#include <glyphwright/platform/value.h>
#include <glyphwright/rendering/icon_attributes.h>
#include <glyphwright/rendering/icon_painter.h>

namespace glyphwright {

rendering::IconPaint rendering::paintOf(const IconAttributes& attributes) {
  rendering::IconPaint paint;
  paint.size = attributes.size;
  paint.fill = &attributes.fillColor;
  paint.background = &attributes.backgroundColor;
  if (attributes.stroke) {
    paint.strokeColor = &attributes.stroke->color;
    paint.strokeWidth = attributes.stroke->width;
  }
  if (const std::optional<IconBorder>& border = attributes.border) {
    paint.border = {NSNumber(border->width).integerValue(), border->width, border->color};
  }
  if (const std::optional<IconShadow>& shadow = attributes.dropShadow) {
    paint.dropShadow = {shadow->offset, shadow->blur > 0 ? shadow->blur : 0, shadow->color};
  }
  if (attributes.insetShadow) paint.insetShadow = attributes.insetShadow->shadow.get();
  if (const std::optional<IconGradient>& gradient = attributes.gradient) {
    rendering::GradientFill& fill = paint.gradient.emplace();
    fill.colors = gradient->colors;
    if (!gradient->points.empty()) fill.stops = gradient->points;
    if (!gradient->locations.empty()) {
      fill.start = gradient->locations.front();
      fill.end = gradient->locations.back();
    }
  }
  return paint;
}

namespace {

UIImage paintIcon(const UIBezierPath& path, const IconAttributes& attributes) {
  return rendering::paintIcon(path, rendering::Placement::fromOrigin,
                              rendering::paintOf(attributes));
}

}  // namespace

UIImage UIBezierPath::makeImage(const IconAttributes& attributes) const {
  return paintIcon(*this, attributes);
}

UIImage UIBezierPath::makeImage(const IconAttributes& attributes, UIImage&& reused) const {
  return rendering::paintIcon(*this, rendering::Placement::fromOrigin,
                              rendering::paintOf(attributes), 0, std::move(reused));
}

bool UIBezierPath::drawImage(const IconAttributes& attributes, CGFloat scale,
                             const PixelBuffer& into) const {
  return rendering::paintIcon(*this, rendering::Placement::fromOrigin,
                              rendering::paintOf(attributes), scale, into);
}

UIImage UIBezierPath::newImage(const Pathable& with, const IconAttributes& attributes) {
  return paintIcon(with.path(), attributes);
}

UIImage UIBezierPath::newImage(Icons with, const IconAttributes& attributes) {
  return paintIcon(with.path(), attributes);
}

}  // namespace glyphwright
