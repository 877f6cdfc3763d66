// What a program would write first, compiled and held.

#include <algorithm>
#include <numeric>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/glyphwright.h>

#include "pixels.h"

namespace glyphwright {
namespace {

// `{}` must not pass for attributes where it is meant for a colour.
template <typename Icon>
concept TakesEmptyBraces = requires(Icon icon, UIColor red) {
  UIBezierPath::imageWithIcon(icon, {}, red);
};
static_assert(!TakesEmptyBraces<VNTLIconType>);
static_assert(Recs::Gamepad::Hearts::heart.hasDrawing() &&
              !Pathable(App::Things::magicCatEasterEgg).hasDrawing() &&
              !Icons::shieldIcon.hasDrawing());

TEST(Spelling, NumbersOfAnyTypeAnimate) {
  const auto frames = CAKeyframeAnimation::animationWithKeyPath("opacity");
  frames->setValues({1, 0.5, 0.25F});
  ASSERT_EQ(frames->values().size(), 3U);
  EXPECT_EQ(std::get<CGFloat>(frames->values()[2]), 0.25);
  const auto basic = CABasicAnimation::animationWithKeyPath("locations");
  basic->setFromValue(std::vector<int>{0, 1});
  basic->setToValue(2);
  EXPECT_EQ(*basic->fromValue(), AnimationValue(std::vector<CGFloat>{0, 1}));
  EXPECT_EQ(std::get<CGFloat>(*basic->toValue()), 2);
}

TEST(Spelling, ListsStandInBraces) {
  const AttributeDictionary dictionary{
      {VNTLGlyphwrightGradientLocations, std::vector<double>{0, 0.5}}};
  ASSERT_NE(dictionary.numbers(VNTLGlyphwrightGradientLocations), nullptr);
  EXPECT_EQ((*dictionary.numbers(VNTLGlyphwrightGradientLocations))[1].doubleValue(), 0.5);
  const IconAttributes look = plainLook({8, 8}, UIColor(1, 0, 0, 1));
  const UIImage canvas =
      UIBezierPath::newImage({Recs::Gamepad::Hearts::heart, App::Shapes::Checks::checkmark},
                             {look, look}, {{0, 0}, {8, 0}}, {{8, 8}, {8, 8}}, {16, 8});
  EXPECT_EQ(canvas.cgImage().width(), 16U);
  EXPECT_EQ(canvas.cgImage().height(), 8U);
  EXPECT_EQ(pixels::at(canvas, 4, 3), pixels::kRed);
  EXPECT_EQ(pixels::at(canvas, 0, 7), pixels::kNone);
  EXPECT_EQ(UIBezierPath::pathForIcon(7)->bounds(),
            UIBezierPath::pathForIcon(VNTLIconType{7})->bounds());
  EXPECT_FALSE(UIBezierPath::pathForIcon(129));
  EXPECT_EQ(UIBezierPath::shapeLayerWithIcon(-1, {8, 8}), nullptr);
}

TEST(Spelling, AllIconsOfATabCanBeAskedForADrawing) {
  std::size_t undrawn = 0;
  for (const IconTab tab : IconTab::allCases) {
    for (const Pathable& icon : tab.tab().icons()) {
      undrawn += icon.hasDrawing() ? 0 : 1;
      EXPECT_EQ(icon.hasDrawing(), resolveIcon(icon.rawValue()).has_value()) << icon;
    }
  }
  EXPECT_EQ(undrawn, 1U);
}

}  // namespace
}  // namespace glyphwright
