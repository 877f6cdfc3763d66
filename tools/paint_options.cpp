#include <algorithm>
#include <utility>

#include "attributes_file.h"
#include "command_tree.h"
#include "paint_text.h"

namespace glyphwright::cli {
namespace {

constexpr std::string_view kCurrentColor = "currentColor";

void setFill(Paint& paint, const std::string& text) {
  paint.fillIsCurrentColor = text == kCurrentColor;
  // Whatever it is in the end, it is seen.
  paint.attributes.fillColor = paint.fillIsCurrentColor ? UIColor::blackColor() : colorFrom(text);
  paint.attributes.gradient.reset();
}

void setStroke(Paint& paint, const std::string& text) {
  paint.strokeIsCurrentColor = text.starts_with(std::string(kCurrentColor) + ':');
  paint.attributes.stroke =
      strokeFrom(paint.strokeIsCurrentColor ? "black" + text.substr(kCurrentColor.size()) : text);
}

}  // namespace

void addPaint(CLI::App& app, Paint& paint) {
  IconAttributes& attributes = paint.attributes;
  const auto plain = [](auto& field) { return [&field](auto value) { field = std::move(value); }; };
  const auto asItIs = [](const std::string& text) { return text; };

  // First, so that the options after it have the last word.
  addParsed(
      app, "--attributes", "FILE", asItIs,
      [&paint](const std::string& file) { readAttributes(file, paint); },
      "paint as a JSON file says: an object with size, fillColor, backgroundColor, stroke, "
      "border, dropShadow, insetShadow, gradient; the options below have the last word");
  addParsed(
      app, "--size", "W[xH]", sizesFrom,
      [&paint](std::vector<CGSize> sizes) { paint.setSizes(std::move(sizes)); },
      "size of the image in points; the icon fits into it");
  CLI::Option* const fill = addParsed(
      app, "--fill", "C", asItIs, [&paint](const std::string& text) { setFill(paint, text); },
      "fill colour, black unless given: #RGB, #RGBA, #RRGGBB, #RRGGBBAA, a CSS name or, in an SVG, "
      "currentColor");
  addParsed(app, "--background", "C", colorFrom, plain(attributes.backgroundColor),
            "colour behind the icon");
  CLI::Option* const stroke = addParsed(
      app, "--stroke", "C:W", asItIs, [&paint](const std::string& text) { setStroke(paint, text); },
      "outline: colour and width; without it, an icon of bare strokes is drawn with its own pen in "
      "the fill's colour");
  addParsed(app, "--border", "C:W", borderFrom, plain(attributes.border),
            "ring around the icon: colour and width (whole points)");
  addParsed(app, "--drop-shadow", "C:DX,DY:BLUR", shadowFrom, plain(attributes.dropShadow),
            "shadow outside the shape: colour, offset, blur; the icon shrinks to make room");
  addParsed(app, "--inset-shadow", "C:DX,DY:BLUR", shadowFrom, plain(attributes.insetShadow),
            "shadow inside the shape");
  addParsed(
      app, "--gradient", "C,C[,C...][:DIRECTION]", gradientFrom, plain(attributes.gradient),
      "fill with a gradient in place of a colour; the direction is topToBottom (unless given), "
      "leftToRight, topLeftToBottomRight or bottomLeftToTopRight")
      ->excludes(fill);
  app.add_flag_callback(
         "--hairline", [&paint] { paint.attributes.stroke.reset(); },
         "without a stroke, the thin black outline that the library draws by default")
      ->excludes(stroke);
}

}  // namespace glyphwright::cli
