#include "gallery_command.h"

#include <filesystem>

#include <glyphwright/platform/vantel_kit.h>

#include "animations_page.h"
#include "gallery_page.h"
#include "image_output.h"
#include "library_module.h"
#include "output.h"
#include "painting_looks.h"
#include "paintings_page.h"
#include "png.h"
#include "sheet_command.h"
#include "web_sources.h"

namespace glyphwright::cli {
namespace {

// Fine enough for the largest that the page shows on a dense screen. The whole gallery stays small
// enough to be sent by mail, so the sheet has one pixel a point: the page shows icons larger.
constexpr CGFloat kPaintingScale = 3;
constexpr CGFloat kSheetScale = 1;

void writePaintings(const std::filesystem::path& folder, Console& console) {
  writeOutput((folder / "paintings.html").string(), paintingsPage(), console);
  VantelKit::Screen::setScale(kPaintingScale);
  for (const PaintingLook& look : allPaintingLooks()) {
    const std::filesystem::path file = folder / "paintings" / (look.fileName() + ".png");
    writeImage(look.preset->draw(look.arguments), look.preset->name, file.string(),
               OutputFormat::png, console);
  }
}

void writeAnimations(const std::filesystem::path& folder, Console& console) {
  writeOutput((folder / "animations.html").string(), animationsPage(), console);
  for (const Showpiece& piece : showpieces()) {
    const AnimatedPicture picture = renderAnimation(piece.options, console);
    const std::string file = (folder / "animations" / piece.fileName()).string();
    writeOutput(file + ".png", encodeAnimatedPng(picture), console);
    const auto still =
        static_cast<std::size_t>(piece.still * static_cast<double>(picture.frames.size()));
    writeOutput(file + "-still.png",
                encodePng(picture.pixelWidth, picture.pixelHeight, picture.frames[still]), console);
  }
}

}  // namespace

int runGallery(const GalleryOptions& options, Console& console) {
  const std::filesystem::path folder = options.folder;
  const std::string module = options.module.empty() ? "" : moduleElement(options.module);
  writeOutput((folder / "gallery.js").string(), std::string(galleryJs), console);
  writeOutput((folder / "index.html").string(), galleryPage(module), console);
  if (options.pageOnly) return statusDone;
  writePaintings(folder, console);
  writeAnimations(folder, console);
  SheetOptions sheet;
  sheet.output = (folder / "sheet.png").string();
  sheet.scale = kSheetScale;
  return runSheet(sheet, console);
}

}  // namespace glyphwright::cli
