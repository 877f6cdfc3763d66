// The shape that all enumerations share: constants, raw values, comparison, printing, Pathable.

#include <sstream>
#include <string>
#include <unordered_set>

#include <gtest/gtest.h>

#include <glyphwright/bezier_path.h>
#include <glyphwright/catalogue/catalogue.h>
#include <glyphwright/catalogue/icon_tab.h>
#include <glyphwright/catalogue/icons.h>
#include <glyphwright/catalogue/pathable.h>

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

}  // namespace
}  // namespace glyphwright
