// Images that the program writes, held against the library's own.

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
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
using pixels::blue;
using pixels::red;

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
    if (row.options.empty() || row.options[0] != "--gradient") {
      arguments.insert(arguments.end(), {"--fill", "red"});
    }
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

TEST(CliRender, PutsNameAndScaleIntoTheFileName) {
  const auto folder = cli_test::freshFolder("pattern");
  const std::string pattern = (folder / "deep" / "{name}@{scale}x.png").string();
  const Outcome result = run({"render", "7", "App.Shapes.Checks.checkmark", "-o", pattern,
                              "--scale", "1,2.5", "--size", "20x10", "--parents"});
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
  // Further paint: a document in points, with what each paint is there.
  struct Row {
    std::vector<std::string> options;
    const char* part;
  };
  for (const Row& row : {
           Row{{"--fill", "currentColor"}, "fill=\"currentColor\""},
           Row{{"--stroke", "currentColor:2"}, "stroke=\"currentColor\""},
           Row{{"--background", "#00ff0080"}, "<rect width=\"36\" height=\"36\" fill=\"#00ff00\""},
           Row{{"--gradient", "red,blue:leftToRight"},
               "x1=\"0\" y1=\"0\" x2=\"18\" y2=\"0\"><stop offset=\"0\" stop-color=\"#ff0000\"/>"},
           Row{{"--drop-shadow", "#0008:1,2:3"},
               "<feDropShadow dx=\"1\" dy=\"2\" stdDeviation=\"1.5\""},
           // 3 and twice 2 points off 36 leave 29 for 18 units.
           Row{{"--drop-shadow", "#0008:1,2:3"}, "translate(3.5 3.5) scale(1.6111111111111112)"},
           Row{{"--inset-shadow", "red:1,2:3"}, "<feOffset dx=\"1\" dy=\"2\"/>"},
           Row{{"--border", "blue:3"}, "<svg x=\"3\" y=\"3\" width=\"30\" height=\"30\">"},
           Row{{"--hairline"}, "non-scaling-stroke"},
       }) {
    std::vector<std::string> arguments = {"render",      "facebookLogo", "-o",
                                          file.string(), "--size",       "36"};
    arguments.insert(arguments.end(), row.options.begin(), row.options.end());
    ASSERT_EQ(run(arguments).status, 0);
    EXPECT_NE(readFile(file).find(row.part), std::string::npos) << row.part << readFile(file);
  }
}

TEST(CliRender, ReadsAttributesFromAFile) {
  const auto folder = cli_test::freshFolder("attributes");
  const std::string json = (folder / "look.json").string();
  const std::string file = (folder / "x.rgba").string();
  const auto draw = [&](const std::string& text, const std::vector<std::string>& options = {}) {
    std::ofstream(json) << text;
    std::vector<std::string> arguments = {"render", "flamePath", "-o", file, "--attributes", json};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return run(arguments);
  };
  ASSERT_EQ(draw(R"({"size": [40, 30], "fillColor": "red", "stroke": {"color": "blue", "width": 2},
                     "dropShadow": {"color": "blue", "offset": [-1, 3], "blur": 4},
                     "gradient": {"colors": ["red", "blue"], "points": [0.25, 1]}})")
                .err,
            "");
  IconAttributes attributes = plain();
  attributes.size = {40, 30};
  attributes.stroke = IconStroke(blue, 2);
  attributes.dropShadow = IconShadow(blue, {-1, 3}, 4);
  attributes.gradient = IconGradient({red, blue}, {}, IconGradient::Direction::topToBottom);
  attributes.gradient->points = {0.25, 1};
  EXPECT_TRUE(readFile(file) == pixelsOf(UIBezierPath::flamePath(), attributes));
  ASSERT_EQ(draw(R"({"size": 10, "fillColor": "red"})", {"--fill", "blue", "--size", "40"}).err,
            "");
  attributes = plain();
  attributes.fillColor = blue;
  EXPECT_TRUE(readFile(file) == pixelsOf(UIBezierPath::flamePath(), attributes));
  for (const char* wrong :
       {"", "7", "{\"colour\": 1}", "{\"size\": -1}",
        "{\"border\": {\"color\": \"red\", \"width\": 1.5}}",
        "{\"gradient\": {\"colors\": [\"red\"]}}", "{\"dropShadow\": {\"offset\": [1]}}"}) {
    const Outcome refused = draw(wrong);
    EXPECT_EQ(refused.status, 2) << wrong;
    EXPECT_NE(refused.err.find(json), std::string::npos) << refused.err;
  }
}

TEST(CliRender, WritesTheSameBytesOnAnyNumberOfThreads) {
  const auto folder = cli_test::freshFolder("jobs");
  const auto all = [&](const char* jobs) {
    std::string bytes;
    const std::string at = (folder / jobs).string();
    EXPECT_EQ(run({"render", "*heart*", "Icons.[a-c]*", "--size", "16,24x20", "--scale", "1,2",
                   "-o", at + "/{name}-{size}@{scale}.png", "--jobs", jobs, "--parents"})
                  .err,
              "");
    EXPECT_EQ(run({"sheet", "*heart*", "-o", at + "/a sheet.png", "--jobs", jobs}).err, "");
    EXPECT_EQ(run({"preset", "--all", "-o", at + "/{name}.png", "--jobs", jobs}).err, "");
    EXPECT_EQ(run({"animate", "heartPath", "-o", at + "/a.png", "--jobs", jobs}).err, "");
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(at)) files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    for (const auto& file : files) bytes += file.filename().string() + readFile(file);
    return bytes;
  };
  const std::string one = all("1");
  EXPECT_GT(one.size(), 10000U);
  EXPECT_TRUE(one == all("3"));
  EXPECT_EQ(readPng(readFile(folder / "3" / "heartPath-24x20@2.png")).width, 48U);
}

TEST(CliRender, SaysWhyADeviceTakesNoMore) {
  const Outcome full = run({"render", "heartPath", "-o", "/dev/full"});
  EXPECT_EQ(full.status, 1);
  EXPECT_NE(full.err.find("/dev/full: No space left"), std::string::npos) << full.err;
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

TEST(CliPng, IsTheSamePictureSmaller) {
  std::vector<std::uint8_t> pixels(4 * 64 * 48, 255);
  // Each row rises by steps of its own, so that it is best told from the left.
  for (std::size_t i = 0; i < pixels.size(); ++i) {
    const std::size_t y = i / 256;
    const std::size_t value = i / 4 % 64 * (y + 1) + i % 4 * 40 + y * 37;
    if (i % 4 != 3) pixels[i] = static_cast<std::uint8_t>(value);
  }
  const auto quick = cli::encodePng(64, 48, pixels);
  const auto small = cli::encodePng(64, 48, pixels, cli::Compression::small);
  EXPECT_LT(small.size(), quick.size());
  for (const auto& file : {quick, small}) {
    EXPECT_EQ(readPng({file.begin(), file.end()}).rgba, pixels);
  }
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
