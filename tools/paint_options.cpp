#include <utility>

#include "command_tree.h"
#include "paint_text.h"

namespace glyphwright::cli {

/// The options that say how to paint.
void addPaint(CLI::App& app, Paint& paint) {
  IconAttributes& attributes = paint.attributes;
  // What an outline cannot show is noted by the name of its option.
  const auto pixels = [&paint](const char* name, auto& field) {
    return [&paint, name, &field](auto value) {
      field = std::move(value);
      paint.pixelOptions.emplace_back(name);
    };
  };
  const auto plain = [](auto& field) { return [&field](auto value) { field = std::move(value); }; };

  addParsed(app, "--size", "W[xH]", sizeFrom, plain(attributes.size),
            "size of the image in points; the icon fits into it");
  addParsed(app, "--fill", "C", colorFrom, plain(attributes.fillColor),
            "fill colour, black unless given: #RGB, #RGBA, #RRGGBB, #RRGGBBAA or a CSS name");
  addParsed(app, "--background", "C", colorFrom, pixels("--background", attributes.backgroundColor),
            "colour behind the icon");
  CLI::Option* const stroke = addParsed(app, "--stroke", "C:W", strokeFrom,
                                        plain(attributes.stroke), "outline: colour and width");
  addParsed(app, "--border", "C:W", borderFrom, pixels("--border", attributes.border),
            "ring around the icon: colour and width (whole points)");
  addParsed(app, "--drop-shadow", "C:DX,DY:BLUR", shadowFrom,
            pixels("--drop-shadow", attributes.dropShadow),
            "shadow outside the shape: colour, offset, blur; the icon shrinks to make room");
  addParsed(app, "--inset-shadow", "C:DX,DY:BLUR", shadowFrom,
            pixels("--inset-shadow", attributes.insetShadow), "shadow inside the shape");
  addParsed(app, "--gradient", "C,C[,C...][:DIRECTION]", gradientFrom,
            pixels("--gradient", attributes.gradient),
            "fill with a gradient; the direction is topToBottom (unless given), leftToRight, "
            "topLeftToBottomRight or bottomLeftToTopRight");
  app.add_flag_callback(
         "--hairline",
         [&paint] {
           paint.attributes.stroke.reset();
           paint.pixelOptions.emplace_back("--hairline");
         },
         "without a stroke, the thin black outline that the library draws by default")
      ->excludes(stroke);
}

}  // namespace glyphwright::cli
