#include <utility>

#include <glyphwright/paths/outline.h>

namespace glyphwright {

using namespace paths;

namespace {

// Each glyph is drawn on its own board; a method scales the board, not the glyph, to the asked
// size, so that glyphs of one board keep their places beside each other.

// Tall chevron pointing left, board 12.9 by 22.
constexpr Step kCaret[] = {
    move(12.54, 21.42),
    curve(11.61, 21.81, 12.3, 21.67, 11.96, 21.81),
    curve(10.7, 21.44, 11.27, 21.81, 10.95, 21.68),
    line(0.19, 11.24),
    curve(0.01, 10.81, 0.08, 11.13, 0.01, 10.97),
    curve(0.19, 10.38, 0.01, 10.65, 0.08, 10.49),
    line(10.7, 0.18),
    curve(11.61, -0.19, 10.95, -0.06, 11.27, -0.19),
    curve(12.91, 1.11, 12.33, -0.19, 12.91, 0.39),
    curve(12.52, 2.04, 12.91, 1.46, 12.77, 1.8),
    line(3.48, 10.81),
    line(12.52, 19.58),
    curve(12.91, 20.51, 12.77, 19.82, 12.91, 20.16),
    curve(12.54, 21.42, 12.91, 20.85, 12.78, 21.17),
    close(),
};

// Board 13 by 10.
constexpr Step kCheckmark[] = {
    move(7.5, 12.5), line(6, 14),  line(10, 18),    line(19, 9.5),
    line(17.5, 8),   line(10, 15), line(7.5, 12.5), close(),
};

// Board 17 by 13.
constexpr Step kThickCheckmark[] = {
    move(5.39, 12.8),
    curve(4.26, 12.33, 4.97, 12.8, 4.56, 12.63),
    line(0.67, 8.74),
    curve(0.2, 7.61, 0.37, 8.44, 0.2, 8.03),
    curve(1.8, 6.01, 0.2, 6.73, 0.92, 6.01),
    curve(2.93, 6.48, 2.22, 6.01, 2.63, 6.18),
    line(5.41, 8.96),
    line(14.09, 0.64),
    curve(15.2, 0.2, 14.39, 0.36, 14.79, 0.2),
    curve(16.8, 1.8, 16.08, 0.2, 16.8, 0.92),
    curve(16.31, 2.96, 16.8, 2.24, 16.62, 2.65),
    line(6.5, 12.36),
    curve(5.39, 12.8, 6.2, 12.64, 5.8, 12.8),
    close(),
};

// Board 14 by 14.
constexpr Step kThickX[] = {
    move(9.3, 6.8),
    line(13.31, 10.81),
    curve(13.6, 11.51, 13.49, 10.99, 13.6, 11.25),
    curve(13.31, 12.22, 13.6, 11.78, 13.49, 12.03),
    line(12.22, 13.31),
    curve(11.51, 13.6, 12.03, 13.49, 11.78, 13.6),
    curve(10.81, 13.31, 11.25, 13.6, 10.99, 13.49),
    line(6.8, 9.3),
    line(2.79, 13.31),
    curve(2.09, 13.6, 2.61, 13.49, 2.35, 13.6),
    curve(1.38, 13.31, 1.82, 13.6, 1.57, 13.49),
    line(0.29, 12.22),
    curve(0, 11.51, 0.11, 12.03, 0, 11.78),
    curve(0.29, 10.81, 0, 11.25, 0.11, 10.99),
    line(4.3, 6.8),
    line(0.29, 2.79),
    curve(0, 2.09, 0.11, 2.61, 0, 2.35),
    curve(0.29, 1.38, 0, 1.82, 0.11, 1.57),
    line(1.38, 0.29),
    curve(2.09, 0, 1.57, 0.11, 1.82, 0),
    curve(2.79, 0.29, 2.35, 0, 2.61, 0.11),
    line(6.8, 4.3),
    line(10.81, 0.29),
    curve(11.51, 0, 10.99, 0.11, 11.25, 0),
    curve(12.22, 0.29, 11.78, 0, 12.03, 0.11),
    line(13.31, 1.38),
    curve(13.6, 2.09, 13.49, 1.57, 13.6, 1.82),
    curve(13.31, 2.79, 13.6, 2.35, 13.49, 2.61),
    line(9.3, 6.8),
    close(),
};

// Camera sign, board 16 by 16.
constexpr Step kCameraFrame[] = {
    move(7.99, 0.03),
    line(11.25, 0.03),
    curve(15.95, 4.73, 13.85, 0.03, 15.95, 2.13),
    line(15.95, 11.25),
    curve(11.25, 15.95, 15.95, 13.85, 13.85, 15.95),
    line(4.73, 15.95),
    curve(0.03, 11.25, 2.13, 15.95, 0.03, 13.85),
    line(0.03, 4.73),
    curve(4.73, 0.03, 0.03, 2.13, 2.13, 0.03),
    line(7.99, 0.03),
    close(),
    // inside, counter-wound
    move(7.99, 1.48),
    line(4.73, 1.48),
    curve(1.48, 4.73, 2.94, 1.48, 1.48, 2.94),
    line(1.48, 11.25),
    curve(4.73, 14.5, 1.48, 13.04, 2.94, 14.5),
    line(11.25, 14.5),
    curve(14.5, 11.25, 13.04, 14.5, 14.5, 13.04),
    line(14.5, 4.73),
    curve(11.25, 1.48, 14.5, 2.94, 13.04, 1.48),
    line(7.99, 1.48),
    close(),
};
constexpr Step kCameraLens[] = {
    move(7.99, 3.89),
    curve(12.09, 7.99, 10.25, 3.89, 12.09, 5.73),
    curve(7.99, 12.09, 12.09, 10.25, 10.25, 12.09),
    curve(3.89, 7.99, 5.73, 12.09, 3.89, 10.25),
    curve(7.99, 3.89, 3.89, 5.73, 5.73, 3.89),
    close(),
    // inside, counter-wound
    move(7.99, 5.34),
    curve(5.34, 7.99, 6.53, 5.34, 5.34, 6.53),
    curve(7.99, 10.64, 5.34, 9.45, 6.53, 10.64),
    curve(10.64, 7.99, 9.45, 10.64, 10.64, 9.45),
    curve(7.99, 5.34, 10.64, 6.53, 9.45, 5.34),
    close(),
};

constexpr CGFloat kThumbnailInset = 7;

// The board of `width` by `height` laid over `size`.
UIBezierPath scaledBoard(UIBezierPath path, CGSize size, CGFloat width, CGFloat height) {
  path.applyTransform(CGAffineTransformMakeScale(size.width / width, size.height / height));
  return path;
}

// The sign's three pieces with its board's corner at (inset, inset).
UIBezierPath cameraSign(CGFloat inset, const CGRect& dot) {
  UIBezierPath path;
  path.appendPath(outline<kCameraFrame>());
  path.appendPath(outline<kCameraLens>());
  path.applyTransform(CGAffineTransformMakeTranslation(inset, inset));
  path.appendPath(UIBezierPath::bezierPathWithOvalInRect(dot));
  return path;
}

}  // namespace

UIBezierPath UIBezierPath::caretIcon(CGSize withSize) {
  UIBezierPath path = evenOddOutline<kCaret>();
  path.translateToZeroPoint();
  return scaledBoard(std::move(path), withSize, 12.9, 22);
}

UIBezierPath UIBezierPath::checkmark(CGSize withSize) {
  UIBezierPath path = evenOddOutline<kCheckmark>();
  path.translateToZeroPoint();
  return scaledBoard(std::move(path), withSize, 13, 10);
}

UIBezierPath UIBezierPath::thickCheckmark(CGSize withSize) {
  return scaledBoard(evenOddOutline<kThickCheckmark>(), withSize, 17, 13);
}

UIBezierPath UIBezierPath::thickX(CGSize withSize) {
  return scaledBoard(evenOddOutline<kThickX>(), withSize, 14, 14);
}

UIBezierPath UIBezierPath::thinX(CGSize withSize, CGPoint offset) {
  const auto diagonal = [&](CGPoint from, CGPoint to) {
    UIBezierPath path;
    path.moveToPoint({offset.x + from.x, offset.y + from.y});
    path.addLineToPoint({offset.x + to.x, offset.y + to.y});
    path.setLineCapStyle(CGLineCap::round);
    path.closePath();
    return path;
  };
  UIBezierPath path = diagonal({0, 0}, {11, 11});
  path.appendPath(diagonal({11, 0}, {0, 11}));
  return scaledBoard(std::move(path), withSize, 11, 11);
}

UIBezierPath UIBezierPath::instagramProfileConnectButtonIconPath(CGSize withSize) {
  return scaledBoard(cameraSign(0, {11.35, 2.5, 1.8, 1.8}), withSize, 16, 16);
}

UIBezierPath UIBezierPath::instagramProfileConnectButtonIconPathWithSize(CGSize size) {
  return instagramProfileConnectButtonIconPath(size);
}

UIBezierPath UIBezierPath::instagramThumbnailPlaceholder(CGSize withSize) {
  return scaledBoard(cameraSign(kThumbnailInset, {18.35, 9.5, 1.8, 1.8}), withSize, 30, 30);
}

UIBezierPath UIBezierPath::instagramThumbnailPlaceholderWithSize(CGSize size) {
  return instagramThumbnailPlaceholder(size);
}

}  // namespace glyphwright
