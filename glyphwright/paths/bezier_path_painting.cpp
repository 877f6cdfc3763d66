#include <glyphwright/bezier_path.h>
#include <glyphwright/platform/context.h>

namespace glyphwright {

void UIBezierPath::fill() const {
  CGContextFillPath(UIGraphicsGetCurrentContext(), path_, fillRule());
}

void UIBezierPath::stroke() const {
  CGContextStrokePath(UIGraphicsGetCurrentContext(), path_,
                      {lineWidth_, lineCapStyle_, lineJoinStyle_, miterLimit_});
}

void UIBezierPath::addClip() const {
  CGContextClipToPath(UIGraphicsGetCurrentContext(), path_, fillRule());
}

}  // namespace glyphwright
