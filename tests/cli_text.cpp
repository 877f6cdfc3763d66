// The program's text commands, and how it answers mistakes.

#include <filesystem>
#include <numeric>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <glyphwright/bezier_path.h>
#include <glyphwright/catalogue/catalogue.h>
#include <glyphwright/catalogue/icons.h>
#include <glyphwright/paths/method_names.h>
#include <glyphwright/paths/registry.h>
#include <glyphwright/rendering/bare_strokes.h>

#include "cli_program.h"
#include "places.h"
#include "tools/path_text.h"
#include "tools/stage_pictures.h"

namespace glyphwright {
namespace {

using cli_test::Outcome;
using cli_test::Picture;
using cli_test::readFile;
using cli_test::readPng;
using cli_test::run;
using nlohmann::json;

TEST(CliList, HoldsTheWholeCatalogueAsJson) {
  const Outcome result = run({"list", "--json"});
  ASSERT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(result.err, "");
  const json list = json::parse(result.out);

  std::vector<std::string> tabs;
  for (const json& tab : list.at("tabs")) tabs.push_back(tab.at("key"));
  EXPECT_EQ(tabs, (std::vector<std::string>{"app", "recs", "location", "profile", "matches",
                                            "revenue", "videoChat", "mixer"}));
  const json& app = list["tabs"][0];
  EXPECT_EQ(app.at("title"), "App");
  EXPECT_EQ(app.at("sections").size(), 14U);
  EXPECT_EQ(app["sections"][13].at("title"), "Third Party");
  EXPECT_EQ(app["sections"][0]["cases"][0],
            json({{"name", "alertClockIcon"}, {"rawValue", "clockIcon"}}));

  ASSERT_EQ(list.at("enumerations").size(), std::size(catalogueEnumerations));
  for (std::size_t i = 0; i < std::size(catalogueEnumerations); ++i) {
    const EnumerationRecord& expected = *catalogueEnumerations[i];
    const json& actual = list["enumerations"][i];
    EXPECT_EQ(actual.at("name"), expected.name);
    EXPECT_EQ(actual.at("title"), expected.title);
    EXPECT_EQ(actual.at("cases").size(), expected.cases.size());
  }
  ASSERT_EQ(list.at("icons").size(), Icons::allCases.size());
  EXPECT_EQ(list["icons"][131],
            json({{"index", 131}, {"name", "shieldIcon"}, {"rawValue", "safetyCenterShield"}}));
  ASSERT_EQ(list.at("types").size(), 129U);
  EXPECT_EQ(list["types"][7], json({{"value", 7}, {"method", "checkmarkPath"}}));
  EXPECT_EQ(list.at("keywords").size(), iconMethodCount + 27);
  EXPECT_EQ(list["keywords"]["circlePath"], json({"disc", "dot", "round", "shape", "oval"}));
  const std::vector<std::string> methods = list.at("methods");
  EXPECT_TRUE(std::ranges::equal(methods, iconMethodNames));
}

TEST(CliList, ShowsWhatFitsAWord) {
  const Outcome text = run({"list", "HEART"});
  EXPECT_EQ(text.status, 0);
  EXPECT_NE(text.out.find("Methods\n    "), std::string::npos);
  EXPECT_EQ(text.out.find("checkmark"), std::string::npos);
  const json list = json::parse(run({"list", "--json", "Icons.checkm*"}).out);
  ASSERT_EQ(list.at("icons").size(), 1U);
  EXPECT_EQ(list["icons"][0].at("name"), "checkmark");
  EXPECT_EQ(list.at("methods").size() + list.at("tabs").size() + list.at("types").size(), 0U);
  EXPECT_EQ(run({"list", "zzz"}).status, 1);
}

void expectElements(const json& elements, const CGPath& path) {
  ASSERT_EQ(elements.size(), path.verbs().size());
  std::size_t next = 0;
  for (std::size_t i = 0; i < elements.size(); ++i) {
    const PathVerb verb = path.verbs()[i];
    const json& element = elements[i];
    EXPECT_EQ(element[0], std::string(1, "MLQCZ"[static_cast<std::size_t>(verb)]));
    ASSERT_EQ(element.size(), 1 + 2 * pointCount(verb));
    for (std::size_t k = 1; k < element.size(); k += 2) {
      EXPECT_EQ(element[k].get<double>(), path.points()[next].x);
      EXPECT_EQ(element[k + 1].get<double>(), path.points()[next].y);
      ++next;
    }
  }
}

TEST(CliPath, PrintsNumbersThatReadBackTheSame) {
  for (const std::string_view name : iconMethodNames) {
    const UIBezierPath path = findClassMethod(name)();
    const json object = json::parse(cli::pathJson(name, path));
    SCOPED_TRACE(name);
    EXPECT_EQ(object.at("name"), name);
    const CGRect bounds = path.bounds();
    EXPECT_EQ(object.at("bounds"),
              json({bounds.origin.x, bounds.origin.y, bounds.size.width, bounds.size.height}));
    EXPECT_EQ(object.at("usesEvenOddFillRule"), path.usesEvenOddFillRule());
    EXPECT_EQ(object.at("lineWidth"), path.lineWidth());
    EXPECT_EQ(object.at("miterLimit"), path.miterLimit());
    expectElements(object.at("elements"), path.cgPath());
  }
}

TEST(CliPath, SaysWhatItIsAndItsPen) {
  const Outcome result = run({"path", "App.Shapes.Checks.checkmark", "--json"});
  ASSERT_EQ(result.status, 0) << result.err;
  const json object = json::parse(result.out);
  EXPECT_EQ(object.at("name"), "checkmarkPath");
  EXPECT_EQ(object.at("lineCapStyle"), "butt");
  EXPECT_EQ(object.at("lineJoinStyle"), "miter");
}

TEST(CliPath, DrawsAsSvg) {
  const Outcome result = run({"path", "facebookLogo", "--svg"});
  ASSERT_EQ(result.status, 0) << result.err;
  EXPECT_TRUE(
      result.out.starts_with("<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 18 18\" "
                             "width=\"18\" height=\"18\"><path "))
      << result.out;
  EXPECT_NE(result.out.find("fill-rule=\"evenodd\""), std::string::npos);
  EXPECT_NE(result.out.find(" d=\"M18 9.05C18 4.05 13.97 0 9 0C"), std::string::npos);
}

// A fill of two bare lines paints nothing; shown as a document they are stroked.
TEST(CliPath, StrokesWhatHasNoInside) {
  EXPECT_TRUE(rendering::isBareStrokes(UIBezierPath::chatActionBarCloseIcon().cgPath()));
  EXPECT_FALSE(rendering::isBareStrokes(UIBezierPath::dropDownArrowIcon().cgPath()));
  EXPECT_FALSE(rendering::isBareStrokes(UIBezierPath::homeCircleIcon().cgPath()));
  EXPECT_FALSE(rendering::isBareStrokes(CGPath()));
  const std::string svg = run({"path", "chatActionBarCloseIcon", "--svg"}).out;
  EXPECT_NE(svg.find("fill=\"none\" stroke=\"currentColor\" stroke-width=\"2\""), std::string::npos)
      << svg;
}

TEST(CliUsage, AnswersMistakesWithStatusTwoAndAHint) {
  struct Row {
    std::vector<std::string> arguments;
    const char* hint;
  };
  for (const Row& row : {
           Row{{}, "--help"},
           Row{{"rendr"}, "did you mean render"},
           Row{{"zzz"}, "list, search, path"},
           Row{{"list", "--nope"}, "list --help"},
           Row{{"search"}, "WORDS"},
           Row{{"search", "x", "--limit", "0"}, "--limit"},
           Row{{"path"}, "NAME"},
           Row{{"path", "chekmark"}, "checkmarkPath"},
           Row{{"path", "App.Shapes.Check.checkmark"}, "App.Shapes.Checks.checkmark"},
           Row{{"path", "129"}, "0 to 128"},
           Row{{"path", "07"}, "without leading zeros, so 7"},
           Row{{"render", "xPath", "-o", "x.svg", "--stroke", "red:64"}, "--stroke"},
           Row{{"path", "xPath", "--json", "--svg"}, "excludes"},
           Row{{"path", "xPath", "heartPath"}, "heartPath"},
           Row{{"render", "xPath"}, "--output"},
           Row{{"render", "-o", "x.png"}, "--all"},
           Row{{"render", "xPath", "-o", "x.gif"}, ".png, .svg or .rgba"},
           Row{{"render", "xPath", "-o", "{nme}.png"}, "{name}"},
           Row{{"render", "xPath", "heartPath", "-o", "x.png"}, "{name}"},
           Row{{"render", "xPath", "-o", "x.png", "--scale", "1,2"}, "{scale}"},
           Row{{"render", "xPath", "heartPath", "-o", "-"}, "standard output"},
           Row{{"render", "xPath", "-o", "x.png", "--size", "0"}, "--size"},
           Row{{"render", "xPath", "-o", "x.png", "--fill", "blurple"}, "--fill"},
           Row{{"render", "xPath", "-o", "x.svg", "--border", "red:32"}, "--border"},
           Row{{"render", "xPath", "-o", "x.png", "--border", "red:1.5"}, "whole points"},
           Row{{"render", "xPath", "-o", "x.png", "--gradient", "red,blue", "--fill", "red"},
               "excludes"},
           Row{{"render", "xPath", "-o", "x.png", "--fill", "currentColor"}, "SVG"},
           Row{{"render", "xPath", "-o", "x.png", "--size", "8,16"}, "{size}"},
           Row{{"render", "xPath", "-o", "x.png", "--jobs", "0"}, "--jobs"},
           Row{{"render", "*nothing*", "-o", "{name}.png"}, "matches"},
           Row{{"render", "{a,b", "-o", "{name}.png"}, "{ without"},
           Row{{"render", "-", "-o", "{name}.png"}, "standard input"},
           Row{{"sheet", "-o", "x.png", "--size", "8,16"}, "one size"},
           Row{{"help", "rendr"}, "did you mean render"},
           Row{{"help", "-"}, "name one command"},
           Row{{"help", "--"}, "name one command"},
           Row{{"render", "xPath", "-o", "x.png", "--stroke", "red:1", "--hairline"}, "excludes"},
           Row{{"sheet", "-o", "x.svg"}, ".png"},
           Row{{"gallery"}, "--output"},
           Row{{"gallery", "-o", ""}, "--output"},
           Row{{"render", "xPath", "-o", "x.png", "--attributes", "/"}, "cannot read /"},
           Row{{"preset", "gifNormal", "-o", "x.png"}, "ChatIcons.ActionBar.gifNormalIcon"},
           Row{{"preset", "ChatIcons.ActionBar.gifNormalIcon", "-o", "x.png", "--size", "9"},
               "takes no --size"},
           Row{{"inspect"}, "--all"},
           Row{{"inspect", "7", "--stages"}, "-o DIR"},
           Row{{"inspect", "7", "-o", "x"}, "--stages"},
       }) {
    const Outcome result = run(row.arguments);
    SCOPED_TRACE(testing::PrintToString(row.arguments));
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_NE(result.err.find(row.hint), std::string::npos) << result.err;
  }
}

TEST(CliInspect, TakesEveryFormOfName) {
  const Outcome result = run({"inspect", "Icons.checkmark"});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_TRUE(result.out.starts_with("checkmarkPath")) << result.out;
  const json reports = json::parse(run({"inspect", "*circle*", "7", "--json"}).out);
  EXPECT_EQ(reports.back().at("name"), "checkmarkPath");
  EXPECT_EQ(reports.back().at("frame"), json({0, 0, 20, 15}));
  EXPECT_EQ(reports.back().at("contours").size(), 1U);
}

// Half a pixel high at its end, and clockwise: its right side runs down, its left side up.
TEST(CliInspect, ReadsTheStagesOfARectangle) {
  const cli::Stages stages = cli::stagesOf(UIBezierPath::bezierPathWithRect({7, 9, 8, 5}), 4);
  const std::size_t margin = (stages.width - 4) / 2;
  ASSERT_EQ(stages.height, 3 + 2 * margin);
  for (std::size_t y = 0; y < stages.height; ++y) {
    const int covered = y < margin || y > margin + 2 ? 0 : y < margin + 2 ? 1024 : 512;
    for (std::size_t x = 0; x < stages.width; ++x) {
      const std::size_t i = y * stages.width + x;
      EXPECT_EQ(stages.cells[i], x == margin ? -covered : x == margin + 4 ? covered : 0);
      const bool isIn = x >= margin && x < margin + 4;
      EXPECT_NEAR(stages.coverage[i], isIn ? covered / 1024.0 : 0, 1e-4);
    }
  }
  EXPECT_NEAR(std::accumulate(stages.shadow.begin(), stages.shadow.end(), 0.0), 10, 0.01);
  EXPECT_EQ(stages.chords.size(), 4U);
}

// The pictures in the documents are those that the program draws today.
TEST(CliInspect, DrawsTheStagesThatTheDocumentsShow) {
  const std::filesystem::path folder = cli_test::freshFolder("stages");
  const Outcome result = run({"inspect", "heartPath", "--stages", "-o", folder.string()});
  ASSERT_EQ(result.status, 0) << result.err;
  std::size_t count = 0;
  for (const auto& drawn : std::filesystem::directory_iterator(folder)) {
    const std::string name = drawn.path().filename().string();
    SCOPED_TRACE(name);
    const Picture shown = readPng(readFile(places::inSource("docs/stages/" + name)));
    EXPECT_GT(shown.width, 900U);
    EXPECT_EQ(readPng(readFile(drawn.path())).rgba, shown.rgba);
    ++count;
  }
  EXPECT_EQ(count, cli::kStages);
}

TEST(CliPreset, ListsAsJson) {
  const json list = json::parse(run({"preset", "--list", "--json"}).out);
  ASSERT_EQ(list.size(), 27U);
  EXPECT_EQ(list.back(), json({{"name", "ReferralIcons.Banner.rewardIcon"},
                               {"options", {"--size"}},
                               {"usualSize", {48, 40}}}));
}

}  // namespace
}  // namespace glyphwright
