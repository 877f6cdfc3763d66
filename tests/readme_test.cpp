#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "places.h"

namespace {

std::string contentsOf(const std::string& path) {
  std::ifstream file(glyphwright::places::inSource(path));
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

// What newcomers copy is what the examples compile.
TEST(Readme, ShowsTheFirstExampleAsItStands) {
  const std::string example = contentsOf("examples/first_icon.cpp");
  ASSERT_FALSE(example.empty());
  EXPECT_NE(contentsOf("README.md").find("```cpp\n" + example + "```\n"), std::string::npos);
}

}  // namespace
