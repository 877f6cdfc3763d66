#include <utility>

#include <glyphwright/platform/context.h>
#include <glyphwright/platform/image.h>
#include <glyphwright/rendering/icon_attributes.h>

#include "renderer.h"

namespace glyphwright::bench {

namespace {

std::vector<UIColor> colors() {
  std::vector<UIColor> all;
  all.reserve(std::size(kStops));
  for (const auto& [red, green, blue] : kStops) all.emplace_back(red, green, blue, 1);
  return all;
}

IconAttributes attributesOf(Operation operation, std::size_t side) {
  const auto points = static_cast<CGFloat>(side);
  IconAttributes attributes{.fillColor = UIColor(0.1, 0.4, 0.9, 1),
                            .backgroundColor = UIColor::clearColor(),
                            .stroke = IconStroke(UIColor::clearColor(), 0),
                            .size = {points, points}};
  const CGSize offset = {0, kShadowOffsetY};
  switch (operation) {
    case Operation::fill:
      break;
    case Operation::hairline:
      attributes.stroke.reset();
      break;
    case Operation::gradient:
      attributes.gradient = IconGradient(colors(), {}, IconGradient::Direction::topToBottom);
      break;
    case Operation::slanted:
      attributes.gradient =
          IconGradient(colors(), {}, IconGradient::Direction::topLeftToBottomRight);
      break;
    case Operation::radial:
    case Operation::conic:  // drawn by calls
      break;
    case Operation::stroke:
      attributes.stroke = IconStroke(UIColor(0.05, 0.1, 0.3, 1), kStrokeWidth);
      break;
    case Operation::dropShadow:
      attributes.dropShadow = IconShadow(UIColor(0, 0, 0, 0.5), offset, kBlur);
      break;
    case Operation::insetShadow:
      attributes.insetShadow = IconShadow(UIColor(0, 0, 0, 0.5), offset, kBlur);
      break;
  }
  return attributes;
}

/// Attributes of icons know straight gradients only; the others are drawn through a clip.
UIImage drawnThroughClip(const Icon& icon, Operation operation, std::size_t side) {
  const auto points = static_cast<CGFloat>(side);
  UIGraphicsBeginImageContextWithOptions({points, points}, false, 1);
  const CGContextRef context = UIGraphicsGetCurrentContext();
  const UIBezierPath path = icon.method();
  const CGAffineTransform fit = fitting(path.cgPath(), operation, side);
  CGContextConcatCTM(context, fit);
  CGContextClipToPath(context, path.cgPath(), FillRule::evenOdd);
  CGContextConcatCTM(context, CGAffineTransformInvert(fit));
  std::vector<CGGradient::Stop> stops;
  for (const auto& [red, green, blue] : kStops) {
    stops.push_back({static_cast<CGFloat>(stops.size()) / 2, CGColor(red, green, blue, 1)});
  }
  const CGGradient gradient(std::move(stops));
  const CGPoint center{points / 2, points / 2};
  if (operation == Operation::radial) {
    CGContextDrawRadialGradient(context, gradient, center, points / 2);
  } else {
    CGContextDrawConicGradient(context, gradient, center, 0);
  }
  UIImage image = *UIGraphicsGetImageFromCurrentImageContext();
  UIGraphicsEndImageContext();
  return image;
}

UIImage imageOf(const Icon& icon, Operation operation, std::size_t side) {
  if (operation == Operation::radial || operation == Operation::conic) {
    return drawnThroughClip(icon, operation, side);
  }
  return icon.method().makeImage(attributesOf(operation, side));
}

class Glyphwright final : public Renderer {
 public:
  std::string_view name() const override { return "glyphwright"; }
  void paint(const Icon& icon, Operation operation, std::size_t side, Pixels* copy) const override {
    const UIImage image = imageOf(icon, operation, side);
    if (copy != nullptr) {
      const auto rgba = image.cgImage().rgba();
      copy->bytes.assign(rgba.begin(), rgba.end());
    }
  }
};

class GlyphwrightInCallersMemory final : public Renderer {
 public:
  std::string_view name() const override { return "glyphwright"; }
  void paint(const Icon& icon, Operation operation, std::size_t side, Pixels* copy) const override {
    memory_.resize(side * side * 4);
    icon.method().drawImage(attributesOf(operation, side), 0, {memory_.data(), side, side});
    if (copy != nullptr) copy->bytes = memory_;
  }

 private:
  mutable std::vector<std::uint8_t> memory_;
};

}  // namespace

std::unique_ptr<Renderer> makeGlyphwright(Memory memory) {
  if (memory == Memory::reused) return std::make_unique<GlyphwrightInCallersMemory>();
  return std::make_unique<Glyphwright>();
}

}  // namespace glyphwright::bench
