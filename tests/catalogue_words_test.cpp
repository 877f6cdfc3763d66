// Names as people type them, and icons found by what people call them.

#include <algorithm>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/catalogue/keywords.h>
#include <glyphwright/catalogue/resolve.h>
#include <glyphwright/catalogue/search.h>
#include <glyphwright/catalogue/words.h>

#include "cli_program.h"
#include "places.h"
#include "tools/preset_table.h"

namespace glyphwright {
namespace {

TEST(Resolve, ReadsTheFourForms) {
  for (const char* text :
       {"checkmarkPath", "App.Shapes.Checks.checkmark", "Icons.checkmark", "7"}) {
    const auto icon = resolveIcon(text);
    ASSERT_TRUE(icon) << text;
    EXPECT_EQ(icon->method, "checkmarkPath") << text;
    EXPECT_EQ(icon->builder, &UIBezierPath::checkmarkPath) << text;
  }
  EXPECT_EQ(resolveIcon("0")->method, "heartPath");
  EXPECT_EQ(resolveIcon("128")->method, "replayArrowIconPath");
  EXPECT_EQ(resolveIcon("Chat.chatIcon")->method, "chatIcon");
}

TEST(Resolve, TellsUndrawnCasesFromUnknownNames) {
  for (const char* text : {"App.Things.magicCatEasterEgg", "Icons.shieldIcon"}) {
    const auto icon = resolveIcon(text);
    ASSERT_TRUE(icon) << text;
    EXPECT_EQ(icon->builder, nullptr) << text;
  }
  EXPECT_FALSE(resolveIcon("magicCatEasterEgg"));
}

TEST(Resolve, GivesNothingForOtherTexts) {
  for (const char* text : {"",
                           ".",
                           "checkmark",
                           "Checks.checkmark",
                           "App.Shapes.Checks",
                           "App.Shapes.Checks.",
                           ".checkmark",
                           "App.Shapes.Checks.checkmarkPath",
                           "app.shapes.checks.checkmark",
                           "Icons.checkmarkPath",
                           "IconTab.app",
                           "129",
                           "-1",
                           "+7",
                           "007",
                           " 7",
                           "7 ",
                           "7.0",
                           "0x7",
                           "18446744073709551623",
                           "checkmarkPath ",
                           "Icons.checkmark.checkmark"}) {
    EXPECT_FALSE(resolveIcon(text)) << text;
  }
}

TEST(NearestNames, FindWhatWasMeant) {
  struct Row {
    const char* text;
    const char* meant;
  };
  for (const Row row : {Row{"checkmark", "checkmarkPath"},
                        {"chekmarkPath", "checkmarkPath"},
                        {"facebok", "facebookLogo"},
                        {"FACEBOOKLOGO", "facebookLogo"},
                        {"flip camera", "flipCameraIconPath"},
                        {"alertClock", "App.Things.alertClockIcon"},
                        {"Icons.chekmark", "Icons.checkmark"},
                        {"App.Shapes.Check.checkmark", "App.Shapes.Checks.checkmark"}}) {
    const std::vector<std::string> names = nearestNames(row.text, 3);
    EXPECT_TRUE(std::ranges::find(names, row.meant) != names.end())
        << row.text << " should suggest " << row.meant << ", suggests "
        << testing::PrintToString(names);
  }
}

TEST(NearestNames, AreFewResolvableAndEachOfAnotherDrawing) {
  const std::vector<std::string> names = nearestNames("star", 4);
  EXPECT_EQ(names.size(), 4U);
  std::vector<std::string> methods;
  for (const std::string& name : names) {
    const auto icon = resolveIcon(name);
    ASSERT_TRUE(icon) << name;
    methods.emplace_back(icon->method);
  }
  std::ranges::sort(methods);
  EXPECT_TRUE(std::ranges::adjacent_find(methods) == methods.end());
}

TEST(NearestNames, AreEmptyWhenNothingComesNear) {
  EXPECT_TRUE(nearestNames("", 3).empty());
  EXPECT_TRUE(nearestNames("windmill", 3).empty());
  EXPECT_TRUE(nearestNames("star", 0).empty());
  EXPECT_TRUE(nearestNames(std::string(1 << 20, '\xff'), 3).empty());
}

std::vector<std::string_view> found(std::string_view words, std::size_t limit = 5) {
  std::vector<std::string_view> names;
  for (const SearchHit& hit : searchIcons(words, limit)) names.push_back(hit.name);
  return names;
}

// tests/search_queries.txt: what somebody types, a tab, an icon that is among the first five.
TEST(Search, FindsWhatPeopleAskFor) {
  std::istringstream table(cli_test::readFile(places::inSource("tests/search_queries.txt")));
  std::size_t queries = 0;
  for (std::string line; std::getline(table, line); ++queries) {
    const std::size_t tab = line.find('\t');
    ASSERT_NE(tab, std::string::npos) << line;
    const auto names = found(line.substr(0, tab));
    EXPECT_TRUE(std::ranges::count(names, line.substr(tab + 1)))
        << line << ": " << testing::PrintToString(names);
  }
  EXPECT_GE(queries, 60U);
}

TEST(Search, FindsANameInFullAlone) {
  using Names = std::vector<std::string_view>;
  for (const char* text :
       {"UIBezierPath::heartPath", "UIBezierPath::heartPath()", "UIBezierPath.heartPath", "#0"}) {
    EXPECT_EQ(found(text), Names{"heartPath"}) << text;
  }
  for (const char* text :
       {"App::Things::gear", "App.Things.gear", " App::Things::gear.path() ", "Icons::gear"}) {
    EXPECT_EQ(found(text), Names{"gearPath"}) << text;
  }
  EXPECT_EQ(found("#7"), Names{"checkmarkPath"});
  EXPECT_EQ(found("PresetIcons::createLoopPlayIcon()"), Names{"PresetIcons.createLoopPlayIcon"});
  EXPECT_EQ(found("#129"), Names{});
}

TEST(Search, RanksNamesBeforeKeywordsBeforeSections) {
  EXPECT_EQ(found("heart").front(), "heart");
  EXPECT_EQ(found("heartpath").front(), "heartPath");
  EXPECT_EQ(found("check mark").front(), "checkmarkPath");
  EXPECT_EQ(found("CLOUDS", 1), found("cloud", 1));
  EXPECT_FALSE(searchIcons("clouds").front().isGuess);
  EXPECT_EQ(found("vid").front(), "videoIconPath");
  const auto names = found("triangle", 300);
  const auto place = [&](std::string_view name) { return std::ranges::find(names, name); };
  EXPECT_LT(place("cornerCutTriangle"), place("playPath"));
  EXPECT_LT(place("playPath"), names.end());
}

TEST(Search, GuessesOnlyWhenNothingFits) {
  ASSERT_FALSE(searchIcons("hart").empty());
  for (const SearchHit& hit : searchIcons("hart", 300)) EXPECT_TRUE(hit.isGuess) << hit.name;
  for (const SearchHit& hit : searchIcons("heart", 300)) EXPECT_FALSE(hit.isGuess) << hit.name;
  for (const std::string& text : {std::string(), std::string(" ,;"), std::string("xyzzyq"),
                                  std::string("\xF0\x9F\x98\x80"), std::string(100'000, 'q')}) {
    EXPECT_TRUE(searchIcons(text).empty()) << text.substr(0, 20);
  }
  EXPECT_TRUE(searchIcons("heart", 0).empty());
  EXPECT_EQ(searchIcons("heart", 2).size(), 2U);
}

TEST(Search, HasPlainKeywordsForAllImages) {
  std::vector<std::string_view> images;
  for (const KeywordRecord& record : iconKeywords) {
    if (record.isImage()) images.push_back(record.name);
    const std::vector<std::string> words = splitWords(record.keywords);
    EXPECT_TRUE(words.size() >= 2 && words.size() <= 8) << record.name;
    EXPECT_EQ(std::set(words.begin(), words.end()).size(), words.size()) << record.name;
    std::string plain;
    for (const std::string& word : words) plain += (plain.empty() ? "" : " ") + word;
    EXPECT_EQ(plain, record.keywords);
  }
  EXPECT_TRUE(std::ranges::equal(images, cli::allPresets(), {}, {}, &cli::Preset::name));
}

TEST(Search, AnswersTheCommandLine) {
  const auto trash = cli_test::run({"search", "trash", "--limit", "1"});
  EXPECT_EQ(trash.status, 0) << trash.err;
  EXPECT_EQ(trash.out, "removeItemPath\n");
  const auto json = cli_test::run({"search", "hart", "--limit", "1", "--json"});
  EXPECT_EQ(json.out, "[\n  {\n    \"name\": \"heartPath\",\n    \"guess\": true\n  }\n]\n");
  const auto nothing = cli_test::run({"search", "xyzzyq"});
  EXPECT_EQ(nothing.status, 1);
  EXPECT_EQ(nothing.out, "");
  EXPECT_NE(nothing.err.find("glyphwright list"), std::string::npos) << nothing.err;
}

}  // namespace
}  // namespace glyphwright
