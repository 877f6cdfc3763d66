#pragma once

#include <glyphwright/bezier_path.h>
#include <glyphwright/platform/image.h>
#include <glyphwright/rendering/attribute_dictionary.h>

/// Icon rendering as a plain sequence of platform calls, one step after the other, with no thought
/// for speed: what the library's renderer has to agree with.
namespace glyphwright::plain {

UIImage imageWithAttributes(const UIBezierPath& receiver, const AttributeDictionary& attributes);
UIImage imageWithDropShadow(const NSShadow& shadow, const UIImage& image);
void drawInsetShadow(const UIBezierPath& path, const NSShadow& shadow);

}  // namespace glyphwright::plain
