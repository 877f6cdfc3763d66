#pragma once

#include <vector>

#include <glyphwright/rendering/icon_attributes.h>

namespace glyphwright::cli {

/// What the painting options of the command line come to.
struct Paint {
  /// Black on nothing, 64 × 64 points. The library draws a hairline where no stroke is given; here
  /// a clear stroke stands unless one was asked for.
  Paint();

  IconAttributes attributes;
  /// In points; commands that draw one size take no more. `attributes` has the first.
  std::vector<CGSize> sizes;
  /// The colour of the page around it, which only a document can take on.
  bool fillIsCurrentColor = false;
  bool strokeIsCurrentColor = false;

  void setSizes(std::vector<CGSize> all);
};

/// Throws UsageError for a colour that only documents have.
void requirePixelColors(const Paint& paint);
/// The same, and when more than one size was asked for.
void requireOnePicture(const Paint& paint);

}  // namespace glyphwright::cli
