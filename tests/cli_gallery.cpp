// The page, the sheet and the ready-made images.

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/catalogue/catalogue.h>
#include <glyphwright/catalogue/icon_tab.h>
#include <glyphwright/paths/method_names.h>

#include "cli_program.h"
#include "tools/path_text.h"

namespace glyphwright {
namespace {

using cli_test::Outcome;
using cli_test::Picture;
using cli_test::readFile;
using cli_test::readPng;
using cli_test::run;

std::string page() {
  const auto folder = cli_test::freshFolder("gallery");
  const Outcome result = run({"gallery", "-o", folder.string()});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_GT(readPng(readFile(folder / "sheet.png")).width, 500U);
  return readFile(folder / "index.html") + readFile(folder / "gallery.js");
}

TEST(CliGallery, ShowsTheCatalogueInOrderAndThenTheRest) {
  const std::string html = page();
  std::size_t at = 0;
  const auto expectNext = [&](const std::string& text) {
    const std::size_t found = html.find(text, at);
    ASSERT_NE(found, std::string::npos) << text << " is not on the page, or too early";
    at = found;
  };
  std::size_t cards = 0;
  for (const IconTab key : IconTab::allCases) {
    expectNext("<section class=\"tab\" id=\"" + std::string(key.rawValue()) + '"');
    for (const IconTypeSection& section : key.tab().sections()) {
      expectNext("<h3>" + section.title);
      for (const Pathable& icon : section.paths) {
        expectNext("data-name=\"" + testing::PrintToString(icon) + "\" data-method=\"" +
                   std::string(icon.rawValue()) + '"');
        ++cards;
      }
    }
  }
  EXPECT_EQ(cards, 166U) << "all cases but the unlisted triangle";
  expectNext("id=\"methods\"");
  for (const char* name : {"App.Shapes.Triangles.cornerCutTriangle", "Icons.duskplayLogo"}) {
    EXPECT_NE(html.find(name, at), std::string::npos) << name;
  }
}

TEST(CliGallery, DrawsEveryMethodInline) {
  const std::string html = page();
  for (const std::string_view method : iconMethodNames) {
    const std::size_t card = html.find("data-method=\"" + std::string(method) + '"');
    ASSERT_NE(card, std::string::npos) << method;
    const std::string_view text = std::string_view(html).substr(card, html.find("</li>", card));
    EXPECT_NE(text.find("<svg "), std::string_view::npos) << method;
    EXPECT_NE(text.find("data-copy="), std::string_view::npos) << method;
  }
  const std::string logo = cli::svgPathData(UIBezierPath::facebookLogo().cgPath());
  EXPECT_NE(html.find(logo), std::string::npos);
}

TEST(CliGallery, LoadsNothingFromElsewhere) {
  std::string html = page();
  // The script beside it, the name of a namespace and a piece of the same drawing are all it names.
  for (const std::string_view name :
       {"<script src=\"gallery.js\">", "http://www.w3.org/2000/svg", "url(#"}) {
    for (std::size_t at = html.find(name); at != std::string::npos; at = html.find(name)) {
      html.erase(at, name.size());
    }
  }
  for (const char* loads :
       {"http:", "https:", "src=", "@import", "url(", "fetch(", "{{", "<link rel=\"style"}) {
    EXPECT_EQ(html.find(loads), std::string::npos) << loads;
  }
}

TEST(CliSheet, HasRoomForAllItsIcons) {
  const auto file = cli_test::freshFolder("sheet") / "sheet.png";
  const Outcome result = run({"sheet", "xPath", "heartPath", "App.Things.magicCatEasterEgg", "-o",
                              file.string(), "--columns", "2", "--scale", "1", "--size", "30",
                              "--background", "#204060", "--fill", "white"});
  ASSERT_EQ(result.status, 0) << result.err;
  const Picture sheet = readPng(readFile(file));
  ASSERT_GT(sheet.width, 2 * 30U);
  ASSERT_GT(sheet.height, 2 * 30U);
  const auto pixel = [&](std::size_t i) {
    return std::vector<std::uint8_t>(sheet.rgba.begin() + static_cast<std::ptrdiff_t>(4 * i),
                                     sheet.rgba.begin() + static_cast<std::ptrdiff_t>(4 * i + 4));
  };
  EXPECT_EQ(pixel(0), (std::vector<std::uint8_t>{0x20, 0x40, 0x60, 255}));
  std::size_t white = 0;
  for (std::size_t i = 0; i < sheet.width * sheet.height; ++i) {
    white += pixel(i) == std::vector<std::uint8_t>(4, 255) ? 1 : 0;
  }
  EXPECT_GT(white, 300U) << "the cross and the heart";
}

TEST(CliPreset, DrawsEveryReadyMadeImage) {
  const Outcome list = run({"preset", "--list"});
  ASSERT_EQ(list.status, 0);
  EXPECT_EQ(std::count(list.out.begin(), list.out.end(), '\n'), 27);
  const auto folder = cli_test::freshFolder("presets");
  const Outcome result =
      run({"preset", "--all", "-o", (folder / "{name}@{scale}x.png").string(), "--scale", "2"});
  ASSERT_EQ(result.status, 0) << result.err;
  const auto file = [&](const char* name) {
    return readPng(readFile(folder / (std::string(name) + "@2x.png")));
  };
  EXPECT_EQ(file("ChatIcons.ActionBar.gifNormalIcon").width, 48U);
  EXPECT_EQ(file("PresetIcons.createLoopPlayIcon").height, 136U);
  EXPECT_EQ(file("PresetIcons.createSafebeamIcon").width, 62U);
  EXPECT_EQ(file("ReferralIcons.Home.shareIcon").height, 146U);
}

TEST(CliPreset, HandsArgumentsOn) {
  const auto folder = cli_test::freshFolder("preset-arguments");
  const auto draw = [&](std::vector<std::string> options) {
    const std::string file = (folder / "x.rgba").string();
    options.insert(options.begin(), "preset");
    options.insert(options.end(), {"-o", file});
    const Outcome result = run(options);
    EXPECT_EQ(result.status, 0) << result.err;
    return readFile(file);
  };
  const std::string safebeam = "PresetIcons.createSafebeamIcon";
  const std::string normal = draw({safebeam});
  EXPECT_EQ(normal.size(), 31U * 31 * 4);
  EXPECT_NE(draw({safebeam, "--selected"}), normal);
  EXPECT_NE(draw({safebeam, "--withBackground"}), normal);
  EXPECT_EQ(draw({safebeam, "--size", "10x20"}).size(), 10U * 20 * 4);
  const std::string share =
      draw({"ReferralIcons.Home.shareIcon", "--size", "90", "--backgroundColor", "#102030"});
  EXPECT_EQ(share.substr(share.size() - 4), std::string("\x10\x20\x30\xff", 4));
}

}  // namespace
}  // namespace glyphwright
