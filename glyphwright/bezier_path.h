#pragma once

#include <glyphwright/version.h>

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>

#include <glyphwright/platform/borrowed.h>
#include <glyphwright/platform/fill_rule.h>
#include <glyphwright/platform/path.h>
#include <glyphwright/platform/stroke_style.h>

namespace glyphwright {

class AttributeDictionary;
class CALayer;
class CAShapeLayer;
class Icons;
class NSShadow;
class Pathable;
class UIColor;
class UIImage;
class VNTLGradientShapeLayer;
enum class VNTLIconType : std::int64_t;
struct IconAttributes;
struct PixelBuffer;

/// How functions take an icon type: as such, or as a plain whole number (but not as true or false).
class IconNumber {
 public:
  /// A type that is no icon is taken too; each function says what it gives then.
  constexpr IconNumber(VNTLIconType type) : type_(type) {}
  /// An unsigned number above 2⁶³ − 1 wraps around to a negative one, which is no icon.
  template <std::integral Number>
  requires(!std::same_as<Number, bool>) constexpr IconNumber(Number number)
      : type_(static_cast<VNTLIconType>(number)) {}
  /// Need not be one of the cases.
  constexpr operator VNTLIconType() const { return type_; }

 private:
  VNTLIconType type_;
};

/// A path together with how it is to be painted: the fill rule and the stroke attributes. A value;
/// copies are independent. Coordinates are points, y down.
///
/// This is the face of the library. Every icon is a static method of this class; the methods that
/// fit, render and layer a path stand beside the ones that build it.
class UIBezierPath {
 public:
  // Construction

  /// An empty path: no elements, zero bounds.
  UIBezierPath() = default;
  /// `bezierPathWithCGPath:` copies the elements; attributes are the defaults.
  static UIBezierPath bezierPathWithCGPath(CGPath cgPath);
  /// `bezierPathWithRect:` clockwise on screen from the upper left corner.
  static UIBezierPath bezierPathWithRect(const CGRect& rect);
  /// `bezierPathWithOvalInRect:` four cubics clockwise from the right-hand middle.
  static UIBezierPath bezierPathWithOvalInRect(const CGRect& rect);
  /// `bezierPathWithRoundedRect:cornerRadius:` quarter-arc corners; the radius is clamped to half
  /// of each side, and 0, negative or NaN gives square corners.
  static UIBezierPath bezierPathWithRoundedRect(const CGRect& rect, CGFloat cornerRadius);
  /// `bezierPathWithRoundedRect:byRoundingCorners:cornerRadii:` only the listed corners are round.
  static UIBezierPath bezierPathWithRoundedRect(const CGRect& rect, UIRectCorner byRoundingCorners,
                                                CGSize cornerRadii);

  /// `moveToPoint:` starts a subpath.
  void moveToPoint(CGPoint point) { path_.moveToPoint(point); }
  /// `addLineToPoint:`. Lines, curves and closes without a current point are ignored, see CGPath.
  void addLineToPoint(CGPoint point) { path_.addLineToPoint(point); }
  /// `addCurveToPoint:controlPoint1:controlPoint2:` a cubic.
  void addCurveToPoint(CGPoint point, CGPoint controlPoint1, CGPoint controlPoint2) {
    path_.addCurveToPoint(point, controlPoint1, controlPoint2);
  }
  /// `addQuadCurveToPoint:controlPoint:` a quadratic.
  void addQuadCurveToPoint(CGPoint point, CGPoint controlPoint) {
    path_.addQuadCurveToPoint(point, controlPoint);
  }
  /// `addArcWithCenter:radius:startAngle:endAngle:clockwise:`, see CGPath::addArc.
  void addArcWithCenter(CGPoint center, CGFloat radius, CGFloat startAngle, CGFloat endAngle,
                        bool clockwise) {
    path_.addArc(center, radius, startAngle, endAngle, clockwise);
  }
  /// A line back to where the subpath started; a second one in a row does nothing.
  void closePath() { path_.closeSubpath(); }
  /// `appendPath:` adds the other path's elements; attributes do not change.
  void appendPath(const UIBezierPath& path) { path_.addPath(path.path_); }
  /// `applyTransform:` maps every point; the line width and the other attributes stay.
  void applyTransform(const CGAffineTransform& transform) { path_.applyTransform(transform); }
  /// `bezierPathByReversingPath`: each subpath run backwards, attributes kept.
  UIBezierPath bezierPathByReversingPath() const;

