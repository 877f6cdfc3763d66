// An icon or any path under any attributes, said either way: an image of the asked size comes back.

#include <glyphwright/bezier_path.h>
#include <glyphwright/paths/method_names.h>
#include <glyphwright/paths/registry.h>
#include <glyphwright/platform/image.h>
#include <glyphwright/platform/vantel_kit.h>
#include <glyphwright/rendering/attribute_dictionary.h>
#include <glyphwright/rendering/icon_attributes.h>

#include "input.h"

namespace {

using namespace glyphwright;

IconShadow shadowFrom(fuzz::Input& input) {
  const CGSize offset = input.size();
  const double blur = input.number();
  IconShadow shadow{input.color(), offset, blur < 1e3 ? blur / 8 : blur};
  if (input.below(16) == 0) shadow.shadow = nullptr;
  return shadow;
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

AttributeDictionary keysOf(const IconAttributes& a) {
  AttributeDictionary keys{{VNTLGlyphwrightSize, a.size}, {VNTLGlyphwrightFillColor, a.fillColor}};
  if (a.stroke) keys.setValue(VNTLGlyphwrightStrokeWidth, a.stroke->width);
  if (a.border) keys.setValue(VNTLGlyphwrightBorderWidth, a.border->width);
  if (a.dropShadow) keys.setValue(VNTLGlyphwrightDropShadow, a.dropShadow->shadow);
  if (a.insetShadow) keys.setValue(VNTLGlyphwrightInsetShadow, a.insetShadow->shadow);
  if (!a.gradient) return keys;
  keys.setValue(VNTLGlyphwrightGradientColors, a.gradient->colors);
  keys.setValue(VNTLGlyphwrightGradientLocations,
                std::vector<NSNumber>(a.gradient->points.begin(), a.gradient->points.end()));
  for (const CGPoint& end : a.gradient->locations) {
    keys.setValue(VNTLGlyphwrightGradientEndPoint, end);
  }
  return keys;
}

void expectSize(const UIImage& image, const UIImage& other) {
  if (image.cgImage().pixelWidth() != other.cgImage().pixelWidth()) __builtin_trap();
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
  const UIImage blank = UIBezierPath().makeImage(
      {.fillColor = UIColor(), .backgroundColor = UIColor(), .size = {width, height}});
  expectSize(path.makeImage(attributes), blank);
  expectSize(path.imageWithAttributes(keysOf(attributes)), blank);
  return 0;
}
