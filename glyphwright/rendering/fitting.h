#pragma once

#include <glyphwright/platform/geometry.h>

/// Where a path goes in its box.
namespace glyphwright::rendering {

/// The one factor that makes something of size `from` fit into `box`. A side of zero counts with
/// the factor 1; a negative box gives a negative factor.
CGFloat fittingScale(CGSize from, CGSize box);

/// Scales a path of these bounds about the origin so that it fits `inner`, then moves it by half of
/// what `outer` has left: scaleToFitSize and centerAlignWithinSize in one transform.
CGAffineTransform fittingTransform(const CGRect& bounds, CGSize inner, CGSize outer);

/// The same after moving the path to the origin.
CGAffineTransform originFittingTransform(const CGRect& bounds, CGSize inner, CGSize outer);

}  // namespace glyphwright::rendering
