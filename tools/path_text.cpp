#include "path_text.h"

#include <algorithm>
#include <span>

#include <glyphwright/rendering/bare_strokes.h>

#include "numbers.h"

namespace glyphwright::cli {
namespace {

std::string_view nameOf(CGLineCap cap) {
  constexpr std::string_view names[] = {"butt", "round", "square"};
  return names[static_cast<std::size_t>(cap)];
}

std::string_view nameOf(CGLineJoin join) {
  constexpr std::string_view names[] = {"miter", "round", "bevel"};
  return names[static_cast<std::size_t>(join)];
}

char letterOf(PathVerb verb) {
  constexpr std::string_view letters = "MLQCZ";
  return letters[static_cast<std::size_t>(verb)];
}

/// Calls `use` with each element's verb and points.
template <class Use>
void forEachElement(const CGPath& path, Use use) {
  std::span<const CGPoint> points = path.points();
  for (const PathVerb verb : path.verbs()) {
    const std::size_t count = pointCount(verb);
    use(verb, points.first(count));
    points = points.subspan(count);
  }
}

std::string quoted(std::string_view text) {
  return '"' + std::string(text) + '"';
}

std::string attribute(std::string_view name, std::string_view value) {
  return ' ' + std::string(name) + '=' + quoted(value);
}

}  // namespace

std::string pathJson(std::string_view name, const UIBezierPath& path) {
  const CGRect bounds = path.bounds();
  std::string json =
      "{\n  \"name\": " + quoted(name) + ",\n  \"bounds\": [" + textOf(bounds.origin.x) + ", " +
      textOf(bounds.origin.y) + ", " + textOf(bounds.size.width) + ", " +
      textOf(bounds.size.height) +
      "],\n  \"usesEvenOddFillRule\": " + (path.usesEvenOddFillRule() ? "true" : "false") +
      ",\n  \"lineWidth\": " + textOf(path.lineWidth()) +
      ",\n  \"lineCapStyle\": " + quoted(nameOf(path.lineCapStyle())) +
      ",\n  \"lineJoinStyle\": " + quoted(nameOf(path.lineJoinStyle())) +
      ",\n  \"miterLimit\": " + textOf(path.miterLimit()) + ",\n  \"elements\": [";
  std::string_view separator = "\n";
  forEachElement(path.cgPath(), [&](PathVerb verb, std::span<const CGPoint> points) {
    json.append(separator).append("    [\"").append(1, letterOf(verb)).append("\"");
    for (const CGPoint& point : points) json += ", " + textOf(point.x) + ", " + textOf(point.y);
    json += ']';
    separator = ",\n";
  });
  return json + "\n  ]\n}\n";
}

std::string svgPathData(const CGPath& path) {
  const CGSize size = path.boundingBox().size;
  const double frame = std::max(size.width, size.height);
  std::string data;
  forEachElement(path, [&](PathVerb verb, std::span<const CGPoint> points) {
    data += letterOf(verb);
    std::string_view separator;
    for (const CGPoint& point : points) {
      data.append(separator).append(tidyTextOf(point.x, frame)).append(" ");
      data += tidyTextOf(point.y, frame);
      separator = " ";
    }
  });
  return data;
}

std::string svgElement(const UIBezierPath& path, const SvgStyle& style) {
  const bool bare = rendering::isBareStrokes(path.cgPath());
  const std::string stroke = style.stroke.empty() && bare ? style.fill : style.stroke;
  const double width = style.stroke.empty() && bare ? path.lineWidth() : style.strokeWidth;
  const double margin = stroke.empty() ? 0 : width / 2;
  const CGRect box = CGRectInset(path.bounds(), -margin, -margin);
  const double frame = std::max(box.size.width, box.size.height);
  const auto tidy = [frame](double value) { return tidyTextOf(value, frame); };
  const std::string boxWidth = tidy(box.size.width);
  const std::string boxHeight = tidy(box.size.height);
  std::string svg = "<svg xmlns=\"http://www.w3.org/2000/svg\"" +
                    attribute("viewBox", tidy(box.origin.x) + ' ' + tidy(box.origin.y) + ' ' +
                                             boxWidth + ' ' + boxHeight);
  if (style.hasOwnSize) svg += attribute("width", boxWidth) + attribute("height", boxHeight);
  svg +=
      style.attributes + "><path" + attribute("fill", bare ? "none" : std::string_view(style.fill));
  if (path.usesEvenOddFillRule()) svg += attribute("fill-rule", "evenodd");
  if (!stroke.empty()) {
    svg += attribute("stroke", stroke) + attribute("stroke-width", tidy(width)) +
           attribute("stroke-linecap", nameOf(path.lineCapStyle())) +
           attribute("stroke-linejoin", nameOf(path.lineJoinStyle())) +
           attribute("stroke-miterlimit", textOf(path.miterLimit()));
  }
  return svg + attribute("d", svgPathData(path.cgPath())) + "/></svg>";
}

}  // namespace glyphwright::cli
