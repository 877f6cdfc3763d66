#include <glyphwright/platform/raster/canvas.h>

namespace glyphwright::raster {

Canvas::FreshRows::FreshRows(Canvas& canvas, const PixelRect& region)
    : canvas_(canvas), region_(region) {
  if (canvas.shared_) canvas.detach();
  canvas.layRows(canvas.bounds_.y0, region.y0);
  canvas.pristine_ = false;
}

std::uint8_t* Canvas::FreshRows::at(int y, int rows) {
  canvas_.layBeside(y, rows, region_);
  return canvas_.rowAt(y) + static_cast<std::size_t>(region_.x0 - canvas_.bounds_.x0) * 4;
}

void Canvas::FreshRows::finish() {
  canvas_.layRows(region_.y1, canvas_.bounds_.y1);
  finished_ = true;
}

}  // namespace glyphwright::raster
