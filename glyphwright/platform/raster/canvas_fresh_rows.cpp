#include <glyphwright/platform/raster/canvas.h>

namespace glyphwright::raster {

Canvas::FreshRows::FreshRows(Canvas& canvas, const PixelRect& region)
    : canvas_(canvas),
      region_(region),
      left_(static_cast<std::size_t>(region.x0 - canvas.bounds_.x0)),
      right_(static_cast<std::size_t>(canvas.bounds_.x1 - region.x1)) {
  if (canvas.shared_) canvas.detach();
  canvas.layRows(canvas.bounds_.y0, region.y0);
  canvas.pristine_ = false;
}

std::uint8_t* Canvas::FreshRows::at(int y) {
  std::uint8_t* line = canvas_.rowAt(y);
  if (left_ > 0) canvas_.layGround(line, left_);
  if (right_ > 0) canvas_.layGround(line + canvas_.rowBytes_ - right_ * 4, right_);
  return line + left_ * 4;
}

void Canvas::FreshRows::finish() {
  canvas_.layRows(region_.y1, canvas_.bounds_.y1);
}

}  // namespace glyphwright::raster
