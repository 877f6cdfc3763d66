// Browsing: tabs, areas and their sections.

#include <algorithm>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/catalogue/catalogue.h>
#include <glyphwright/catalogue/icon_tab.h>

namespace glyphwright {
namespace {

// Titles, order and enumerations are in the frozen identities; here is what they do not say.
TEST(Sections, HoldAllCasesOfOneEnumerationInOrder) {
  for (const IconTab tab : IconTab::allCases) {
    for (const IconTypeSection& section : tab.tab().sections()) {
      const Pathable& first = section.paths.at(0);
      EXPECT_EQ(section.title, first.title());
      const EnumerationRecord* enumeration = nullptr;
      for (const EnumerationRecord* candidate : catalogueEnumerations) {
        if (candidate->name == first.enumerationName()) enumeration = candidate;
      }
      ASSERT_NE(enumeration, nullptr) << first;
      ASSERT_EQ(section.paths.size(), enumeration->cases.size()) << first;
      for (std::size_t i = 0; i < section.paths.size(); ++i) {
        EXPECT_EQ(section.paths[i].enumerationName(), enumeration->name);
        EXPECT_EQ(section.paths[i].name(), enumeration->cases[i].name);
      }
    }
  }
}

TEST(Sections, ListEveryEnumerationButTheTriangles) {
  std::vector<std::string_view> listed;
  for (const IconTab tab : IconTab::allCases) {
    for (const IconTypeSection& section : tab.tab().sections()) {
      listed.push_back(section.paths.at(0).enumerationName());
    }
  }
  for (const EnumerationRecord* enumeration : catalogueEnumerations) {
    const auto times = std::count(listed.begin(), listed.end(), enumeration->name);
    EXPECT_EQ(times, enumeration->name == "App.Shapes.Triangles" ? 0 : 1) << enumeration->name;
  }
}

TEST(Sections, BelongToWhoeverAsksForThem) {
  auto sections = App::sections();
  sections.at(0).title = "Changed";
  sections.at(1).paths.clear();
  EXPECT_EQ(App::sections().at(0).title, "Things");
  EXPECT_EQ(App::sections().at(1).paths.size(), 6U);
  EXPECT_EQ(App::sections(), IconTab::app.tab().sections());
}

TEST(Sections, CarryTitlesOfTheirNamespaces) {
  EXPECT_EQ(Recs::Gamepad::title, "Gamepad");
  EXPECT_EQ(Matches::sections().at(0).paths.at(1), MatchesSection::replyArrowIcon);
}

TEST(IconTabs, AreFoundByTheirExactKey) {
  EXPECT_EQ(IconTab::fromRawValue("videoChat"), IconTab::videoChat);
  EXPECT_FALSE(IconTab::fromRawValue("VideoChat"));
}

}  // namespace
}  // namespace glyphwright
