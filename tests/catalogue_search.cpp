// Icons found by what people call them.

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/catalogue/keywords.h>
#include <glyphwright/catalogue/search.h>
#include <glyphwright/catalogue/words.h>

#include "cli_program.h"
#include "places.h"
#include "tools/preset_table.h"

namespace glyphwright {
namespace {

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
  EXPECT_EQ(found("cloud", 1), found("CLOUDS", 1));
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
