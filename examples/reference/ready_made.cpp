// Ready-made images by name, and what the library takes from the application around it.

#include <glyphwright/glyphwright.h>
#include <glyphwright/platform/vantel_kit.h>
#include <glyphwright/presets/ready_made.h>

#include "../cookbook/png.h"

using namespace glyphwright;

int main() {
  VantelKit::Screen::setScale(2);
  const VantelKit::Gradient ground{{VantelKit::colorFromHex("#F4F1FF"), UIColor::whiteColor()},
                                   VantelKit::Gradient::Points{{0, 0}, {1, 1}}};
  const VantelKit::Border frame{2, VantelKit::inactiveTitle()};

  const CGSize size{192, 64};
  const UIImage image = VantelKit::drawImage(size, false, 0, [&](CGContext& context) {
    // A BorrowedList of colours: in braces, or any container that holds them.
    CGContextDrawLinearGradient(&context, *CGGradientCreateWithColors({}, ground.colors), {0, 0},
                                {size.width, size.height}, CGGradientDrawingOptions::none);
    const StrokeStyle line{.width = frame.width};
    CGContextSetStrokeColor(&context, frame.color);
    const auto edge = UIBezierPath::bezierPathWithRect(CGRectInset({{}, size}, 1, 1));
    CGContextStrokePath(&context, edge.cgPath(), line);

    CGFloat x = 16;
    for (const presets::ReadyMadeImage& made : presets::readyMadeImages()) {
      if (!made.usualSize || x > 150) continue;
      const presets::ReadyMadeArguments arguments{.size = *made.usualSize,
                                                  .selected = made.takesFlags};
      made.draw(arguments).drawInRect({x, 16, 32, 32});
      x += 44;
    }
  });
  return cookbook::writePng("ready_made.png", image.cgImage()) ? 0 : 1;
}
