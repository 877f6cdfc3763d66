// Whatever way a drawing takes, the picture is that of the plain way; and every condition in the
// table of ways is needed.

#include <algorithm>
#include <random>

#include <gtest/gtest.h>

#include "drawing_scene.h"
#include "pixels.h"

namespace glyphwright::drawing {
namespace {

constexpr unsigned kScenes = 1200;

TEST(Plans, GiveThePictureOfThePlainWay) {
  for (const Row& row : kPlans) {
    int worst = 0;
    for (unsigned seed = 0; seed < kScenes; ++seed) {
      Scene scene(std::mt19937(seed), row.task);
      worst = std::max(worst, pixels::largestDifference(scene.drawn({&row, 1}), scene.drawn({})));
    }
    EXPECT_LE(worst, row.levels) << row.name;
  }
}

// Without one of its conditions a way gives another picture somewhere. Those that keep a pass from
// reading what is not there cannot be tried.
TEST(Plans, NeedTheirConditions) {
  for (const Row& row : kPlans) {
    for (unsigned bit = 0; bit < 32; ++bit) {
      const auto fact = static_cast<Fact>(bit);
      if (!row.needs.has(fact) || kSafety.has(fact)) continue;
      Row rash = row;
      rash.needs = row.needs.without(fact);
      int worst = 0;
      for (unsigned seed = 0; seed < kScenes && worst <= row.levels; ++seed) {
        Scene scene(std::mt19937(seed), row.task);
        worst = pixels::largestDifference(scene.drawn({&rash, 1}), scene.drawn({}));
      }
      EXPECT_GT(worst, row.levels) << row.name << " does not need condition " << bit;
    }
  }
}

}  // namespace
}  // namespace glyphwright::drawing
