// The gallery's page of ready-made images.

#include <algorithm>
#include <filesystem>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "cli_program.h"
#include "tools/painting_looks.h"
#include "tools/paintings_page.h"

namespace glyphwright::cli {
namespace {

TEST(PaintingsPage, ShowsEveryLookOnce) {
  const std::string page = paintingsPage();
  std::set<std::string> files;
  std::set<std::string_view> presets;
  for (const PaintingLook& look : allPaintingLooks()) {
    SCOPED_TRACE(look.fileName());
    EXPECT_TRUE(files.insert(look.fileName()).second);
    presets.insert(look.preset->name);
    EXPECT_NE(page.find("\"paintings/" + look.fileName() + ".png\""), std::string::npos);
    EXPECT_TRUE(look.preset->draw(look.arguments).hasPixels());
  }
  EXPECT_EQ(presets.size(), allPresets().size());
  EXPECT_EQ(files.size(), allPresets().size() + 3) << "one image has four looks";
}

TEST(PaintingsPage, ItsPicturesLieBesideIt) {
  const auto folder = cli_test::freshFolder("paintings");
  ASSERT_EQ(cli_test::run({"gallery", "-o", folder.string()}).status, 0);
  const std::string page = cli_test::readFile(folder / "paintings.html");
  const std::string start = "src=\"";
  int pictures = 0;
  for (std::size_t at = page.find(start); at != std::string::npos; at = page.find(start, at + 1)) {
    const std::size_t first = at + start.size();
    EXPECT_TRUE(
        std::filesystem::exists(folder / page.substr(first, page.find('"', first) - first)));
    ++pictures;
  }
  EXPECT_GE(pictures, 60);
  EXPECT_NE(cli_test::readFile(folder / "index.html").find("\"paintings.html\""),
            std::string::npos);
}

}  // namespace
}  // namespace glyphwright::cli
