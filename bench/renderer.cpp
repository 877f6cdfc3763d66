#include "renderer.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include <glyphwright/paths/method_names.h>

namespace glyphwright::bench {

std::vector<Icon> allIcons() {
  std::vector<Icon> icons;
  for (const std::string_view name : iconMethodNames) {
    const ClassMethod method = findClassMethod(name);
    icons.push_back({name, method, method().cgPath()});
  }
  return icons;
}

CGAffineTransform fitting(const CGPath& path, Operation operation, std::size_t side) {
  double inset = 0;
  if (operation == Operation::stroke) inset = kStrokeWidth;
  if (operation == Operation::dropShadow) inset = kBlur + 2 * kShadowOffsetY;
  const CGRect box = path.boundingBox();
  const double outer = static_cast<double>(side);
  const double inner = outer - inset;
  const double scale = std::min(inner / box.size.width, inner / box.size.height);
  return {scale,
          0,
          0,
          scale,
          (outer - box.size.width * scale) / 2 - box.origin.x * scale,
          (outer - box.size.height * scale) / 2 - box.origin.y * scale};
}

namespace {

class Clearing final : public Renderer {
 public:
  std::string_view name() const override { return "clearing"; }
  void paint(const Icon&, Operation, std::size_t side, Pixels* copy) const override {
    const std::size_t size = side * side * 4;
    const auto memory = std::make_unique_for_overwrite<std::uint8_t[]>(size);
    std::memset(memory.get(), 0, size);
    // Otherwise the compiler sees that nobody looks.
    __asm__ volatile("" : : "r"(memory.get()) : "memory");
    if (copy != nullptr) copy->bytes.assign(memory.get(), memory.get() + size);
  }
};

}  // namespace

std::unique_ptr<Renderer> makeClearing() {
  return std::make_unique<Clearing>();
}

}  // namespace glyphwright::bench
