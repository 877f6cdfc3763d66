// Any path, under any transform, clip, shadow and style, into a bitmap.

#include <glyphwright/bezier_path.h>
#include <glyphwright/platform/context.h>
#include <glyphwright/platform/image.h>

#include "input.h"

namespace {

using namespace glyphwright;

void drawSome(fuzz::Input& input, CGContextRef context) {
  int groups = 0;
  for (int steps = 0; steps < 12 && !input.isEmpty(); ++steps) {
    switch (input.below(13)) {
      case 0:
        CGContextConcatCTM(context, input.transform());
        break;
      case 1:
        CGContextSetFillColor(context, input.color());
        break;
      case 2: {
        const CGSize offset = input.size();
        const double blur = input.number();
        // A wide blur is slow under a sanitizer, not wrong.
        CGContextSetShadowWithColor(context, offset, blur < 1e3 ? blur / 8 : blur, input.color());
        break;
      }
      case 3:
        CGContextClipToPath(context, input.path(), input.rule());
        break;
      case 4:
        CGContextClipToRect(context, input.rect());
        break;
      case 5:
        CGContextFillRect(context, input.rect());
        break;
      case 6:
        CGContextSaveGState(context);
        break;
      case 7:
        CGContextRestoreGState(context);
        break;
      case 8:
        if (groups++ < 3) CGContextBeginTransparencyLayer(context);
        break;
      case 9:
        CGContextEndTransparencyLayer(context);
        break;
      case 10: {
        UIBezierPath path = UIBezierPath::bezierPathWithCGPath(input.path());
        path.setLineWidth(input.number());
        path.setLineCapStyle(static_cast<CGLineCap>(input.below(3)));
        path.setLineJoinStyle(static_cast<CGLineJoin>(input.below(3)));
        path.setMiterLimit(input.number());
        path.stroke();
        break;
      }
      case 11: {
        const CGPoint start = input.point();
        const CGColor colors[] = {input.color(), input.color()};
        const CGFloat stops[] = {input.number(), input.number()};
        const std::optional<CGGradient> gradient =
            CGGradientCreateWithColors(CGColorSpaceCreateDeviceRGB(), colors, stops);
        if (gradient) {
          CGContextDrawLinearGradient(context, *gradient, start, input.point(),
                                      static_cast<CGGradientDrawingOptions>(input.below(4)));
        }
        break;
      }
      default:
        CGContextFillPath(context, input.path(), input.rule());
        break;
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  const double width = input.side();
  const double height = input.side();
  const double scale = input.coin() ? 1 : input.number();
  // Large canvases are legal, and too slow to draw by the thousand.
  const double pixels = width * height * scale * scale;
  if (pixels > 1 << 16 && pixels < 1e12) return 0;
  UIGraphicsBeginImageContextWithOptions({width, height}, input.coin(), scale);
  drawSome(input, UIGraphicsGetCurrentContext());
  UIGraphicsGetImageFromCurrentImageContext();
  UIGraphicsEndImageContext();

  UIBezierPath path = UIBezierPath::bezierPathWithCGPath(input.path());
  path.applyTransform(input.transform());
  path.translateToZeroPoint();
  path.scaleToFitSize(input.size());
  path.centerAlignWithinSize(input.size());
  if (path.bezierPathByReversingPath().cgPath().verbs().size() != path.cgPath().verbs().size()) {
    __builtin_trap();
  }
  return 0;
}
