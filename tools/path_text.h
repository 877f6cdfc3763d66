#pragma once

#include <string>
#include <string_view>

#include <glyphwright/bezier_path.h>

namespace glyphwright::cli {

/// The path as a JSON object: name, bounds, fill rule, stroke attributes and elements.
std::string pathJson(std::string_view name, const UIBezierPath& path);

/// The elements as the value of an SVG path's `d` attribute, in numbers for pictures (tidyTextOf).
std::string svgPathData(const CGPath& path);

/// How a path is shown in a document.
struct SvgStyle {
  /// Attributes of the <svg> element, each with a space before it.
  std::string attributes{};
  /// A colour as documents write it.
  std::string fill = "currentColor";
  /// None when empty.
  std::string stroke{};
  double strokeWidth = 0;
  /// Whether width and height are those of the view box.
  bool hasOwnSize = false;
};

/// An <svg> element that shows the path, with its bounds (and the stroke's width around them) as
/// the view box. A path of bare strokes is stroked with its own width in the fill's colour.
std::string svgElement(const UIBezierPath& path, const SvgStyle& style);

}  // namespace glyphwright::cli
