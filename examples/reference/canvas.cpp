// A canvas of one's own: three kinds of gradients, a shadow, a clip and the pixels at the end.

#include <glyphwright/glyphwright.h>
#include <glyphwright/platform/shadow.h>

#include <memory>

#include "../cookbook/png.h"

using namespace glyphwright;

int main() {
  UIGraphicsImageRendererFormat format = UIGraphicsImageRendererFormat::defaultFormat();
  format.opaque = true;
  const CGSize size{192, 64};
  const UIGraphicsImageRenderer renderer(size, format);

  const CGGradient fire({CGGradient::Stop{0, UIColor(1, 0.8, 0.2, 1)},
                         CGGradient::Stop{0.5, UIColor(0.9, 0.2, 0.4, 1)},
                         CGGradient::Stop{1, UIColor(0.3, 0.1, 0.6, 1)}});
  const UIImage image = renderer.image([&](const UIGraphicsImageRendererContext& canvas) {
    CGContextRef context = canvas.cgContext();
    CGContextSetFillColor(context, UIColor::whiteColor());
    CGContextFillRect(context, {{}, size});
    for (const int kind : {0, 1, 2}) {
      const CGRect box{CGFloat(kind) * 64 + 8, 8, 48, 48};
      const CGPoint middle{CGRectGetMidX(box), CGRectGetMidY(box)};
      CGContextSaveGState(context);
      UIBezierPath::bezierPathWithOvalInRect(box).addClip();
      if (kind == 0) {
        CGContextDrawLinearGradient(context, fire, box.origin, {box.origin.x + 48, 56},
                                    CGGradientDrawingOptions::drawsBeforeAndAfter);
      } else if (kind == 1) {
        CGContextDrawRadialGradient(context, fire, middle, 24);
      } else {
        CGContextDrawConicGradient(context, fire, middle, 0);
      }
      CGContextRestoreGState(context);
    }

    // A Borrowed shadow: an object, a pointer of any kind, or nothing.
    const auto shadow = std::make_shared<NSShadow>();
    shadow->setShadowOffset({0, 2});
    shadow->setShadowBlurRadius(6);
    shadow->setShadowColor(UIColor(0, 0, 0, 0.8));
    const CGRect box{8, 8, 48, 48};
    UIBezierPath::bezierPathWithOvalInRect(box).drawInsetShadow(shadow);
  });
  const PixelSize pixels = pixelSize(size, format.scale);
  if (image.cgImage().width() != pixels.width || image.cgImage().height() != pixels.height)
    return 1;
  return cookbook::writePng("canvas.png", image.cgImage()) ? 0 : 1;
}
