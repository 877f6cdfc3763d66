#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <span>

#include <glyphwright/platform/geometry.h>
#include <glyphwright/platform/literal_list.h>

namespace glyphwright {

/// What one path element does; the comment gives the number of points it carries.
enum class PathVerb : std::uint8_t {
  move,   // 1: the point
  line,   // 1: the end
  quad,   // 2: control, end
  cubic,  // 3: control 1, control 2, end
  close,  // 0
};

/// The number of points that an element of this kind carries.
constexpr std::size_t pointCount(PathVerb verb) {
  constexpr std::uint8_t counts[] = {1, 1, 2, 3, 0};
  return counts[static_cast<std::size_t>(verb)];
}

/// The cubic that is the same curve as a quadratic.
constexpr std::array<CGPoint, 4> cubicOfQuad(CGPoint from, CGPoint control, CGPoint end) {
  const auto towards = [&](CGPoint p) {
    return CGPoint{p.x + (control.x - p.x) * (2.0 / 3.0), p.y + (control.y - p.y) * (2.0 / 3.0)};
  };
  return {from, towards(from), towards(end), end};
}

/// Corners of a rectangle, as bits.
enum class UIRectCorner : std::uint32_t {
  none = 0,
  topLeft = 1,
  topRight = 2,
  bottomLeft = 4,
  bottomRight = 8,
  allCorners = 0xFFFFFFFF,
};
constexpr UIRectCorner operator|(UIRectCorner a, UIRectCorner b) {
  return static_cast<UIRectCorner>(static_cast<std::uint32_t>(a) | static_cast<std::uint32_t>(b));
}
constexpr bool contains(UIRectCorner set, UIRectCorner corner) {
  return (static_cast<std::uint32_t>(set) & static_cast<std::uint32_t>(corner)) != 0;
}

/// Pure geometry: a list of move, line, quad, cubic and close elements in points, y down. A value;
/// copies are independent. Non-finite points are stored as given; painting such a path paints
/// nothing.
///
/// A line, curve or close without a current point is ignored. A line or curve after a close starts
/// a new subpath at the closed one's first point, with an explicit move; a second close in a row
/// does nothing.
class CGPath {
 public:
  /// A constant path, as the calls below could have left it: a move comes first and after every
  /// close, and `points` holds what each element carries, in order.
  struct Literal {
    std::span<const PathVerb> verbs;  ///< In order.
    std::span<const CGPoint> points;  ///< Of all verbs.
    CGPoint current;                  ///< Where the next element starts.
    CGPoint subpathStart;             ///< Where a close leads.
    CGRect box;                       ///< As boundingBox() gives it.
  };

  CGPath() = default;
  /// What the literal refers to must outlive this path and all its copies.
  explicit CGPath(const Literal& literal)
      : verbs_(literal.verbs),
        points_(literal.points),
        current_(literal.current),
        subpathStart_(literal.subpathStart),
        box_(literal.box) {}

  /// Starts a subpath, which paints nothing until a segment follows.
  void moveToPoint(CGPoint point);
  /// A line, a quadratic or a cubic from the current point to `point`, which is the next current
  /// one.
  void addLineToPoint(CGPoint point);
  void addQuadCurveToPoint(CGPoint point, CGPoint control);
  void addCurveToPoint(CGPoint point, CGPoint control1, CGPoint control2);
  /// A line back to where the subpath started, which becomes the current point.
  void closeSubpath();

  /// Adds a circular arc. Angles are radians, 0 at +x, π/2 at +y; `clockwise` runs with increasing
  /// angle (clockwise on screen). With a current point a line joins it to the arc's first point,
  /// otherwise the arc starts with a move. A sweep beyond a full turn is one full turn; a sweep or
  /// radius of zero adds the joining move or line only; non-finite angles or radius add nothing.
  void addArc(CGPoint center, CGFloat radius, CGFloat startAngle, CGFloat endAngle, bool clockwise);
  /// A move to the first point and lines to the others, each through `transform`.
  void addLines(std::span<const CGPoint> between,
                const CGAffineTransform& transform = CGAffineTransformIdentity);
  /// Clockwise on screen from the upper left corner, closed.
  void addRect(const CGRect& rect);
  /// Four cubics clockwise on screen from the right-hand middle, closed.
  void addEllipseInRect(const CGRect& rect);
  /// Clockwise on screen; corners in `corners` get quarter ellipses of `radii`, each clamped to
  /// half the side (negative or NaN reads as 0), the others are square.
  void addRoundedRect(const CGRect& rect, UIRectCorner corners, CGSize radii);
  /// Appends the other path's elements after this one's, without a joining line. `other` may be
  /// this path itself.
  void addPath(const CGPath& other);

  /// Maps every point through `transform`.
  void applyTransform(const CGAffineTransform& transform);
  /// Each subpath run backwards on its own, in the same order, closed where it was closed.
  CGPath reversed() const;

  /// True until the first element.
  bool isEmpty() const { return verbs().empty(); }
  /// The point where the next segment starts; (0, 0) without one.
  CGPoint currentPoint() const { return current_; }
  /// The box around all points, control points included; a move that no segment follows does not
  /// count. The null rectangle when nothing counts.
  CGRect boundingBox() const;
  /// False when any coordinate is NaN or infinite.
  bool isFinite() const;

  /// The elements in order and the points of all of them: one for a move or a line, two for a
  /// quadratic, three for a cubic (controls first), none for a close. Valid until the path changes.
  std::span<const PathVerb> verbs() const { return verbs_.view(); }
  std::span<const CGPoint> points() const { return points_.view(); }

  /// Room for this many elements and points without another allocation.
  void reserve(std::size_t verbs, std::size_t points);

  /// The same elements with equal points; a NaN equals nothing.
  friend bool operator==(const CGPath& a, const CGPath& b);

 private:
  bool beginSegment();
  void add(PathVerb verb, std::initializer_list<CGPoint> points);

  LiteralList<PathVerb> verbs_;
  LiteralList<CGPoint> points_;
  CGPoint current_;
  CGPoint subpathStart_;
  std::optional<CGRect> box_;  // while it is known from the literal
};

/// Any path can be changed.
using CGMutablePath = CGPath;

}  // namespace glyphwright
