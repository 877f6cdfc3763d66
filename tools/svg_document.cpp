#include "svg_document.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

#include <glyphwright/rendering/bare_strokes.h>

#include "numbers.h"
#include "path_text.h"
#include "usage_error.h"

namespace glyphwright::cli {
namespace {

std::string hexOf(const UIColor& color) {
  constexpr char digits[] = "0123456789abcdef";
  std::string text = "#";
  for (const CGFloat component : {color.red(), color.green(), color.blue()}) {
    const auto byte = static_cast<unsigned>(std::clamp(component, 0.0, 1.0) * 255 + 0.5);
    text += digits[byte / 16];
    text += digits[byte % 16];
  }
  return text;
}

std::string attribute(std::string_view name, std::string_view value) {
  return ' ' + std::string(name).append("=\"").append(value) + '"';
}

/// A colour under the name of a property, and its opacity where it is not opaque.
std::string colored(const std::string& property, const UIColor& color) {
  const std::string opacityName = property == "stop-color"    ? "stop-opacity"
                                  : property == "flood-color" ? "flood-opacity"
                                                              : property + "-opacity";
  const std::string opacity =
      color.alpha() == 1 ? "" : attribute(opacityName, textOf(color.alpha()));
  return attribute(property, hexOf(color)) + opacity;
}

CGFloat roomOfShadow(const IconAttributes& attributes) {
  if (!attributes.dropShadow) return 0;
  const CGSize offset = attributes.dropShadow->offset;
  return attributes.dropShadow->blur +
         2 * std::max(std::fabs(offset.width), std::fabs(offset.height));
}

CGFloat strokeWidth(const IconAttributes& attributes) {
  return attributes.stroke ? std::max(0.0, attributes.stroke->width) : 0;
}

/// How the icon stands in the image: path units are multiplied, then moved.
struct Place {
  CGFloat scale = 1;
  CGPoint move;
};

Place placeIn(const UIBezierPath& path, CGSize size, CGFloat inset) {
  const CGRect box = path.bounds();
  Place place;
  place.scale = std::min(box.size.width > 0 ? (size.width - inset) / box.size.width : 1,
                         box.size.height > 0 ? (size.height - inset) / box.size.height : 1);
  place.move = {(size.width - box.size.width * place.scale) / 2 - box.origin.x * place.scale,
                (size.height - box.size.height * place.scale) / 2 - box.origin.y * place.scale};
  return place;
}

/// Writes one document in points.
class Document {
 public:
  Document(const UIBezierPath& path, const Paint& paint)
      : path_(path), paint_(paint), bare_(rendering::isBareStrokes(path.cgPath())) {
    const CGSize size = paint.attributes.size;
    frame_ = std::max(size.width, size.height);
    // Documents may stand in one page: their names must not meet.
    std::uint32_t hash = 2166136261U;
    for (const char c : svgPathData(path.cgPath()) + size_(size)) {
      hash = (hash ^ static_cast<unsigned char>(c)) * 16777619U;
    }
    id_ = std::string("g").append(std::to_string(hash));
  }

  std::string text() {
    const IconAttributes& attributes = paint_.attributes;
    const CGSize size = attributes.size;
    std::string body;
    if (attributes.backgroundColor.alpha() > 0) {
      body += "<rect" + size_(size) + colored("fill", attributes.backgroundColor) + "/>";
    }
    const CGFloat ring = attributes.border ? std::trunc(attributes.border->width) : 0;
    if (ring < 1) {
      body += icon(attributes);
    } else {
      body += ringOf(attributes, ring);
      IconAttributes inner = attributes;
      inner.size = {size.width - 2 * ring, size.height - 2 * ring};
      if (inner.size.width > 0 && inner.size.height > 0) {
        // A picture of its own, which ends at its edge.
        body += "<svg" + attribute("x", textOf(ring)) + attribute("y", textOf(ring)) +
                size_(inner.size) + '>' + icon(inner) + "</svg>";
      }
    }
    return "<svg xmlns=\"http://www.w3.org/2000/svg\"" +
           attribute("viewBox", "0 0 " + tidy(size.width) + ' ' + tidy(size.height)) + size_(size) +
           '>' + (defs_.empty() ? "" : "<defs>" + defs_ + "</defs>") + body + "</svg>\n";
  }

 private:
  std::string tidy(double value) const { return tidyTextOf(value, frame_); }

  std::string size_(CGSize size) const {
    return attribute("width", tidy(size.width)) + attribute("height", tidy(size.height));
  }

  std::string shape(const Place& place, const std::string& paint) const {
    return "<path" + paint +
           (path_.usesEvenOddFillRule() ? attribute("fill-rule", "evenodd") : "") +
           attribute("transform", "translate(" + tidy(place.move.x) + ' ' + tidy(place.move.y) +
                                      ") scale(" + textOf(place.scale) + ')') +
           attribute("d", svgPathData(path_.cgPath())) + "/>";
  }

