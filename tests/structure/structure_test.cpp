#include <algorithm>
#include <cctype>

#include <gtest/gtest.h>

#include "sources.h"

namespace glyphwright::structure {
namespace {

std::vector<Include> allIncludes() {
  std::vector<Include> all;
  for (const std::string_view folder : {"glyphwright", "tools", "bench", "examples"}) {
    for (const std::string& file : filesBelow(folder, {".h", ".cpp", ".inc"})) {
      for (Include& include : includesOf(file, readText(file))) all.push_back(std::move(include));
    }
  }
  return all;
}

TEST(Structure, IncludesRunOneWay) {
  const std::vector<Include> includes = allIncludes();
  ASSERT_GT(includes.size(), 50U);
  for (const Include& include : includes) EXPECT_EQ(directionFault(include), "");
}

TEST(Structure, NoIncludesInACircle) {
  EXPECT_EQ(findCircle(allIncludes()).size(), 0U);
}

TEST(Structure, TheChecksSeeFaults) {
  const auto faulty = [](std::string file, std::string target, bool quoted = false) {
    return !directionFault({std::move(file), std::move(target), quoted}).empty();
  };
  EXPECT_TRUE(faulty("glyphwright/platform/image.cpp", "glyphwright/bezier_path.h"));
  EXPECT_TRUE(faulty("glyphwright/layers/l.h", "glyphwright/rendering/attributes.h"));
  EXPECT_TRUE(faulty("glyphwright/paths/p.cpp", "glyphwright/catalogue/icons.h"));
  EXPECT_TRUE(faulty("glyphwright/bezier_path.h", "glyphwright/paths/outline.h"));
  EXPECT_TRUE(faulty("glyphwright/platform/p.cpp", "glyphwright/glyphwright.h"));
  EXPECT_TRUE(faulty("glyphwright/paths/p.cpp", "png.h"));
  EXPECT_TRUE(faulty("glyphwright/platform/raster/kernels/k.h", "immintrin.h"));
  EXPECT_FALSE(faulty("glyphwright/platform/raster/lanes/l.h", "immintrin.h"));
  EXPECT_TRUE(faulty("glyphwright/attic/p.cpp", "glyphwright/platform/path.h"));
  EXPECT_TRUE(faulty("glyphwright/platform/path.cpp", "glyphwright/platform/raster/edges.h"));
  EXPECT_TRUE(faulty("glyphwright/platform/drawing/d.h", "glyphwright/platform/context.h"));
  EXPECT_FALSE(faulty("glyphwright/platform/layers/l.h", "glyphwright/platform/context.h"));
  EXPECT_TRUE(faulty("tools/t.cpp", "glyphwright/platform/raster/edges.h"));
  EXPECT_FALSE(faulty("glyphwright/bezier_path.h", "glyphwright/paths/icon_names.inc"));
  EXPECT_FALSE(faulty("glyphwright/presets/p.cpp", "glyphwright/rendering/attributes.h"));
  EXPECT_FALSE(faulty("glyphwright/paths/p.cpp", "vector"));
  EXPECT_EQ(findCircle({{"a", "b"}, {"b", "c"}, {"c", "b"}}).size(), 2U);
  EXPECT_EQ(findCircle({{"a", "b"}, {"a", "c"}, {"b", "c"}}).size(), 0U);
  const auto found = includesOf("f", "#include <a/b.h>\n  #include \"c.h\"\n// include <no>\n");
  ASSERT_EQ(found.size(), 2U);
  EXPECT_EQ(found[0].target, "a/b.h");
  EXPECT_TRUE(found[1].quoted);
}

// A file is one idea; beyond these lengths it has become two. A theme of artwork is data.
TEST(Structure, FilesStayShort) {
  for (const std::string_view folder : {"glyphwright", "tools", "bench", "examples", "tests"}) {
    for (const std::string& file : filesBelow(folder, {".h", ".cpp"})) {
      const std::string text = readText(file);
      const auto lines = std::count(text.begin(), text.end(), '\n');
      const bool artwork = file.starts_with("glyphwright/paths/artwork/");
      EXPECT_LE(lines, artwork ? 600 : 400) << file;
    }
  }
}

// Every document that a file refers to is in the repository: no numbered chapters of papers kept
// elsewhere, no folders of one machine.
TEST(Structure, NothingPointsOutside) {
  const std::string folders[] = {std::string("/wo") + "rk/", std::string("sha") + "red/",
                                 std::string("sp") + "ec.md"};
  const std::string chapter = std::string("Pa") + "rt ";
  for (const std::string& file : filesBelow("")) {
    const std::string text = readText(file);
    if (text.find('\0') != std::string::npos) continue;
    for (const std::string& folder : folders) {
      EXPECT_EQ(text.find(folder), std::string::npos) << file << ": " << folder;
    }
    for (std::size_t at = text.find(chapter); at != std::string::npos;
         at = text.find(chapter, at + 1)) {
      const std::size_t number = at + chapter.size();
      EXPECT_FALSE(number < text.size() && std::isdigit(static_cast<unsigned char>(text[number])))
          << file << ": a chapter of some other document";
    }
  }
}

}  // namespace
}  // namespace glyphwright::structure
