// The corners of strokes: the loops of this machine against the scalar ones, bit for bit.

#include <random>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/platform/raster/kernels.h>

namespace glyphwright::raster {
namespace {

TEST(RasterStroke, CurvesSampleTheSameOnEveryMachine) {
  std::mt19937 random(20240608);
  const auto real = [&](float low, float high) {
    return std::uniform_real_distribution<float>(low, high)(random);
  };
  int followed = 0;
  for (const float size : {0.0F, 1.0F, 40.0F, 9000.0F}) {
    for (int round = 0; round < 100; ++round) {
      StrokeCurve curve{};
      for (float* v : {&curve.startX, &curve.startY, &curve.legX, &curve.legY}) {
        *v = real(-size, size);
      }
      for (float* v : {&curve.bendX, &curve.bendY, &curve.changeX, &curve.changeY}) {
        *v = real(-size, size) * 0.3F;
      }
      curve.half = real(0.01F, 3);
      curve.count = static_cast<int>(real(1, 41));
      std::vector<float> fast[4];
      for (auto& side : fast) side.assign(48, -1);
      std::vector<float> plain[4] = {fast[0], fast[1], fast[2], fast[3]};
      const auto corners = [](std::vector<float>* v) {
        return StrokeCorners{v[0].data(), v[1].data(), v[2].data(), v[3].data()};
      };
      const bool follows = scalarKernels().strokeCurve(curve, corners(plain));
      ASSERT_EQ(kernels().strokeCurve(curve, corners(fast)), follows);
      followed += follows ? 1 : 0;
      // A curve without a direction somewhere has no sides there.
      if (!follows) continue;
      for (std::size_t i = 0; i < static_cast<std::size_t>(curve.count); ++i) {
        for (std::size_t side = 0; side < 4; ++side) ASSERT_EQ(fast[side][i], plain[side][i]);
      }
    }
  }
  EXPECT_GT(followed, 40);
  EXPECT_LT(followed, 360);
}

}  // namespace
}  // namespace glyphwright::raster
