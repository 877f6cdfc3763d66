#pragma once

#include <immintrin.h>

#include <glyphwright/platform/raster/kernels/avx2_lanes.h>

namespace glyphwright::raster::avx2 {

/// A colour to be laid over pixels, which stay where they are: their even bytes become one register
/// of channels and their odd bytes another, so that nothing needs to be woven. Gives what
/// Ink::coveredOver gives.
class PlainInk {
 public:
  /// Pixels in the lower half of a register take the first colour.
  PlainInk(const SolidColor& first, const SolidColor& second)
      : even_(pairs(first, second, 0)),
        odd_(pairs(first, second, 1)),
        alpha_(inHalves(first.alpha, second.alpha)) {}

  /// Eight pixels, each with its coverage twice.
  __m256i over(__m256i coverage, __m256i below) const {
    const __m256i rest =
        _mm256_sub_epi16(_mm256_set1_epi16(kOne), _mm256_mulhrs_epi16(alpha_, coverage));
    const auto channels = [&](__m256i ink, __m256i levels64) {
      return rounded(_mm256_add_epi16(_mm256_mulhrs_epi16(ink, coverage),
                                      _mm256_mulhrs_epi16(levels64, rest)));
    };
    // As 1/64 levels.
    const __m256i evenBelow = _mm256_srli_epi16(_mm256_slli_epi16(below, 8), 2);
    const __m256i oddBelow = _mm256_slli_epi16(_mm256_srli_epi16(below, 8), 6);
    return _mm256_or_si256(channels(even_, evenBelow),
                           _mm256_slli_epi16(channels(odd_, oddBelow), 8));
  }

 private:
  // Channels `from` and `from` + 2 in turn.
  static __m256i pairs(const SolidColor& first, const SolidColor& second, int from) {
    const auto pair = [from](const SolidColor& color) {
      return _mm_set1_epi32(color.channels[from] | color.channels[from + 2] << 16);
    };
    return _mm256_set_m128i(pair(second), pair(first));
  }

  __m256i even_;  // red and blue
  __m256i odd_;   // green and alpha
  __m256i alpha_;
};

}  // namespace glyphwright::raster::avx2
