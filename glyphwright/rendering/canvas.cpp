#include <cstddef>
#include <optional>

#include <glyphwright/bezier_path.h>
#include <glyphwright/catalogue/pathable.h>
#include <glyphwright/platform/context.h>
#include <glyphwright/platform/fatal.h>
#include <glyphwright/platform/image.h>
#include <glyphwright/platform/screen.h>
#include <glyphwright/rendering/icon_attributes.h>
#include <glyphwright/rendering/icon_painter.h>

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

UIImage UIBezierPath::newImage(const BorrowedList<Pathable>& with,
                               const BorrowedList<IconAttributes>& attributes,
                               const BorrowedList<CGPoint>& positions,
                               const BorrowedList<CGSize>& sizes, CGSize canvasSize) {
  if (with.size() != attributes.size() || with.size() != positions.size()) return {};
  // Canvases are at scale 1 whatever the screen's scale is.
  UIGraphicsBeginImageContext(canvasSize);
  OpenCanvas open;
  const CGFloat scale = screen::scale();  // of all icons
  for (std::size_t i = 0; i < with.size(); ++i) {
    if (i >= sizes.size()) fatal("index out of range: fewer canvas sizes than icons");
    rendering::paintIcon(with[i].path(), rendering::Placement::fromOrigin,
                         rendering::paintOf(attributes[i]), scale)
        .drawInRect({positions[i], sizes[i]}, CGBlendMode::normal, 1.0);
  }
  const std::optional<UIImage> canvas = UIGraphicsGetImageFromCurrentImageContext();
  // A canvas that yields no image stays on the thread's stack; its opener is the one to end it.
  open.stays = !canvas;
  return canvas.value_or(UIImage());
}

}  // namespace glyphwright
