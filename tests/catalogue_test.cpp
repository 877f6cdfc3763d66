// Names, numbers and sections, and the drawings that they stand for.

#include <algorithm>
#include <fstream>
#include <set>
#include <sstream>
#include <string>
#include <unordered_set>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/bezier_path.h>
#include <glyphwright/catalogue/catalogue.h>
#include <glyphwright/catalogue/icon_tab.h>
#include <glyphwright/catalogue/icon_type.h>
#include <glyphwright/catalogue/icons.h>
#include <glyphwright/catalogue/pathable.h>
#include <glyphwright/paths/method_names.h>
#include <glyphwright/paths/registry.h>

#include "places.h"

#if defined(GLYPHWRIGHT_CASES) || defined(GLYPHWRIGHT_EACH) || defined(GLYPHWRIGHT_ICON_TYPE)
#error "the macros of the catalogue's tables have leaked"
#endif

namespace glyphwright {
namespace {

using App::Shapes::Checks;

static_assert(sizeof(Checks) == 1);
static_assert(std::is_same_v<decltype(Checks::checkmark), const Checks>);
static_assert(Checks::checkmark.rawValue() == "checkmarkPath");
static_assert(Checks::checkmark.name() == "checkmark");
static_assert(Checks::checkmark != Checks::checkInCircle);
static_assert(Checks::checkmark < Checks::checkInCircle);
static_assert(Checks::fromRawValue("checkmarkPath") == Checks::checkmark);
static_assert(!Checks::fromRawValue("checkmark"));
static_assert(Checks::title == "Checks");
static_assert(CatalogueEnumeration<Checks> && !CatalogueEnumeration<Icons> &&
              !CatalogueEnumeration<IconTab>);
static_assert(!std::is_convertible_v<Icons, Pathable> && !std::is_convertible_v<Icons, int>);
static_assert(Pathable(App::Badges::verifiedBadge) == App::Badges::verifiedBadge);
static_assert(Pathable(App::Badges::verifiedBadge) != Recs::Badges::verifiedBadge);
static_assert(Pathable(App::Badges::verifiedBadge).rawValue() ==
              Pathable(Recs::Badges::verifiedBadge).rawValue());

constexpr int labelOf(Checks check) {
  switch (check) {
    case Checks::messageStandardCheckMarkIcon:
      return 1;
    case Checks::checkmark:
      return 2;
    case Checks::checkInCircle:
      return 3;
  }
  return 0;
}
static_assert(labelOf(Checks::checkInCircle) == 3);

template <class E>
class EveryEnumeration : public testing::Test {};

using Enumerations = testing::Types<
    App::Things, App::DeleteAccount, App::Info, App::Media, App::Flames, App::Shapes::Text,
    App::Shapes::People, App::Shapes::Circles, App::Shapes::Arrows, App::Shapes::Checks,
    App::Shapes::Pluses, App::Shapes::Rectangles, App::Shapes::Triangles, App::ThirdParty,
    App::Badges, Location::Places, Location::Trevvo, MatchesSection, Chat, Vinyl, Mixer::Room,
    Mixer::Lobby, Profile::Profile, Profile::Photo, Profile::Editing, Recs::CardStack,
    Recs::BreakingGeo, Recs::ItsAMatch, Recs::Badges, Recs::Gamepad::Stars, Recs::Gamepad::Hearts,
    Recs::Gamepad::Surgo, Recs::Gamepad::Nopes, Revenue::Features, Revenue::Paywall,
    VideoChat::Call, Icons, IconTab>;
TYPED_TEST_SUITE(EveryEnumeration, Enumerations);

TYPED_TEST(EveryEnumeration, FindsItsCasesByRawValueAlone) {
  using E = TypeParam;
  ASSERT_FALSE(E::allCases.empty());
  std::size_t index = 0;
  std::unordered_set<E> seen;
  for (const E value : E::allCases) {
    EXPECT_EQ(value.index(), index++);
    EXPECT_TRUE(seen.insert(value).second);
    EXPECT_EQ(E::fromRawValue(value.rawValue()), value);
    const std::string rawValue(value.rawValue());
    EXPECT_FALSE(E::fromRawValue(rawValue + " "));
    EXPECT_FALSE(E::fromRawValue(rawValue.substr(1)));
    if (const auto other = E::fromRawValue(value.name())) {
      EXPECT_EQ(other->rawValue(), value.name());
    }
  }
  EXPECT_FALSE(E::fromRawValue(""));
}

// The dotted name is written beside the C++ namespace; they have to say the same.
TYPED_TEST(EveryEnumeration, IsNamedAfterItsNamespace) {
  std::string expected = testing::internal::GetTypeName<TypeParam>();
  expected.erase(0, std::string("glyphwright::").size());
  for (std::size_t at = expected.find("::"); at != std::string::npos; at = expected.find("::")) {
    expected.replace(at, 2, ".");
  }
  EXPECT_EQ(TypeParam::enumeration.name, expected);
}

TEST(Enumerations, PrintTheirQualifiedName) {
  EXPECT_EQ(testing::PrintToString(Checks::checkmark), "App.Shapes.Checks.checkmark");
  EXPECT_EQ(testing::PrintToString(Icons::vantelPointyStar), "Icons.vantelPointyStar");
  EXPECT_EQ(testing::PrintToString(IconTab::videoChat), "IconTab.videoChat");
  EXPECT_EQ(testing::PrintToString(Pathable(Chat::chatIcon)), "Chat.chatIcon");
}

TEST(Pathables, SpeakForTheirCase) {
  const Pathable icon = Recs::ItsAMatch::retroMatchThinOutline;
  EXPECT_EQ(icon.title(), "It's A Match");
  EXPECT_EQ(icon.name(), "retroMatchThinOutline");
  EXPECT_EQ(icon.rawValue(), "retroMatchThinOutline");
  EXPECT_EQ(icon.enumerationName(), "Recs.ItsAMatch");
  const std::unordered_set<Pathable> set = {App::Badges::verifiedBadge, Recs::Badges::verifiedBadge,
                                            App::Badges::verifiedBadge};
  EXPECT_EQ(set.size(), 2U);
}

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

}  // namespace
}  // namespace glyphwright
