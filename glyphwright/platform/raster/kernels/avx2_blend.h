#pragma once

#include <immintrin.h>

#include <glyphwright/platform/raster/kernels/avx2_lanes.h>

namespace glyphwright::raster::avx2 {

/// A colour to be laid over pixels, which stay where they are: their even bytes become one register
/// of channels and their odd bytes another, so that nothing needs to be woven. Gives what
/// Ink::coveredOver gives.
class PlainInk {
 public:
  explicit PlainInk(const SolidColor& color)
      : even_(everyPair(color.channels[0], color.channels[2])),
        odd_(everyPair(color.channels[1], color.channels[3])),
        alpha_(_mm256_set1_epi16(color.alpha)) {}

  /// Sixteen pixels' coverage over them.
  PixelPair over(__m256i coverage, const PixelPair& below) const {
    // Each pixel's coverage twice: that of the first eight pixels in one register, in order.
    const __m256i ordered = _mm256_permute4x64_epi64(coverage, _MM_SHUFFLE(3, 1, 2, 0));
    return {eight(_mm256_unpacklo_epi16(ordered, ordered), below.low),
            eight(_mm256_unpackhi_epi16(ordered, ordered), below.high)};
  }

 private:
  static __m256i everyPair(std::int16_t first, std::int16_t second) {
    return _mm256_set1_epi32(first | second << 16);
  }
  __m256i eight(__m256i coverage, __m256i below) const {
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

  __m256i even_;  // red and blue
  __m256i odd_;   // green and alpha
  __m256i alpha_;
};

}  // namespace glyphwright::raster::avx2
