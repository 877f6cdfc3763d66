// Images that the program writes, held against the library's own.

#include <cstdint>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/bezier_path.h>
#include <glyphwright/catalogue/icons.h>
#include <glyphwright/platform/image.h>
#include <glyphwright/rendering/icon_attributes.h>

#include "cli_program.h"
#include "pixels.h"
#include "tools/png.h"

namespace glyphwright {
namespace {

using cli_test::Outcome;
using cli_test::Picture;
using cli_test::readFile;
using cli_test::readPng;
using cli_test::run;

const UIColor red(1, 0, 0, 1);
const UIColor blue(0, 0, 1, 1);

/// What `--size 40 --fill red` stands for.
IconAttributes plain() {
  return {.fillColor = red,
          .backgroundColor = UIColor::clearColor(),
          .stroke = IconStroke(UIColor::clearColor(), 0),
          .size = {40, 40}};
}

std::string pixelsOf(const UIBezierPath& path, const IconAttributes& attributes) {
  const pixels::ScreenScale scale(1);
  const UIImage image = path.makeImage(attributes);
  const auto rgba = image.cgImage().rgba();
  return {rgba.begin(), rgba.end()};
}

TEST(CliRender, PaintsAsTheLibraryDoes) {
  struct Row {
    std::vector<std::string> options;
    void (*change)(IconAttributes& attributes);
  };
  for (const Row& row : {
           Row{{}, [](IconAttributes&) {}},
           Row{{"--background", "#00f8"},
               [](IconAttributes& a) { a.backgroundColor = UIColor(0, 0, 1, 136 / 255.0); }},
           Row{{"--stroke", "blue:2"}, [](IconAttributes& a) { a.stroke = IconStroke(blue, 2); }},
           Row{{"--hairline"}, [](IconAttributes& a) { a.stroke.reset(); }},
           Row{{"--border", "#0000FF:3"},
               [](IconAttributes& a) { a.border = IconBorder(blue, 3); }},
           Row{{"--drop-shadow", "blue:-1,3:4"},
               [](IconAttributes& a) {
                 a.dropShadow = IconShadow(blue, {-1, 3}, 4);
               }},
           Row{{"--inset-shadow", "blue:0,1.5:2"},
               [](IconAttributes& a) {
                 a.insetShadow = IconShadow(blue, {0, 1.5}, 2);
               }},
           Row{{"--gradient", "red,#00F:leftToRight"},
               [](IconAttributes& a) {
                 a.gradient = IconGradient({red, blue}, {}, IconGradient::Direction::leftToRight);
               }},
           Row{{"--size", "30x50"},
               [](IconAttributes& a) {
                 a.size = {30, 50};
               }},
       }) {
    std::vector<std::string> arguments = {"render", "Icons.flame", "-o"};
    const auto file = cli_test::freshFolder("paint") / "flame.rgba";
    arguments.push_back(file.string());
    arguments.insert(arguments.end(), {"--fill", "red"});
    if (row.options.empty() || row.options[0] != "--size") {
      arguments.insert(arguments.end(), {"--size", "40"});
    }
    arguments.insert(arguments.end(), row.options.begin(), row.options.end());
    const Outcome result = run(arguments);
    ASSERT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.err, "");
    IconAttributes attributes = plain();
    row.change(attributes);
    const std::string expected = pixelsOf(UIBezierPath::flamePath(), attributes);
    ASSERT_FALSE(expected.empty());
    EXPECT_TRUE(readFile(file) == expected) << testing::PrintToString(row.options);
  }
}

// The filled disc: no black edge, which the library would add where no stroke is given.
TEST(CliRender, FillsWithoutABlackEdge) {
  const auto file = cli_test::freshFolder("edge") / "disc.png";
  ASSERT_EQ(run({"render", "circlePath", "-o", file.string(), "--fill", "red"}).status, 0);
  const Picture picture = readPng(readFile(file));
  ASSERT_EQ(picture.width, 64U);
  ASSERT_EQ(picture.height, 64U);
  for (std::size_t i = 0; i < picture.rgba.size(); i += 4) {
    if (picture.rgba[i + 3] > 0) {
      ASSERT_EQ(picture.rgba[i], 255) << "pixel " << i / 4;
    }
  }
  EXPECT_EQ(picture.rgba[(32 * 64 + 32) * 4 + 3], 255);
  EXPECT_EQ(picture.rgba[3], 0);
}

TEST(CliRender, PutsNameAndScaleIntoTheFileName) {
  const auto folder = cli_test::freshFolder("pattern");
  const std::string pattern = (folder / "deep" / "{name}@{scale}x.png").string();
  const Outcome result = run({"render", "7", "App.Shapes.Checks.checkmark", "-o", pattern,
                              "--scale", "1,2.5", "--size", "20x10"});
  ASSERT_EQ(result.status, 0) << result.err;
  for (const char* name : {"7", "App.Shapes.Checks.checkmark"}) {
    const Picture one = readPng(readFile(folder / "deep" / (std::string(name) + "@1x.png")));
    EXPECT_EQ(one.width, 20U) << name;
    EXPECT_EQ(one.height, 10U) << name;
    const Picture more = readPng(readFile(folder / "deep" / (std::string(name) + "@2.5x.png")));
    EXPECT_EQ(more.width, 50U) << name;
    EXPECT_EQ(more.height, 25U) << name;
  }
}

TEST(CliRender, SendsAnImageToStandardOutput) {
  const Outcome result = run({"render", "heartPath", "-o", "-", "--size", "24"});
  ASSERT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(readPng(result.out).width, 24U);
}

TEST(CliRender, WritesTheOutlineAsSvg) {
  const auto file = cli_test::freshFolder("svg") / "logo.svg";
  ASSERT_EQ(
      run({"render", "facebookLogo", "-o", file.string(), "--size", "36", "--fill", "#11223380"})
          .status,
      0);
  const std::string svg = readFile(file);
  EXPECT_NE(svg.find("viewBox=\"0 0 18 18\" width=\"36\" height=\"36\""), std::string::npos) << svg;
  EXPECT_NE(svg.find("fill=\"#112233\""), std::string::npos);
  EXPECT_NE(svg.find("fill-opacity=\"0.50"), std::string::npos);
  // A stroke of 4 points leaves 32 for the 18 units of the path, and stays 4 points wide.
  ASSERT_EQ(
      run({"render", "facebookLogo", "-o", file.string(), "--size", "36", "--stroke", "red:4"})
          .status,
      0);
  EXPECT_NE(readFile(file).find("viewBox=\"-1.125 -1.125 20.25 20.25\""), std::string::npos)
      << readFile(file);
  EXPECT_NE(readFile(file).find("stroke-width=\"2.25\""), std::string::npos);
}

TEST(CliRender, DoesTheRestWhenSomeOutputFails) {
  const auto folder = cli_test::freshFolder("failing");
  const Outcome result = run({"render", "App.Things.magicCatEasterEgg", "Icons.shieldIcon",
                              "Icons.heart", "-o", (folder / "{name}.png").string()});
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.err.find("App.Things.magicCatEasterEgg has no drawing"), std::string::npos);
  EXPECT_NE(result.err.find("Icons.shieldIcon has no drawing"), std::string::npos);
  EXPECT_EQ(readPng(readFile(folder / "Icons.heart.png")).width, 64U);
}

