#include "sheet_command.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <stdexcept>
#include <string_view>

#include <glyphwright/bezier_path.h>
#include <glyphwright/platform/image.h>
#include <glyphwright/platform/vantel_kit.h>

#include "icon_names.h"
#include "image_output.h"
#include "label_font.h"
#include "parallel.h"
#include "pixel_sheet.h"
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

UIImage pictureOf(const NamedIcon& icon, IconAttributes attributes) {
  if (icon.icon.builder == nullptr) return {};
  attributes.backgroundColor = UIColor::clearColor();  // the sheet's ground lies below
  return icon.icon.builder().makeStandaloneImage(attributes);
}

void put(PixelSheet& sheet, const Layout& layout, std::size_t index, const std::string& name,
         const UIImage& picture, const UIColor& labelColor) {
  const std::size_t left = layout.gap / 2 + index % layout.columns * layout.cellWidth;
  const std::size_t top = layout.gap + index / layout.columns * layout.cellHeight;
  if (picture.hasPixels()) {
    sheet.draw(picture.cgImage(), left + (layout.cellWidth - layout.iconWidth) / 2, top);
  }
  std::size_t y = top + layout.iconHeight + layout.gap;
  for (const std::string_view line : linesOf(name)) {
    const std::size_t width = labelWidth(line) * layout.magnification;
    sheet.write(line, left + (layout.cellWidth - width) / 2, y, layout.magnification, labelColor);
    y += lineHeight * layout.magnification;
  }
}

/// The icons' images, on several threads.
std::vector<UIImage> pictures(const std::vector<NamedIcon>& icons, const SheetOptions& options,
                              Console& console) {
  std::vector<UIImage> images(icons.size());
  std::vector<std::exception_ptr> errors(icons.size());
  Progress progress(console, "drawing", icons.size());
  inParallel(icons.size(), threadsFor(options.jobs), [&](std::size_t i) {
    try {
      images[i] = pictureOf(icons[i], options.paint.attributes);
    } catch (...) {
      errors[i] = std::current_exception();
    }
    progress.step();
  });
  for (const std::exception_ptr& error : errors) {
    if (error) std::rethrow_exception(error);
  }
  return images;
}

}  // namespace

SheetOptions::SheetOptions() {
  paint.attributes.backgroundColor = UIColor::whiteColor();
  paint.setSizes({{48, 48}});
}

int runSheet(const SheetOptions& options, Console& console) {
  if (formatOf(options.output) != OutputFormat::png) throw UsageError("a sheet is a .png file");
  requireOnePicture(options.paint);
  refuseTerminal(options.output, OutputFormat::png, console);
  const std::vector<NamedIcon> icons =
      options.names.empty() ? allIcons() : iconsNamed(options.names, console.in);
  const Layout layout = layoutFor(options, icons);
  VantelKit::Screen::setScale(options.scale);
  makeFolders({&options.output, 1}, options.parents);
  const std::vector<UIImage> images = pictures(icons, options, console);
  const UIColor& ground = options.paint.attributes.backgroundColor;
  PixelSheet sheet(layout.width(), layout.height(), ground);
  for (std::size_t i = 0; i < icons.size(); ++i) {
    put(sheet, layout, i, icons[i].name, images[i], labelColorOn(ground));
  }
  writeOutput(options.output,
              encodePng(sheet.width(), sheet.height(), sheet.rgba(), options.compression), console);
  return statusDone;
}

}  // namespace glyphwright::cli
