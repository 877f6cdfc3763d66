// How paint is written on the command line.

#include <gtest/gtest.h>

#include "tools/numbers.h"
#include "tools/paint_text.h"
#include "tools/usage_error.h"

namespace glyphwright::cli {
namespace {

TEST(CliPaintText, ReadsColours) {
  struct Row {
    const char* text;
    unsigned rgba;
  };
  for (const Row row :
       {Row{"#123", 0x112233FF}, Row{"#1238", 0x11223388}, Row{"#a1B2c3", 0xA1B2C3FF},
        Row{"#A1b2C3d4", 0xA1B2C3D4}, Row{"red", 0xFF0000FF}, Row{"RebeccaPurple", 0x663399FF},
        Row{"aliceblue", 0xF0F8FFFF}, Row{"yellowgreen", 0x9ACD32FF},
        Row{"transparent", 0x00000000}}) {
    const UIColor color = colorFrom(row.text);
    EXPECT_EQ(color.red(), (row.rgba >> 24 & 255) / 255.0) << row.text;
    EXPECT_EQ(color.green(), (row.rgba >> 16 & 255) / 255.0) << row.text;
    EXPECT_EQ(color.blue(), (row.rgba >> 8 & 255) / 255.0) << row.text;
    EXPECT_EQ(color.alpha(), (row.rgba & 255) / 255.0) << row.text;
  }
  for (const char* text : {"", "#", "#1", "#12", "#12345", "#1234567", "#123456789", "#12g", "123",
                           "reddish", " red", "red "}) {
    EXPECT_THROW(colorFrom(text), UsageError) << text;
  }
}

TEST(CliPaintText, ReadsSizesAndScales) {
  EXPECT_EQ(sizeFrom("64"), (CGSize{64, 64}));
  EXPECT_EQ(sizeFrom("64x32.5"), (CGSize{64, 32.5}));
  EXPECT_EQ(scalesFrom("1,2,3.5"), (std::vector<CGFloat>{1, 2, 3.5}));
  for (const char* text : {"", "x", "64x", "x64", "1x2x3", "0", "-1", "nan", "inf", "1e999", "64 ",
                           "64X32", "64,32", "0x10"}) {
    EXPECT_THROW(sizeFrom(text), UsageError) << text;
  }
  for (const char* text : {"", "0", "-2", "1,,2", "1,", "nan", "2x"}) {
    EXPECT_THROW(scalesFrom(text), UsageError) << text;
  }
}

TEST(CliPaintText, ReadsStrokesBordersAndShadows) {
  const IconStroke stroke = strokeFrom("#f00:1.5");
  EXPECT_EQ(stroke.width, 1.5);
  EXPECT_EQ(stroke.color, UIColor(1, 0, 0, 1));
  EXPECT_EQ(borderFrom("blue:3").width, 3);
  const IconShadow shadow = shadowFrom("#0008:-1,+3.5:4");
  EXPECT_EQ(shadow.offset, (CGSize{-1, 3.5}));
  EXPECT_EQ(shadow.blur, 4);
  EXPECT_EQ(shadow.color.alpha(), 136 / 255.0);
  for (const char* text : {"red", "red:", ":2", "red:2:3", "red:-1", "red:wide"}) {
    EXPECT_THROW(strokeFrom(text), UsageError) << text;
    EXPECT_THROW(borderFrom(text), UsageError) << text;
  }
  for (const char* text :
       {"red", "red:1,2", "red:1:2", "red:1,2:-3", "red:1,2,3:4", "red:,:1", "red:1,2:3:4"}) {
    EXPECT_THROW(shadowFrom(text), UsageError) << text;
  }
}

TEST(CliPaintText, ReadsGradients) {
  const IconGradient down = gradientFrom("red,#0f0,blue");
  EXPECT_EQ(down.points, (std::vector<CGFloat>{0, 0.5, 1}));
  EXPECT_EQ(down.locations.back(), (CGPoint{0, 1}));
  EXPECT_EQ(gradientFrom("red,blue:leftToRight").locations.back(), (CGPoint{1, 0}));
  EXPECT_EQ(gradientFrom("red,blue:bottomLeftToTopRight").locations.front(), (CGPoint{1, 1}));
  for (const char* text :
       {"", "red", "red,", "red,blue:", "red,blue:sideways", "red,blue:leftToRight:x"}) {
    EXPECT_THROW(gradientFrom(text), UsageError) << text;
  }
}

TEST(CliNumbers, AreTheShortestThatReadBack) {
  EXPECT_EQ(textOf(9.05), "9.05");
  EXPECT_EQ(textOf(18), "18");
  EXPECT_EQ(textOf(0.1 + 0.2), "0.30000000000000004");
  EXPECT_EQ(textOf(-0.0), "0");
  EXPECT_EQ(textOf(1e300), "1e+300");
  EXPECT_EQ(textOf(0.0 / 0.0), "null");
  EXPECT_EQ(tidyTextOf(0.1 + 0.2, 18), "0.3");
  EXPECT_EQ(tidyTextOf(-1e-13, 24), "0");
  EXPECT_EQ(tidyTextOf(1e-13, 1e-3), "1e-13");
  EXPECT_EQ(tidyTextOf(-1e300, 1e300), "-1e+300");
}

}  // namespace
}  // namespace glyphwright::cli
