#include <glyphwright/rendering/icon_attributes.h>

#include <cstddef>
#include <utility>

#include <glyphwright/platform/vantel_kit.h>

namespace glyphwright {
namespace {

// 0, 1 ÷ (n − 1), …, 1; for one colour 0 ÷ 0.
std::vector<CGFloat> evenStops(std::size_t count) {
  std::vector<CGFloat> stops;
  stops.reserve(count);
  const CGFloat last = static_cast<CGFloat>(count) + -1.0;
  for (std::size_t i = 0; i < count; ++i) stops.push_back(static_cast<CGFloat>(i) / last);
  return stops;
}

CGPoint pointAlong(IconGradient::Direction direction, CGFloat index, CGFloat last) {
  const CGFloat t = index / last;
  switch (direction) {
    case IconGradient::Direction::topToBottom:
      return {0, t};
    case IconGradient::Direction::leftToRight:
      return {t, 0};
    case IconGradient::Direction::topLeftToBottomRight:
      return {t, t};
    case IconGradient::Direction::bottomLeftToTopRight:
      break;
  }
  const CGFloat u = (last - index) / last;
  return {u, u};
}

}  // namespace

IconShadow::IconShadow(const UIColor& shadowColor, CGSize shadowOffset, CGFloat shadowBlur)
    : shadow(std::make_shared<NSShadow>()),
      offset(shadowOffset),
      blur(shadowBlur),
      color(shadowColor) {
  shadow->setShadowColor(shadowColor);
  shadow->setShadowOffset(shadowOffset);
  shadow->setShadowBlurRadius(shadowBlur);
}

IconGradient::IconGradient(std::vector<UIColor> gradientColors,
                           std::vector<CGPoint> gradientLocations,
                           std::vector<CGFloat> gradientPoints)
    : colors(std::move(gradientColors)),
      locations(std::move(gradientLocations)),
      points(std::move(gradientPoints)) {}

IconGradient::IconGradient(std::vector<UIColor> gradientColors,
                           std::vector<CGPoint> gradientLocations, Direction direction)
    : colors(std::move(gradientColors)),
      locations(std::move(gradientLocations)),
      points(evenStops(colors.size())) {
  if (!locations.empty()) return;
  const CGFloat last = static_cast<CGFloat>(colors.size()) + -1.0;
  locations.reserve(colors.size());
  for (std::size_t i = 0; i < colors.size(); ++i) {
    locations.push_back(pointAlong(direction, static_cast<CGFloat>(i), last));
  }
}

IconGradient::IconGradient(std::vector<UIColor> gradientColors, Direction direction)
    : IconGradient(std::move(gradientColors), {}, direction) {}

void IconGradient::update(const VantelKit::Gradient& with) {
  colors = with.colors;
  const VantelKit::Gradient::Points& ends = with.gradientPointsInUnitCoordinate;
  locations = {ends.start, ends.end};
  if (colors.size() >= 2) points = evenStops(colors.size());
}

void IconAttributes::apply(const VantelKit::Gradient& hostGradient) {
  if (gradient) gradient->update(hostGradient);
}

}  // namespace glyphwright
