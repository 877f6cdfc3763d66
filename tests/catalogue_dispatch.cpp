// From a name or a number to a path.

#include <cstdint>
#include <limits>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include <glyphwright/bezier_path.h>
#include <glyphwright/catalogue/catalogue.h>
#include <glyphwright/catalogue/icon_type.h>
#include <glyphwright/catalogue/icons.h>
#include <glyphwright/catalogue/pathable.h>
#include <glyphwright/paths/method_names.h>
#include <glyphwright/paths/registry.h>

namespace glyphwright {
namespace {

using App::Shapes::Checks;

TEST(Registry, FindsEachMethodAndNothingElse) {
  std::set<ClassMethod> methods;
  for (const auto name : iconMethodNames) {
    const ClassMethod method = findClassMethod(name);
    ASSERT_NE(method, nullptr) << name;
    methods.insert(method);
    const std::string text(name);
    for (const std::string& odd : {text + " ", " " + text, text + '\0',
                                   text.substr(0, text.size() - 1) + '_', text + text}) {
      EXPECT_EQ(findClassMethod(odd), nullptr) << odd;
    }
  }
  EXPECT_GE(methods.size(), iconMethodCount - 8) << "the linker may fold equal builders, not more";
  for (const char* name : {"", "a", "CheckmarkPath", "checkmark", "magicCatEasterEgg",
                           "safetyCenterShield", "App.Shapes.Checks.checkmark", "7"}) {
    EXPECT_EQ(findClassMethod(name), nullptr) << name;
  }
}

TEST(Registry, KeepsNamesAndBuildersTogether) {
  EXPECT_EQ(findClassMethod("xPath"), &UIBezierPath::xPath);
  EXPECT_EQ(findClassMethod("facebookLogo"), &UIBezierPath::facebookLogo);
  EXPECT_EQ(findClassMethod("heart"), &UIBezierPath::heart);
  EXPECT_EQ(findClassMethod("heartPath"), &UIBezierPath::heartPath);
  EXPECT_EQ(findClassMethod("webViewBackIcon"), &UIBezierPath::webViewBackIcon);
}

TEST(Dispatch, OnlyTheRawValueDecides) {
  EXPECT_EQ(Checks::messageStandardCheckMarkIcon.path().cgPath(),
            UIBezierPath::standardCheckMarkIconPath().cgPath());
  EXPECT_EQ(Icons::likeStamp.path().cgPath(), UIBezierPath::iconLikeStamp().cgPath());
  EXPECT_EQ(Pathable(App::DeleteAccount::heart).path().cgPath(), UIBezierPath::heart().cgPath());
  EXPECT_EQ(performSelector("facebookLogo").usesEvenOddFillRule(), true);
}

TEST(Dispatch, EachCallGivesAPathOfItsOwn) {
  UIBezierPath changed = Checks::checkmark.path();
  changed.applyTransform(CGAffineTransformMakeTranslation(100, 0));
  EXPECT_FALSE(changed.cgPath() == Checks::checkmark.path().cgPath());
}

TEST(DispatchDeathTest, AnUnknownSelectorEndsTheProcess) {
  EXPECT_DEATH(performSelector("noSuchIcon"), "UIBezierPath does not recognize.*noSuchIcon");
  EXPECT_DEATH(performSelector(""), "does not recognize");
  EXPECT_DEATH(App::Things::magicCatEasterEgg.path(), "magicCatEasterEgg");
  EXPECT_DEATH(Pathable(App::Things::magicCatEasterEgg).path(), "magicCatEasterEgg");
  EXPECT_DEATH(Icons::shieldIcon.path(), "safetyCenterShield");
}

TEST(IconTypes, DrawWithTheirMethod) {
  for (const IconTypeRecord& record : iconTypes) {
    const auto path = UIBezierPath::pathForIcon(record.type);
    ASSERT_TRUE(path) << record.name;
    EXPECT_EQ(path->cgPath(), performSelector(record.method).cgPath()) << record.name;
  }
  EXPECT_EQ(UIBezierPath::pathForIcon(VNTLIconType{0})->cgPath(),
            UIBezierPath::heartPath().cgPath());
}

TEST(IconTypes, OtherNumbersGiveNothing) {
  for (const std::int64_t number :
       {std::int64_t{129}, std::int64_t{-1}, std::int64_t{256}, std::int64_t{1} << 32,
        std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max()}) {
    EXPECT_FALSE(UIBezierPath::pathForIcon(VNTLIconType{number})) << number;
  }
}

}  // namespace
}  // namespace glyphwright