  /// A line of a width in points.
  std::string lineOf(const Place& place, CGFloat width) const {
    constexpr std::string_view caps[] = {"butt", "round", "square"};
    constexpr std::string_view joins[] = {"miter", "round", "bevel"};
    // 0 is one pixel of whatever shows the document.
    const std::string line = width > 0
                                 ? attribute("stroke-width", tidyTextOf(width / place.scale, 1))
                                 : " stroke-width=\"1\" vector-effect=\"non-scaling-stroke\"";
    return line +
           attribute("stroke-linecap", caps[static_cast<std::size_t>(path_.lineCapStyle())]) +
           attribute("stroke-linejoin", joins[static_cast<std::size_t>(path_.lineJoinStyle())]) +
           attribute("stroke-miterlimit", textOf(path_.miterLimit()));
  }

  std::string ringOf(const IconAttributes& attributes, CGFloat ring) {
    const UIColor& color = attributes.border->color;
    CGFloat width = attributes.border->width;
    if (bare_ && rendering::hasNoStroke(attributes)) {
      const CGSize inner{attributes.size.width - 2 * ring, attributes.size.height - 2 * ring};
      width = rendering::ownPenWidth(path_, inner) + 2 * ring;
    }
    const Place place = placeIn(path_, attributes.size, width);
    const std::string fill = bare_ ? " fill=\"none\"" : colored("fill", color);
    return shape(place, fill + colored("stroke", color) + lineOf(place, width));
  }

  std::string icon(const IconAttributes& attributes) {
    const CGFloat room = roomOfShadow(attributes);
    const bool ownPen = bare_ && rendering::hasNoStroke(attributes);
    const CGFloat width = ownPen ? rendering::ownPenWidth(path_, {attributes.size.width - room,
                                                                  attributes.size.height - room})
                                 : strokeWidth(attributes);
    const Place place = placeIn(path_, attributes.size, room + width);
    std::string parts;
    if (ownPen) {
      const std::string stroke = fillOf("stroke", attributes, place, room);
      return dropped(shape(place, " fill=\"none\"" + stroke + lineOf(place, width)), attributes);
    }
    parts += shape(place, fillOf("fill", attributes, place, room + width));
    if (attributes.insetShadow) {
      parts += "<g" + attribute("filter", "url(#" + id_ + "-inset)") + '>' +
               shape(place, " fill=\"#000000\"") + "</g>";
      defs_ += insetFilter(*attributes.insetShadow, attributes.size);
    }
    if (!attributes.stroke) {
      parts += shape(place, " fill=\"none\" stroke=\"#000000\"" + lineOf(place, 0));
    } else if (attributes.stroke->color.alpha() > 0) {
      const std::string color = paint_.strokeIsCurrentColor
                                    ? " stroke=\"currentColor\""
                                    : colored("stroke", attributes.stroke->color);
      parts += shape(place, " fill=\"none\"" + color + lineOf(place, width));
    }
    return dropped(parts, attributes);
  }

  /// The fill's colour or gradient, as a property. `inset` is what the box of the gradient is
  /// smaller than the image.
  std::string fillOf(const std::string& property, const IconAttributes& attributes,
                     const Place& place, CGFloat inset) {
    if (!attributes.gradient) {
      return paint_.fillIsCurrentColor ? attribute(property, "currentColor")
                                       : colored(property, attributes.fillColor);
    }
    const IconGradient& gradient = *attributes.gradient;
    const auto ends = gradient.locations.empty()
                          ? std::pair(CGPoint{0.5, 0}, CGPoint{0.5, 1})
                          : std::pair(gradient.locations.front(), gradient.locations.back());
    const auto inPath = [&](CGPoint unit) {
      return CGPoint{
          (inset / 2 + unit.x * (attributes.size.width - inset) - place.move.x) / place.scale,
          (inset / 2 + unit.y * (attributes.size.height - inset) - place.move.y) / place.scale};
    };
    const CGPoint from = inPath(ends.first);
    const CGPoint to = inPath(ends.second);
    const auto unit = [](double value) { return tidyTextOf(value, 1); };
    defs_ += "<linearGradient" + attribute("id", id_ + "-fill") +
             attribute("gradientUnits", "userSpaceOnUse") + attribute("x1", unit(from.x)) +
             attribute("y1", unit(from.y)) + attribute("x2", unit(to.x)) +
             attribute("y2", unit(to.y)) + '>';
    for (std::size_t i = 0; i < gradient.colors.size(); ++i) {
      const double at = i < gradient.points.size() ? gradient.points[i] : 0;
      defs_ += "<stop" + attribute("offset", unit(at)) + colored("stop-color", gradient.colors[i]) +
               "/>";
    }
    defs_ += "</linearGradient>";
    return attribute(property, "url(#" + id_ + "-fill)");
  }

