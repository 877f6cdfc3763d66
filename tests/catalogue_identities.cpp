// Holds the library to the frozen list of names, numbers and raw values.

#include <algorithm>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/catalogue/catalogue.h>
#include <glyphwright/catalogue/icon_tab.h>
#include <glyphwright/catalogue/icon_type.h>
#include <glyphwright/catalogue/icons.h>
#include <glyphwright/paths/method_names.h>

#include "places.h"

namespace glyphwright {
namespace {

std::vector<std::string> linesOf(std::istream& stream) {
  std::vector<std::string> lines;
  for (std::string line; std::getline(stream, line);) {
    if (!line.starts_with('#')) lines.push_back(line);
  }
  return lines;
}

std::vector<std::string> identitiesOfTheLibrary() {
  std::stringstream out;
  for (const auto name : iconMethodNames) out << "method " << name << '\n';
  for (const EnumerationRecord* enumeration : catalogueEnumerations) {
    out << "enumeration " << enumeration->name << " \"" << enumeration->title << "\"\n";
    for (const CaseRecord& record : enumeration->cases) {
      out << "case " << enumeration->name << '.' << record.name << ' ' << record.rawValue << '\n';
    }
  }
  for (const Icons icon : Icons::allCases) {
    out << "icons " << icon.index() << ' ' << icon.name() << ' ' << icon.rawValue() << '\n';
  }
  for (const IconTypeRecord& type : iconTypes) {
    out << "type " << static_cast<std::int64_t>(type.type) << ' ' << type.name << ' ' << type.method
        << '\n';
  }
  for (const IconTab tab : IconTab::allCases) {
    out << "tab " << tab.rawValue() << " \"" << tab.tab().title() << "\"\n";
    for (const IconTypeSection& section : tab.tab().sections()) {
      out << "section " << tab.rawValue() << " \"" << section.title << "\" "
          << section.paths.at(0).enumerationName() << '\n';
    }
  }
  return linesOf(out);
}

TEST(Identities, AreTheFrozenOnes) {
  std::ifstream file(places::inFrozen("identities.txt"));
  const std::vector<std::string> frozen = linesOf(file);
  ASSERT_FALSE(frozen.empty());
  const std::vector<std::string> actual = identitiesOfTheLibrary();
  EXPECT_EQ(actual.size(), frozen.size());
  for (std::size_t i = 0; i < std::min(actual.size(), frozen.size()); ++i) {
    ASSERT_EQ(actual[i], frozen[i]) << "identity " << i;
  }
}

// A case name of Icons that the catalogue has too means the same drawing; "heart" is the one name
// that the catalogue uses twice, and Icons means the gamepad's.
TEST(Identities, IconsAndCatalogueAgree) {
  for (const Icons icon : Icons::allCases) {
    for (const EnumerationRecord* enumeration : catalogueEnumerations) {
      if (enumeration->name == "App.DeleteAccount") continue;
      for (const CaseRecord& record : enumeration->cases) {
        if (record.name == icon.name()) {
          EXPECT_EQ(record.rawValue, icon.rawValue()) << enumeration->name << '.' << record.name;
        }
      }
    }
  }
  EXPECT_EQ(Icons::heart.rawValue(), "heartPath");
}

}  // namespace
}  // namespace glyphwright
