// What a program would write first, compiled and held.

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/glyphwright.h>

#include "pixels.h"

namespace glyphwright {
namespace {

// What must not compile, as it could only be misread.
template <typename Look>
concept SetsAName = requires(AttributeDictionary& look) {
  look.setValue(VNTLGlyphwrightFillColor, Look());
};
static_assert(SetsAName<UIColor> && SetsAName<float> && SetsAName<std::vector<int>>);
static_assert(!SetsAName<const char*> && !SetsAName<std::vector<const char*>>);
template <typename Icons>
concept LaysOut = requires(const Icons& icons, const std::vector<IconAttributes>& looks) {
  UIBezierPath::newImage(icons, looks, {}, {}, {});
};
static_assert(LaysOut<std::vector<App::Shapes::Checks>> && LaysOut<std::vector<Pathable>>);
static_assert(!LaysOut<std::vector<std::string>> && !LaysOut<std::vector<VNTLIconType>>);
template <typename Number>
concept NamesAnIcon = requires(Number number) {
  UIBezierPath::pathForIcon(number);
};
static_assert(NamesAnIcon<int> && NamesAnIcon<std::uint64_t> && NamesAnIcon<VNTLIconType>);
static_assert(!NamesAnIcon<double> && !NamesAnIcon<bool> && !NamesAnIcon<const char*>);
static_assert(!std::is_convertible_v<std::shared_ptr<CALayer>, Borrowed<const NSShadow>>);

static_assert(Recs::Gamepad::Hearts::heart.hasDrawing() &&
              !Pathable(App::Things::magicCatEasterEgg).hasDrawing() &&
              !Icons::shieldIcon.hasDrawing());

constexpr UIColor kRed(1, 0, 0, 1);
constexpr UIColor kBlue(0, 0, 1, 1);

bool same(const UIImage& a, const UIImage& b) {
  return a.hasPixels() && a.size() == b.size() &&
         std::ranges::equal(a.cgImage().rgba(), b.cgImage().rgba());
}

TEST(Spelling, NumbersOfAnyTypeAnimate) {
  const auto frames = CAKeyframeAnimation::animation();
  frames->setKeyPath("opacity");
  frames->setValues({1, 0.5, 0.25F});
  frames->setKeyTimes({0, 0.75, 1});
  ASSERT_EQ(frames->values().size(), 3U);
  EXPECT_EQ(std::get<CGFloat>(frames->values()[2]), 0.25);
  EXPECT_EQ(frames->keyTimes(), (std::vector<double>{0, 0.75, 1}));
  const auto basic = CABasicAnimation::animation();
  basic->setFromValue(std::vector<int>{0, 1});
  basic->setToValue(2);
  EXPECT_EQ(*basic->fromValue(), AnimationValue(std::vector<CGFloat>{0, 1}));
  EXPECT_EQ(std::get<CGFloat>(*basic->toValue()), 2);
  const auto layer = CAGradientLayer::layer();
  layer->addAnimation(frames);
  layer->addAnimation(frames, "pulse");
  EXPECT_EQ(layer->animationKeys(), std::vector<std::string>{"pulse"});
  layer->setColors({kRed, kBlue});
  layer->setLocations({0, 1});
  EXPECT_EQ(layer->colors(), (std::vector<CGColor>{kRed, kBlue}));
  layer->setLocations({});
  EXPECT_FALSE(layer->locations());
}

// The dictionary in braces draws what the one with every box spelled out draws.
TEST(Spelling, DictionariesStandInBraces) {
  const auto shadow = std::make_shared<NSShadow>();
  shadow->setShadowOffset({2, 1});
  const AttributeDictionary boxed{
      {VNTLGlyphwrightSize, CGSize{16, 12}},
      {VNTLGlyphwrightGradientColors, std::vector<UIColor>{kRed, kBlue}},
      {VNTLGlyphwrightGradientLocations, std::vector<NSNumber>{0, 0.5}},
      {VNTLGlyphwrightGradientStartPoint, CGPoint{0, 0.25}},
      {VNTLGlyphwrightDropShadow, shadow}};
  const AttributeDictionary braces{{VNTLGlyphwrightSize, {16, 12}},
                                   {VNTLGlyphwrightGradientColors, {kRed, kBlue}},
                                   {VNTLGlyphwrightGradientLocations, {0, 0.5}},
                                   {VNTLGlyphwrightGradientStartPoint, {0, 0.25}},
                                   {VNTLGlyphwrightDropShadow, *shadow}};
  const auto draw = [](const AttributeDictionary& look) {
    return UIBezierPath::imageWithIcon(VNTLIconType::heart, look);
  };
  EXPECT_TRUE(same(draw(boxed), draw(braces)));
  AttributeDictionary plain = braces;
  plain.setValue(VNTLGlyphwrightGradientLocations, std::vector<float>{0, 0.5F});
  EXPECT_TRUE(same(draw(boxed), draw(plain)));
  plain.setValue(VNTLGlyphwrightSize, {16, 12, 1});
  EXPECT_FALSE(plain.size(VNTLGlyphwrightSize));
}

TEST(Spelling, EmptyBracesAreNoColor) {
  const UIImage red = UIBezierPath::imageWithIcon(VNTLIconType::heart, {}, kRed);
  EXPECT_TRUE(same(red, UIBezierPath::heartPath().imageWithStrokeColor(std::nullopt, kRed)));
  EXPECT_TRUE(same(red, UIBezierPath::imageWithIcon(VNTLIconType::heart, kRed, {})));
}

TEST(Spelling, ListsStandInBraces) {
  const IconAttributes look = plainLook({8, 8}, kRed);
  const UIImage canvas =
      UIBezierPath::newImage({Recs::Gamepad::Hearts::heart, App::Shapes::Checks::checkmark},
                             {look, look}, {{0, 0}, {8, 0}}, {{8, 8}, {8, 8}}, {16, 8});
  EXPECT_EQ(canvas.cgImage().width(), 16U);
  EXPECT_EQ(canvas.cgImage().height(), 8U);
  EXPECT_EQ(pixels::at(canvas, 4, 3), pixels::kRed);
  EXPECT_EQ(pixels::at(canvas, 0, 7), pixels::kNone);
  const std::vector<App::Shapes::Checks> checks(2, App::Shapes::Checks::checkmark);
  EXPECT_TRUE(same(
      UIBezierPath::newImage(checks, {look, look}, {{0, 0}, {8, 0}}, {{8, 8}, {8, 8}}, {16, 8}),
      UIBezierPath::newImage({checks[0], checks[1]}, {look, look}, {{0, 0}, {8, 0}},
                             {{8, 8}, {8, 8}}, {16, 8})));
  EXPECT_TRUE(same(UIImage::emailIcon({24, 24}, {kRed, kBlue}),
                   UIImage::emailIcon({24, 24}, std::vector<UIColor>{kRed, kBlue})));
  const auto gradient = CGGradientCreateWithColors({}, {kRed, kBlue}, {0.25, 1});
  ASSERT_TRUE(gradient);
  EXPECT_EQ(gradient->stops()[0].location, 0.25);
  EXPECT_EQ(IconGradient({kRed, kBlue}, IconGradient::Direction::leftToRight).locations,
            (std::vector<CGPoint>{{0, 0}, {1, 0}}));
}

TEST(Spelling, IconsByPlainNumbers) {
  EXPECT_EQ(UIBezierPath::pathForIcon(7)->bounds(),
            UIBezierPath::pathForIcon(VNTLIconType{7})->bounds());
  EXPECT_TRUE(same(UIBezierPath::imageWithIcon(7, {}, kRed),
                   UIBezierPath::imageWithIcon(VNTLIconType{7}, {}, kRed)));
  EXPECT_FALSE(UIBezierPath::pathForIcon(129));
  // No wrapping round to a number that an icon has.
  EXPECT_FALSE(UIBezierPath::pathForIcon((std::uint64_t{1} << 63) + 7));
  EXPECT_EQ(UIBezierPath::shapeLayerWithIcon(-1, {8, 8}), nullptr);
}

TEST(Spelling, ShadowsAndLayersAreTakenAsTheyAre) {
  const IconShadow values(kBlue, {1, 1}, 0);
  const NSShadow object = *values.shadow;
  const UIImage dot = UIBezierPath::circlePath().makeImage(plainLook({8, 8}, kRed));
  const UIImage shaded = UIBezierPath().imageWithDropShadow(object, dot);
  EXPECT_FALSE(same(dot, shaded));
  EXPECT_TRUE(same(shaded, UIBezierPath().imageWithDropShadow(values, dot)));
  EXPECT_TRUE(same(shaded, UIBezierPath().imageWithDropShadow(values.shadow, dot)));
  EXPECT_TRUE(same(dot, UIBezierPath().imageWithDropShadow(nullptr, dot)));
  const auto background = CALayer::layer();
  const AttributeDictionary look{{VNTLGlyphwrightSize, {8, 8}}};
  EXPECT_TRUE(same(UIBezierPath::imageWithIcon(VNTLIconType::heart, look, kRed, CALayer::layer()),
                   UIBezierPath::imageWithIcon(VNTLIconType::heart, look, kRed, background.get())));
  EXPECT_EQ(VNTLGradientShapeLayer::initWithLayer(nullptr), nullptr);
  EXPECT_NE(VNTLGradientShapeLayer::initWithLayer(background), nullptr);
}

// The middle of bounds without end is no number, which the inner layers cannot take.
TEST(Spelling, ARefusedChangeChangesNoLayer) {
  constexpr CGFloat infinity = std::numeric_limits<CGFloat>::infinity();
  const auto layer = VNTLGradientShapeLayer::layer();
  layer->setBounds({1, 2, 8, 8});
  layer->setPosition({5, 5});
  EXPECT_THROW(layer->setBounds({-infinity, 0, infinity, 4}), std::invalid_argument);
  EXPECT_EQ(layer->bounds(), CGRect(1, 2, 8, 8));
  EXPECT_THROW(layer->setFrame({0, 0, infinity, std::nan("")}), std::invalid_argument);
  EXPECT_EQ(layer->bounds(), CGRect(1, 2, 8, 8));
  EXPECT_EQ(layer->position(), (CGPoint{5, 5}));
  EXPECT_EQ(layer->gradientLayer()->frame(), CGRect(1, 2, 8, 8));
  EXPECT_EQ(layer->maskLayer()->frame(), CGRect(1, 2, 8, 8));
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
