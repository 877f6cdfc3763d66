#include "paint.h"

#include <utility>

#include "usage_error.h"

namespace glyphwright::cli {

Paint::Paint() {
  attributes.fillColor = UIColor::blackColor();
  attributes.backgroundColor = UIColor::clearColor();
  attributes.stroke = IconStroke(UIColor::clearColor(), 0);
  setSizes({{64, 64}});
}

void Paint::setSizes(std::vector<CGSize> all) {
  sizes = std::move(all);
  attributes.size = sizes.front();
}

void requirePixelColors(const Paint& paint) {
  if (paint.fillIsCurrentColor || paint.strokeIsCurrentColor) {
    throw UsageError("currentColor is a colour for SVG alone: pixels have no page around them");
  }
}

void requireOnePicture(const Paint& paint) {
  if (paint.sizes.size() > 1) throw UsageError("--size: only one size can be drawn here");
  requirePixelColors(paint);
}

}  // namespace glyphwright::cli
