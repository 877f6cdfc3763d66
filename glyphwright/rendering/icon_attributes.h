#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include <glyphwright/platform/borrowed.h>
#include <glyphwright/platform/color.h>
#include <glyphwright/platform/geometry.h>
#include <glyphwright/platform/shadow.h>

namespace glyphwright {

namespace VantelKit {
struct Gradient;
}

/// The outline of an icon.
struct IconStroke {
  /// `init(color:width:)`
  constexpr IconStroke(const UIColor& strokeColor, CGFloat strokeWidth)
      : color(strokeColor), width(strokeWidth) {}

  UIColor color;  ///< A clear one draws none.
  /// In points. 0 draws a line one pixel wide; negative or NaN draws none.
  CGFloat width;
};

/// The ring around an icon.
struct IconBorder {
  /// `init(color:width:)`
  constexpr IconBorder(const UIColor& borderColor, CGFloat borderWidth)
      : width(borderWidth), color(borderColor) {}

  /// In points, read as a whole number (towards zero): below 1 there is no ring.
  CGFloat width;
  UIColor color;
};

/// A shadow as values, and as the object that drawing code applies.
struct IconShadow {
  /// `init(color:offset:blur:)` makes a new shadow object; equal arguments give different objects.
  IconShadow(const UIColor& shadowColor, CGSize shadowOffset, CGFloat shadowBlur);
  /// Its shadow object, wherever a function takes a shadow.
  operator Borrowed<const NSShadow>() const { return shadow; }

  /// Made by the initialiser; does not follow later changes of the three values below. An inset
  /// shadow is drawn from this object, a drop shadow from the values.
  std::shared_ptr<NSShadow> shadow;
  /// In points, +x right, +y down.
  CGSize offset;
  /// Blur radius in points, twice the sigma of the Gaussian. Negative or NaN reads as 0.
  CGFloat blur;
  UIColor color;
};

/// A gradient fill.
struct IconGradient {
  /// Where the gradient runs, by the sides of the box that it fills.
  enum class Direction : std::uint8_t {
    topToBottom,
    leftToRight,
    topLeftToBottomRight,
    /// Runs from the lower right to the upper left corner, the diagonal of topLeftToBottomRight
    /// reversed; the name has outlived that.
    bottomLeftToTopRight,
  };

  /// `init(colors:locations:points:)` stores the three lists unchanged.
  IconGradient(std::vector<UIColor> gradientColors, std::vector<CGPoint> gradientLocations,
               std::vector<CGFloat> gradientPoints);
  /// `init(colors:locations:direction:)` stops spread evenly; without locations, one point a colour
  /// along the direction. One colour alone gets the stop NaN (which draws like 0).
  IconGradient(std::vector<UIColor> gradientColors, std::vector<CGPoint> gradientLocations,
               Direction direction);

  /// The colours spread evenly along a direction.
  explicit IconGradient(std::vector<UIColor> gradientColors,
                        Direction direction = Direction::topToBottom);

  /// `update(with:)` takes over the host gradient's colours and its two end points; the stops are
  /// spread evenly for two or more colours and stay as they were for fewer.
  void update(const VantelKit::Gradient& with);

  /// First to last.
  std::vector<UIColor> colors;
  /// The gradient's line in unit coordinates of the box it fills, (0, 0) upper left to (1, 1) lower
  /// right: the first entry is its start, the last its end. Empty: from the middle of the upper
  /// side to the middle of the lower.
  std::vector<CGPoint> locations;
  /// The colour stops, 0 to 1, one a colour. Empty: all at 0 but the last at 1; fewer than colours:
  /// nothing is filled.
  std::vector<CGFloat> points;
};

/// How an icon is painted into an image. The fields are in the order of the initialiser:
///
///     IconAttributes{.fillColor = UIColor(1, 0, 0, 1),
///                    .backgroundColor = UIColor::clearColor(),
///                    .stroke = IconStroke(UIColor::blackColor(), 2),
///                    .size = {40, 40}}
///
/// What is left out stays as it is declared: an opaque black ground, a black fill. An icon without
/// a stroke still gets a black outline one pixel wide; a clear stroke colour turns it off.
/// `plainLook` has neither ground nor outline.
struct IconAttributes {
  /// Fills the path where there is no gradient.
  UIColor fillColor{};
  /// Fills the whole image behind the icon. With alpha 1 the image is opaque.
  UIColor backgroundColor{};
  std::optional<IconStroke> stroke = std::nullopt;
  std::optional<IconBorder> border = std::nullopt;
  /// Cast by all that is drawn over the background.
  std::optional<IconShadow> dropShadow = std::nullopt;
  std::optional<IconShadow> insetShadow = std::nullopt;
  /// Replaces the flat fill.
  std::optional<IconGradient> gradient = std::nullopt;
  /// Size of the finished image in points. The icon fills it but for the stroke's width, the drop
  /// shadow's blur and twice the larger side of its offset. A size that cannot be drawn (see
  /// UIGraphicsBeginImageContextWithOptions) gives an image without pixels.
  CGSize size{};

  /// `apply(gradient:)` updates the gradient from a host gradient; without one, nothing happens.
  void apply(const VantelKit::Gradient& hostGradient);
};

/// The icon in one colour and nothing else: clear ground, no outline.
inline IconAttributes plainLook(CGSize size, const UIColor& color) {
  return {.fillColor = color,
          .backgroundColor = UIColor::clearColor(),
          .stroke = IconStroke(UIColor::clearColor(), 0),
          .size = size};
}

}  // namespace glyphwright