  // Reading

  /// The box around all points, control points included; the zero rectangle for a path without
  /// segments.
  CGRect bounds() const;
  /// True until the first element, a move included.
  bool isEmpty() const { return path_.isEmpty(); }
  /// The point where the next segment starts; (0, 0) without one.
  CGPoint currentPoint() const { return path_.currentPoint(); }
  /// The elements alone; valid as long as the path is and does not change.
  const CGPath& cgPath() const { return path_; }

  // Attributes

  /// Line width in points, 1 for a new path. 0 strokes one device pixel wide; negative or NaN
  /// strokes nothing.
  CGFloat lineWidth() const { return lineWidth_; }
  void setLineWidth(CGFloat width) { lineWidth_ = width; }
  /// How open ends look; butt for a new path.
  CGLineCap lineCapStyle() const { return lineCapStyle_; }
  void setLineCapStyle(CGLineCap style) { lineCapStyle_ = style; }
  /// How corners look; miter for a new path.
  CGLineJoin lineJoinStyle() const { return lineJoinStyle_; }
  void setLineJoinStyle(CGLineJoin style) { lineJoinStyle_ = style; }
  /// Above this ratio of miter length to line width a miter join becomes a bevel; 10 when new.
  CGFloat miterLimit() const { return miterLimit_; }
  void setMiterLimit(CGFloat limit) { miterLimit_ = limit; }
  /// Even-odd instead of the non-zero rule; false for a new path.
  bool usesEvenOddFillRule() const { return usesEvenOddFillRule_; }
  void setUsesEvenOddFillRule(bool evenOdd) { usesEvenOddFillRule_ = evenOdd; }
  /// The same rule as graphics contexts take it.
  FillRule fillRule() const { return usesEvenOddFillRule_ ? FillRule::evenOdd : FillRule::nonZero; }

  // Painting into the current graphics context; without one, nothing happens

  /// Fills with the current fill colour by the path's own rule; open subpaths are closed.
  void fill() const;
  /// Strokes with the current stroke colour and the path's own width, cap, join and miter limit.
  void stroke() const;
  /// Intersects the current clip with the path's area; an empty path leaves an empty clip.
  void addClip() const;

  // Fitting

  /// Moves the path so that its bounds start at the origin.
  void translateToZeroPoint();
  /// `scaleToFitSize:` one factor for both axes, about the origin (not the path's centre), so that
  /// the bounds fit `size`. A side of zero takes part with the factor 1.
  void scaleToFitSize(CGSize size);
  /// `centerAlignWithinSize:` moves by half the difference between `size` and the bounds' size;
  /// the bounds' origin is not taken into account.
  void centerAlignWithinSize(CGSize size);
  /// The same as scaleToFitSize; gives the path itself, for chaining.
  UIBezierPath& size(CGSize size);

  // Icons by integer type

  /// `pathForIcon:` the icon of a type from 0 to 128; nothing for any other value.
  static std::optional<UIBezierPath> pathForIcon(IconNumber icon);
  /// `bezierPathWithIcon:size:translatesToZero:` the icon scaled to fit `size`, first moved to the
  /// origin unless told otherwise; not centred. Nothing for a value that is no icon type.
  static std::optional<UIBezierPath> bezierPathWithIcon(IconNumber icon, CGSize size,
                                                        bool translatesToZero = true);

  // Images

