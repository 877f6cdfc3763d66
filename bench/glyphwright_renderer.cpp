#include <glyphwright/platform/image.h>
#include <glyphwright/rendering/icon_attributes.h>

#include "renderer.h"

namespace glyphwright::bench {

namespace {

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
      attributes.gradient = IconGradient(
          {UIColor(1, 0.2, 0.3, 1), UIColor(0.9, 0.8, 0.1, 1), UIColor(0.1, 0.4, 0.9, 1)}, {},
          IconGradient::Direction::topToBottom);
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

class Glyphwright final : public Renderer {
 public:
  std::string_view name() const override { return "glyphwright"; }
  void paint(const Icon& icon, Operation operation, std::size_t side, Pixels* copy) const override {
    const UIImage image = icon.method().makeImage(attributesOf(operation, side));
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