TEST(CliRender, SaysWhatCannotBeWrittenOrDrawn) {
  const auto folder = cli_test::freshFolder("unwritable");
  ASSERT_EQ(run({"path", "App.Things.magicCatEasterEgg"}).status, 1);
  const std::string inTheWay = (folder / "x.png").string();
  ASSERT_EQ(run({"render", "xPath", "-o", inTheWay}).status, 0);
  const Outcome below = run({"render", "xPath", "-o", inTheWay + "/y.png"});
  EXPECT_EQ(below.status, 1);
  EXPECT_NE(below.err.find("cannot make"), std::string::npos) << below.err;
  const Outcome huge = run({"render", "xPath", "-o", inTheWay, "--size", "1e300"});
  EXPECT_EQ(huge.status, 1);
  EXPECT_NE(huge.err.find("cannot be drawn"), std::string::npos) << huge.err;
  std::filesystem::create_symlink("/dev/full", folder / "full.png");
  const Outcome full = run({"render", "xPath", "-o", (folder / "full.png").string()});
  EXPECT_EQ(full.status, 1);
  EXPECT_NE(full.err.find("cannot write"), std::string::npos) << full.err;
}

// Two crossing lines of 12 × 12 with a pen 2 wide fill 14 × 14: four times that at 56.
TEST(CliRender, DrawsBareStrokesWithTheirOwnPen) {
  const auto file = cli_test::freshFolder("strokes") / "x.rgba";
  IconAttributes attributes = plain();
  attributes.size = {56, 56};
  attributes.stroke = IconStroke(red, 8);
  const auto draw = [&](std::vector<std::string> options) {
    options.insert(options.begin(), {"render", "chatActionBarCloseIcon", "-o", file.string()});
    options.insert(options.end(), {"--size", "56"});
    const Outcome result = run(options);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.status, 0);
    return readFile(file);
  };
  const std::string expected = pixelsOf(UIBezierPath::chatActionBarCloseIcon(), attributes);
  EXPECT_TRUE(draw({"--fill", "red"}) == expected);
  const std::string gradient = draw({"--gradient", "red,red"});
  ASSERT_EQ(gradient.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    ASSERT_NEAR(static_cast<unsigned char>(gradient[i]), static_cast<unsigned char>(expected[i]),
                2);
  }
  // The same pen under a ring of 6 on either side, on the program's own ground.
  const std::string ring = draw({"--border", "blue:6", "--background", "lime", "--fill", "red"});
  const auto pixel = [&](std::size_t x, std::size_t y) { return ring.substr((y * 56 + x) * 4, 4); };
  EXPECT_EQ(pixel(28, 28), std::string("\xff\0\0\xff", 4));
  EXPECT_EQ(pixel(4, 4), std::string("\0\0\xff\xff", 4));
  EXPECT_EQ(pixel(28, 1), std::string("\0\xff\0\xff", 4));
}

