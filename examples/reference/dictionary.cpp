// Attributes by key, for programs that read them from a file: what is there counts, in any order.

#include <glyphwright/glyphwright.h>
#include <glyphwright/rendering/attribute_dictionary.h>

#include "../cookbook/png.h"

using namespace glyphwright;

int main() {
  AttributeDictionary look{
      {VNTLGlyphwrightSize, NSValue(CGSize{64, 64})},
      {VNTLGlyphwrightGradientColors, {UIColor(0.1, 0.6, 0.9, 1), UIColor(0.4, 0.2, 0.8, 1)}},
      {VNTLGlyphwrightStrokeColor, UIColor::clearColor()},
      {VNTLGlyphwrightBorderWidth, NSNumber(3)}};
  look.setValue(VNTLGlyphwrightBorderColor, UIColor(1, 0.7, 0.2, 1));

  // A key of the program's own is kept and means nothing to the library.
  constexpr VNTLGlyphwright source("source");
  look.setValue(source, AttributeValue(1));
  const NSNumber* const kept = look.number(source);
  if (look.count() != 6 || kept == nullptr || kept->integerValue() != 1) return 1;
  if (look.size(VNTLGlyphwrightSize)->width != 64) return 1;

  const UIImage image = UIBezierPath::imageWithIcon(0, look);  // IconNumber: a number or a name
  return cookbook::writePng("dictionary.png", image.cgImage()) ? 0 : 1;
}