  /// `imageWithAttributes:` the path painted into an image as `attributes` say, at the screen
  /// scale. The path is expected to start at the origin. A size that is absent or cannot be drawn
  /// gives an image without pixels.
  UIImage imageWithAttributes(const AttributeDictionary& attributes) const;
  /// `imageWithStrokeColor:fillColor:` filled (always by the non-zero rule) and stroked at its own
  /// coordinates, moved by the line width, in an image of its bounds, wider by twice the line width
  /// (the height does not grow). A colour not given takes the other's value; without either it is
  /// black.
  UIImage imageWithStrokeColor(const std::optional<UIColor>& strokeColor,
                               const std::optional<UIColor>& fillColor) const;
  /// `imageWithDropShadow:image:` the image redrawn with the shadow in its own size, at the screen
  /// scale; what falls outside is cut off. The path is not used. No shadow casts none.
  UIImage imageWithDropShadow(Borrowed<const NSShadow> shadow, const UIImage& image) const;
  /// `drawInsetShadow:` darkens the inside of the path along its edges, in the current context.
  void drawInsetShadow(Borrowed<const NSShadow> shadow) const;
  /// `imageWithIcon:attributes:` the icon of a type, moved to the origin and rendered. A value that
  /// is no icon type gives an image without the icon.
  static UIImage imageWithIcon(IconNumber icon, const AttributeDictionary& attributes);
  /// `imageWithIcon:strokeColor:fillColor:`, not moved to the origin.
  static UIImage imageWithIcon(IconNumber icon, const std::optional<UIColor>& strokeColor,
                               const std::optional<UIColor>& fillColor);
  /// The same without a stroke colour, so that `{}` before a colour says this and not that there
  /// are no attributes.
  static UIImage imageWithIcon(IconNumber icon, std::nullptr_t, const UIColor& fillColor);
  /// `imageWithIcon:attributes:withOutLineColor:backgroundLayer:` the icon at 85 % of the size on
  /// its own outline filled with a colour, over an optional layer.
  static UIImage imageWithIcon(IconNumber icon, const AttributeDictionary& attributes,
                               const UIColor& withOutLineColor,
                               Borrowed<CALayer> backgroundLayer = {});
  /// Moves the path to the origin and renders it as `attributes` say, at the screen scale.
  UIImage makeImage(const IconAttributes& attributes) const;
  /// The same for an icon that stands on its own, as `glyphwright render` draws it. A drawing of
  /// bare strokes, which has nothing to fill, is drawn with the pen that it brings along, in the
  /// fill's colour or gradient, where the stroke is clear and without width; it takes no inset
  /// shadow. And the ground lies under a border's ring, too, where makeImage leaves a black frame
  /// round an opaque one.
  UIImage makeStandaloneImage(const IconAttributes& attributes) const;
  /// The same in the memory of an image that is no longer needed, as long as nobody else holds a
  /// copy of it, the library drew it and it has at least as many pixels; otherwise in new memory:
  ///
  ///     image = path.makeImage(look, std::move(image));
  UIImage makeImage(const IconAttributes& attributes, UIImage&& reused) const;
  /// The same in the caller's memory, at `scale` pixels per point (0: the main screen's). False,
  /// and nothing written, unless the buffer is usable and has as many pixels as the image: size ×
  /// scale, rounded up.
  bool drawImage(const IconAttributes& attributes, CGFloat scale, const PixelBuffer& into) const;
  /// `newImage(with:attributes:)` an icon by its case, rendered as makeImage does.
  static UIImage newImage(const Pathable& with, const IconAttributes& attributes);
  static UIImage newImage(Icons with, const IconAttributes& attributes);
  /// `newImage(with:attributes:positions:sizes:canvasSize:)` several icons, each rendered with its
  /// own attributes, laid out on one canvas at scale 1. Unequal counts of icons, attributes and
  /// positions give an empty image; fewer sizes than icons end the program. A canvas size that
  /// cannot be drawn gives an empty image too, and leaves its null context on the thread's stack
  /// for the caller to end.
  static UIImage newImage(const BorrowedList<Pathable>& with,
                          const BorrowedList<IconAttributes>& attributes,
                          const BorrowedList<CGPoint>& positions, const BorrowedList<CGSize>& sizes,
                          CGSize canvasSize);

  // Layers

