#pragma once

#include <cstdint>
#include <span>
#include <variant>

#include <glyphwright/paths/outline.h>
#include <glyphwright/platform/color.h>
#include <glyphwright/platform/stroke_style.h>

/// Pictures of several colours as data: what is painted, in which order, in which colours. Nothing
/// here draws; the painter does.
///
/// Coordinates are points of the picture's own frame, y down. A picture is never scaled or centred:
/// on a larger canvas it lies at the upper left, a smaller one crops it.
namespace glyphwright::presets {

/// An area: an outline written as steps, or one of the plain shapes.
struct Area {
  enum class Kind : std::uint8_t { outline, oval, rect, roundedRect };

  Kind kind = Kind::outline;
  FillRule rule = FillRule::nonZero;
  std::span<const paths::Step> steps = {};  // outline
  CGRect rect = {};                         // all others
  CGFloat cornerRadius = 0;                 // roundedRect
};

constexpr Area plain(std::span<const paths::Step> steps) {
  return {.steps = steps};
}
/// An outline with holes, filled even-odd.
constexpr Area compound(std::span<const paths::Step> steps) {
  return {.rule = FillRule::evenOdd, .steps = steps};
}
constexpr Area oval(const CGRect& rect) {
  return {.kind = Area::Kind::oval, .rect = rect};
}
constexpr Area box(const CGRect& rect) {
  return {.kind = Area::Kind::rect, .rect = rect};
}
constexpr Area roundedBox(const CGRect& rect, CGFloat cornerRadius) {
  return {.kind = Area::Kind::roundedRect, .rect = rect, .cornerRadius = cornerRadius};
}

/// The colours of a gradient and where they stand, one location from 0 to 1 a colour.
struct GradientStops {
  std::span<const UIColor> colors;
  std::span<const CGFloat> locations;
};

// The pieces of a picture

struct Fill {
  Area area;
  UIColor color;
};

struct Stroke {
  Area area;
  UIColor color;
  CGFloat width;
  CGFloat miterLimit = 10;
  CGLineCap cap = CGLineCap::butt;
};

/// The picture's gradient, inside the clip only; its end colours run on beyond both points.
struct ClippedGradient {
  Area clip;
  CGPoint start;
  CGPoint end;
};

/// An area filled inside the clip only.
struct ClippedFill {
  Area clip;
  Area area;
  UIColor color;
};

/// Painted apart and composed as a whole. One without content paints nothing.
struct Group {
  Area clip;
  std::variant<std::monostate, Fill, ClippedGradient> content;
};

/// A fill at a part of its strength.
struct Translucent {
  CGFloat alpha;
  Area area;
  UIColor color;
};

/// A fill in coordinates of its own: turned by `angle` radians, clockwise on screen, about an
/// origin that lies at `origin` in the picture.
struct Turned {
  CGPoint origin;
  CGFloat angle;
  Area area;
  UIColor color;
};

/// Fills (0, 0, width, height) of the canvas that was asked for.
struct Ground {
  CGSize size;
  UIColor color;
};

/// A clip for all pieces that follow; nothing lifts it.
struct LastingClip {
  Area area;
};

/// Ends the image context on top of the stack. In a renderer's canvas there is none, and nothing
/// happens.
struct EndImageContext {};

using Piece = std::variant<Fill, Stroke, ClippedGradient, ClippedFill, Group, Translucent, Turned,
                           Ground, LastingClip, EndImageContext>;

/// A picture. It refers to its pieces and stops, which must outlive it.
struct Painting {
  /// The frame that the drawing fills; the canvas of a picture of fixed size.
  CGSize frame;
  /// In paint order: later ones lie over earlier ones.
  std::span<const Piece> pieces;
  /// The one gradient of the picture, if it has any.
  const GradientStops* gradient = nullptr;
};

}  // namespace glyphwright::presets
