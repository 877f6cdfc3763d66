#include "sheet_command.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <string_view>

#include <glyphwright/bezier_path.h>
#include <glyphwright/platform/image.h>
#include <glyphwright/platform/vantel_kit.h>

#include "icon_image.h"
#include "icon_names.h"
#include "image_output.h"
#include "label_font.h"
#include "pixel_sheet.h"
#include "png.h"
#include "usage_error.h"

namespace glyphwright::cli {
namespace {

constexpr std::size_t charactersInLine = 18;
constexpr std::size_t lineHeight = labelGlyphHeight + 1;

/// The name in lines that fit, broken before a capital or a full stop where there is one.
std::vector<std::string_view> linesOf(std::string_view name) {
  std::vector<std::string_view> lines;
  while (name.size() > charactersInLine) {
    std::size_t cut = charactersInLine;
    while (cut > 0 && !(name[cut] >= 'A' && name[cut] <= 'Z') && name[cut] != '.') --cut;
    if (cut == 0) cut = charactersInLine;
    lines.push_back(name.substr(0, cut));
    name.remove_prefix(cut);
  }
  lines.push_back(name);
  return lines;
}

/// Sizes in pixels.
struct Layout {
  std::size_t columns;
  std::size_t rows;
  std::size_t iconWidth;
  std::size_t iconHeight;
  std::size_t magnification;
  std::size_t gap;
  std::size_t cellWidth;
  std::size_t cellHeight;

  std::size_t width() const { return columns * cellWidth + gap; }
  std::size_t height() const { return rows * cellHeight + gap; }
};

constexpr std::size_t mostPixels = std::size_t{1} << 28;

Layout layoutFor(const SheetOptions& options, const std::vector<NamedIcon>& icons) {
  const CGSize size = options.paint.attributes.size;
  constexpr CGFloat longestSide = 1 << 14;
  if (!(size.width * options.scale <= longestSide && size.height * options.scale <= longestSide)) {
    throw std::runtime_error("the icons are too large for a sheet");
  }
  const std::size_t count = icons.size();
  std::size_t linesOfLabel = 0;
  for (const NamedIcon& icon : icons) {
    linesOfLabel = std::max(linesOfLabel, linesOf(icon.name).size());
  }
  Layout layout{};
  layout.iconWidth = static_cast<std::size_t>(std::ceil(size.width * options.scale));
  layout.iconHeight = static_cast<std::size_t>(std::ceil(size.height * options.scale));
  layout.magnification = static_cast<std::size_t>(std::clamp(std::round(options.scale), 1.0, 8.0));
  layout.gap = 8 * layout.magnification;
  const std::size_t label = (charactersInLine * (labelGlyphWidth + 1) - 1) * layout.magnification;
  layout.cellWidth = std::max(layout.iconWidth, label) + layout.gap;
  layout.cellHeight =
      layout.iconHeight + linesOfLabel * lineHeight * layout.magnification + 2 * layout.gap;
  const double square = std::sqrt(static_cast<double>(count * layout.cellHeight) /
                                  static_cast<double>(layout.cellWidth));
  layout.columns = options.columns > 0 ? options.columns
                                       : std::max<std::size_t>(1, static_cast<std::size_t>(square));
  layout.columns = std::min(layout.columns, count);
  layout.rows = (count + layout.columns - 1) / layout.columns;
  if (layout.width() > mostPixels / layout.height()) {
    throw std::runtime_error("the sheet would be too large");
  }
  return layout;
}

/// A grey that can be read on the ground.
UIColor labelColorOn(const UIColor& ground) {
  const CGFloat light = 0.2126 * ground.red() + 0.7152 * ground.green() + 0.0722 * ground.blue();
  const bool dark = ground.alpha() > 0.5 && light < 0.5;
  return UIColor::colorWithWhite(dark ? 0.75 : 0.35, 1);
}

void put(PixelSheet& sheet, const Layout& layout, std::size_t index, const NamedIcon& icon,
         const SheetOptions& options) {
  const std::size_t left = layout.gap / 2 + index % layout.columns * layout.cellWidth;
  const std::size_t top = layout.gap + index / layout.columns * layout.cellHeight;
  if (icon.icon.builder != nullptr) {
    IconAttributes attributes = options.paint.attributes;
    attributes.backgroundColor = UIColor::clearColor();  // the sheet's ground lies below
    const UIImage image = imageOf(icon.icon.builder(), attributes);
    const std::size_t free = layout.cellWidth - layout.iconWidth;
    sheet.draw(image.cgImage(), left + free / 2, top);
  }
  const UIColor color = labelColorOn(options.paint.attributes.backgroundColor);
  std::size_t y = top + layout.iconHeight + layout.gap;
  for (const std::string_view line : linesOf(icon.name)) {
    const std::size_t width = labelWidth(line) * layout.magnification;
    sheet.write(line, left + (layout.cellWidth - width) / 2, y, layout.magnification, color);
    y += lineHeight * layout.magnification;
  }
}

}  // namespace

SheetOptions::SheetOptions() {
  paint.attributes.backgroundColor = UIColor::whiteColor();
  paint.attributes.size = {48, 48};
}

int runSheet(const SheetOptions& options, Console& console) {
  if (formatOf(options.output) != OutputFormat::png) throw UsageError("a sheet is a .png file");
  refuseTerminal(options.output, OutputFormat::png, console);
  const std::vector<NamedIcon> icons =
      options.names.empty() ? allIcons() : iconsNamed(options.names);
  const Layout layout = layoutFor(options, icons);
  VantelKit::Screen::setScale(options.scale);
  PixelSheet sheet(layout.width(), layout.height(), options.paint.attributes.backgroundColor);
  Progress progress(console, "drawing", icons.size());
  for (std::size_t i = 0; i < icons.size(); ++i) {
    progress.step();
    put(sheet, layout, i, icons[i], options);
  }
  writeOutput(options.output, encodePng(sheet.width(), sheet.height(), sheet.rgba()), console);
  return statusDone;
}

}  // namespace glyphwright::cli