  /// The start of a filter that reaches as far beyond the image as the shadow can.
  std::string filterStart(const std::string& name, const IconShadow& shadow, CGSize size) const {
    const CGFloat reach = 1.5 * shadow.blur +
                          std::max(std::fabs(shadow.offset.width), std::fabs(shadow.offset.height));
    return "<filter" + attribute("id", id_ + name) + attribute("filterUnits", "userSpaceOnUse") +
           attribute("x", tidy(-reach)) + attribute("y", tidy(-reach)) +
           size_({size.width + 2 * reach, size.height + 2 * reach}) +
           attribute("color-interpolation-filters", "sRGB") + '>';
  }

  // A blur radius is two standard deviations.
  std::string insetFilter(const IconShadow& shadow, CGSize size) const {
    return filterStart("-inset", shadow, size) + "<feFlood" + colored("flood-color", shadow.color) +
           "/><feComposite in2=\"SourceAlpha\" operator=\"out\"/><feGaussianBlur" +
           attribute("stdDeviation", tidy(shadow.blur / 2)) + "/><feOffset" +
           attribute("dx", tidy(shadow.offset.width)) +
           attribute("dy", tidy(shadow.offset.height)) +
           "/><feComposite in2=\"SourceAlpha\" operator=\"in\"/></filter>";
  }

  std::string dropped(const std::string& parts, const IconAttributes& attributes) {
    if (!attributes.dropShadow) return parts;
    const IconShadow& shadow = *attributes.dropShadow;
    defs_ += filterStart("-drop", shadow, attributes.size) + "<feDropShadow" +
             attribute("dx", tidy(shadow.offset.width)) +
             attribute("dy", tidy(shadow.offset.height)) +
             attribute("stdDeviation", tidy(shadow.blur / 2)) +
             colored("flood-color", shadow.color) + "/></filter>";
    return "<g" + attribute("filter", "url(#" + id_ + "-drop)") + '>' + parts + "</g>";
  }

  const UIBezierPath& path_;
  const Paint& paint_;
  bool bare_;
  double frame_ = 1;
  std::string id_;
  std::string defs_;
};

/// Fill and stroke alone: the outline as it is drawn, in its own units.
std::string plainDocument(const UIBezierPath& path, const Paint& paint) {
  const IconAttributes& attributes = paint.attributes;
  SvgStyle style;
  style.attributes = attribute("width", textOf(attributes.size.width)) +
                     attribute("height", textOf(attributes.size.height));
  const auto add = [&style](const char* property, const UIColor& color) {
    if (color.alpha() != 1) style.attributes += attribute(property, textOf(color.alpha()));
  };
  add("fill-opacity", attributes.fillColor);
  style.fill = paint.fillIsCurrentColor ? "currentColor" : hexOf(attributes.fillColor);
  const auto& stroke = attributes.stroke;
  if (stroke && stroke->color.alpha() > 0) {
    style.stroke = paint.strokeIsCurrentColor ? "currentColor" : hexOf(stroke->color);
    style.strokeWidth = stroke->width / placeIn(path, attributes.size, stroke->width).scale;
    add("stroke-opacity", stroke->color);
  } else if (rendering::isBareStrokes(path.cgPath())) {
    add("stroke-opacity", attributes.fillColor);
  }
  return svgElement(path, style) + '\n';
}

}  // namespace

void requireRoomInDocument(const IconAttributes& attributes) {
  CGSize size = attributes.size;
  const CGFloat ring = attributes.border ? attributes.border->width : 0;
  if (std::min(size.width, size.height) <= 2 * ring) {
    throw UsageError("--border is as wide as the image: nothing of the icon is left");
  }
  const CGFloat inset = strokeWidth(attributes) + roomOfShadow(attributes) + 2 * ring;
  if (inset >= std::min(size.width, size.height)) {
    throw UsageError(std::string(strokeWidth(attributes) > 0 ? "--stroke" : "--drop-shadow") +
                     " is as wide as the image: nothing of the icon is left");
  }
}

std::string svgDocument(const UIBezierPath& path, const Paint& paint) {
  const IconAttributes& attributes = paint.attributes;
  const bool plain = attributes.stroke && attributes.backgroundColor.alpha() == 0 &&
                     !attributes.border && !attributes.gradient && !attributes.dropShadow &&
                     !attributes.insetShadow;
  return plain ? plainDocument(path, paint) : Document(path, paint).text();
}

}  // namespace glyphwright::cli
