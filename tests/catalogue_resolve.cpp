// Names as people type them.

#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/catalogue/resolve.h>

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
  EXPECT_TRUE(nearestNames("zzzzqqqq", 3).empty());
  EXPECT_TRUE(nearestNames("star", 0).empty());
  EXPECT_TRUE(nearestNames(std::string(1 << 20, '\xff'), 3).empty());
}

}  // namespace
}  // namespace glyphwright
