#pragma once

#include <cstdint>

#include <glyphwright/platform/geometry.h>

namespace glyphwright {

/// A colour: red, green, blue and alpha components, or one grey component and alpha. A value.
///
/// Components outside 0…1 are kept (extended range) and clamped when painted; alpha is clamped to
/// 0…1 at once, NaN counting as 0.
class UIColor {
 public:
  /// One grey component, or three.
  enum class Model : std::uint8_t { gray, rgb };

  /// Opaque black, in grey.
  constexpr UIColor() = default;
  /// `initWithRed:green:blue:alpha:` sRGB components.
  constexpr UIColor(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha)
      : red_(red), green_(green), blue_(blue), alpha_(unit(alpha)), model_(Model::rgb) {}
  /// `colorWithWhite:alpha:` a grey, 0 black to 1 white.
  static constexpr UIColor colorWithWhite(CGFloat white, CGFloat alpha) {
    UIColor color(white, white, white, alpha);
    color.model_ = Model::gray;
    return color;
  }

  /// Greys: 0, 1/3, 2/3, 1 and 1/2, opaque; the last is black with alpha 0.
  static constexpr UIColor blackColor() { return colorWithWhite(0, 1); }
  static constexpr UIColor darkGrayColor() { return colorWithWhite(1.0 / 3.0, 1); }
  static constexpr UIColor lightGrayColor() { return colorWithWhite(2.0 / 3.0, 1); }
  static constexpr UIColor whiteColor() { return colorWithWhite(1, 1); }
  static constexpr UIColor grayColor() { return colorWithWhite(0.5, 1); }
  static constexpr UIColor clearColor() { return colorWithWhite(0, 0); }

  /// As they were given, also outside 0…1; a grey has its one component in all three.
  constexpr CGFloat red() const { return red_; }
  constexpr CGFloat green() const { return green_; }
  constexpr CGFloat blue() const { return blue_; }
  /// 0 clear to 1 opaque.
  constexpr CGFloat alpha() const { return alpha_; }
  /// How the colour was made; one of three equal components is no grey.
  constexpr Model model() const { return model_; }

  /// `getRed:green:blue:alpha:` stores the components (a grey gives r = g = b) and answers true.
  /// A colour with a non-finite component cannot be read: false, and the outputs are left alone.
  /// Null pointers are skipped.
  bool getRed(CGFloat* red, CGFloat* green, CGFloat* blue, CGFloat* alpha) const;

  /// The same colour with another alpha.
  constexpr UIColor colorWithAlphaComponent(CGFloat alpha) const {
    UIColor color = *this;
    color.alpha_ = unit(alpha);
    return color;
  }

  /// Makes this the fill colour, the stroke colour or both in the current context; without one,
  /// nothing happens.
  void set() const;
  void setFill() const;
  void setStroke() const;

  /// Compares model and components: a grey never equals the same-looking rgb colour.
  friend constexpr bool operator==(const UIColor&, const UIColor&) = default;

 private:
  static constexpr CGFloat unit(CGFloat value) {
    if (!(value > 0)) return 0;
    return value < 1 ? value : 1;
  }

  CGFloat red_ = 0;
  CGFloat green_ = 0;
  CGFloat blue_ = 0;
  CGFloat alpha_ = 1;
  Model model_ = Model::gray;
};

/// The same colour as the drawing functions and layers take it.
using CGColor = UIColor;

}  // namespace glyphwright
