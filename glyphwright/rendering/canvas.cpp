#include <cstddef>
#include <optional>
#include <span>

#include <glyphwright/bezier_path.h>
#include <glyphwright/catalogue/pathable.h>
#include <glyphwright/platform/context.h>
#include <glyphwright/platform/fatal.h>
#include <glyphwright/platform/image.h>
#include <glyphwright/rendering/icon_attributes.h>

namespace glyphwright {
namespace {

struct OpenCanvas {
  OpenCanvas() = default;
  OpenCanvas(const OpenCanvas&) = delete;
  OpenCanvas& operator=(const OpenCanvas&) = delete;
  ~OpenCanvas() {
    if (!stays) UIGraphicsEndImageContext();
  }
  bool stays = false;
};

}  // namespace

UIImage UIBezierPath::newImage(std::span<const Pathable> with,
                               std::span<const IconAttributes> attributes,
                               std::span<const CGPoint> positions, std::span<const CGSize> sizes,
                               CGSize canvasSize) {
  if (with.size() != attributes.size() || with.size() != positions.size()) return {};
  // Canvases are at scale 1 whatever the screen's scale is.
  UIGraphicsBeginImageContext(canvasSize);
  OpenCanvas open;
  for (std::size_t i = 0; i < with.size(); ++i) {
    if (i >= sizes.size()) fatal("index out of range: fewer canvas sizes than icons");
    newImage(with[i], attributes[i]).drawInRect({positions[i], sizes[i]}, CGBlendMode::normal, 1.0);
  }
  const std::optional<UIImage> canvas = UIGraphicsGetImageFromCurrentImageContext();
  // A canvas that yields no image stays on the thread's stack; its opener is the one to end it.
  open.stays = !canvas;
  return canvas.value_or(UIImage());
}

UIImage UIBezierPath::newImage(const std::vector<Pathable>& with,
                               const std::vector<IconAttributes>& attributes,
                               const std::vector<CGPoint>& positions,
                               const std::vector<CGSize>& sizes, CGSize canvasSize) {
  return newImage(std::span(with), std::span(attributes), std::span(positions), std::span(sizes),
                  canvasSize);
}

}  // namespace glyphwright