  /// `shapeLayerWithSize:` a layer of bounds (0, 0, w, h) with the path fitted and centred in it.
  std::shared_ptr<CAShapeLayer> shapeLayerWithSize(CGSize size) const;
  /// `vntl_gradientShapeLayerWithSize:` the same as a gradient shape layer.
  std::shared_ptr<VNTLGradientShapeLayer> vntl_gradientShapeLayerWithSize(CGSize size) const;
  /// `shapeLayerWithIcon:size:`; a value that is no icon type gives null.
  static std::shared_ptr<CAShapeLayer> shapeLayerWithIcon(IconNumber icon, CGSize size);
  /// `vntl_gradientShapeLayerWithIcon:size:`; a value that is no icon type gives null.
  static std::shared_ptr<VNTLGradientShapeLayer> vntl_gradientShapeLayerWithIcon(IconNumber icon,
                                                                                 CGSize size);

  // Computed paths: non-zero rule, width 1 and butt caps unless they say otherwise

  /// A straight block arrow from `startPoint` to `endPoint`, moved so that its bounds start at the
  /// origin. Equal points give non-finite coordinates.
  static UIBezierPath arrowIcon(CGPoint startPoint, CGPoint endPoint, CGFloat tailWidth,
                                CGFloat headWidth, CGFloat headLength);
  /// The rectangle cut along a straight line from 8 below its upper left corner to the middle of
  /// its right side.
  static UIBezierPath curataInfoViewPath(const CGRect& with);
  /// A 3-point frame around a box with round top corners whose lower part a slanted band takes
  /// away. A side under 6 has no room inside the frame: coordinates without end, which paint
  /// nothing.
  static UIBezierPath curataTagBorder(const CGRect& with, CGFloat cornerRadius);
  /// A box at (0, 0) with four radii, used unchanged; the rectangle form ignores its origin.
  static UIBezierPath rectWithRoundedCorners(const CGRect& rect, CGFloat topLeftRadius,
                                             CGFloat topRightRadius, CGFloat bottomLeftRadius,
                                             CGFloat bottomRightRadius);
  static UIBezierPath rectWithRoundedCorners(CGSize size, CGFloat topLeftRadius,
                                             CGFloat topRightRadius, CGFloat bottomLeftRadius,
                                             CGFloat bottomRightRadius);
  static UIBezierPath rectWithRoundedCorners(CGFloat width, CGFloat height, CGFloat topLeftRadius,
                                             CGFloat topRightRadius, CGFloat bottomLeftRadius,
                                             CGFloat bottomRightRadius);
  /// A tall caret that fills `withSize` exactly. Even-odd rule.
  static UIBezierPath caretIcon(CGSize withSize);
  /// A thin tick that fills `withSize` exactly. Even-odd rule.
  static UIBezierPath checkmark(CGSize withSize);
  /// A thick tick from a 17 by 13 board scaled to `withSize`, margins included. Even-odd rule.
  static UIBezierPath thickCheckmark(CGSize withSize);
  /// A thick cross from a 14 by 14 board scaled to `withSize`, margins included. Even-odd rule.
  static UIBezierPath thickX(CGSize withSize);
  /// Two crossing lines from an 11 by 11 board, moved by `offset` board points and then scaled to
  /// `withSize`; meant for stroking, with round caps.
  static UIBezierPath thinX(CGSize withSize, CGPoint offset);
  /// `instagramProfileConnectButtonIconPathWithSize:` a camera sign on a 16-unit board.
  static UIBezierPath instagramProfileConnectButtonIconPath(CGSize withSize);
  static UIBezierPath instagramProfileConnectButtonIconPathWithSize(CGSize size);
  /// `instagramThumbnailPlaceholderWithSize:` the camera sign in the middle of a 30-unit board.
  static UIBezierPath instagramThumbnailPlaceholder(CGSize withSize);
  static UIBezierPath instagramThumbnailPlaceholderWithSize(CGSize size);

  // Icons by name: each call builds a new path in the icon's own frame

#define GLYPHWRIGHT_ICON(name) static UIBezierPath name();
#include <glyphwright/paths/icon_names.inc>
#undef GLYPHWRIGHT_ICON

 private:
  CGPath path_;
  CGFloat lineWidth_ = 1;
  CGFloat miterLimit_ = 10;
  CGLineCap lineCapStyle_ = CGLineCap::butt;
  CGLineJoin lineJoinStyle_ = CGLineJoin::miter;
  bool usesEvenOddFillRule_ = false;
};

}  // namespace glyphwright
