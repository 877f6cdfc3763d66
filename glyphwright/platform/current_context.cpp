// What images and colours do to the current context.

#include <glyphwright/platform/color.h>
#include <glyphwright/platform/context.h>
#include <glyphwright/platform/image.h>

namespace glyphwright {

void UIColor::set() const {
  setFill();
  setStroke();
}

void UIColor::setFill() const {
  CGContextSetFillColor(UIGraphicsGetCurrentContext(), *this);
}

void UIColor::setStroke() const {
  CGContextSetStrokeColor(UIGraphicsGetCurrentContext(), *this);
}

void UIImage::drawAtPoint(CGPoint point) const {
  drawInRect({point, size_});
}

void UIImage::drawInRect(const CGRect& rect, CGBlendMode blendMode, CGFloat alpha) const {
  switch (blendMode) {
    case CGBlendMode::normal:
      CGContextDrawImage(UIGraphicsGetCurrentContext(), rect, *this, alpha);
      break;
  }
}

}  // namespace glyphwright