// The library's opaque canvas begins black, which would show as a frame around the ring.
TEST(CliRender, LaysTheGroundUnderTheRing) {
  const auto file = cli_test::freshFolder("ring") / "disc.rgba";
  ASSERT_EQ(run({"render", "circlePath", "-o", file.string(), "--size", "40", "--border", "blue:3",
                 "--background", "white"})
                .status,
            0);
  const std::string pixels = readFile(file);
  EXPECT_EQ(pixels.substr(0, 4), "\xff\xff\xff\xff");
  EXPECT_EQ(pixels.substr((20 * 40 + 1) * 4, 4), std::string("\0\0\xff\xff", 4));
}

// A premultiplied channel c under alpha a stands for the straight value c × 255 ÷ a.
TEST(CliPng, HoldsStraightAlpha) {
  const std::vector<std::uint8_t> premultiplied = {64, 0, 0, 128, 0, 0, 0, 0,
                                                   1,  2, 3, 255, 1, 1, 1, 1};
  const auto file = cli::encodePng(2, 2, premultiplied);
  const Picture picture = readPng({file.begin(), file.end()});
  EXPECT_EQ(picture.rgba, (std::vector<std::uint8_t>{128, 0, 0, 128, 0, 0, 0, 0, 1, 2, 3, 255, 255,
                                                     255, 255, 1}));
  EXPECT_THROW(cli::encodePng(3, 2, premultiplied), std::runtime_error);
}

}  // namespace
}  // namespace glyphwright
