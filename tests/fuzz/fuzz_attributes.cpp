// An icon or any path under any attributes.

#include <glyphwright/bezier_path.h>
#include <glyphwright/paths/method_names.h>
#include <glyphwright/paths/registry.h>
#include <glyphwright/platform/image.h>
#include <glyphwright/platform/vantel_kit.h>
#include <glyphwright/rendering/icon_attributes.h>

#include "input.h"

namespace {

using namespace glyphwright;

IconShadow shadowFrom(fuzz::Input& input) {
  const CGSize offset = input.size();
  const double blur = input.number();
  return {input.color(), offset, blur < 1e3 ? blur / 8 : blur};
}

IconGradient gradientFrom(fuzz::Input& input) {
  std::vector<UIColor> colors;
  std::vector<CGPoint> ends;
  std::vector<CGFloat> stops;
  for (std::size_t count = input.below(5); count > 0; --count) colors.push_back(input.color());
  for (std::size_t count = input.below(4); count > 0; --count) ends.push_back(input.point());
  for (std::size_t count = input.below(5); count > 0; --count) stops.push_back(input.number());
  return {std::move(colors), std::move(ends), std::move(stops)};
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  const double width = input.side();
  const double height = input.side();
  VantelKit::Screen::setScale(input.coin() ? 1 : 1.5);
  if (width * height > 1 << 14 && width * height < 1e12) return 0;
  IconAttributes attributes{
      .fillColor = input.color(), .backgroundColor = input.color(), .size = {width, height}};
  if (input.coin()) attributes.stroke = IconStroke(input.color(), input.number());
  if (input.coin()) attributes.border = IconBorder(input.color(), input.number());
  if (input.coin()) attributes.dropShadow = shadowFrom(input);
  if (input.coin()) attributes.insetShadow = shadowFrom(input);
  if (input.coin()) attributes.gradient = gradientFrom(input);
  const UIBezierPath path = input.coin() ? UIBezierPath::bezierPathWithCGPath(input.path())
                                         : findClassMethod(iconMethodNames[input.below(183)])();
  path.makeImage(attributes);
  return 0;
}
