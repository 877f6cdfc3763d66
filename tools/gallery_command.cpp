#include "gallery_command.h"

#include <exception>
#include <filesystem>
#include <vector>

#include <glyphwright/platform/vantel_kit.h>

#include "animations_page.h"
#include "gallery_page.h"
#include "image_output.h"
#include "library_module.h"
#include "output.h"
#include "painting_looks.h"
#include "paintings_page.h"
#include "parallel.h"
#include "png.h"
#include "sheet_command.h"
#include "web_sources.h"

namespace glyphwright::cli {
namespace {

// Fine enough for the largest that the page shows on a dense screen. The whole gallery stays small
// enough to be sent by mail, so the sheet has one pixel a point: the page shows icons larger.
constexpr CGFloat kPaintingScale = 3;
constexpr CGFloat kSheetScale = 1;

void writePaintings(const std::filesystem::path& folder, std::size_t jobs, Console& console) {
  writeOutput((folder / "paintings.html").string(), paintingsPage(), console);
  VantelKit::Screen::setScale(kPaintingScale);
  const std::vector<PaintingLook> looks = allPaintingLooks();
  std::vector<std::exception_ptr> errors(looks.size());
  inParallel(looks.size(), threadsFor(jobs), [&](std::size_t i) {
    const PaintingLook& look = looks[i];
    const std::filesystem::path file = folder / "paintings" / (look.fileName() + ".png");
    try {
      writeImage(look.preset->draw(look.arguments), look.preset->name, file.string(),
                 OutputFormat::png, console);
    } catch (...) {
      errors[i] = std::current_exception();
    }
  });
  for (const std::exception_ptr& error : errors) {
    if (error) std::rethrow_exception(error);
  }
}

void writeAnimations(const std::filesystem::path& folder, std::size_t jobs, Console& console) {
  writeOutput((folder / "animations.html").string(), animationsPage(), console);
  for (const Showpiece& piece : showpieces()) {
    AnimateOptions options = piece.options;
    options.jobs = jobs;
    const AnimatedPicture picture = renderAnimation(options, console);
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
  writePaintings(folder, options.jobs, console);
  writeAnimations(folder, options.jobs, console);
  SheetOptions sheet;
  sheet.output = (folder / "sheet.png").string();
  sheet.scale = kSheetScale;
  sheet.jobs = options.jobs;
  return runSheet(sheet, console);
}

}  // namespace glyphwright::cli
