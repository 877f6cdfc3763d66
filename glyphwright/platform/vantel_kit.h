#pragma once

#include <functional>
#include <span>
#include <string_view>
#include <vector>

#include <glyphwright/platform/image.h>

/// What the library uses of the application's own UI framework. The application supplies the
/// values; the library only reads them.
namespace glyphwright::VantelKit {

/// The main screen.
class Screen {
 public:
  /// Pixels per point, read at each call; 2 unless the application set it.
  static CGFloat scale();
  /// Set once by the application (or a test). A scale that is not above 0 or not finite is
  /// ignored. May be called from any thread.
  static void setScale(CGFloat scale);
};

/// A host gradient: colours and its end points in unit coordinates of the box it fills.
struct Gradient {
  /// Where the first and the last colour stand.
  struct Points {
    CGPoint start;  ///< Of the first colour.
    CGPoint end;    ///< Of the last.
  };
  std::vector<UIColor> colors;
  Points gradientPointsInUnitCoordinate;
};

/// A border's width in points and its colour.
struct Border {
  CGFloat width = 0;  ///< Of the line.
  UIColor color;      ///< Of the whole ring.
};

/// `NSObject.drawImage(size:isOpaque:scale:drawClosure:)`: runs the closure in an image context and
/// gives the image; one without pixels, of the asked size, when it cannot be drawn.
UIImage drawImage(CGSize size, bool isOpaque, CGFloat scale,
                  const std::function<void(CGContext&)>& drawClosure);

/// `UIColor.Vantel.inactiveTitle`, the grey of titles that cannot be tapped.
UIColor inactiveTitle();
/// `UIColor.colorFromHex:` a number sign and six hexadecimal digits; anything else is clear.
UIColor colorFromHex(std::string_view hex);

}  // namespace glyphwright::VantelKit
