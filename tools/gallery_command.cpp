#include "gallery_command.h"

#include <filesystem>

#include "gallery_page.h"
#include "output.h"
#include "sheet_command.h"

namespace glyphwright::cli {

int runGallery(const GalleryOptions& options, Console& console) {
  const std::filesystem::path folder = options.folder;
  writeOutput((folder / "index.html").string(), galleryPage(), console);
  SheetOptions sheet;
  sheet.output = (folder / "sheet.png").string();
  return runSheet(sheet, console);
}

}  // namespace glyphwright::cli
