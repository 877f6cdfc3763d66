// The documents speak of what is there.

#include <filesystem>
#include <set>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "../places.h"
#include "sources.h"

namespace glyphwright::structure {
namespace {

/// The text of the first ``` block of a language.
std::string firstBlock(const std::string& document, const std::string& language) {
  const std::string fence = "```" + language + "\n";
  const std::size_t open = document.find(fence);
  if (open == std::string::npos) return {};
  const std::size_t from = open + fence.size();
  const std::size_t close = document.find("```", from);
  return document.substr(from, close - from);
}

TEST(Documents, TheReadmesProgramIsTheOneThatIsBuilt) {
  const std::string shown = firstBlock(readText("README.md"), "cpp");
  ASSERT_FALSE(shown.empty());
  EXPECT_EQ(shown, readText("examples/first_icon.cpp"));
}

// Each block of code is the whole program that the line before it links to.
TEST(Documents, TheCookbooksProgramsAreThoseThatAreBuilt) {
  const std::string cookbook = readText("docs/cookbook.md");
  std::vector<std::string> shown;
  for (std::size_t at = cookbook.find("](../examples/"); at != std::string::npos;
       at = cookbook.find("](../examples/", at + 1)) {
    const std::size_t end = cookbook.find(')', at);
    if (!cookbook.substr(end).starts_with("):\n\n```")) continue;
    const std::string file = cookbook.substr(at + 5, end - at - 5);
    const std::size_t from = cookbook.find('\n', end + 6) + 1;
    EXPECT_EQ(cookbook.substr(from, cookbook.find("```", from) - from), readText(file)) << file;
    shown.push_back(file);
  }
  EXPECT_EQ(shown.size(), 12U);
  // None is left out but what the others share.
  EXPECT_EQ(shown.size() + 1, filesBelow("examples/cookbook").size());
}

// The way of a drawing is told file by file.
TEST(Documents, TheFlowShowsTheFilesThatThereAre) {
  std::istringstream lines(firstBlock(readText("docs/architecture.md"), "flow"));
  std::set<std::string> shown;
  for (std::string word; lines >> word;) {
    if (word.starts_with("contexts/") || word.starts_with("drawing/")) shown.insert(word);
  }
  std::set<std::string> there;
  const std::string platform = "glyphwright/platform/";
  for (const std::string folder : {"contexts", "drawing"}) {
    for (const std::string& file : filesBelow(platform + folder, {".h", ".cpp"})) {
      there.insert(file.substr(platform.size(), file.rfind('.') - platform.size()));
    }
  }
  EXPECT_EQ(shown, there);
}

TEST(Documents, EveryLinkLeadsToAFile) {
  const std::filesystem::path root = places::inSource("");
  std::vector<std::string> documents = filesBelow("docs", {".md"});
  for (const char* page : {"README.md", "CONTRIBUTING.md", "CHANGELOG.md"})
    documents.push_back(page);
  std::size_t links = 0;
  for (const std::string& document : documents) {
    const std::string text = readText(document);
    for (std::size_t at = text.find("]("); at != std::string::npos; at = text.find("](", at + 1)) {
      const std::string target = text.substr(at + 2, text.find_first_of(")#", at + 2) - at - 2);
      const bool isCode = target.find(' ') != std::string::npos;  // a lambda's parameters
      if (target.empty() || isCode || target.find("://") != std::string::npos) continue;
      EXPECT_TRUE(exists((root / document).parent_path() / target))
          << document << " points at " << target;
      ++links;
    }
  }
  EXPECT_GE(links, 5U);
}

}  // namespace
}  // namespace glyphwright::structure
