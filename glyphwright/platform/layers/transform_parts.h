#pragma once

#include <glyphwright/platform/geometry.h>

namespace glyphwright {

/// A transform taken apart: shear and scale first, then the rotation, then the translation.
struct TransformParts {
  CGFloat rotation = 0;  // radians, positive turns +x towards +y
  CGFloat scaleX = 1;
  CGFloat scaleY = 1;
  CGFloat shear = 0;  // how far x moves for each y, before the rotation
  CGSize translation;
};

/// Takes a transform apart. A mirroring shows as one negative scale.
TransformParts takeApart(const CGAffineTransform& transform);
CGAffineTransform putTogether(const TransformParts& parts);

/// Part by part from one to the other, the rotation taking the shorter way round.
CGAffineTransform interpolatedTransform(const CGAffineTransform& from, const CGAffineTransform& to,
                                        double progress);

/// The transform applied `times` times: rounded to whole, at most a million, negative by the
/// inverse. NaN gives the identity.
CGAffineTransform repeatedTransform(const CGAffineTransform& transform, double times);

}  // namespace glyphwright
