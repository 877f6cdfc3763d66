// Moving, scaling and centring paths.

#include <algorithm>
#include <cstdint>

#include <gtest/gtest.h>

#include <glyphwright/bezier_path.h>
#include <glyphwright/catalogue/icon_type.h>

namespace glyphwright {
namespace {

UIBezierPath box(CGFloat x, CGFloat y, CGFloat width, CGFloat height) {
  return UIBezierPath::bezierPathWithRect({x, y, width, height});
}

UIBezierPath horizontalLine(CGFloat length) {
  UIBezierPath path;
  path.moveToPoint({0, 0});
  path.addLineToPoint({length, 0});
  return path;
}

TEST(Fitting, ScalesAboutTheOrigin) {
  const struct {
    const char* what;
    UIBezierPath path;
    CGSize size;
    CGRect bounds;
  } rows[] = {
      {"the offset is scaled as well", box(10, 20, 40, 20), {80, 80}, {20, 40, 80, 40}},
      {"the tighter side decides", box(0, 0, 10, 40), {100, 20}, {0, 0, 5, 20}},
      {"a line keeps its length when it is shorter", horizontalLine(50), {100, 30}, {0, 0, 50, 0}},
      {"a line still shrinks", horizontalLine(50), {25, 30}, {0, 0, 25, 0}},
      {"an empty path stays", UIBezierPath(), {100, 30}, {0, 0, 0, 0}},
      {"no room", box(5, 5, 10, 10), {0, 40}, {0, 0, 0, 0}},
      {"less than no room turns it over", box(0, 0, 10, 20), {-10, -10}, {-10, -20, 10, 20}},
  };
  for (const auto& row : rows) {
    UIBezierPath scaled = row.path;
    scaled.scaleToFitSize(row.size);
    EXPECT_EQ(scaled.bounds().origin, row.bounds.origin) << row.what;
    EXPECT_EQ(scaled.bounds().size, row.bounds.size) << row.what;
    UIBezierPath chained = row.path;
    EXPECT_EQ(&chained.size(row.size), &chained);
    EXPECT_EQ(chained.cgPath(), scaled.cgPath()) << row.what;
    EXPECT_EQ(chained.lineWidth(), row.path.lineWidth());
  }
}

TEST(Fitting, CentringIgnoresTheOrigin) {
  UIBezierPath away = box(10, 20, 40, 20);
  away.centerAlignWithinSize({100, 100});
  EXPECT_EQ(away.bounds(), CGRect(40, 60, 40, 20));
  UIBezierPath large = box(0, 0, 40, 20);
  large.centerAlignWithinSize({20, 20});
  EXPECT_EQ(large.bounds(), CGRect(-10, 0, 40, 20));
}

TEST(Fitting, IconsByTypeAreSizedButNotCentred) {
  for (const IconTypeRecord& record : iconTypes) {
    const auto fitted = UIBezierPath::bezierPathWithIcon(record.type, {30, 60});
    ASSERT_TRUE(fitted) << record.name;
    const CGRect bounds = fitted->bounds();
    EXPECT_NEAR(bounds.origin.x, 0, 1e-9) << record.name;
    EXPECT_NEAR(bounds.origin.y, 0, 1e-9) << record.name;
    EXPECT_NEAR(std::max(bounds.size.width / 30, bounds.size.height / 60), 1, 1e-9) << record.name;
  }
  const UIBezierPath own = *UIBezierPath::pathForIcon(VNTLIconType::heart);
  UIBezierPath scaled = own;
  scaled.scaleToFitSize({30, 60});
  EXPECT_EQ(UIBezierPath::bezierPathWithIcon(VNTLIconType::heart, {30, 60}, false)->cgPath(),
            scaled.cgPath());
  for (const std::int64_t value : {std::int64_t{-1}, std::int64_t{129}, INT64_MIN, INT64_MAX}) {
    EXPECT_FALSE(UIBezierPath::bezierPathWithIcon(static_cast<VNTLIconType>(value), {30, 60}));
  }
}

}  // namespace
}  // namespace glyphwright
