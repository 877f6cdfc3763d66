// The records and the dictionary that say how an icon is painted.

#include <cmath>
#include <cstdint>
#include <iterator>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/platform/value.h>
#include <glyphwright/platform/vantel_kit.h>
#include <glyphwright/rendering/attribute_dictionary.h>
#include <glyphwright/rendering/icon_attributes.h>

namespace glyphwright {
namespace {

using Direction = IconGradient::Direction;

const UIColor kRed(1, 0, 0, 1);
const UIColor kGreen(0, 1, 0, 1);
const UIColor kBlue(0, 0, 1, 1);

TEST(IconGradient, DirectionSpreadsStopsAndPoints) {
  struct {
    Direction direction;
    std::vector<CGPoint> points;
  } const rows[] = {
      {Direction::topToBottom, {{0, 0}, {0, 0.5}, {0, 1}}},
      {Direction::leftToRight, {{0, 0}, {0.5, 0}, {1, 0}}},
      {Direction::topLeftToBottomRight, {{0, 0}, {0.5, 0.5}, {1, 1}}},
      {Direction::bottomLeftToTopRight, {{1, 1}, {0.5, 0.5}, {0, 0}}},
  };
  const std::vector<UIColor> colors = {kRed, kGreen, kBlue};
  for (const auto& row : rows) {
    const IconGradient gradient(colors, {}, row.direction);
    EXPECT_EQ(gradient.colors, colors);
    EXPECT_EQ(gradient.points, (std::vector<CGFloat>{0, 0.5, 1}));
    EXPECT_EQ(gradient.locations, row.points) << static_cast<int>(row.direction);
  }
  const std::vector<CGPoint> given = {{0.25, 0.75}};
  const IconGradient kept(colors, given, Direction::leftToRight);
  EXPECT_EQ(kept.locations, given);
  EXPECT_EQ(kept.points, (std::vector<CGFloat>{0, 0.5, 1}));
  const IconGradient none({}, {}, Direction::topToBottom);
  EXPECT_TRUE(none.points.empty());
  EXPECT_TRUE(none.locations.empty());
  const IconGradient single({kRed}, {}, Direction::topToBottom);
  ASSERT_EQ(single.points.size(), 1U);
  EXPECT_TRUE(std::isnan(single.points[0]));
}

TEST(IconGradient, UpdateTakesOverTheHostGradient) {
  IconGradient gradient({kRed}, {{0, 0}}, std::vector<CGFloat>{0.5});
  gradient.update({{kBlue}, {{0.1, 0.2}, {0.3, 0.4}}});
  EXPECT_EQ(gradient.colors, std::vector<UIColor>{kBlue});
  EXPECT_EQ(gradient.locations, (std::vector<CGPoint>{{0.1, 0.2}, {0.3, 0.4}}));
  EXPECT_EQ(gradient.points, std::vector<CGFloat>{0.5}) << "one colour leaves the stops alone";
  gradient.update({{kRed, kGreen, kBlue, kRed, kGreen}, {{1, 0}, {0, 1}}});
  EXPECT_EQ(gradient.points, (std::vector<CGFloat>{0, 0.25, 0.5, 0.75, 1}));

  IconAttributes attributes{.fillColor = kRed, .backgroundColor = kBlue, .size = {1, 2}};
  attributes.apply({{kRed, kGreen}, {{0, 0}, {1, 1}}});
  EXPECT_FALSE(attributes.gradient);
  attributes.gradient = IconGradient({}, {}, std::vector<CGFloat>{});
  attributes.apply({{kRed, kGreen}, {{0, 0}, {1, 1}}});
  EXPECT_EQ(attributes.gradient->colors.size(), 2U);
}

TEST(IconShadow, HoldsAnObjectOfItsOwn) {
  IconShadow one(kRed, {1, 2}, 3);
  EXPECT_NE(one.shadow, IconShadow(kRed, {1, 2}, 3).shadow);
  EXPECT_EQ(IconShadow(one).shadow, one.shadow);
  one.blur = 9;
  one.color = kBlue;
  EXPECT_EQ(one.shadow->shadowBlurRadius(), 3);
  EXPECT_EQ(one.shadow->shadowColor(), kRed);
}

TEST(AttributeDictionary, PublishesThirteenKeys) {
  const struct {
    VNTLGlyphwright key;
    const char* value;
  } rows[] = {{VNTLGlyphwrightSize, "size"},
              {VNTLGlyphwrightFillColor, "fillColor"},
              {VNTLGlyphwrightBackgroundColor, "backgroundColor"},
              {VNTLGlyphwrightStrokeColor, "strokeColor"},
              {VNTLGlyphwrightStrokeWidth, "strokeWidth"},
              {VNTLGlyphwrightBorderWidth, "borderWidth"},
              {VNTLGlyphwrightBorderColor, "borderColor"},
              {VNTLGlyphwrightDropShadow, "dropShadow"},
              {VNTLGlyphwrightInsetShadow, "insetShadow"},
              {VNTLGlyphwrightGradientColors, "gradientColors"},
              {VNTLGlyphwrightGradientLocations, "gradientLocations"},
              {VNTLGlyphwrightGradientStartPoint, "gradientStartPoint"},
              {VNTLGlyphwrightGradientEndPoint, "gradientEndPoint"}};
  EXPECT_EQ(std::size(rows), 13U);
  for (const auto& row : rows) EXPECT_EQ(row.key.rawValue(), row.value);
}

TEST(AttributeDictionary, ReadsEachKindAndNoOther) {
  const VNTLGlyphwright key("k");
  const std::vector<AttributeValue> values = {2.5,
                                              CGSize{1, 2},
                                              CGPoint{3, 4},
                                              kRed,
                                              std::make_shared<NSShadow>(),
                                              std::vector<UIColor>{kRed},
                                              std::vector<NSNumber>{1},
                                              std::shared_ptr<NSShadow>(),
                                              CGRect(1, 2, 3, 4)};
  for (std::size_t i = 0; i < values.size(); ++i) {
    const AttributeDictionary dictionary{{key, UIColor()}, {key, values[i]}};
    EXPECT_EQ(dictionary.count(), 1U) << "of equal keys the last counts";
    EXPECT_EQ(dictionary.number(key) != nullptr, i == 0) << i;
    EXPECT_EQ(dictionary.size(key).has_value(), i == 1) << i;
    EXPECT_EQ(dictionary.point(key).has_value(), i == 2) << i;
    EXPECT_EQ(dictionary.color(key) != nullptr, i == 3) << i;
    EXPECT_EQ(dictionary.shadow(key) != nullptr, i == 4) << i;
    EXPECT_EQ(dictionary.colors(key) != nullptr, i == 5) << i;
    EXPECT_EQ(dictionary.numbers(key) != nullptr, i == 6) << i;
    AttributeDictionary emptied = dictionary;
    emptied.removeValue(key);
    emptied.removeValue(key);
    EXPECT_EQ(emptied.value(key), nullptr);
    EXPECT_NE(dictionary.value(key), nullptr) << "copies are independent";
  }
}

TEST(NSNumber, ReadsByTheRulesOfC) {
  constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();
  constexpr std::int64_t smallest = std::numeric_limits<std::int64_t>::min();
  constexpr float infinity = std::numeric_limits<float>::infinity();
  const struct {
    NSNumber number;
    float asFloat;
    std::int64_t asInteger;
  } rows[] = {
      {0.9, 0.9F, 0},
      {-0.9, -0.9F, 0},
      {2.7, 2.7F, 2},
      {-2.7, -2.7F, -2},
      {3, 3.0F, 3},
      {true, 1.0F, 1},
      {16777217, 16777216.0F, 16777217},
      {largest, 9223372036854775808.0F, largest},
      {smallest, -9223372036854775808.0F, smallest},
      {std::numeric_limits<std::uint64_t>::max(), 18446744073709551616.0F, largest},
      {1e300, infinity, largest},
      {-1e300, -infinity, smallest},
      {-std::numeric_limits<double>::infinity(), -infinity, smallest},
      {9223372036854775808.0, 9223372036854775808.0F, largest},
      {-9223372036854775808.0, -9223372036854775808.0F, smallest},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(row.number.floatValue(), row.asFloat) << row.number.doubleValue();
    EXPECT_EQ(row.number.integerValue(), row.asInteger) << row.number.doubleValue();
  }
  EXPECT_EQ(static_cast<double>(NSNumber(0.9).floatValue()), 0.8999999761581421);
  const NSNumber nothing(std::numeric_limits<double>::quiet_NaN());
  EXPECT_EQ(nothing.integerValue(), 0);
  EXPECT_TRUE(std::isnan(nothing.floatValue()));
}

TEST(NSValue, AnotherKindReadsAsZeros) {
  EXPECT_EQ(NSValue(CGSize{1, 2}).CGSizeValue(), (CGSize{1, 2}));
  EXPECT_EQ(NSValue(CGSize{1, 2}).CGPointValue(), CGPoint{});
  EXPECT_EQ(NSValue(CGPoint{1, 2}).CGRectValue(), CGRectZero);
  EXPECT_EQ(NSValue(CGRect(1, 2, 3, 4)).CGRectValue(), CGRect(1, 2, 3, 4));
}

}  // namespace
}  // namespace glyphwright
