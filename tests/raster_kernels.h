#pragma once

#include <cstddef>
#include <cstdint>
#include <ostream>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include <glyphwright/platform/raster/cells.h>
#include <glyphwright/platform/raster/kernels.h>

/// A set of loops and the plain ones, with input for both.
namespace glyphwright::raster {

inline constexpr std::uint16_t kGuard = 0x5A5A;
inline constexpr std::size_t kCounts[] = {1,  2,  7,  8,  9,  15, 16, 17,
                                          23, 24, 31, 32, 33, 63, 64, 100};

// What a parameter is called in lists of tests.
inline void PrintTo(const KernelSet& set, std::ostream* to) {
  *to << set.name;
}

class RasterKernels : public testing::TestWithParam<KernelSet> {
 protected:
  int upTo(int most) { return std::uniform_int_distribution<int>(0, most)(random_); }
  float real(float low, float high) {
    return std::uniform_real_distribution<float>(low, high)(random_);
  }
  // Half of them at the ends, where sums saturate.
  std::vector<std::uint16_t> coverage(std::size_t count) {
    std::vector<std::uint16_t> values(count, kGuard);
    for (auto& v : values) {
      const int kind = upTo(3);
      v = static_cast<std::uint16_t>(kind == 0 ? 0 : kind == 1 ? kOne : upTo(kOne));
    }
    return values;
  }
  std::vector<std::uint8_t> premultiplied(std::size_t count) {
    std::vector<std::uint8_t> rgba;
    for (std::size_t i = 0; i < count; ++i) {
      const int alpha = upTo(2) == 0 ? 255 : upTo(255);
      for (int c = 0; c < 3; ++c) rgba.push_back(static_cast<std::uint8_t>(upTo(alpha)));
      rgba.push_back(static_cast<std::uint8_t>(alpha));
    }
    return rgba;
  }
  SolidColor color() {
    const int kind = upTo(3);
    const int alpha = kind == 0 ? 0 : kind == 1 ? kChannelOne : upTo(kChannelOne);
    SolidColor result;
    for (int c = 0; c < 3; ++c) result.channels[c] = static_cast<std::int16_t>(upTo(alpha));
    result.channels[3] = static_cast<std::int16_t>(alpha);
    result.alpha = static_cast<std::int16_t>(alpha * kOne / kChannelOne);
    return result;
  }
  // Winding up to the limit, and no further.
  std::vector<std::int16_t> cells(std::size_t stride, std::size_t rows) {
    std::vector<std::int16_t> values;
    for (std::size_t row = 0; row < rows; ++row) {
      int sum = 0;
      for (std::size_t x = 0; x < stride; ++x) {
        const int limit = kNarrowWindingLimit * kUnitsPerPixel;
        const int next = upTo(2) == 0 ? upTo(2 * limit) - limit : sum;
        values.push_back(static_cast<std::int16_t>(next - sum));
        sum = static_cast<std::int16_t>(sum + values.back());
      }
    }
    return values;
  }

  /// That what `run` gives of a set's loops is the same for this one and the plain one.
  template <typename Run>
  auto expectSame(Run run) {
    const auto expected = run(plain_);
    EXPECT_TRUE(run(fast_) == expected);
    return expected;
  }

  void SetUp() override {
    if (!GetParam().runsHere()) GTEST_SKIP() << "this processor lacks what the set needs";
  }

  const Kernels& fast_ = GetParam().loops();
  const Kernels& plain_ = kernelSets().back().loops();
  std::mt19937 random_{20240607};
};

}  // namespace glyphwright::raster
