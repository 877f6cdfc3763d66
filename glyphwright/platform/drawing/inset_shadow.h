#pragma once

#include <glyphwright/platform/drawing/target.h>

namespace glyphwright::drawing {

/// The shadow that what surrounds a path casts into it.
struct Inset {
  const CGPath& path;
  CGAffineTransform toDevice;
  /// Where the shadow shows.
  FillRule shows;
  /// Where the surroundings end, in the path's space; filling the path even-odd cuts it out of
  /// them.
  CGRect around;
  /// How far to the left of their place they cast the shadow from, in the path's space: so far that
  /// they do not show themselves.
  CGFloat aside;
  /// As it is cast from there; none when it would not show.
  std::optional<Shadow> shadow;
  CGFloat alpha;
  /// `aside` in pixels, where that is a whole number and the axes of the device are the path's.
  std::optional<int> wholeSteps;
};

/// Paints the shadow: the surroundings stand beside the path, and cast it through the path as a
/// clip. Where they would move by whole pixels they cast it from where they are, which is the same
/// within a level.
void paintInset(const Target& target, const Inset& inset);
/// The same after filling the path even-odd with a colour, in one pass over the pixels where
/// nothing has been painted yet.
void paintFillAndInset(const Target& target, const Inset& inset, const raster::Paint& paint);

}  // namespace glyphwright::drawing
